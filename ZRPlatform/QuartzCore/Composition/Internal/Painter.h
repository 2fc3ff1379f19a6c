#pragma once

#include <ZRPlatform/QuartzCore/Composition/Internal/Coverage.h>
#include <ZRPlatform/QuartzCore/Composition/Internal/Scene.h>

#include <memory>
#include <vector>

typedef union pixman_image pixman_image_t;

namespace zr {

/// Paints scenes. It holds the scratch memory that painting needs, and nothing else.
class Painter {
public:
    Painter(const Scene& scene, std::uint32_t* pixels, int width, int height);

    /// Paints every pixel of `area`, black where there is nothing.
    void paint(PixelRect area);

private:
    /// A bitmap to paint into: pixels of the screen from `area`'s origin on.
    struct Target {
        pixman_image_t* image;
        PixelRect area;
    };

    void paintBand(PixelRect band);
    int topmostCover(PixelRect area, PixelRect& covered) const;
    PixelRect coveredPart(const SceneNode& node, PixelRect area) const;
    void paintNodes(int first, int end, const Target& target, PixelRect area);
    void paintSubtree(const SceneNode& node, const Target& target, PixelRect area);
    void paintPlainly(const SceneNode& node, const Target& target, PixelRect area);
    void paintCut(const SceneNode& node, const Target& target, PixelRect area);
    void paintFaded(const SceneNode& node, const Target& target, PixelRect area);
    bool fadesAlone(const SceneNode& layer, const SceneNode& group) const;
    /// By way of a picture of its own, which is then faded and, if `shaped`, cut to the layer's shape.
    void paintGroup(const SceneNode& node, const Target& target, PixelRect area, bool shaped);
    /// `shaped`: the whole will be cut to the layer's shape afterwards, so that its own edges need not be.
    void paintBelowSublayers(const SceneNode& node, const Target& target, PixelRect area, float opacity, bool shaped);
    void paintBorder(const SceneNode& node, const Target& target, PixelRect area, float opacity, bool shaped);
    void paintContents(const SceneNode& node, const Target& target, PixelRect area, float opacity);
    void paintImagePart(const SceneNode& node, CGRect pixels, CGRect frame, const Target& target, PixelRect area,
                        float opacity);
    static void sample(pixman_image_t* source, PixelRect start, pixman_image_t* mask, const Target& target,
                       PixelRect rect);
    PixelRect firstPixel(CGRect box) const;
    void paintPattern(const SceneNode& node, const Target& target, PixelRect area, float opacity, CGFloat radius);
    void copyTiles(const CGImage& image, const Homography& toPoints, const Target& target, PixelRect area);

    void fillBox(CGRect box, CGFloat radius, const PaintColor& color, const Target& target, PixelRect area);
    void fillStraightBox(CGRect box, const PaintColor& color, const Target& target, PixelRect area);
    void fillRect(PixelRect rect, PaintColor color, float coverage, const Target& target);
    void fillPolygons(const std::vector<std::vector<CGPoint>>& polygons, const PaintColor& color, const Target& target,
                      PixelRect area);
    /// The coverage of the layer's outline as a mask image; the caller unrefs it.
    pixman_image_t* shapeMask(const SceneNode& node, PixelRect area, float opacity);
    std::vector<CGPoint> outlineOnScreen(const SceneNode& node, CGRect rect, CGFloat radius, bool clockwise) const;

    const Scene& m_scene;
    Target m_screen;
    PixelRect m_bounds;
    Coverage m_coverage;
    /// Which column of a tile each pixel of a row shows.
    std::vector<std::uint32_t> m_columns;
    /// One for each depth of groups within groups; reused from band to band.
    std::vector<std::vector<std::uint32_t>> m_scratch;
    std::size_t m_groupDepth = 0;
    std::shared_ptr<pixman_image_t> m_screenImage;
};

} // namespace zr
