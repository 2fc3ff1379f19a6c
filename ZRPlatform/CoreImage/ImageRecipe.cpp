#include <ZRPlatform/CoreImage/Internal/ImageRecipe.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zr {

namespace {

/// A bitmap with its lower left corner at (0, 0).
class BitmapRecipe : public ImageRecipe {
public:
    explicit BitmapRecipe(CGImageRef image) : m_image(image) {}
    PixelArea extent() const override {
        return {0, 0, static_cast<std::int64_t>(m_image->width()), static_cast<std::int64_t>(m_image->height())};
    }

protected:
    /// Shares the pixels.
    Ref<CGImage> drawInside(const PixelArea& area) const override {
        const CGRect fromTop = PixelArea{area.x, extent().top() - area.top(), area.width, area.height}.rect();
        return CGImageCreateWithImageInRect(m_image, fromTop);
    }

private:
    Ref<CGImage> m_image;
};

class CropRecipe : public ImageRecipe {
public:
    CropRecipe(std::shared_ptr<const ImageRecipe> input, const PixelArea& area) :
        m_input(std::move(input)), m_extent(m_input->extent().intersection(area)) {}
    PixelArea extent() const override { return m_extent; }

protected:
    Ref<CGImage> drawInside(const PixelArea& area) const override { return m_input->draw(area); }

private:
    std::shared_ptr<const ImageRecipe> m_input;
    PixelArea m_extent;
};

std::int64_t whole(double edge) {
    constexpr double kFarthest = 1ll << 40;
    return static_cast<std::int64_t>(std::clamp(edge, -kFarthest, kFarthest));
}

/// Copies an image to where it belongs in a larger area.
void copyInto(std::uint8_t* pixels, const PixelArea& area, const CGImage& part, const PixelArea& partArea) {
    for (std::int64_t row = 0; row < partArea.height; ++row) {
        const std::int64_t y = area.top() - partArea.top() + row;
        const std::uint8_t* from = part.pixels() + static_cast<NSUInteger>(row) * part.bytesPerRow();
        std::copy_n(from, 4 * partArea.width, pixels + 4 * (y * area.width + partArea.x - area.x));
    }
}

} // namespace

bool PixelArea::contains(const PixelArea& other) const {
    return x <= other.x && y <= other.y && other.right() <= right() && other.top() <= top();
}

PixelArea PixelArea::intersection(const PixelArea& other) const {
    const std::int64_t left = std::max(x, other.x), bottom = std::max(y, other.y);
    const PixelArea common{left, bottom, std::min(right(), other.right()) - left,
                           std::min(top(), other.top()) - bottom};
    return common.isEmpty() ? PixelArea() : common;
}

PixelArea PixelArea::grownBy(std::int64_t margin) const {
    return {x - margin, y - margin, width + 2 * margin, height + 2 * margin};
}

CGRect PixelArea::rect() const {
    return CGRectMake(static_cast<CGFloat>(x), static_cast<CGFloat>(y), static_cast<CGFloat>(width),
                      static_cast<CGFloat>(height));
}

PixelArea PixelArea::around(CGRect rect) {
    const std::int64_t left = whole(std::floor(CGRectGetMinX(rect))), bottom = whole(std::floor(CGRectGetMinY(rect)));
    return {left, bottom, whole(std::ceil(CGRectGetMaxX(rect))) - left, whole(std::ceil(CGRectGetMaxY(rect))) - bottom};
}

Ref<CGImage> ImageRecipe::draw(const PixelArea& area) const {
    const PixelArea inside = extent().intersection(area);
    if (inside.contains(area))
        return drawInside(area);
    auto pixels = blankPixels(area.width, area.height);
    if (!pixels)
        return nullptr;
    if (!inside.isEmpty()) {
        const Ref<CGImage> part = drawInside(inside);
        if (!part)
            return nullptr;
        copyInto(pixels.get(), area, *part, inside);
    }
    return imageOfPixels(std::move(pixels), area.width, area.height);
}

std::shared_ptr<const ImageRecipe> bitmapRecipe(CGImageRef image) { return std::make_shared<BitmapRecipe>(image); }

std::shared_ptr<const ImageRecipe> cropRecipe(std::shared_ptr<const ImageRecipe> input, const PixelArea& area) {
    return std::make_shared<CropRecipe>(std::move(input), area);
}

std::shared_ptr<std::uint8_t[]> blankPixels(std::int64_t width, std::int64_t height) {
    constexpr std::int64_t kMostPixels = 1 << 28; // memory that is promised is not always there
    if (width > kMostPixels / height)
        return nullptr;
    auto* bytes = static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(width * height), 4));
    return bytes ? std::shared_ptr<std::uint8_t[]>(bytes, [](std::uint8_t* memory) { std::free(memory); }) : nullptr;
}

Ref<CGImage> imageOfPixels(std::shared_ptr<const std::uint8_t[]> pixels, std::int64_t width, std::int64_t height) {
    const auto columns = static_cast<NSUInteger>(width), rows = static_cast<NSUInteger>(height);
    return Ref<CGImage>::adopt(new CGImage(columns, rows, columns * 4, std::move(pixels), false));
}

} // namespace zr
