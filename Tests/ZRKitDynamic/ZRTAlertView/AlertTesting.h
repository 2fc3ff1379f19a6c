#pragma once

#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>

#include <functional>
#include <string>
#include <vector>

namespace zr::testing {

/// Writes down what alerts tell it.
class AlertDelegate : public NSObject, public ZRTAlertViewDelegate {
public:
    void zrTAlertViewCancelButtonClicked(ZRBaseAlert* alert) override {
        messages.push_back("cancel");
        alerts.push_back(alert);
        if (onCancel)
            onCancel();
    }
    void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert* alert, NSInteger index) override {
        messages.push_back("clicked " + std::to_string(index));
        alerts.push_back(alert);
        if (onClick)
            onClick();
    }

    std::vector<std::string> messages;
    /// Not kept.
    std::vector<ZRBaseAlert*> alerts;
    std::function<void()> onCancel;
    std::function<void()> onClick;
};

using Messages = std::vector<std::string>;

inline Ref<ZRBaseAlert> makeBaseAlert(AlertDelegate* delegate = nullptr, const NSString& cancelTitle = nullptr,
                                      const NSString& okTitle = nullptr) {
    return make<ZRBaseAlert>(&ZRBaseAlert::initWithDelegate_cancelButtonTitle_okButtonTitles,
                             Delegate<ZRTAlertViewDelegate>(delegate), cancelTitle, okTitle);
}

/// Takes a shown alert off the screen: one left there keeps its window or host view, which keeps it.
inline void endAlert(HeadlessHost& host, ZRBaseAlert* alert) {
    alert->dismissAlertViewWithoutAnimation();
    host.advance(0);
}

/// How large the panel is seen to be, 1 being its full size.
inline CGFloat seenScale(const ZRBaseAlert* alert) {
    const CATransform3D transform = alert->backgroundAlert()->layer()->presentationValues().transform;
    EXPECT_EQ(transform.m11, transform.m22);
    return transform.m11;
}

inline CGFloat seenAlpha(const UIView* view) { return view->layer()->presentationValues().opacity; }

/// Where ease-in-ease-out is, a fraction `time` of the way.
inline CGFloat easedAt(CGFloat time) {
    return CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseInEaseOut)->valueAtTime(time);
}

/// What is seen at one moment comes out of a few floating-point steps.
inline constexpr double kSeenTolerance = 1e-6;

} // namespace zr::testing
