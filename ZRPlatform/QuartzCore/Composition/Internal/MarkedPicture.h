#pragma once

#include <ZRPlatform/QuartzCore/Composition/Compositor.h>

#include <memory>
#include <vector>

namespace zr {

/// A copy of a picture with marks over it. The picture itself stays clean, so that a mark that goes costs a copy of
/// what was below it and no painting.
class MarkedPicture {
public:
    MarkedPicture(int width, int height);

    /// `pixels`: those of the picture, which has changed in `damage` since the last time. The marks of then go.
    void show(const std::uint32_t* pixels, const std::vector<PixelRect>& damage, const FrameMarks& marks);

    const std::uint32_t* pixels() const { return m_pixels.get(); }
    /// Where the pixels have changed in the last `show`.
    const std::vector<PixelRect>& changes() const { return m_changes; }
    void forgetChanges() { m_changes.clear(); }

private:
    void copy(const std::uint32_t* pixels, PixelRect rect);
    void tint(PixelRect rect);
    PixelRect placeOf(const CGImage& note) const;
    void blend(const CGImage& note, PixelRect rect);

    PixelRect m_screen;
    std::unique_ptr<std::uint32_t[]> m_pixels;
    /// Those that hold marks.
    std::vector<PixelRect> m_markedRects;
    std::vector<PixelRect> m_changes;
};

} // namespace zr
