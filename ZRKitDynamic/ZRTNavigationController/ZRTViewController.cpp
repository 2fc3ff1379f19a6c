#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>

#include <ZRKitDynamic/SystemVersionInternal.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr {

namespace {

constexpr CGFloat kBarHeight = 44;
constexpr CGFloat kBarHeightBelowStatusBar = 64;

CGRect barFrame() {
    return CGRectMake(0, 0, UIScreen::mainScreen()->bounds().size.width,
                      systemVersionSortsFrom7() ? kBarHeightBelowStatusBar : kBarHeight);
}

} // namespace

// Construction

bool ZRTViewController::init() {
    if (!UIViewController::init())
        return false;
    createNavigationBarIfNeed();
    return true;
}

bool ZRTViewController::initWithNibName_bundle(const NSString& nibName, NSBundle* bundle) {
    if (!UIViewController::initWithNibName_bundle(nibName, bundle))
        return false;
    createNavigationBarIfNeed();
    return true;
}

void ZRTViewController::createNavigationBarIfNeed() {
    if (navigationController() && !m_tNavigationBar) {
        const auto bar = make<ZRTNavigationBar>(&UIView::initWithFrame, barFrame());
        bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
        bar->setDelegate(this);
        bar->setNavTitle(title());
        // Before the view, which asks for the bar itself as it loads.
        setTNavigationBar(bar);
        view()->addSubview(bar);
        view()->bringSubviewToFront(bar);
    }
    if (m_tNavigationBar)
        m_tNavigationBar->setFrame(barFrame());
    hiddenNavigationBar();
}

// Bar

void ZRTViewController::hiddenNavigationBar() {
    UINavigationController* navigation = navigationController();
    if (!navigation)
        return;
    navigation->setNavigationBarHidden(false);
    navigation->navigationBar()->setHidden(true);
}

void ZRTViewController::hiddenNavigationBarWithAnimated(bool animated) {
    if (m_tNavigationBar)
        m_tNavigationBar->hiddenNavigationBarWithAnimated(animated);
}

void ZRTViewController::showNavigationBarWithAnimated(bool animated) {
    if (m_tNavigationBar)
        m_tNavigationBar->showNavigationBarWithAnimated(animated);
}

CGFloat ZRTViewController::navigationBarMaxY() const {
    return m_tNavigationBar ? CGRectGetMaxY(m_tNavigationBar->frame()) : 0;
}

void ZRTViewController::setTitle(const NSString& title) {
    UIViewController::setTitle(title);
    if (m_tNavigationBar)
        m_tNavigationBar->setNavTitle(title);
}

// Leaving

void ZRTViewController::popViewControllerWithAnimated(bool animated) {
    UINavigationController* navigation = navigationController();
    if (navigation && navigation->childViewControllers().size() >= 2)
        navigation->popViewControllerAnimated(animated);
    else
        dismissViewControllerAnimated_completion(true, [] {});
}

void ZRTViewController::zrTNavigationBar_backButtonClicked(ZRTNavigationBar*, UIButton*) {
    popViewControllerWithAnimated(true);
}

bool ZRTViewController::accessibilityPerformEscape() {
    const UINavigationController* navigation = navigationController();
    const bool pops = navigation && navigation->childViewControllers().size() >= 2;
    if (!pops && !presentedViewController() && !presentingViewController())
        return UIViewController::accessibilityPerformEscape();
    popViewControllerWithAnimated(true);
    return true;
}

// Appearing

void ZRTViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    view()->setBackgroundColor(ZRColor::zrColorWithRed_green_blue_alpha(248, 248, 248, 1));
    createNavigationBarIfNeed();
}

void ZRTViewController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    hiddenNavigationBar();
    if (m_tNavigationBar)
        view()->bringSubviewToFront(m_tNavigationBar);
}

} // namespace zr
