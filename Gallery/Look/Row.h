#pragma once

#include <Gallery/Look/TapControl.h>

namespace zr::gallery {

/// A white line of a list, grey while pressed, with a hairline at its bottom edge. What belongs into it is its
/// subclasses'.
class Row : public TapControl {
public:
    void setHighlighted(bool highlighted) override;

protected:
    /// As wide as the screen. The hairline spans the whole width under the last row of a section, else it begins where
    /// the text does.
    bool initWithHeight_textLeft_isLast(CGFloat height, CGFloat textLeft, bool isLast);
};

} // namespace zr::gallery
