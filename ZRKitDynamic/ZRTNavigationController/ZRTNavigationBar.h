#pragma once

#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBarDelegate.h>
#include <ZRKitDynamic/ZRView/ZRShadowAnimationView.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <functional>

#pragma GCC visibility push(default)
namespace zr {

/// A screen's bar: a centred title, a back button on the left, and the screen's own buttons, a left one in the back
/// button's place and a right one. Everything sits at the bar's bottom edge, so that a bar that reaches under the
/// status bar need only be higher.
///
/// All is placed once, when it is made or set, and kept in place by its autoresizing mask. Main thread only.
class ZRTNavigationBar : public UIView {
public:
    /// The parts are placed in a bar of this size.
    bool initWithFrame(CGRect frame) override;
    /// Makes background, title and back button; part of the initialiser.
    virtual void initViews();

    /// @name Properties
    /// Objects are kept, but for the delegate, which reads nil once it is gone. What is replaced stays in the bar. Nil
    /// parts are done without.
    /// @{
    /// Told of taps of the back button; the screen, as a rule.
    ZRTNavigationBarDelegate* delegate() const { return m_delegate; }
    virtual void setDelegate(const Delegate<ZRTNavigationBarDelegate>& delegate) { m_delegate = delegate; }
    /// Behind the other parts, of the theme's colour at first.
    ZRShadowAnimationView* backgroundImageView() const { return m_backgroundImageView; }
    virtual void setBackgroundImageView(ZRShadowAnimationView* view) { m_backgroundImageView = view; }
    /// The title, white, in bold 17 points; half as wide as the bar at first.
    UILabel* titleLabel() const { return m_titleLabel; }
    virtual void setTitleLabel(UILabel* label) { m_titleLabel = label; }
    /// At the left, 40 x 40 points. It has the application's images "icon_title_back.png" and
    /// "icon_title_back_press.png", if there are such.
    UIButton* backButton() const { return m_backButton; }
    virtual void setBackButton(UIButton* button) { m_backButton = button; }
    /// The screen's own button in the back button's place; nil when there is none.
    UIButton* leftButton() const { return m_left.button; }
    /// Only stores it; `setLeftButton_animated` shows it.
    virtual void setLeftButton(UIButton* button);
    /// The screen's own button at the right; nil when there is none.
    UIButton* rightButton() const { return m_right.button; }
    /// Only stores it; `setRightButton_animated` shows it.
    virtual void setRightButton(UIButton* button);
    /// @}

    /// Sets the title label's text. Nil shows none; one that is too long for half of the bar's width shrinks and is
    /// then cut.
    virtual void setNavTitle(const NSString& title);
    /// Gives the background the theme's colour again. The bar does not follow the theme by itself.
    virtual void defaultBackgroundColor();

    /// @name Showing and hiding
    /// What is hidden keeps its place. Animated, the bar fades within 0.5 s and its buttons within 0.3 s.
    /// @{
    /// Makes the whole bar invisible: its alpha becomes 0.
    virtual void hiddenNavigationBarWithAnimated(bool animated);
    /// Makes the whole bar visible: its alpha becomes 1.
    virtual void showNavigationBarWithAnimated(bool animated);
    /// Makes the back button invisible, or visible again; nothing without one.
    virtual void hiddenBackButton_animated(bool hidden, bool animated);
    /// The same as `hiddenBackButton_animated` with true.
    virtual void hiddenBackButtonAnimated(bool animated);
    /// The same as `hiddenBackButton_animated` with false.
    virtual void showBackButtonAnimated(bool animated);
    /// @}

    /// @name The screen's buttons
    /// A new button replaces the one before at once, takes the bar's colours and font, keeps its size, and fades in,
    /// its upper edge 41 points above the bar's lower one. Nil fades the button out and then takes it off: until then
    /// it is the bar's still. One that is set meanwhile stays. The button that is there already is left as it is, so
    /// setting one that fades out does not save it; on the other side of the bar it would be taken from here.
    /// @{
    /// Shows a button 5 points from the left edge. Asking for one hides the back button, at once, even when nothing
    /// else comes of it; only taking one off does not. It does not come back by itself.
    virtual void setLeftButton_animated(UIButton* button, bool animated);
    /// Shows a button 5 points from the right edge.
    virtual void setRightButton_animated(UIButton* button, bool animated);
    /// Fades in a text button at the left, 40 points wide, into which long titles are squeezed. It sends `action` to
    /// `target`, held weakly, at a touch-up inside; nil for either sends nothing. A nil title is none.
    virtual void setLeftButtonTitle_target_action(const NSString& title, NSObject* target, SEL action);
    /// The same at the right, 70 points wide.
    virtual void setRightButtonTitle_target_action(const NSString& title, NSObject* target, SEL action);
    /// @}

    /// Tells the delegate, of this very button, nil too.
    virtual void backButtonClicked(UIButton* button);
    /// Places nothing: the autoresizing masks do.
    void layoutSubviews() override;

private:
    /// The place of a button of the screen's.
    struct Slot {
        Ref<UIButton> button;
        /// Counts the buttons that were set; the same one again is another installation.
        int installation = 0;
        /// It fades out.
        bool isLeaving = false;
    };

    CGFloat buttonTop() const;
    Ref<UIButton> makeTextButton(CGRect frame, const NSString& title, NSObject* target, SEL action);
    void fadeOut(Slot& slot, bool animated, const std::function<void()>& empty);
    void fadeIn(UIButton* button, CGFloat centerX, bool animated);

    Delegate<ZRTNavigationBarDelegate> m_delegate;
    Ref<ZRShadowAnimationView> m_backgroundImageView;
    Ref<UILabel> m_titleLabel;
    Ref<UIButton> m_backButton;
    Slot m_left;
    Slot m_right;
};

} // namespace zr
#pragma GCC visibility pop
