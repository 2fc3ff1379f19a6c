#pragma once

#include <Tests/ZRKitDynamic/ZRTAlertView/AlertTesting.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>

namespace zr::testing {

inline Ref<ZRTAlertView> makeAlert(const NSString& title, const NSString& message, AlertDelegate* delegate = nullptr) {
    return make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles, title,
                              message, Delegate<ZRTAlertViewDelegate>(delegate), "Cancel", "OK");
}

inline const char* const kShortMessage = "It will be removed from all devices.";

/// A text of so many lines.
inline NSString textOfLines(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i)
        text += i ? "\nline" : "line";
    return text;
}

/// How high a message is on a panel of this width, with at most so much room.
inline CGFloat measuredHeight(const NSString& message, CGFloat panelWidth = 270, CGFloat room = 300) {
    return sizeWithFont_constrainedToSize(message, UIFont::systemFontOfSize(15), CGSizeMake(panelWidth - 20, room))
        .height;
}

inline CGFloat measuredWidth(const NSString& caption, CGFloat panelWidth = 270) {
    return sizeWithFont_constrainedToSize(caption, UIFont::systemFontOfSize(15), CGSizeMake(panelWidth - 40, 30)).width;
}

/// What the styles add to the panel; each nil when it is not there.
inline UIButton* checkBoxOf(const ZRTAlertView* alert) { return subviewOfClass<UIButton>(alert->backgroundAlert()); }
inline UIProgressView* barOf(const ZRTAlertView* alert) {
    return subviewOfClass<UIProgressView>(alert->backgroundAlert());
}
inline UIImageView* pictureOf(const ZRTAlertView* alert) {
    return subviewOfClass<UIImageView>(alert->backgroundAlert());
}
inline UILabel* captionOf(const ZRTAlertView* alert) {
    for (const Ref<UIView>& view : alert->backgroundAlert()->subviews()) {
        auto* label = dynamic_cast<UILabel*>(view.get());
        if (label && label != alert->titleLabel() && label != alert->messageLabel())
            return label;
    }
    return nullptr;
}

/// A red picture.
inline Ref<UIImage> imageOfSize(CGFloat width, CGFloat height) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(width, height), true, 1);
    CGContextSetFillColorWithColor(UIGraphicsGetCurrentContext(), UIColor::redColor()->cgColor());
    CGContextFillRect(UIGraphicsGetCurrentContext(), CGRectMake(0, 0, width, height));
    Ref<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

} // namespace zr::testing
