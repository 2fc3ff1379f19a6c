#pragma once

#include <ZRPlatform/UIKit/Views/UIImageView.h>

#pragma GCC visibility push(default)
namespace zr {

/// Shows one colour, which may be a pattern, and cross-fades to another. The navigation bar's background.
///
/// While a fade runs, a child over the whole view carries the old colour and fades out above the new one. Main thread
/// only.
class ZRShadowAnimationView : public UIImageView {
public:
    bool initWithFrame(CGRect frame) override;

    /// The child that carries the old colour; alpha 0 at rest. Kept; it covers the view from the next layout on. What
    /// is replaced stays in the view. Without one colours change at once.
    UIImageView* endView() const { return m_endView; }
    virtual void setEndView(UIImageView* view) { m_endView = view; }

    /// At once, without a fade.
    void setBackgroundColor(UIColor* color) override;

    /// Fades from one colour to another within `duration` seconds; 0, less, or not a number switches at once. A nil
    /// `fromColor` stands for the colour that the view has. One that comes while another runs starts anew, with all of
    /// the old colour.
    ///
    /// Ignored when `toColor` is nil. Ignored too when it turns the last fade back, that is when `fromColor` is the
    /// colour that the view has and `toColor` the one it had before. The very objects are compared, not what colours
    /// they are.
    virtual void beginAnimationFromColor_toColor_duration(UIColor* fromColor, UIColor* toColor, double duration);

    /// The child keeps covering the view.
    void layoutSubviews() override;

private:
    Ref<UIImageView> m_endView;
};

} // namespace zr
#pragma GCC visibility pop
