#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSThread.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <numbers>

namespace zr {

namespace {

constexpr NSTimeInterval kAnimationDuration = 0.3;
constexpr CGFloat kSmall = 0.5;
constexpr CGFloat kLarge = 1.5;
/// Not quite nothing: the last step, to 0, is taken when the animation has ended.
constexpr CGFloat kAlmostHidden = 0.02;
/// From here on windows turn with the device.
constexpr double kFirstFrameworkWhoseWindowsTurn = 1129.15;

} // namespace

// Construction

bool ZRProgressHUD::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setAnimationType(ZRProgressHUDAnimationFade);
    setMode(ZRProgressHUDModeSpinner);
    setLabelText(nullptr);
    setDetailsLabelText(nullptr);
    setOpacity(0.8f);
    setColor(nullptr);
    setLabelFont(UIFont::boldSystemFontOfSize(16));
    setLabelColor(UIColor::whiteColor());
    setDetailsLabelFont(UIFont::boldSystemFontOfSize(12));
    setDetailsLabelColor(UIColor::whiteColor());
    setActivityIndicatorColor(UIColor::whiteColor());
    setXOffset(0);
    setYOffset(0);
    setDimBackground(false);
    setMargin(20);
    setCornerRadius(10);
    setGraceTime(0);
    setMinShowTime(0);
    setRemoveFromSuperViewOnHide(false);
    setMinSize(CGSizeZero);
    setSquare(false);

    setContentMode(UIViewContentModeCenter);
    setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                        UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin);
    setOpaque(false);
    setBackgroundColor(UIColor::clearColor());
    setAlpha(0);

    setTaskInProgress(false);
    m_rotationTransform = CGAffineTransformIdentity;
    setupLabels();
    updateIndicators();
    registerForKVO();
    registerForNotifications();
    return true;
}

bool ZRProgressHUD::initWithView(UIView* view) { return initWithFrame(view ? view->bounds() : CGRectZero); }

bool ZRProgressHUD::initWithWindow(UIWindow* window) { return initWithView(window); }

ZRProgressHUD::~ZRProgressHUD() {
    unregisterFromNotifications();
    unregisterFromKVO();
}

// Showing and hiding

void ZRProgressHUD::show(bool animated) {
    m_useAnimation = animated;
    if (const float wait = graceTime(); wait > 0) {
        setGraceTimer(NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
            wait, this, selector<&ZRProgressHUD::handleGraceTimer>, nullptr, false));
        return;
    }
    setNeedsDisplay();
    showUsingAnimation(m_useAnimation);
}

void ZRProgressHUD::handleGraceTimer(NSTimer*) {
    if (!taskInProgress())
        return;
    setNeedsDisplay();
    showUsingAnimation(m_useAnimation);
}

void ZRProgressHUD::hide(bool animated) {
    m_useAnimation = animated;
    const Ref<NSDate> started = showStarted();
    if (const float least = minShowTime(); least > 0 && started) {
        const NSTimeInterval shown = NSDate::date()->timeIntervalSinceDate(started);
        if (shown < least) {
            setMinShowTimer(NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
                least - shown, this, selector<&ZRProgressHUD::handleMinShowTimer>, nullptr, false));
            return;
        }
    }
    hideUsingAnimation(m_useAnimation);
}

void ZRProgressHUD::handleMinShowTimer(NSTimer*) { hideUsingAnimation(m_useAnimation); }

void ZRProgressHUD::hide_afterDelay(bool animated, double delay) {
    performSelector_withObject_afterDelay(selector<&ZRProgressHUD::hideDelayed>, NSNumber::numberWithBool(animated),
                                          delay);
}

void ZRProgressHUD::hideDelayed(const NSValue& animated) { hide(animated.boolValue()); }

CGAffineTransform ZRProgressHUD::rotationScaledBy(CGFloat factor) const {
    return CGAffineTransformConcat(m_rotationTransform, CGAffineTransformMakeScale(factor, factor));
}

void ZRProgressHUD::showUsingAnimation(bool animated) {
    const int type = animationType();
    if (animated && type == ZRProgressHUDAnimationShrink)
        setTransform(rotationScaledBy(kLarge));
    else if (animated && type == ZRProgressHUDAnimationGrow)
        setTransform(rotationScaledBy(kSmall));
    setShowStarted(NSDate::date());
    if (!animated) {
        setAlpha(1);
        return;
    }
    beginAnimations_context(nullptr, nullptr);
    setAnimationDuration(kAnimationDuration);
    setAlpha(1);
    if (type == ZRProgressHUDAnimationShrink || type == ZRProgressHUDAnimationGrow)
        setTransform(m_rotationTransform);
    commitAnimations();
}

void ZRProgressHUD::hideUsingAnimation(bool animated) {
    const Ref<ZRProgressHUD> keep = this; // `done` may take the HUD out of the view that holds it
    const int type = animationType();
    if (animated && showStarted()) {
        beginAnimations_context(nullptr, nullptr);
        setAnimationDuration(kAnimationDuration);
        setAnimationDelegate(this);
        setAnimationDidStopSelector(selector<&ZRProgressHUD::animationFinished_finished_context>);
        if (type == ZRProgressHUDAnimationShrink)
            setTransform(rotationScaledBy(kSmall));
        else if (type == ZRProgressHUDAnimationGrow)
            setTransform(rotationScaledBy(kLarge));
        setAlpha(kAlmostHidden);
        commitAnimations();
    } else {
        setAlpha(0);
        done();
    }
    setShowStarted(nullptr);
}

void ZRProgressHUD::animationFinished_finished_context(const NSString&, const NSValue&, void*) { done(); }

void ZRProgressHUD::done() {
    const Ref<ZRProgressHUD> keep = this;
    cancelPreviousPerformRequestsWithTarget(this);
    m_isFinished = true;
    setAlpha(0);
    if (removeFromSuperViewOnHide())
        removeFromSuperview();
    // Taken before it runs, so that a block that hides the HUD again is not run again.
    if (const auto block = m_completionBlock.exchange(nullptr)) {
        block();
        setCompletionBlock(nullptr);
    }
    const auto told = delegate();
    const Ref<NSObject> keepDelegate = told.object();
    if (told)
        told->hudWasHidden(this);
}

// Running a task

void ZRProgressHUD::showWhileExecuting_onTarget_withObject_animated(SEL method, NSObject* target, const NSValue& object,
                                                                    bool animated) {
    m_methodForExecution = method;
    m_targetForExecution = target;
    m_objectForExecution = object;
    setTaskInProgress(true);
    NSThread::detachNewThreadSelector_toTarget_withObject(selector<&ZRProgressHUD::launchExecution>, this, nullptr);
    show(animated);
}

void ZRProgressHUD::showAnimated_whileExecutingBlock(bool animated, std::function<void()> block) {
    showAnimated_whileExecutingBlock_completionBlock(animated, std::move(block), nullptr);
}

void ZRProgressHUD::showAnimated_whileExecutingBlock_completionBlock(bool animated, std::function<void()> block,
                                                                     std::function<void()> completion) {
    showAnimated_whileExecutingBlock_onQueue_completionBlock(
        animated, std::move(block), dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_DEFAULT, 0),
        std::move(completion));
}

void ZRProgressHUD::showAnimated_whileExecutingBlock_onQueue(bool animated, std::function<void()> block,
                                                             dispatch_queue_t queue) {
    showAnimated_whileExecutingBlock_onQueue_completionBlock(animated, std::move(block), queue, nullptr);
}

void ZRProgressHUD::showAnimated_whileExecutingBlock_onQueue_completionBlock(bool animated, std::function<void()> block,
                                                                             dispatch_queue_t queue,
                                                                             std::function<void()> completion) {
    setTaskInProgress(true);
    setCompletionBlock(std::move(completion));
    if (!queue)
        queue = dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_DEFAULT, 0);
    dispatch_async(queue, [hud = Ref<ZRProgressHUD>(this), block = std::move(block)] {
        if (block)
            block();
        dispatch_async(dispatch_get_main_queue(), [hud] { hud->cleanUp(); });
    });
    show(animated);
}

void ZRProgressHUD::launchExecution() {
    if (const Ref<NSObject> target = m_targetForExecution)
        target->performSelector_withObject(m_methodForExecution, m_objectForExecution);
    performSelectorOnMainThread_withObject_waitUntilDone(selector<&ZRProgressHUD::cleanUp>, nullptr, false);
}

void ZRProgressHUD::cleanUp() {
    setTaskInProgress(false);
    m_targetForExecution = nullptr;
    m_objectForExecution = nullptr;
    hide(m_useAnimation);
}

// Observed properties

void ZRProgressHUD::setMode(int mode) { setObservable(m_mode, mode, "mode"); }
void ZRProgressHUD::setCustomView(UIView* view) { setObservable(m_customView, view, "customView"); }
void ZRProgressHUD::setLabelText(const NSString& text) { setObservable(m_labelText, text, "labelText"); }
void ZRProgressHUD::setLabelFont(UIFont* font) { setObservable(m_labelFont, font, "labelFont"); }
void ZRProgressHUD::setLabelColor(UIColor* color) { setObservable(m_labelColor, color, "labelColor"); }
void ZRProgressHUD::setDetailsLabelText(const NSString& text) {
    setObservable(m_detailsLabelText, text, "detailsLabelText");
}
void ZRProgressHUD::setDetailsLabelFont(UIFont* font) { setObservable(m_detailsLabelFont, font, "detailsLabelFont"); }
void ZRProgressHUD::setDetailsLabelColor(UIColor* color) {
    setObservable(m_detailsLabelColor, color, "detailsLabelColor");
}
void ZRProgressHUD::setProgress(float progress) { setObservable(m_progress, progress, "progress"); }
void ZRProgressHUD::setActivityIndicatorColor(UIColor* color) {
    setObservable(m_activityIndicatorColor, color, "activityIndicatorColor");
}

const KeyTable& ZRProgressHUD::keyTable() const {
    using HUD = ZRProgressHUD;
    static const KeyTable table(
        UIView::keyTable(),
        {key<&HUD::mode, &HUD::setMode>("mode"),
         key<&HUD::animationType, &HUD::setAnimationType>("animationType"),
         key<&HUD::customView, &HUD::setCustomView>("customView"),
         key<&HUD::labelText, &HUD::setLabelText>("labelText"),
         key<&HUD::labelFont, &HUD::setLabelFont>("labelFont"),
         key<&HUD::labelColor, &HUD::setLabelColor>("labelColor"),
         key<&HUD::detailsLabelText, &HUD::setDetailsLabelText>("detailsLabelText"),
         key<&HUD::detailsLabelFont, &HUD::setDetailsLabelFont>("detailsLabelFont"),
         key<&HUD::detailsLabelColor, &HUD::setDetailsLabelColor>("detailsLabelColor"),
         key<&HUD::progress, &HUD::setProgress>("progress"),
         key<&HUD::activityIndicatorColor, &HUD::setActivityIndicatorColor>("activityIndicatorColor"),
         key<&HUD::opacity, &HUD::setOpacity>("opacity"),
         key<&HUD::color, &HUD::setColor>("color"),
         key<&HUD::xOffset, &HUD::setXOffset>("xOffset"),
         key<&HUD::yOffset, &HUD::setYOffset>("yOffset"),
         key<&HUD::margin, &HUD::setMargin>("margin"),
         key<&HUD::cornerRadius, &HUD::setCornerRadius>("cornerRadius"),
         key<&HUD::dimBackground, &HUD::setDimBackground>("dimBackground"),
         key<&HUD::minSize, &HUD::setMinSize>("minSize"),
         key<&HUD::isSquare, &HUD::setSquare>("square"),
         key<&HUD::size>("size"),
         key<&HUD::graceTime, &HUD::setGraceTime>("graceTime"),
         key<&HUD::minShowTime, &HUD::setMinShowTime>("minShowTime"),
         key<&HUD::taskInProgress, &HUD::setTaskInProgress>("taskInProgress"),
         key<&HUD::removeFromSuperViewOnHide, &HUD::setRemoveFromSuperViewOnHide>("removeFromSuperViewOnHide"),
         key<&HUD::indicator, &HUD::setIndicator>("indicator"),
         key<&HUD::graceTimer, &HUD::setGraceTimer>("graceTimer"),
         key<&HUD::minShowTimer, &HUD::setMinShowTimer>("minShowTimer"),
         key<&HUD::showStarted, &HUD::setShowStarted>("showStarted")});
    return table;
}

std::vector<NSString> ZRProgressHUD::observableKeypaths() const {
    return {"mode",
            "customView",
            "labelText",
            "labelFont",
            "labelColor",
            "detailsLabelText",
            "detailsLabelFont",
            "detailsLabelColor",
            "progress",
            "activityIndicatorColor"};
}

void ZRProgressHUD::registerForKVO() {
    for (const NSString& keyPath : observableKeypaths())
        addObserver_forKeyPath_options_context(this, keyPath, NSKeyValueObservingOptionNew, nullptr);
}

void ZRProgressHUD::unregisterFromKVO() {
    for (const NSString& keyPath : observableKeypaths())
        removeObserver_forKeyPath(this, keyPath);
}

void ZRProgressHUD::observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject*,
                                                                   const NSKeyValueChange&, void*) {
    if (NSThread::isMainThread())
        updateUIForKeypath(keyPath);
    else
        performSelectorOnMainThread_withObject_waitUntilDone(selector<&ZRProgressHUD::updateUIForKeypath>, keyPath,
                                                             false);
}

void ZRProgressHUD::updateUIForKeypath(const NSString& keyPath) {
    const auto is = [&keyPath](const char* name) { return keyPath.isEqualToString(name); };
    if (is("mode") || is("customView") || is("activityIndicatorColor")) {
        updateIndicators();
    } else if (is("labelText")) {
        m_label->setText(labelText());
    } else if (is("labelFont")) {
        m_label->setFont(labelFont());
    } else if (is("labelColor")) {
        m_label->setTextColor(labelColor());
    } else if (is("detailsLabelText")) {
        m_detailsLabel->setText(detailsLabelText());
    } else if (is("detailsLabelFont")) {
        m_detailsLabel->setFont(detailsLabelFont());
    } else if (is("detailsLabelColor")) {
        m_detailsLabel->setTextColor(detailsLabelColor());
    } else if (is("progress")) {
        // The box looks the same; the indicator draws itself.
        const Ref<UIView> shown = indicator();
        if (shown && shown->respondsToSelector("setProgress:"))
            shown->setValue_forKey(NSNumber::numberWithFloat(progress()), "progress");
        return;
    }
    setNeedsLayout();
    setNeedsDisplay();
}

// Rotation

void ZRProgressHUD::registerForNotifications() {
    NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(
        this, selector<&ZRProgressHUD::statusBarOrientationDidChange>,
        UIApplicationDidChangeStatusBarOrientationNotification, nullptr);
}

void ZRProgressHUD::unregisterFromNotifications() {
    NSNotificationCenter::defaultCenter()->removeObserver_name_object(
        this, UIApplicationDidChangeStatusBarOrientationNotification, nullptr);
}

bool ZRProgressHUD::shouldPerformOrientationTransform() const {
    return NSFoundationVersionNumber() < kFirstFrameworkWhoseWindowsTurn && superview() &&
           superview()->isKindOfClass<UIWindow>();
}

void ZRProgressHUD::didMoveToSuperview() {
    if (shouldPerformOrientationTransform())
        setTransformForCurrentOrientation(false);
}

void ZRProgressHUD::statusBarOrientationDidChange(NSNotification*) {
    if (!superview())
        return;
    if (shouldPerformOrientationTransform()) {
        setTransformForCurrentOrientation(true);
        return;
    }
    setFrame(superview()->bounds());
    setNeedsDisplay();
}

void ZRProgressHUD::setTransformForCurrentOrientation(bool animated) {
    if (superview()) {
        setBounds(superview()->bounds());
        setNeedsDisplay();
    }
    constexpr CGFloat kHalfTurn = std::numbers::pi_v<CGFloat>;
    const UIApplication* application = UIApplication::sharedApplication();
    const auto orientation = application ? application->statusBarOrientation() : UIInterfaceOrientationPortrait;
    CGFloat angle = 0;
    switch (orientation) {
    case UIInterfaceOrientationLandscapeRight:
    case UIInterfaceOrientationLandscapeLeft:
        setBounds(CGRectMake(0, 0, bounds().size.height, bounds().size.width));
        angle = orientation == UIInterfaceOrientationLandscapeLeft ? -kHalfTurn / 2 : kHalfTurn / 2;
        break;
    case UIInterfaceOrientationPortraitUpsideDown:
        angle = kHalfTurn;
        break;
    default:
        break;
    }
    m_rotationTransform = CGAffineTransformMakeRotation(angle);
    if (!animated) {
        setTransform(m_rotationTransform);
        return;
    }
    beginAnimations_context(nullptr, nullptr);
    setAnimationDuration(kAnimationDuration);
    setTransform(m_rotationTransform);
    commitAnimations();
}

} // namespace zr
