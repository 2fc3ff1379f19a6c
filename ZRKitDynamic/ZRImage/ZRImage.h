#pragma once

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <vector>

namespace zr {

/// The kit's images.
class ZRImage : public NSObject {
public:
    /// An opaque vertical gradient, the first colour at the top edge, the last at the bottom edge, the others evenly in
    /// between. `size` is in points, and in pixels too, whatever the screen's scale. Nil colours, and those that were
    /// never given a value, are left out; nil when none is left, or when the size is not one of an image.
    static Ref<UIImage> shadowImageFromColors_size(const std::vector<Ref<UIColor>>& colors, CGSize size);
};

} // namespace zr
