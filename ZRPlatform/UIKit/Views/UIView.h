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

/// To be added up.
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
    virtual bool initWithFrame(CGRect frame);

    /// The view's own, never null; the view is its delegate.
    CALayer* layer() const { return m_layer; }

    /// @name Geometry, in points
    /// @{
    /// The box around the transformed bounds, in the superview's coordinates.
    virtual CGRect frame() const;
    virtual void setFrame(CGRect frame);
    virtual CGRect bounds() const;
    virtual void setBounds(CGRect bounds);
    virtual CGPoint center() const;
    virtual void setCenter(CGPoint center);
    virtual CGAffineTransform transform() const;
    virtual void setTransform(const CGAffineTransform& transform);
    NSUInteger autoresizingMask() const { return m_autoresizingMask; }
    /// A sum of `UIViewAutoresizing` values.
    virtual void setAutoresizingMask(NSUInteger mask) { m_autoresizingMask = mask; }
    bool autoresizesSubviews() const { return m_autoresizesSubviews; }
    virtual void setAutoresizesSubviews(bool flag) { m_autoresizesSubviews = flag; }
    /// The size the view would like, for a given one; its present size unless a class says otherwise.
    virtual CGSize sizeThatFits(CGSize size) const;
    void sizeToFit();
    /// @}

    /// @name Look
    /// @{
    CGFloat alpha() const { return m_layer->opacity(); }
    /// 0..1; views below 0.01 are not touched.
    virtual void setAlpha(CGFloat alpha);
    bool isHidden() const { return m_layer->isHidden(); }
    virtual void setHidden(bool hidden);
    /// A promise that drawing fills the bounds; true at first.
    bool isOpaque() const { return m_opaque; }
    virtual void setOpaque(bool opaque) { m_opaque = opaque; }
    /// Nil, the same as clear, at first.
    UIColor* backgroundColor() const { return m_backgroundColor; }
    virtual void setBackgroundColor(UIColor* color);
    bool clipsToBounds() const { return m_layer->masksToBounds(); }
    virtual void setClipsToBounds(bool clips);
    UIViewContentMode contentMode() const { return m_contentMode; }
    virtual void setContentMode(UIViewContentMode mode);
    /// Pixels a point of what `drawRect` draws; the main screen's.
    CGFloat contentScaleFactor() const { return m_layer->contentsScale(); }
    /// The colour of controls' active parts: the nearest superview's that has one, else the system blue.
    UIColor* tintColor() const;
    virtual void setTintColor(UIColor* color);
    /// Called when `tintColor` may have changed, here or in a superview, and when the view comes into a window.
    virtual void tintColorDidChange() {}
    /// @}

    /// @name Tree
    /// @{
    UIView* superview() const;
    UIWindow* window() const;
    /// Bottom to top.
    const std::vector<Ref<UIView>>& subviews() const { return m_subviews; }
    /// In front of the others. Nil, the view itself and its ancestors are ignored.
    virtual void addSubview(UIView* view);
    /// Indices out of range are cut to the nearest.
    void insertSubview_atIndex(UIView* view, NSInteger index);
    void insertSubview_belowSubview(UIView* view, UIView* sibling);
    void insertSubview_aboveSubview(UIView* view, UIView* sibling);
    void bringSubviewToFront(UIView* view);
    void sendSubviewToBack(UIView* view);
    virtual void removeFromSuperview();
    bool isDescendantOfView(const UIView* view) const;
    NSInteger tag() const { return m_tag; }
    void setTag(NSInteger tag) { m_tag = tag; }
    /// The view itself or the first below it with this tag; nil when there is none.
    UIView* viewWithTag(NSInteger tag);
    /// Called around changes of superview and window.
    virtual void didAddSubview(UIView*) {}
    virtual void willRemoveSubview(UIView*) {}
    virtual void willMoveToSuperview(UIView*) {}
    virtual void didMoveToSuperview() {}
    virtual void willMoveToWindow(UIWindow*) {}
    virtual void didMoveToWindow() {}
    /// @}

    /// @name Layout and drawing
    /// Both happen at the end of the run loop turn, when asked for.
    /// @{
    virtual void setNeedsLayout();
    void layoutIfNeeded();
    /// Places the subviews; called when the size or the subviews changed or layout was asked for.
    virtual void layoutSubviews() {}
    /// May be called on any thread; the main one then draws, later.
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
    bool isUserInteractionEnabled() const { return m_userInteractionEnabled; }
    virtual void setUserInteractionEnabled(bool enabled) { m_userInteractionEnabled = enabled; }
    bool isExclusiveTouch() const { return m_exclusiveTouch; }
    void setExclusiveTouch(bool exclusive) { m_exclusiveTouch = exclusive; }
    /// Whether the view is told of a second finger while one is down; false at first. Recognisers see them all.
    bool isMultipleTouchEnabled() const { return m_multipleTouchEnabled; }
    void setMultipleTouchEnabled(bool enabled) { m_multipleTouchEnabled = enabled; }
    /// The topmost view under the point (this view's coordinates) that takes touches; nil when there is none.
    virtual UIView* hitTest_withEvent(CGPoint point, UIEvent* event);
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
    /// Whether the keyboard stops here: yes for enabled controls and for rows of tables.
    virtual bool canBecomeFocused() const { return false; }
    /// Whether it did.
    bool isFocused() const;
    /// @}

    /// @name Gestures
    /// @{
    /// Kept, in the order in which they see a touch: that of their being added.
    const std::vector<Ref<UIGestureRecognizer>>& gestureRecognizers() const { return m_gestureRecognizers; }
    /// Takes the recogniser away from the view it is attached to, if that is another one. It sees the touches that
    /// begin from now on. Nil is ignored.
    virtual void addGestureRecognizer(UIGestureRecognizer* recognizer);
    /// One that is under way is cancelled first. Nothing happens when it is not attached to this view.
    virtual void removeGestureRecognizer(UIGestureRecognizer* recognizer);
    /// Asked at the moment when a recogniser of this view, or of a superview that a touch reached through this view,
    /// would begin or be recognised; no lets it fail. True here.
    virtual bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer);
    /// @}

    /// @name Conversion
    /// A nil view stands for the window's base coordinates.
    /// @{
    CGPoint convertPoint_toView(CGPoint point, const UIView* view) const;
    CGPoint convertPoint_fromView(CGPoint point, const UIView* view) const;
    CGRect convertRect_toView(CGRect rect, const UIView* view) const;
    CGRect convertRect_fromView(CGRect rect, const UIView* view) const;
    /// @}

    /// @name Animation between begin and commit
    /// Changes of frame, bounds, center, transform, alpha, background colour and the layer's border colour between the
    /// two are animated from what is seen. Blocks nest. Settings count for the changes after them.
    /// @{
    /// Name and context are handed to the delegate's messages; both may be nil.
    static void beginAnimations_context(const NSString& animationID, void* context);
    static void commitAnimations();
    /// 0.2 s unless set.
    static void setAnimationDuration(NSTimeInterval duration);
    static void setAnimationDelay(NSTimeInterval delay);
    static void setAnimationCurve(UIViewAnimationCurve curve);
    static void setAnimationRepeatCount(float count);
    static void setAnimationRepeatAutoreverses(bool flag);
    /// Held until the animation has stopped.
    static void setAnimationDelegate(NSObject* delegate);
    /// Takes the name (NSString), whether it finished (boxed flag), and the context.
    static void setAnimationDidStopSelector(SEL selector);
    static void setAnimationWillStartSelector(SEL selector);
    static void setAnimationsEnabled(bool enabled);
    static bool areAnimationsEnabled();
    /// @}

    /// @name Animation in blocks
    /// `completion` takes whether the animations ran to their end. With duration 0 the values are set at once and the
    /// completion runs in the next turn of the run loop, before the next frame.
    /// @{
    static void animateWithDuration_animations(NSTimeInterval duration, const std::function<void()>& animations);
    static void animateWithDuration_animations_completion(NSTimeInterval duration,
                                                          const std::function<void()>& animations,
                                                          std::function<void(bool)> completion);
    static void animateWithDuration_delay_options_animations_completion(NSTimeInterval duration, NSTimeInterval delay,
                                                                        NSUInteger options,
                                                                        const std::function<void()>& animations,
                                                                        std::function<void(bool)> completion);
    static void performWithoutAnimation(const std::function<void()>& actions);
    /// @}

    /// @name CALayerDelegate
    /// @{
    void layoutSublayersOfLayer(CALayer* layer) override;
    void displayLayer(CALayer* layer) override;
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
