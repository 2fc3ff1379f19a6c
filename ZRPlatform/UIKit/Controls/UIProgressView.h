#pragma once

#include <ZRPlatform/UIKit/Views/UIView.h>

#pragma GCC visibility push(default)
namespace zr {

/// Both look the same.
enum UIProgressViewStyle : NSInteger { UIProgressViewStyleDefault, UIProgressViewStyleBar };

/// A horizontal bar that fills from the left, with rounded ends.
///
/// Its height is fixed: 2 points from system version 7 on, 9 before. A frame or bounds of any other height gets this
/// one; origin and width stay.
class UIProgressView : public UIView {
public:
    bool initWithFrame(CGRect frame) override;
    /// At the origin, with no width yet.
    virtual bool initWithProgressViewStyle(UIProgressViewStyle style);

    /// The default at first; all styles look the same.
    UIProgressViewStyle progressViewStyle() const { return m_style; }
    virtual void setProgressViewStyle(UIProgressViewStyle style) { m_style = style; }
    /// How much of the bar is filled, 0..1, clamped; not-a-number is 0. 0 at first.
    float progress() const { return m_progress; }
    virtual void setProgress(float progress);
    /// Animated, the bar slides from where it is seen to its new length in 0.25 s. `progress` is the new value at once.
    virtual void setProgress_animated(float progress, bool animated);
    /// The filled part; nil, the default, takes the tint colour.
    UIColor* progressTintColor() const { return m_progressTintColor; }
    virtual void setProgressTintColor(UIColor* color);
    /// What lies below; nil, the default, is a light grey.
    UIColor* trackTintColor() const { return m_trackTintColor; }
    virtual void setTrackTintColor(UIColor* color);

    /// The frame gets the fixed height, whatever is asked for.
    void setFrame(CGRect frame) override;
    /// The bounds get the fixed height, whatever is asked for.
    void setBounds(CGRect bounds) override;
    void tintColorDidChange() override;
    /// The width that is given, and the fixed height.
    CGSize sizeThatFits(CGSize size) const override;
    void layoutSubviews() override;

protected:
    const KeyTable& keyTable() const override;

private:
    CGRect barFrame() const;
    void applyColors();

    Ref<UIView> m_track;
    Ref<UIView> m_bar;
    Ref<UIColor> m_progressTintColor;
    Ref<UIColor> m_trackTintColor;
    UIProgressViewStyle m_style = UIProgressViewStyleDefault;
    float m_progress = 0;
};

} // namespace zr
#pragma GCC visibility pop
