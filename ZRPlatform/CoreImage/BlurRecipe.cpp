#include <ZRPlatform/CoreImage/Internal/ImageRecipe.h>

#include <ZRPlatform/Accelerate/Internal/GaussianBlur.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// The part of the white half of a plane that reaches three standard deviations into the black one is 0.34 of 255.
constexpr double kSigmasShown = 3;

class BlurRecipe : public ImageRecipe {
public:
    BlurRecipe(std::shared_ptr<const ImageRecipe> input, double sigma) : m_input(std::move(input)), m_sigma(sigma) {}

    PixelArea extent() const override {
        const PixelArea sharp = m_input->extent();
        return sharp.isEmpty() ? PixelArea()
                               : sharp.grownBy(static_cast<std::int64_t>(std::ceil(kSigmasShown * m_sigma)));
    }

protected:
    Ref<CGImage> drawInside(const PixelArea& area) const override {
        auto pixels = blankPixels(area.width, area.height);
        if (!pixels)
            return nullptr;
        const PixelArea neighbours = neighboursOf(area);
        if (!neighbours.isEmpty()) {
            const Ref<CGImage> sharp = m_input->draw(neighbours);
            if (!sharp)
                return nullptr;
            const detail::BlurSource source{sharp->pixels(), sharp->bytesPerRow(), neighbours.width, neighbours.height};
            const detail::BlurTarget target{pixels.get(),
                                            static_cast<std::size_t>(4 * area.width),
                                            area.width,
                                            area.height,
                                            area.x - neighbours.x,
                                            neighbours.top() - area.top()};
            if (!detail::gaussianBlur(source, target, m_sigma))
                return nullptr;
        }
        return imageOfPixels(std::move(pixels), area.width, area.height);
    }

private:
    /// The part of the input that counts for an area. It begins a multiple of the blur's step away from the input's
    /// left and upper border, so that the parts of a picture fit together.
    PixelArea neighboursOf(const PixelArea& area) const {
        const PixelArea sharp = m_input->extent();
        const PixelArea near = sharp.intersection(area.grownBy(detail::blurReach(m_sigma)));
        if (near.isEmpty())
            return near;
        const std::int64_t step = detail::blurStep(m_sigma);
        const std::int64_t left = near.x - (near.x - sharp.x) % step;
        const std::int64_t top = near.top() + (sharp.top() - near.top()) % step;
        return {left, near.y, near.right() - left, top - near.y};
    }

    std::shared_ptr<const ImageRecipe> m_input;
    double m_sigma;
};

} // namespace

std::shared_ptr<const ImageRecipe> blurRecipe(std::shared_ptr<const ImageRecipe> input, double radius) {
    if (!(radius > 0))
        return input;
    return std::make_shared<BlurRecipe>(std::move(input), std::min(radius, detail::kLargestSigma));
}

} // namespace zr
