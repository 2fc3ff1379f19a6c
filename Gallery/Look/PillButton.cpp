#include <Gallery/Look/PillButton.h>

#include <Gallery/Look/Look.h>

namespace zr::gallery {

namespace {
constexpr CGFloat kTitleInset = 6;
} // namespace

bool PillButton::initWithFrame_title(CGRect frame, const NSString& title) {
    if (!initWithFrame(frame))
        return false;
    layer()->setCornerRadius(Look::kCornerRadius);
    setOpaque(false);
    setBackgroundColor(Look::green());
    m_title = Look::label(title, UIFont::boldSystemFontOfSize(17), UIColor::whiteColor(), 1, NSTextAlignmentCenter);
    m_title->setAdjustsFontSizeToFitWidth(true);
    m_title->setMinimumScaleFactor(0.7);
    addSubview(m_title);
    return true;
}

void PillButton::setHighlighted(bool highlighted) {
    TapControl::setHighlighted(highlighted);
    setBackgroundColor(highlighted ? Look::pressedGreen() : Look::green());
}

void PillButton::layoutSubviews() { m_title->setFrame(CGRectInset(bounds(), kTitleInset, 0)); }

} // namespace zr::gallery
