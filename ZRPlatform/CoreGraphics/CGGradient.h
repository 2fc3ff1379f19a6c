#pragma once

#include <ZRPlatform/CoreGraphics/CGColor.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// Beyond its start or end a gradient paints nothing, unless these ask for the first or last colour to go on.
enum CGGradientDrawingOptions : unsigned {
    kCGGradientDrawsBeforeStartLocation = 1,
    kCGGradientDrawsAfterEndLocation = 2,
};
/// Options are or-ed, so a call takes any sum of them.
using CGGradientOptions = unsigned;

/// Colours at places from 0 to 1, blended linearly in between (the components as they are, before premultiplication).
class CGGradient : public NSObject {
public:
    /// A colour and its place, 0 to 1.
    struct Stop {
        /// 0 to 1.
        CGFloat location;
        /// Not premultiplied.
        RGBAColor color;
    };
    /// `stops` are sorted by location, those of equal location stay in order.
    explicit CGGradient(std::vector<Stop> stops);
    /// By location, 0 to 1.
    const std::vector<Stop>& stops() const { return m_stops; }
    /// The blended colour at `location`; the end colours outside.
    RGBAColor colorAt(CGFloat location) const;

private:
    std::vector<Stop> m_stops;
};
using CGGradientRef = CGGradient*;

/// `locations`: one a colour, from 0 to 1 (clamped); null spaces the colours evenly, the first at 0, the last at 1.
/// Colours of any space are taken over as RGB; a nil colour is left out. Nil when there are no colours. `space` may be
/// nil.
Ref<CGGradient> CGGradientCreateWithColors(CGColorSpaceRef space, const std::vector<Ref<CGColor>>& colors,
                                           const CGFloat* locations);
/// `components`: for each of `count` colours the space's components, then alpha. Nil for a nil space, null components
/// or a count of 0.
Ref<CGGradient> CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
                                                    const CGFloat* locations, NSUInteger count);

} // namespace zr
#pragma GCC visibility pop
