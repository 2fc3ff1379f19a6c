#include <ZRPlatform/QuartzCore/Composition/Internal/MarkedPicture.h>

#include <ZRPlatform/QuartzCore/Composition/Internal/Scene.h>

#include <algorithm>

namespace zr {

namespace {

/// Premultiplied.
constexpr std::uint32_t kTint = 0x40400040;
/// From the screen's edges, in pixels.
constexpr int kNoteMargin = 4;

/// One premultiplied pixel over another.
std::uint32_t over(std::uint32_t upper, std::uint32_t lower) {
    const std::uint32_t left = 255 - (upper >> 24);
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const std::uint32_t sum = (upper >> shift & 255) + ((lower >> shift & 255) * left + 127) / 255;
        result |= std::min<std::uint32_t>(sum, 255) << shift;
    }
    return result;
}

} // namespace

MarkedPicture::MarkedPicture(int width, int height) :
    m_screen{0, 0, width, height},
    m_pixels(std::make_unique<std::uint32_t[]>(std::size_t(width) * height)), m_markedRects{m_screen} {}

void MarkedPicture::show(const std::uint32_t* pixels, const std::vector<PixelRect>& damage, const FrameMarks& marks) {
    std::vector<PixelRect> changes = damage;
    changes.insert(changes.end(), m_markedRects.begin(), m_markedRects.end());
    changes = withoutOverlaps(changes, m_screen);
    for (const PixelRect& rect : changes)
        copy(pixels, rect);

    m_markedRects.clear();
    if (marks.tintsDamage) {
        m_markedRects = damage;
        for (const PixelRect& rect : damage)
            tint(rect);
    }
    if (marks.note) {
        const PixelRect place = placeOf(*marks.note);
        m_markedRects.push_back(place);
        blend(*marks.note, place);
    }
    changes.insert(changes.end(), m_markedRects.begin(), m_markedRects.end());
    m_changes = withoutOverlaps(changes, m_screen);
}

void MarkedPicture::copy(const std::uint32_t* pixels, PixelRect rect) {
    for (int y = rect.y; y < rect.bottom(); ++y) {
        const std::size_t start = std::size_t(y) * m_screen.width + rect.x;
        std::copy_n(pixels + start, rect.width, m_pixels.get() + start);
    }
}

void MarkedPicture::tint(PixelRect rect) {
    for (int y = rect.y; y < rect.bottom(); ++y) {
        std::uint32_t* row = m_pixels.get() + std::size_t(y) * m_screen.width;
        for (int x = rect.x; x < rect.right(); ++x)
            row[x] = over(kTint, row[x]);
    }
}

PixelRect MarkedPicture::placeOf(const CGImage& note) const {
    const int width = static_cast<int>(note.width()), height = static_cast<int>(note.height());
    return intersection(m_screen, {m_screen.width - width - kNoteMargin, kNoteMargin, width, height});
}

void MarkedPicture::blend(const CGImage& note, PixelRect rect) {
    for (int y = 0; y < rect.height; ++y) {
        const std::uint32_t* source = note.row(static_cast<NSUInteger>(y));
        std::uint32_t* row = m_pixels.get() + std::size_t(rect.y + y) * m_screen.width + rect.x;
        for (int x = 0; x < rect.width; ++x)
            row[x] = over(source[x], row[x]);
    }
}

} // namespace zr
