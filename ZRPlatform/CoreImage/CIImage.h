#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <memory>

namespace zr { // not exported
class ImageRecipe;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// How to make a picture: a bitmap, or what a filter makes of another picture. Immutable, and cheap: pixels are only
/// computed when a `CIContext` draws it, and only those that are asked for. May be used on any thread.
///
/// Its plane is measured in pixels, y upwards; around its extent it is transparent.
class CIImage : public NSObject {
public:
    /// The bitmap with its lower left corner at (0, 0). Nil gives nil.
    static Ref<CIImage> imageWithCGImage(CGImageRef image);

    /// Whole pixels: where there may be something to see. Empty (zero) when there is nothing.
    CGRect extent() const;
    /// The part inside `rect`, grown outwards to whole pixels, where it is. A rectangle that is not finite cuts
    /// nothing off.
    Ref<CIImage> imageByCroppingToRect(CGRect rect) const;

    /// @name For filters and contexts
    /// @{
    /// A picture made as the recipe says; null gives an empty one.
    static Ref<CIImage> imageWithRecipe(std::shared_ptr<const ImageRecipe> recipe);
    /// How the picture is made; null for an empty one.
    const std::shared_ptr<const ImageRecipe>& recipe() const { return m_recipe; }
    /// @}

private:
    std::shared_ptr<const ImageRecipe> m_recipe;
};

} // namespace zr
#pragma GCC visibility pop
