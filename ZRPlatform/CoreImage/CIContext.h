#pragma once

#include <ZRPlatform/CoreImage/CIImage.h>

#include <utility>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// Draws pictures. May be used on any thread.
class CIContext : public NSObject {
public:
    /// No options are known; empty for none.
    static Ref<CIContext> contextWithOptions(const std::vector<std::pair<NSString, NSValue>>& options);

    /// The part of the picture inside `rect`, grown outwards to whole pixels, as a new bitmap of that size; transparent
    /// where the picture's extent does not reach. Large ones are shared out among the processors.
    ///
    /// Nil for a nil image, and for a rectangle that is empty, not finite, longer than 32767 pixels on a side, of more
    /// than 64 million pixels, or farther than 2^30 pixels from the origin; and when there is not enough memory, or
    /// more than 2^28 pixels are needed of a picture in between.
    Ref<CGImage> createCGImage_fromRect(const CIImage* image, CGRect rect) const;
};

} // namespace zr
#pragma GCC visibility pop
