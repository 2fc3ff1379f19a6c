#include <ZRPlatform/QuartzCore/Composition/Compositor.h>

#include <ZRPlatform/QuartzCore/Composition/Internal/Painter.h>
#include <ZRPlatform/QuartzCore/Composition/Internal/Scene.h>

#include <algorithm>
#include <cstring>

namespace zr {

Compositor::Compositor(int width, int height, double scale) :
    m_width(std::max(width, 1)), m_height(std::max(height, 1)), m_scale(scale),
    m_pixels(std::make_unique<std::uint32_t[]>(std::size_t(m_width) * m_height)),
    m_lastScene(std::make_unique<Scene>()) {}

Compositor::~Compositor() = default;

const std::vector<PixelRect>& Compositor::compose(const std::vector<CALayer*>& roots) {
    const PixelRect screen{0, 0, m_width, m_height};
    auto scene = std::make_unique<Scene>(makeScene(roots, m_scale, screen));
    m_damage = m_invalid ? std::vector<PixelRect>{screen} : damageBetween(*m_lastScene, *scene, screen);
    m_invalid = false;
    m_paintedPixels = 0;
    if (!m_damage.empty()) {
        Painter painter(*scene, m_pixels.get(), m_width, m_height);
        for (const PixelRect& rect : m_damage) {
            painter.paint(rect);
            m_paintedPixels += std::int64_t(rect.width) * rect.height;
        }
    }
    m_nextChangeTime = scene->nextChangeTime;
    m_lastScene = std::move(scene);
    return m_damage;
}

void Compositor::invalidate() { m_invalid = true; }

Ref<CGImage> Compositor::snapshot() const {
    const std::size_t size = std::size_t(m_width) * m_height * 4;
    std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[size]);
    std::memcpy(pixels.get(), m_pixels.get(), size);
    return Ref<CGImage>::adopt(new CGImage(m_width, m_height, std::size_t(m_width) * 4, pixels, true));
}

} // namespace zr
