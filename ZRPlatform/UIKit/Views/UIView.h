#pragma once

#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>
#include <ZRPlatform/QuartzCore/Layers/CALayer.h>
#include <ZRPlatform/UIKit/Events/UIResponder.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>

#include <functional>

#pragma GCC visibility push(default)
namespace zr {

class UIGestureRecognizer;
class UIViewController;
class UIWindow;

/// How what a view shows lies in bounds of another size.
enum UIViewContentMode : NSInteger {
    UIViewContentModeScaleToFill = 0,
    UIViewContentModeScaleAspectFit,
    UIViewContentModeScaleAspectFill,
    UIViewContentModeRedraw,
    UIViewContentModeCenter,
    UIViewContentModeTop,
    UIViewContentModeBottom,
    UIViewContentModeLeft,
    UIViewContentModeRight,
    UIViewContentModeTopLeft,
    UIViewContentModeTopRight,
    UIViewContentModeBottomLeft,
    UIViewContentModeBottomRight,
};

/// What changes with the superview's size, to be added up.
enum UIViewAutoresizing : NSUInteger {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleLeftMargin = 1,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleRightMargin = 4,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
    UIViewAutoresizingFlexibleBottomMargin = 32,
};

/// The pace of an animation.
enum UIViewAnimationCurve : NSInteger {
    UIViewAnimationCurveEaseInOut,
    UIViewAnimationCurveEaseIn,
    UIViewAnimationCurveEaseOut,
    UIViewAnimationCurveLinear,
};

/// How an animation in a block goes on, to be added up.
enum UIViewAnimationOptions : NSUInteger {
    UIViewAnimationOptionRepeat = 1 << 3,
    UIViewAnimationOptionAutoreverse = 1 << 4,
    UIViewAnimationOptionCurveEaseInOut = 0 << 16,
    UIViewAnimationOptionCurveEaseIn = 1 << 16,
    UIViewAnimationOptionCurveEaseOut = 2 << 16,
    UIViewAnimationOptionCurveLinear = 3 << 16,
};

/// A rectangle on the screen: it shows, contains subviews, and is touched. Subviews are kept by their superview.
///
/// A view is the face of its layer: geometry and look live there. Main thread only, but for the last release.
class UIView : public UIResponder, public CALayerDelegate {
public:
    UIView();
    ~UIView() override;

    /// The same as `initWithFrame` with a zero rectangle.
    bool init() override;
    /// The initialiser that all others come to: a view of this frame. An override calls its superclass's first.
    virtual bool initWithFrame(CGRect frame);

    /// The view's own, never null; the view is its delegate.
    CALayer* layer() const { return m_layer; }

    /// @name Geometry, in points
    /// @{
    /// The box around the transformed bounds, in the superview's coordinates.
    virtual CGRect frame() const;
    virtual void setFrame(CGRect frame);
    /// The rectangle that the view shows, in its own coordinates: its size, and what lies at its top left corner. The
    /// middle stays where it is when the size is set; a negative size is standardised.
    virtual CGRect bounds() const;
    virtual void setBounds(CGRect bounds);
    /// The place of the bounds' middle, in the superview's coordinates.
    virtual CGPoint center() const;
    virtual void setCenter(CGPoint center);
    /// Applied about the middle; the identity at first. While it is another one, set `bounds` and `center` instead of
    /// the frame.
    virtual CGAffineTransform transform() const;
    virtual void setTransform(const CGAffineTransform& transform);
    /// What of the view gives way when the superview's size changes: a sum of `UIViewAutoresizing` values; none at
    /// first.
    NSUInteger autoresizingMask() const { return m_autoresizingMask; }
    virtual void setAutoresizingMask(NSUInteger mask) { m_autoresizingMask = mask; }
    /// Whether the subviews' masks are heeded when the size changes; true at first.
    bool autoresizesSubviews() const { return m_autoresizesSubviews; }
    virtual void setAutoresizesSubviews(bool flag) { m_autoresizesSubviews = flag; }
    /// The size the view would like, for a given one; its present size unless a class says otherwise.
    virtual CGSize sizeThatFits(CGSize size) const;
    /// Takes the size that `sizeThatFits` gives for the present one. The frame's top left corner stays.
    void sizeToFit();
    /// @}

    /// @name Look
    /// @{
    /// From 0 (invisible) to 1, for the view and all that is in it; 1 at first. Other values are cut to that range;
    /// views below 0.01 are not touched.
    CGFloat alpha() const { return m_layer->opacity(); }
    virtual void setAlpha(CGFloat alpha);
    /// Whether the view is invisible, untouchable, and all that is in it; false at first. Hiding it cancels the touches
    /// in it.
    bool isHidden() const { return m_layer->isHidden(); }
    virtual void setHidden(bool hidden);
    /// A promise that drawing fills the bounds; true at first.
    bool isOpaque() const { return m_opaque; }
    virtual void setOpaque(bool opaque) { m_opaque = opaque; }
    /// Fills the bounds behind what the view draws. Nil, the same as clear, at first.
    UIColor* backgroundColor() const { return m_backgroundColor; }
    virtual void setBackgroundColor(UIColor* color);
    /// Whether subviews show only inside the bounds and their rounded corners; false at first.
    bool clipsToBounds() const { return m_layer->masksToBounds(); }
    virtual void setClipsToBounds(bool clips);
    /// How what was drawn is placed when the bounds have another size; scaled to fill at first. A number that is no
    /// mode is ignored.
    UIViewContentMode contentMode() const { return m_contentMode; }
    virtual void setContentMode(UIViewContentMode mode);
    /// Pixels a point of what `drawRect` draws; the main screen's.
    CGFloat contentScaleFactor() const { return m_layer->contentsScale(); }
    /// The colour of controls' active parts: the view's own or the nearest superview's, else the system blue. Nil takes
    /// the superview's.
    UIColor* tintColor() const;
    virtual void setTintColor(UIColor* color);
    /// Called when `tintColor` may have changed, here or in a superview, and when the view comes into a window.
    virtual void tintColorDidChange() {}
    /// @}

    /// @name Tree
    /// @{
    /// The view that this one is in; nil for none.
    UIView* superview() const;
    /// The window that the view is in; nil while it is in none. A window is its own.
    UIWindow* window() const;
    /// Bottom to top; kept by the view.
    const std::vector<Ref<UIView>>& subviews() const { return m_subviews; }
    /// Puts the view in front of the others, away from where it was. Nil, the view itself and its ancestors are
    /// ignored.
    virtual void addSubview(UIView* view);
    /// Puts the view at a place among the subviews, 0 the lowest; indices out of range are cut to the nearest.
    void insertSubview_atIndex(UIView* view, NSInteger index);
    /// Puts the view right below `sibling`; in front of all when that is no subview.
    void insertSubview_belowSubview(UIView* view, UIView* sibling);
    /// Puts the view right above `sibling`; in front of all when that is no subview.
    void insertSubview_aboveSubview(UIView* view, UIView* sibling);
    /// In front of its siblings; ignored when it is no subview.
    void bringSubviewToFront(UIView* view);
    /// Behind its siblings; ignored when it is no subview.
    void sendSubviewToBack(UIView* view);
    /// Takes the view out of its superview, which then keeps it no longer; nothing happens without one. Inside the call
    /// the view stays alive.
    virtual void removeFromSuperview();
    /// Whether it is that view, or in it at any depth.
    bool isDescendantOfView(const UIView* view) const;
    /// A number of the application's own, to find the view by; 0 at first.
    NSInteger tag() const { return m_tag; }
    void setTag(NSInteger tag) { m_tag = tag; }
    /// The view itself or the first below it with this tag; nil when there is none.
    UIView* viewWithTag(NSInteger tag);
    /// Called after a subview was added or has changed its place. The base class does nothing, as in the five below.
    virtual void didAddSubview(UIView*) {}
    /// Called before a subview leaves, for another superview or none.
    virtual void willRemoveSubview(UIView*) {}
    /// Called before the superview changes, with the new one; nil for none.
    virtual void willMoveToSuperview(UIView*) {}
    /// Called after the superview has changed, or the place among its subviews.
    virtual void didMoveToSuperview() {}
    /// Called before the window changes, with the new one; nil for none.
    virtual void willMoveToWindow(UIWindow*) {}
    /// Called after the window has changed; `window` tells it.
    virtual void didMoveToWindow() {}
    /// @}

    /// @name Layout and drawing
    /// Both happen at the end of the run loop turn, when asked for.
    /// @{
    /// Asks for `layoutSubviews` at the end of the turn.
    virtual void setNeedsLayout();
    /// Does now what layout was asked for in the view and in what is in it.
    void layoutIfNeeded();
    /// Places the subviews; called when the size or the subviews changed or layout was asked for.
    virtual void layoutSubviews() {}
    /// Asks for `drawRect`; nothing in a class that does not draw. May be called on any thread; the main one then
    /// draws, later.
    virtual void setNeedsDisplay();
    /// Draws the view into the current graphics context, in its own coordinates. A class that does not override it has
    /// no bitmap.
    virtual void drawRect(CGRect) {}
    /// Called by `make`: whether `T` draws, so that a class that does not is given no bitmap.
    template <class T>
    void noteClass() {
        // An override that cannot be named from here is one all the same.
        if constexpr (requires { &T::drawRect; })
            m_draws = !std::is_same_v<decltype(&T::drawRect), void (UIView::*)(CGRect)>;
    }
    /// @}

    /// @name Touches
    /// @{
    /// Whether the view and what is in it takes touches; true at first, but false for labels and image views.
    bool isUserInteractionEnabled() const { return m_userInteractionEnabled; }
    virtual void setUserInteractionEnabled(bool enabled) { m_userInteractionEnabled = enabled; }
    /// Whether the view is touched alone: a finger elsewhere keeps others from it, and one on it keeps others from
    /// elsewhere. False at first.
    bool isExclusiveTouch() const { return m_exclusiveTouch; }
    void setExclusiveTouch(bool exclusive) { m_exclusiveTouch = exclusive; }
    /// Whether the view is told of a second finger while one is down; false at first. Recognisers see them all.
    bool isMultipleTouchEnabled() const { return m_multipleTouchEnabled; }
    void setMultipleTouchEnabled(bool enabled) { m_multipleTouchEnabled = enabled; }
    /// The topmost view under the point (this view's coordinates) that takes touches; nil when there is none.
    virtual UIView* hitTest_withEvent(CGPoint point, UIEvent* event);
    /// Whether the point (this view's coordinates) is inside the bounds. To be overridden for another shape.
    virtual bool pointInside_withEvent(CGPoint point, UIEvent* event);
    /// The view's controller, if it is one's root view; else its superview.
    UIResponder* nextResponder() const override;
    /// Resigns the first responder if it is this view or below it. False when it refused; with `force` it is not asked.
    bool endEditing(bool force);
    /// @}

    /// @name Keyboard
    /// What a finger could touch, the tab key and, in lists, the arrow keys reach; the return key touches it. A ring
    /// shows where the keyboard is, until a finger comes.
    /// @{
    /// Whether the keyboard stops at this view; no but for enabled controls and rows of tables.
    virtual bool canBecomeFocused() const { return false; }
    /// Whether the keyboard is at this view now.
    bool isFocused() const;
    /// @}

    /// @name Gestures
    /// @{
    /// The view's own recognisers, kept, in the order in which they see a touch: that of their being added.
    const std::vector<Ref<UIGestureRecognizer>>& gestureRecognizers() const { return m_gestureRecognizers; }
    /// Takes the recogniser away from the view it is attached to, if that is another one. It sees the touches that
    /// begin from now on. Nil is ignored.
    virtual void addGestureRecognizer(UIGestureRecognizer* recognizer);
    /// One that is under way is cancelled first. Nothing happens when it is not attached to this view.
    virtual void removeGestureRecognizer(UIGestureRecognizer* recognizer);
    /// Asked at the moment when a recogniser of this view, or of a superview that a touch reached through this view,
    /// would begin or be recognised; no lets it fail. The base class says yes.
    virtual bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer);
    /// @}

    /// @name Conversion
    /// A nil view stands for the window's base coordinates.
    /// @{
    /// From this view's coordinates into those of `view`.
    CGPoint convertPoint_toView(CGPoint point, const UIView* view) const;
    /// From the coordinates of `view` into this one's.
    CGPoint convertPoint_fromView(CGPoint point, const UIView* view) const;
    /// The box around the rectangle's corners, converted from this view's coordinates into those of `view`.
    CGRect convertRect_toView(CGRect rect, const UIView* view) const;
    /// The box around the rectangle's corners, converted from the coordinates of `view` into this one's.
    CGRect convertRect_fromView(CGRect rect, const UIView* view) const;
    /// @}

    /// @name Animation between begin and commit
    /// Changes of frame, bounds, center, transform, alpha, background colour and the layer's border colour between the
    /// two are animated from what is seen. Blocks nest. Settings count for the changes after them.
    /// @{
    /// Opens a block. Name and context are handed to the delegate's messages; both may be nil.
    static void beginAnimations_context(const NSString& animationID, void* context);
    /// Closes the innermost block; ignored outside of one.
    static void commitAnimations();
    /// In seconds; 0.2 unless set, and 0 changes at once.
    static void setAnimationDuration(NSTimeInterval duration);
    /// Seconds until the changes begin to be seen; 0 unless set.
    static void setAnimationDelay(NSTimeInterval delay);
    /// Ease in and out unless set.
    static void setAnimationCurve(UIViewAnimationCurve curve);
    /// How many times it is shown, fractions too; 0, unless set, is once.
    static void setAnimationRepeatCount(float count);
    /// Whether each time also goes back again; false unless set.
    static void setAnimationRepeatAutoreverses(bool flag);
    /// Gets the two messages below. Held until the animation has stopped.
    static void setAnimationDelegate(NSObject* delegate);
    /// Sent when the last change has stopped. It takes the name (NSString), whether it finished (boxed flag), and the
    /// context.
    static void setAnimationDidStopSelector(SEL selector);
    /// Sent when the first change begins to be seen. It takes the name (NSString) and the context.
    static void setAnimationWillStartSelector(SEL selector);
    /// False makes every change of any view happen at once, until it is set to true again.
    static void setAnimationsEnabled(bool enabled);
    /// True at first, and false inside `performWithoutAnimation`.
    static bool areAnimationsEnabled();
    /// @}

    /// @name Animation in blocks
    /// `completion` takes whether the animations ran to their end. With duration 0 the values are set at once and the
    /// completion runs in the next turn of the run loop, before the next frame.
    /// @{
    /// Runs the block; what it changes is animated within `duration` seconds, easing in and out.
    static void animateWithDuration_animations(NSTimeInterval duration, const std::function<void()>& animations);
    /// The same, and tells of the end. Either block may be empty.
    static void animateWithDuration_animations_completion(NSTimeInterval duration,
                                                          const std::function<void()>& animations,
                                                          std::function<void(bool)> completion);
    /// The same, beginning after `delay` seconds. `options`: a sum of `UIViewAnimationOptions`.
    static void animateWithDuration_delay_options_animations_completion(NSTimeInterval duration, NSTimeInterval delay,
                                                                        NSUInteger options,
                                                                        const std::function<void()>& animations,
                                                                        std::function<void(bool)> completion);
    /// Runs the block; what it changes happens at once, inside an animation too.
    static void performWithoutAnimation(const std::function<void()>& actions);
    /// @}

    /// @name CALayerDelegate
    /// @{
    /// Calls `layoutSubviews`, between the controller's messages if it is one's root view.
    void layoutSublayersOfLayer(CALayer* layer) override;
    /// Draws with `drawRect` into a new bitmap, and makes that the layer's contents.
    void displayLayer(CALayer* layer) override;
    /// The animation of the innermost block that is open; nil outside of one, for what is not animated, and while
    /// animations are disabled.
    Ref<CAAnimation> actionForLayer_forKey(CALayer* layer, const char* key) override;
    /// @}

protected:
    const KeyTable& keyTable() const override;
    void destroy() override;

private:
    friend class UIViewController;
    friend class UIWindow;

    void insertSubview(UIView* view, std::size_t index);
    void resizeSubviews(CGSize oldSize);
    void boundsSizeChanged(CGSize oldSize);
    void moveToWindow(UIWindow* window);
    void tellTintColorChanged();
    void letGoOfGestureRecognizers();

    Ref<CALayer> m_layer;
    std::vector<Ref<UIView>> m_subviews;
    std::vector<Ref<UIGestureRecognizer>> m_gestureRecognizers;
    UIView* m_superview = nullptr;
    UIWindow* m_window = nullptr;
    /// Not kept: it keeps the view.
    UIViewController* m_viewController = nullptr;
    Ref<UIColor> m_backgroundColor;
    Ref<UIColor> m_tintColor;
    NSUInteger m_autoresizingMask = 0;
    UIViewContentMode m_contentMode = UIViewContentModeScaleToFill;
    NSInteger m_tag = 0;
    bool m_draws = true;
    bool m_autoresizesSubviews = true;
    bool m_opaque = true;
    bool m_userInteractionEnabled = true;
    bool m_exclusiveTouch = false;
    bool m_multipleTouchEnabled = false;
};

} // namespace zr
#pragma GCC visibility pop
