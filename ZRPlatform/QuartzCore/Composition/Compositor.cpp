#include <ZRPlatform/QuartzCore/Composition/Compositor.h>

#include <ZRPlatform/QuartzCore/Composition/Internal/MarkedPicture.h>
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

const std::vector<PixelRect>& Compositor::compose(const std::vector<CALayer*>& roots, const SceneAids& aids) {
    const PixelRect screen{0, 0, m_width, m_height};
    auto scene = std::make_unique<Scene>(makeScene(roots, m_scale, screen, aids));
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
    if (m_marked)
        m_marked->forgetChanges();
    return m_damage;
}

void Compositor::invalidate() { m_invalid = true; }

void Compositor::showMarks(const FrameMarks& marks) {
    if (!m_marked)
        m_marked = std::make_unique<MarkedPicture>(m_width, m_height);
    m_marked->show(m_pixels.get(), m_damage, marks);
}

void Compositor::removeMarks() {
    m_marked = nullptr;
    invalidate();
}

const std::vector<PixelRect>& Compositor::shownDamage() const { return m_marked ? m_marked->changes() : m_damage; }

const std::uint32_t* Compositor::pixels() const { return m_marked ? m_marked->pixels() : m_pixels.get(); }

Ref<CGImage> Compositor::snapshot() const {
    const std::size_t size = std::size_t(m_width) * m_height * 4;
    std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[size]);
    std::memcpy(pixels.get(), this->pixels(), size);
    return Ref<CGImage>::adopt(new CGImage(m_width, m_height, std::size_t(m_width) * 4, pixels, true));
}

} // namespace zr
