#pragma once

#include <ZRPlatform/UIKit/Images/UIColor.h>

#include <cstdint>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// The kit's colours: whole numbers 0..255 in and out, and vertical gradients as patterns. It answers the platform's
/// named colours too: `ZRColor::whiteColor()`.
class ZRColor : public UIColor {
public:
    /// A colour of components meant 0..255 and not clamped: 300 gives a red of 300 / 255. `alpha`: 0..1, taken as it
    /// is.
    static Ref<UIColor> zrColorWithRed_green_blue_alpha(std::int32_t red, std::int32_t green, std::int32_t blue,
                                                        CGFloat alpha);
    /// Tells red, green and blue as they look on black, each 0..255. A nil colour gives black; null `components` are
    /// ignored.
    static void getRGBComponents_forColor(std::int32_t components[3], UIColor* color);
    /// A pattern of the gradient that `ZRImage::shadowImageFromColors_size` draws; one of nothing when that is nil.
    static Ref<UIColor> shadowColorFromColors_size(const std::vector<Ref<UIColor>>& colors, CGSize size);
};

} // namespace zr
#pragma GCC visibility pop
