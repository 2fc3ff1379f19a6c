#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/QuartzCore/Layers/CALayer.h>

#include <limits>
#include <memory>
#include <vector>

namespace zr { // not exported
class MarkedPicture;
struct Scene;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// A rectangle of whole pixels.
struct PixelRect {
    /// In pixels, from the top left corner.
    int x = 0, y = 0, width = 0, height = 0;

    /// Without a pixel in it.
    bool isEmpty() const { return width <= 0 || height <= 0; }
    /// The x of the first column that is not in it.
    int right() const { return x + width; }
    /// The y of the first row that is not in it.
    int bottom() const { return y + height; }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// What both cover; empty when they do not meet.
PixelRect intersection(const PixelRect& a, const PixelRect& b);
/// The smallest that holds both; an empty one counts for nothing.
PixelRect unionOf(const PixelRect& a, const PixelRect& b);

/// What a scene shows besides the layer trees, for debugging.
struct SceneAids {
    /// A line of a pixel along each layer's edge.
    bool layerBorders = false;
    /// The root of a tree that shows above all others, without such lines; may be nil.
    const CALayer* overlay = nullptr;
};

/// What shows over a finished picture, for debugging.
struct FrameMarks {
    /// What the last `compose` repainted is tinted.
    bool tintsDamage = false;
    /// Shows in the upper right corner; may be nil.
    Ref<CGImage> note;
};

/// Turns layer trees into a picture, and only repaints what differs from the picture before.
class Compositor {
public:
    /// Pixels, and pixels a point. Starts as opaque black, with everything to be painted.
    Compositor(int width, int height, double scale);
    ~Compositor();

    /// Paints the trees, the first one lowest, as they show at the clock's time. Returns the rectangles that were
    /// repainted (they do not overlap); none when nothing changed.
    const std::vector<PixelRect>& compose(const std::vector<CALayer*>& roots, const SceneAids& aids = {});
    /// The rectangles that the last `compose` repainted.
    const std::vector<PixelRect>& damage() const { return m_damage; }
    /// When an animation in the last composed picture changes it, by `CACurrentMediaTime`: a moment that has passed
    /// already while one glides, infinite when none runs.
    NSTimeInterval nextChangeTime() const { return m_nextChangeTime; }
    /// The next `compose` paints everything.
    void invalidate();

    /// @name Marks
    /// They are in `pixels` and snapshots, but in no damage: what has to be shown anew is more than that.
    /// @{
    /// Lays marks over the picture: to be called after a `compose`, and then after each that repaints something.
    void showMarks(const FrameMarks& marks);
    /// Takes the marks off; the next `compose` paints everything.
    void removeMarks();
    /// Where `pixels` differ from those after the `compose` before the last.
    const std::vector<PixelRect>& shownDamage() const;
    /// @}

    /// Pixels in a row of the picture.
    int width() const { return m_width; }
    /// How many rows it has.
    int height() const { return m_height; }
    /// Pixels a point.
    double scale() const { return m_scale; }
    /// Rows of 32-bit pixels: blue, green, red, 255 in memory order.
    const std::uint32_t* pixels() const;
    /// Pixels painted by the last `compose`, a measure of its work.
    std::int64_t paintedPixels() const { return m_paintedPixels; }
    /// A copy of the picture.
    Ref<CGImage> snapshot() const;

private:
    int m_width;
    int m_height;
    double m_scale;
    std::unique_ptr<std::uint32_t[]> m_pixels;
    std::unique_ptr<Scene> m_lastScene;
    /// The picture with marks; none without any.
    std::unique_ptr<MarkedPicture> m_marked;
    std::vector<PixelRect> m_damage;
    std::int64_t m_paintedPixels = 0;
    NSTimeInterval m_nextChangeTime = std::numeric_limits<double>::infinity();
    bool m_invalid = true;
};

} // namespace zr
#pragma GCC visibility pop
