#include <Gallery/Look/NavigationBar.h>

#include <Gallery/Look/Look.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kStatusBarHeight = 20;

/// An arrow and the name of the screen it leads to; half transparent while pressed.
class BackButton : public TapControl {
public:
    bool initWithTitle(const NSString& title) {
        const auto image = UIImage::imageNamed("gallery_back.png");
        const CGSize arrow = image ? image->size() : CGSizeZero;
        auto label = Look::label(title, UIFont::systemFontOfSize(17), UIColor::whiteColor());
        const CGSize text = label->sizeThatFits(CGSizeMake(200, 44));
        const CGFloat height = Look::kBarHeight - kStatusBarHeight;
        if (!initWithFrame(CGRectMake(0, kStatusBarHeight, 8 + arrow.width + 6 + text.width + 10, height)))
            return false;
        setOpaque(false);
        auto view = make<UIImageView>(&UIImageView::initWithImage, image);
        view->setFrame(CGRectMake(8, Look::wholePixels((height - arrow.height) / 2), arrow.width, arrow.height));
        addSubview(view);
        label->setFrame(CGRectMake(8 + arrow.width + 6, 0, text.width, height));
        addSubview(label);
        return true;
    }

    void setHighlighted(bool highlighted) override {
        TapControl::setHighlighted(highlighted);
        setAlpha(highlighted ? 0.5 : 1);
    }
};

} // namespace

bool NavigationBar::initWithFrame_title(CGRect frame, const NSString& title) {
    if (!initWithFrame(frame))
        return false;
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    const CGFloat width = frame.size.width;
    m_statusBarArea = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, width, kStatusBarHeight));
    m_statusBarArea->setBackgroundColor(UIColor::blackColor());
    // Before version 7 the status bar was a black strip of its own above the bar.
    m_statusBarArea->setHidden(UIDevice::currentDevice()->systemVersion().intValue() >= 7);
    m_statusBarArea->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    addSubview(m_statusBarArea);

    m_title = Look::label(title, UIFont::boldSystemFontOfSize(18), UIColor::whiteColor(), 1, NSTextAlignmentCenter);
    m_title->setFrame(CGRectMake(90, kStatusBarHeight, width - 180, Look::kBarHeight - kStatusBarHeight));
    m_title->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    m_title->setAdjustsFontSizeToFitWidth(true);
    m_title->setMinimumScaleFactor(0.7);
    addSubview(m_title);
    NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(this, selector<&NavigationBar::applyTheme>,
                                                                            kChangeThemeNotification, nullptr);
    applyTheme();
    return true;
}

NavigationBar::~NavigationBar() { NSNotificationCenter::defaultCenter()->removeObserver(this); }

void NavigationBar::setBackTitle_action(const NSString& title, std::function<void()> action) {
    auto button = make<BackButton>(&BackButton::initWithTitle, title);
    button->setAction(std::move(action));
    addSubview(button);
}

void NavigationBar::applyTheme() { setBackgroundColor(Look::barColor(Look::hue())); }

} // namespace zr::gallery
