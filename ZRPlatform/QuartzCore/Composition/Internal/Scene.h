#pragma once

#include <ZRPlatform/QuartzCore/Composition/Compositor.h>
#include <ZRPlatform/QuartzCore/Layers/Homography.h>

#include <limits>
#include <vector>

namespace zr {

/// A colour ready to be painted: premultiplied, 0..1.
struct PaintColor {
    float red = 0, green = 0, blue = 0, alpha = 0;
    friend bool operator==(const PaintColor&, const PaintColor&) = default;
};

/// A layer at one moment, as far as it shows: everything that painting it needs, and nothing else.
struct SceneNode {
    /// The layer's address, or for the line along its edge the address behind that. Never followed.
    const void* identity = nullptr;
    /// From the layer's points to the screen's pixels.
    Homography toScreen;
    CGRect bounds;
    /// Where the bounds lie on the screen, for a layer that is neither turned nor tilted. What stands still lies on
    /// whole pixels, so that edges, hairlines and text are crisp; what moves does not jump from pixel to pixel.
    std::optional<CGRect> box;
    bool moving = false;
    float opacity = 1;
    /// Sublayers and contents are cut to a shape that is more than `extent` says: rounded, turned, or between pixels.
    bool clipsToShape = false;
    CGFloat cornerRadius = 0;
    PaintColor background;
    Ref<CGImage> backgroundPattern;
    Ref<CGImage> contents;
    /// Where the whole of `contentsRect` goes, in the layer's points, and which part of the image that is, in its
    /// pixels.
    CGRect contentsFrame;
    CGRect contentsPixels;
    /// The part of the contents that stretches, 0..1; the rest keeps its size.
    CGRect contentsCenter{{0, 0}, {1, 1}};
    CGFloat contentsScale = 1;
    CGFloat borderWidth = 0;
    PaintColor border;

    /// Pixels this layer itself can touch, and those that it and its sublayers can touch; both cut by the clips above.
    PixelRect extent;
    PixelRect subtreeExtent;
    /// Index behind the last node below this one: nodes lie in painting order, sublayers behind their superlayer.
    int end = 0;
    /// Index of the superlayer's node; -1 for a root.
    int parent = -1;

    /// Sublayers are composed into a picture of their own first: they are faded, or cut to a shape, as one.
    bool needsGroup() const {
        const bool hasSublayers = end > index + 1;
        return (opacity < 1 && (hasSublayers || ownParts() > 1)) ||
               (clipsToShape && (hasSublayers || contents || backgroundPattern));
    }
    bool isVisible() const { return background.alpha > 0 || backgroundPattern || contents || hasBorder(); }
    /// How many things the layer itself shows, one upon the other.
    int ownParts() const {
        return (background.alpha > 0) + (backgroundPattern != nullptr) + (contents != nullptr) + hasBorder();
    }
    bool hasBorder() const { return borderWidth > 0 && border.alpha > 0; }
    /// Whether a group is somewhere above this node.
    bool inGroup = false;
    /// Whether the node looks the same as `other`, its sublayers aside.
    bool looksLike(const SceneNode& other) const;

    int index = 0;
};

/// What shows at one moment: the layer trees, flattened in painting order.
struct Scene {
    std::vector<SceneNode> nodes;
    /// When an animation next changes what shows; see `Compositor::nextChangeTime`.
    NSTimeInterval nextChangeTime = std::numeric_limits<double>::infinity();
};

/// Takes the picture of the trees at the clock's time. Layers that cannot be seen are left out.
Scene makeScene(const std::vector<CALayer*>& roots, double scale, PixelRect screen, const SceneAids& aids = {});

/// The pixels in which two scenes may differ: rectangles that do not overlap.
std::vector<PixelRect> damageBetween(const Scene& before, const Scene& after, PixelRect screen);

/// Rectangles that cover the same pixels and do not overlap.
std::vector<PixelRect> withoutOverlaps(const std::vector<PixelRect>& rects, PixelRect screen);

} // namespace zr
