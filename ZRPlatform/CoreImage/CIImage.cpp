#include <ZRPlatform/CoreImage/CIImage.h>

#include <ZRPlatform/CoreImage/Internal/ImageRecipe.h>

namespace zr {

Ref<CIImage> CIImage::imageWithCGImage(CGImageRef image) {
    return image ? imageWithRecipe(bitmapRecipe(image)) : nullptr;
}

Ref<CIImage> CIImage::imageWithRecipe(std::shared_ptr<const ImageRecipe> recipe) {
    auto image = make<CIImage>();
    image->m_recipe = std::move(recipe);
    return image;
}

CGRect CIImage::extent() const { return m_recipe ? m_recipe->extent().rect() : CGRectZero; }

Ref<CIImage> CIImage::imageByCroppingToRect(CGRect rect) const {
    if (!m_recipe || !CGRectIsFinite(rect))
        return imageWithRecipe(m_recipe);
    return imageWithRecipe(cropRecipe(m_recipe, PixelArea::around(rect)));
}

} // namespace zr
