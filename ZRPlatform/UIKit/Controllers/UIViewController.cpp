#include <ZRPlatform/UIKit/Controllers/UIViewController.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/Foundation/NSThread.h>
#include <ZRPlatform/UIKit/Controllers/Internal/Presentation.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>
#include <ZRPlatform/UIKit/Controllers/UITabBarController.h>

#include <cassert>
#include <memory>

namespace zr {

// Construction

UIViewController::UIViewController() = default;

UIViewController::~UIViewController() {
    if (m_presentation)
        m_presentation->takeAway();
    for (const auto& child : m_children)
        child->m_parent = nullptr;
    letGoOfView();
}

void UIViewController::destroy() {
    if (NSThread::isMainThread()) {
        UIResponder::destroy();
        return;
    }
    // The block deletes the controller as it goes, so that a run loop that ends without running it leaks nothing.
    std::shared_ptr<UIViewController> last(this,
                                           [](UIViewController* controller) { controller->UIResponder::destroy(); });
    NSRunLoop::mainRunLoop()->performBlock([last = std::move(last)] {});
}

bool UIViewController::init() { return initWithNibName_bundle(nullptr, nullptr); }

bool UIViewController::initWithNibName_bundle(const NSString&, NSBundle*) {
    assert(NSThread::isMainThread());
    if (!UIResponder::init())
        return false;
    auto* center = NSNotificationCenter::defaultCenter();
    // Once, however often initialisers call one another.
    center->removeObserver_name_object(this, UIApplicationDidReceiveMemoryWarningNotification, nullptr);
    center->addObserver_selector_name_object(this, selector<&UIViewController::handleMemoryWarning>,
                                             UIApplicationDidReceiveMemoryWarningNotification, nullptr);
    return true;
}

const KeyTable& UIViewController::keyTable() const {
    // Reading the view loads it, so its getter is not a constant one.
    static constexpr KeyEntry kView{"view",
                                    [](const NSObject* object) {
                                        auto* controller = const_cast<UIViewController*>(
                                            dynamic_cast<const UIViewController*>(object));
                                        return NSValue(controller->view());
                                    },
                                    [](NSObject* object, const NSValue& value) {
                                        dynamic_cast<UIViewController*>(object)->setView(value.as<UIView*>());
                                    }};
    static const KeyTable table(
        UIResponder::keyTable(),
        {kView, key<&UIViewController::isViewLoaded>("viewLoaded"),
         key<&UIViewController::title, &UIViewController::setTitle>("title"),
         key<&UIViewController::parentViewController>("parentViewController"),
         key<&UIViewController::navigationController>("navigationController"),
         key<&UIViewController::tabBarController>("tabBarController"),
         key<&UIViewController::presentedViewController>("presentedViewController"),
         key<&UIViewController::presentingViewController>("presentingViewController"),
         key<&UIViewController::modalTransitionStyle, &UIViewController::setModalTransitionStyle>(
             "modalTransitionStyle"),
         key<&UIViewController::modalPresentationStyle, &UIViewController::setModalPresentationStyle>(
             "modalPresentationStyle"),
         key<&UIViewController::edgesForExtendedLayout, &UIViewController::setEdgesForExtendedLayout>(
             "edgesForExtendedLayout"),
         key<&UIViewController::automaticallyAdjustsScrollViewInsets,
             &UIViewController::setAutomaticallyAdjustsScrollViewInsets>("automaticallyAdjustsScrollViewInsets")});
    return table;
}

// View

UIView* UIViewController::view() {
    if (m_view)
        return m_view;
    if (!std::exchange(m_isLoadingView, true)) {
        const Ref<UIViewController> keep = this;
        UIView::performWithoutAnimation([this] {
            loadView();
            m_isLoadingView = false;
            if (!m_view)
                UIViewController::loadView();
            viewDidLoad();
        });
        if (!m_view)
            UIViewController::loadView();
        return m_view;
    }
    // Asked for inside `loadView`, before that has set one.
    UIViewController::loadView();
    return m_view;
}

void UIViewController::loadView() {
    auto plain = make<UIView>(&UIView::initWithFrame, UIScreen::mainScreen()->bounds());
    plain->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    setView(plain);
}

void UIViewController::setView(UIView* view) {
    if (view == m_view)
        return;
    letGoOfView();
    if (view && view->m_viewController)
        view->m_viewController->letGoOfView();
    m_view = view;
    if (view)
        view->m_viewController = this;
}

void UIViewController::letGoOfView() {
    if (m_view)
        m_view->m_viewController = nullptr;
    m_view = nullptr;
}

// Names

void UIViewController::setTitle(const NSString& title) {
    setObservable(m_title, title, "title");
    if (m_navigationItem)
        m_navigationItem->setTitle(title);
    if (m_tabBarItem)
        m_tabBarItem->setTitle(title);
}

UINavigationItem* UIViewController::navigationItem() {
    if (!m_navigationItem)
        m_navigationItem = make<UINavigationItem>(&UINavigationItem::initWithTitle, m_title);
    return m_navigationItem;
}

UITabBarItem* UIViewController::tabBarItem() {
    if (!m_tabBarItem)
        m_tabBarItem = make<UITabBarItem>(&UITabBarItem::initWithTitle_image_tag, m_title, nullptr, 0);
    return m_tabBarItem;
}

void UIViewController::setEdgesForExtendedLayout(NSUInteger edges) {
    m_edgesForExtendedLayout = edges;
    if (m_parent)
        m_parent->placeChildren();
}

void UIViewController::setTabBarItem(UITabBarItem* item) {
    m_tabBarItem = item;
    auto* tabs = dynamic_cast<UITabBarController*>(m_parent);
    if (tabs && tabs->m_bar)
        tabs->showItems();
}

// Look-ups

UINavigationController* UIViewController::navigationController() const {
    for (UIViewController* ancestor = m_parent; ancestor; ancestor = ancestor->m_parent) {
        if (auto* found = dynamic_cast<UINavigationController*>(ancestor))
            return found;
    }
    return nullptr;
}

UITabBarController* UIViewController::tabBarController() const {
    for (UIViewController* ancestor = m_parent; ancestor; ancestor = ancestor->m_parent) {
        if (auto* found = dynamic_cast<UITabBarController*>(ancestor))
            return found;
    }
    return nullptr;
}

UIViewController* UIViewController::outermost() {
    UIViewController* ancestor = this;
    while (ancestor->m_parent)
        ancestor = ancestor->m_parent;
    return ancestor;
}

UIResponder* UIViewController::nextResponder() const {
    if (m_presentedBy)
        return m_presentedBy->presenter();
    if (m_rootOfWindow)
        return m_rootOfWindow;
    return m_view ? m_view->superview() : nullptr;
}

// The application's messages

void UIViewController::handleMemoryWarning(NSNotification*) { didReceiveMemoryWarning(); }

UIInterfaceOrientation UIViewController::interfaceOrientation() const {
    return UIDevice::currentDevice()->profile().orientation;
}

bool UIViewController::allowsOrientation(UIInterfaceOrientation orientation) const {
    return shouldAutorotate() && (supportedInterfaceOrientations() & (NSUInteger(1) << orientation));
}

void UIViewController::attemptRotationToDeviceOrientation() {
    if (UIApplication* application = UIApplication::sharedApplication())
        application->rotateToDeviceOrientation();
}

void UIViewController::setNeedsStatusBarAppearanceUpdate() {
    if (UIApplication* application = UIApplication::sharedApplication())
        application->takeStatusBarWish();
}

/// On this controller and those below it whose views are in its window, each before its children.
void UIViewController::callOnScreen(const std::function<void(UIViewController*)>& call) {
    if (!m_view || !m_view->window())
        return;
    const Ref<UIViewController> keep = this;
    call(this);
    const auto children = m_children;
    for (const auto& child : children) {
        if (child->m_parent == this)
            child->callOnScreen(call);
    }
}

} // namespace zr
