#include <ZRPlatform/CoreImage/CIContext.h>

#include <ZRPlatform/CoreImage/Internal/ImageRecipe.h>

#include <cstdlib>

namespace zr {

namespace {

constexpr std::int64_t kLongestSide = 32767;
constexpr std::int64_t kMostPixels = 64'000'000;
constexpr std::int64_t kFarthest = 1 << 30;

bool canBeDrawn(const PixelArea& area) {
    return !area.isEmpty() && area.width <= kLongestSide && area.height <= kLongestSide &&
           area.width * area.height <= kMostPixels && std::abs(area.x) <= kFarthest && std::abs(area.y) <= kFarthest;
}

} // namespace

Ref<CIContext> CIContext::contextWithOptions(const std::vector<std::pair<NSString, NSValue>>&) {
    return make<CIContext>();
}

Ref<CGImage> CIContext::createCGImage_fromRect(const CIImage* image, CGRect rect) const {
    if (!image || !image->recipe() || !CGRectIsFinite(rect) || CGRectIsEmpty(rect))
        return nullptr;
    const PixelArea area = PixelArea::around(rect);
    return canBeDrawn(area) ? image->recipe()->draw(area) : nullptr;
}

} // namespace zr
