#pragma once

#include <ZRPlatform/UIKit/Views/UIView.h>

#include <memory>

#pragma GCC visibility push(default)
namespace zr {

/// Size and colour of the spinner.
enum UIActivityIndicatorViewStyle : NSInteger {
    /// 37 x 37 points.
    UIActivityIndicatorViewStyleWhiteLarge,
    /// 20 x 20 points.
    UIActivityIndicatorViewStyleWhite,
    /// 20 x 20 points.
    UIActivityIndicatorViewStyleGray,
};

/// A spinner: twelve fins in a circle, the bright one going round clockwise by a fin every twelfth of a second, with a
/// tail that fades behind it. It takes no part in layout or drawing while it runs, and costs twelve small frames a
/// second.
///
/// Once started it goes on by the clock, also out of a window, where it costs nothing. The fins lie in the middle of
/// the bounds and have the size of the style, whatever the size of the view.
class UIActivityIndicatorView : public UIView {
public:
    /// Of the size of the style, at the origin; stopped and hidden.
    virtual bool initWithActivityIndicatorStyle(UIActivityIndicatorViewStyle style);
    /// The style is white.
    bool initWithFrame(CGRect frame) override;

    /// The size and the colour that the fins have; white unless it was set.
    UIActivityIndicatorViewStyle activityIndicatorViewStyle() const { return m_style; }
    /// Gives the view the size and the colour of the style; the frame's origin stays. What is no style counts as white.
    virtual void setActivityIndicatorViewStyle(UIActivityIndicatorViewStyle style);
    /// The bright fin's colour; never nil. Nil sets the style's: white or gray.
    UIColor* color() const { return m_color; }
    virtual void setColor(UIColor* color);
    /// Whether it shows only while it spins; true at first. Setting it hides or shows a spinner that is stopped;
    /// starting and stopping hide and show the view while it is true, and leave `hidden` alone otherwise.
    bool hidesWhenStopped() const { return m_hidesWhenStopped; }
    virtual void setHidesWhenStopped(bool hides);

    /// Starts to spin, from the topmost fin on. Ignored while it spins.
    virtual void startAnimating();
    /// Stands still at once. Ignored while it does.
    virtual void stopAnimating();
    /// Whether it spins, shown or not.
    bool isAnimating() const { return m_animating; }

    void setHidden(bool hidden) override;
    /// The size of the style.
    CGSize sizeThatFits(CGSize size) const override;
    void layoutSubviews() override;

protected:
    const KeyTable& keyTable() const override;

private:
    struct [[gnu::visibility("hidden")]] Pictures;

    void renewFins();
    void spin();

    Ref<UIView> m_fins;
    std::shared_ptr<const Pictures> m_pictures;
    Ref<UIColor> m_color;
    UIActivityIndicatorViewStyle m_style = UIActivityIndicatorViewStyleWhite;
    NSTimeInterval m_startTime = 0;
    bool m_hidesWhenStopped = true;
    bool m_animating = false;
};

} // namespace zr
#pragma GCC visibility pop
