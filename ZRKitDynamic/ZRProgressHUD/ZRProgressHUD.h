#pragma once

#include <ZRPlatform/Dispatch/Dispatch.h>
#include <ZRPlatform/Foundation/Atomic.h>
#include <ZRPlatform/Foundation/NSDate.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/Foundation/Weak.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <functional>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class UIWindow;
class ZRProgressHUD;

/// What shows above the texts.
enum ZRProgressHUDMode : int {
    ZRProgressHUDModeSpinner = 0,
    ZRProgressHUDModePie = 1,
    ZRProgressHUDModeBar = 2,
    ZRProgressHUDModeRing = 3,
    ZRProgressHUDModeCustomView = 4,
    ZRProgressHUDModeTextOnly = 5,
};

/// How it comes and goes, always within 0.3 s.
enum ZRProgressHUDAnimation : int {
    ZRProgressHUDAnimationFade = 0,
    /// Comes shrinking from one and a half times its size, goes shrinking to half of it.
    ZRProgressHUDAnimationShrink = 1,
    /// Comes growing from half its size, goes growing to one and a half times.
    ZRProgressHUDAnimationGrow = 2,
};

/// Told when a HUD has gone.
class ZRProgressHUDDelegate {
public:
    virtual ~ZRProgressHUDDelegate() = default;
    /// The HUD has gone. On the main thread, after the completion block; the HUD may have left its view already.
    virtual void hudWasHidden(ZRProgressHUD* /*hud*/) {}
};

/// Covers a view while work is going on: a dark rounded box in the middle, with an indicator, a line of text and a
/// smaller text of several lines, all optional.
///
///     auto hud = ZRProgressHUD::showHUDAddedTo_animated(window, true);
///     hud->setLabelText("Loading");
///     …
///     ZRProgressHUD::hideHUDForView_animated(window, true);
///
/// Views, timers, blocks and delegates belong to the main thread, and so do all operations. The properties may be read
/// and written on any thread: those of the indicator, the texts and the progress are shown soon after, by the main
/// thread; the others count from the next time the HUD is laid out, drawn, shown or hidden. A getter that hands out an
/// object hands out a reference, since another thread may replace it.
class ZRProgressHUD : public UIView {
public:
    ~ZRProgressHUD() override;

    /// @name The HUDs of a view
    /// Each looks for HUDs of the class `HUD`, derived ones included. A nil view has none.
    /// @{
    /// A new HUD, shown over the view at once; it leaves the view when it hides. Over a nil view it is in none.
    template <class HUD = ZRProgressHUD>
    static Ref<HUD> showHUDAddedTo_animated(UIView* view, bool animated);
    /// Hides the topmost one, which then leaves the view. False when there is none.
    template <class HUD = ZRProgressHUD>
    static bool hideHUDForView_animated(UIView* view, bool animated);
    /// Hides them all, the lowest first. Returns how many there were.
    template <class HUD = ZRProgressHUD>
    static NSUInteger hideAllHUDsForView_animated(UIView* view, bool animated);
    /// The topmost one; nil when there is none.
    template <class HUD = ZRProgressHUD>
    static HUD* HUDForView(const UIView* view);
    /// All of them, bottom to top.
    template <class HUD = ZRProgressHUD>
    static std::vector<Ref<HUD>> allHUDsForView(const UIView* view);
    /// @}

    /// @name Construction
    /// It starts invisible, and in no view.
    /// @{
    /// With the values that the properties have "at first", invisible until it is shown.
    bool initWithFrame(CGRect frame) override;
    /// As large as the view; of no size when that is nil.
    virtual bool initWithView(UIView* view);
    /// The same as `initWithView`.
    virtual bool initWithWindow(UIWindow* window);
    /// @}

    /// @name Showing and hiding
    /// The last call does not undo the one before: a hide leaves the grace timer running, a show leaves a hide running,
    /// and each of two hides tells block and delegate of its end.
    /// @{
    /// Shows the HUD. With a `graceTime`, nothing shows before that is over, and then only while a task is in progress.
    virtual void show(bool animated);
    /// Hides the HUD. Within `minShowTime` of the show it stays until that is over. One that was not shown is done at
    /// once.
    virtual void hide(bool animated);
    /// Hides after `delay` seconds, unless it is hidden before. The HUD lives until then.
    virtual void hide_afterDelay(bool animated, double delay);
    /// What `hide_afterDelay` sends: hides. `animated` is a boxed flag.
    virtual void hideDelayed(const NSValue& animated);
    /// @}

    /// @name Running a task
    /// The HUD shows while the task runs on another thread, and hides when it is over.
    /// @{
    /// Sends the message on a new thread. Target and object are kept until it is over; both may be nil.
    virtual void showWhileExecuting_onTarget_withObject_animated(SEL method, NSObject* target, const NSValue& object,
                                                                 bool animated);
    /// Runs the block on the global queue of default priority, without a completion block: one that was set is dropped.
    void showAnimated_whileExecutingBlock(bool animated, std::function<void()> block);
    /// Runs the block on the global queue of default priority; `completion` replaces the HUD's `completionBlock`.
    void showAnimated_whileExecutingBlock_completionBlock(bool animated, std::function<void()> block,
                                                          std::function<void()> completion);
    /// Runs the block on `queue`, without a completion block: one that was set is dropped.
    void showAnimated_whileExecutingBlock_onQueue(bool animated, std::function<void()> block, dispatch_queue_t queue);
    /// Runs the block on `queue`; nil stands for the global queue of default priority. `completion` replaces the HUD's
    /// `completionBlock`; it may be empty, as may be `block`.
    virtual void showAnimated_whileExecutingBlock_onQueue_completionBlock(bool animated, std::function<void()> block,
                                                                          dispatch_queue_t queue,
                                                                          std::function<void()> completion);
    /// @}

    /// @name Indicator and texts
    /// Set on any thread; a change is shown by the main thread.
    /// @{
    /// A `ZRProgressHUDMode`; the spinner at first. Another number leaves the indicator as it is.
    int mode() const { return m_mode; }
    virtual void setMode(int mode);
    /// The indicator of `ZRProgressHUDModeCustomView`; may be nil. It keeps its height, and its width unless that is
    /// more than the view's less four margins, to which it is cut for good. One that has a key "progress" receives the
    /// progress.
    Ref<UIView> customView() const { return m_customView; }
    virtual void setCustomView(UIView* view);
    /// The label: one line, cut where it is too long. Nil, at first, or empty shows none.
    NSString labelText() const { return m_labelText; }
    virtual void setLabelText(const NSString& text);
    /// The label's; the bold system font of 16 points at first.
    Ref<UIFont> labelFont() const { return m_labelFont; }
    virtual void setLabelFont(UIFont* font);
    /// The label's text colour; white at first.
    Ref<UIColor> labelColor() const { return m_labelColor; }
    virtual void setLabelColor(UIColor* color);
    /// The text below the label, in as many lines as there is room for. Nil, at first, or empty shows none.
    NSString detailsLabelText() const { return m_detailsLabelText; }
    virtual void setDetailsLabelText(const NSString& text);
    /// Of the lines below the label; the bold system font of 12 points at first.
    Ref<UIFont> detailsLabelFont() const { return m_detailsLabelFont; }
    virtual void setDetailsLabelFont(UIFont* font);
    /// The text colour of the lines below the label; white at first.
    Ref<UIColor> detailsLabelColor() const { return m_detailsLabelColor; }
    virtual void setDetailsLabelColor(UIColor* color);
    /// How much is done, 0..1, not limited; handed on to an indicator that has such a key. 0 at first. A new indicator
    /// starts at its own.
    float progress() const { return m_progress; }
    virtual void setProgress(float progress);
    /// The spinner's colour; white at first. The other indicators have colours of their own.
    Ref<UIColor> activityIndicatorColor() const { return m_activityIndicatorColor; }
    virtual void setActivityIndicatorColor(UIColor* color);
    /// @}

    /// @name Look of the box
    /// Lengths in points.
    /// @{
    /// How dark the black box is, 0..1; 0.8 at first.
    float opacity() const { return m_opacity; }
    virtual void setOpacity(float opacity) { m_opacity = opacity; }
    /// The box's colour, in place of black and `opacity`; nil at first.
    Ref<UIColor> color() const { return m_color; }
    virtual void setColor(UIColor* color) { m_color = Ref<UIColor>(color); }
    /// How far the box lies to the right of the view's middle; 0 at first, and negative to the left.
    float xOffset() const { return m_xOffset; }
    virtual void setXOffset(float offset) { m_xOffset = offset; }
    /// How far the box lies below the view's middle; 0 at first, and negative above it.
    float yOffset() const { return m_yOffset; }
    virtual void setYOffset(float offset) { m_yOffset = offset; }
    /// Between the box's edges and what is in it; 20 at first. Nothing in it is wider than the view less four of them.
    float margin() const { return m_margin; }
    virtual void setMargin(float margin) { m_margin = margin; }
    /// The radius of the box's corners; 10 at first.
    float cornerRadius() const { return m_cornerRadius; }
    virtual void setCornerRadius(float radius) { m_cornerRadius = radius; }
    /// Darkens what is behind, the more the farther from the middle. False at first.
    bool dimBackground() const { return m_dimBackground; }
    virtual void setDimBackground(bool dim) { m_dimBackground = dim; }
    /// The size that the box has at least; zero at first.
    CGSize minSize() const { return m_minSize; }
    virtual void setMinSize(CGSize size) { m_minSize = size; }
    /// Makes the box as wide as high, where it fits. False at first.
    bool isSquare() const { return m_square; }
    virtual void setSquare(bool square) { m_square = square; }
    /// The box's size, as of the last layout.
    CGSize size() const { return m_size; }
    /// @}

    /// @name Coming and going
    /// Times in seconds.
    /// @{
    /// A `ZRProgressHUDAnimation`, the fade at first; another number fades.
    int animationType() const { return m_animationType; }
    virtual void setAnimationType(int type) { m_animationType = type; }
    /// How long a show waits before anything is seen, so that a short task shows nothing; 0 at first.
    float graceTime() const { return m_graceTime; }
    virtual void setGraceTime(float seconds) { m_graceTime = seconds; }
    /// How long the HUD is seen at least; 0 at first.
    float minShowTime() const { return m_minShowTime; }
    virtual void setMinShowTime(float seconds) { m_minShowTime = seconds; }
    /// Whether work is going on that a `graceTime` waits for. The operations that run a task set it; who runs one
    /// otherwise sets it too. False at first.
    bool taskInProgress() const { return m_taskInProgress; }
    virtual void setTaskInProgress(bool inProgress) { m_taskInProgress = inProgress; }
    /// Whether the HUD leaves its view when it has been hidden. False at first; the operations on the HUDs of a view
    /// set it.
    bool removeFromSuperViewOnHide() const { return m_removeFromSuperViewOnHide; }
    virtual void setRemoveFromSuperViewOnHide(bool removes) { m_removeFromSuperViewOnHide = removes; }
    /// Runs once, when the HUD has gone; it is let go then, and so is one that it sets. Nil at first.
    std::function<void()> completionBlock() const { return m_completionBlock; }
    virtual void setCompletionBlock(std::function<void()> block) { m_completionBlock = std::move(block); }
    /// Told when the HUD has gone. Not kept; nil at first.
    Delegate<ZRProgressHUDDelegate> delegate() const { return m_delegate; }
    virtual void setDelegate(Delegate<ZRProgressHUDDelegate> delegate) { m_delegate = delegate; }
    /// Whether it has been hidden, to the end, since it was made.
    bool isFinished() const { return m_isFinished; }
    /// Nothing behind the HUD is left; it goes by itself.
    bool accessibilityPerformEscape() override { return true; }
    /// @}

    /// @name For subclasses
    /// @{
    /// The indicator that shows; nil in the mode without one, and where there is no custom view. Setting it neither
    /// adds it to the HUD nor takes the one before off.
    Ref<UIView> indicator() const { return m_indicator; }
    virtual void setIndicator(UIView* indicator) { m_indicator = Ref<UIView>(indicator); }
    /// Waits to show; it stays here after it has fired.
    Ref<NSTimer> graceTimer() const { return m_graceTimer; }
    virtual void setGraceTimer(NSTimer* timer) { m_graceTimer = Ref<NSTimer>(timer); }
    /// Waits to hide; it stays here after it has fired.
    Ref<NSTimer> minShowTimer() const { return m_minShowTimer; }
    virtual void setMinShowTimer(NSTimer* timer) { m_minShowTimer = Ref<NSTimer>(timer); }
    /// When the HUD began to show; nil while it is hidden, or hiding.
    Ref<NSDate> showStarted() const { return m_showStarted; }
    virtual void setShowStarted(NSDate* date) { m_showStarted = Ref<NSDate>(date); }

    /// The grace time is over: shows the HUD, if a task is in progress.
    virtual void handleGraceTimer(NSTimer* timer);
    /// The HUD was seen long enough: hides it.
    virtual void handleMinShowTimer(NSTimer* timer);
    /// Shows the HUD now, without any grace time.
    virtual void showUsingAnimation(bool animated);
    /// Hides the HUD now, however short it was seen; `done` follows, after the animation if there is one.
    virtual void hideUsingAnimation(bool animated);
    /// A hide's animation has stopped, whether it was finished or not: calls `done`.
    virtual void animationFinished_finished_context(const NSString& animationID, const NSValue& finished,
                                                    void* context);
    /// The end of every hide: the HUD turns invisible, leaves its view if it is to, runs the completion block and tells
    /// the delegate, in this order. Delayed hides that are pending are dropped.
    virtual void done();
    /// Runs on the task's own thread: sends the message, then has `cleanUp` called on the main thread.
    virtual void launchExecution();
    /// The task is over: lets go of target and object, and hides the HUD.
    virtual void cleanUp();

    /// Makes and adds the two labels; called once, by the initialiser.
    virtual void setupLabels();
    /// Puts up the indicator of the mode, where that is not the present one.
    virtual void updateIndicators();
    /// Covers the superview, places indicator and texts in its middle, and reckons the box's size.
    void layoutSubviews() override;
    /// Draws the dimming, where there is one, and the box.
    void drawRect(CGRect rect) override;

    /// Observes `observableKeypaths`. Called by the initialiser, after the indicator is there.
    virtual void registerForKVO();
    /// Stops observing them; called by the destructor.
    virtual void unregisterFromKVO();
    /// The keys whose changes are shown.
    virtual std::vector<NSString> observableKeypaths() const;
    /// Has the change shown by `updateUIForKeypath`: at once on the main thread, else soon after.
    void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                        const NSKeyValueChange& change, void* context) override;
    /// Shows the change of a key, on the main thread.
    virtual void updateUIForKeypath(const NSString& keyPath);

    /// Has the HUD hear of the status bar's orientation; the last thing that the initialiser does.
    virtual void registerForNotifications();
    /// The HUD hears of it no longer; called by the destructor.
    virtual void unregisterFromNotifications();
    /// Covers the superview anew, turned where the HUD has to turn itself; nothing while it is in no view.
    virtual void statusBarOrientationDidChange(NSNotification* notification);
    /// Whether the HUD has to turn itself: when it is in a window, before system version 8, where windows do not turn
    /// with the device.
    virtual bool shouldPerformOrientationTransform() const;
    /// Covers the superview, and turns to the orientation of the status bar; animated, within 0.3 s.
    virtual void setTransformForCurrentOrientation(bool animated);
    /// Turns at once to the present orientation, where the HUD has to turn itself.
    void didMoveToSuperview() override;
    /// @}

protected:
    const KeyTable& keyTable() const override;

private:
    CGAffineTransform rotationScaledBy(CGFloat factor) const;
    void replaceIndicator(UIView* indicator);
    void drawDimming(CGContext* context) const;

    Atomic<int> m_mode = 0;
    Atomic<int> m_animationType = 0;
    Atomic<Ref<UIView>> m_customView;
    Atomic<Delegate<ZRProgressHUDDelegate>> m_delegate;
    Atomic<NSString> m_labelText;
    Atomic<NSString> m_detailsLabelText;
    Atomic<float> m_opacity = 0;
    Atomic<Ref<UIColor>> m_color;
    Atomic<float> m_xOffset = 0;
    Atomic<float> m_yOffset = 0;
    Atomic<float> m_margin = 0;
    Atomic<float> m_cornerRadius = 0;
    Atomic<bool> m_dimBackground = false;
    Atomic<float> m_graceTime = 0;
    Atomic<float> m_minShowTime = 0;
    Atomic<bool> m_taskInProgress = false;
    Atomic<bool> m_removeFromSuperViewOnHide = false;
    Atomic<Ref<UIFont>> m_labelFont;
    Atomic<Ref<UIColor>> m_labelColor;
    Atomic<Ref<UIFont>> m_detailsLabelFont;
    Atomic<Ref<UIColor>> m_detailsLabelColor;
    Atomic<Ref<UIColor>> m_activityIndicatorColor;
    Atomic<float> m_progress = 0;
    Atomic<CGSize> m_minSize;
    Atomic<CGSize> m_size;
    Atomic<bool> m_square = false;
    Atomic<Ref<UIView>> m_indicator;
    Atomic<Ref<NSTimer>> m_graceTimer;
    Atomic<Ref<NSTimer>> m_minShowTimer;
    Atomic<Ref<NSDate>> m_showStarted;
    Atomic<std::function<void()>> m_completionBlock;
    Atomic<SEL> m_methodForExecution;
    Atomic<Ref<NSObject>> m_targetForExecution;
    Atomic<NSValue> m_objectForExecution;

    Ref<UILabel> m_label;
    Ref<UILabel> m_detailsLabel;
    CGAffineTransform m_rotationTransform;
    Atomic<bool> m_isFinished = false;
    bool m_useAnimation = false;
};

template <class HUD>
Ref<HUD> ZRProgressHUD::showHUDAddedTo_animated(UIView* view, bool animated) {
    auto hud = make<HUD>(&ZRProgressHUD::initWithView, view);
    if (!hud)
        return nullptr;
    hud->setRemoveFromSuperViewOnHide(true);
    if (view)
        view->addSubview(hud);
    hud->show(animated);
    return hud;
}

template <class HUD>
bool ZRProgressHUD::hideHUDForView_animated(UIView* view, bool animated) {
    const Ref<HUD> hud = HUDForView<HUD>(view);
    if (!hud)
        return false;
    hud->setRemoveFromSuperViewOnHide(true);
    hud->hide(animated);
    return true;
}

template <class HUD>
NSUInteger ZRProgressHUD::hideAllHUDsForView_animated(UIView* view, bool animated) {
    const auto huds = allHUDsForView<HUD>(view);
    for (const Ref<HUD>& hud : huds) {
        hud->setRemoveFromSuperViewOnHide(true);
        hud->hide(animated);
    }
    return huds.size();
}

template <class HUD>
HUD* ZRProgressHUD::HUDForView(const UIView* view) {
    const auto huds = allHUDsForView<HUD>(view);
    return huds.empty() ? nullptr : huds.back().get();
}

template <class HUD>
std::vector<Ref<HUD>> ZRProgressHUD::allHUDsForView(const UIView* view) {
    std::vector<Ref<HUD>> huds;
    if (!view)
        return huds;
    for (const Ref<UIView>& subview : view->subviews()) {
        if (const auto hud = dynamicCast<HUD>(subview))
            huds.push_back(hud);
    }
    return huds;
}

} // namespace zr
#pragma GCC visibility pop
