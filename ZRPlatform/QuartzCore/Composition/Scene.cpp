#include <ZRPlatform/QuartzCore/Composition/Internal/Scene.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zr {

bool SceneNode::looksLike(const SceneNode& other) const {
    return toScreen == other.toScreen && bounds == other.bounds && moving == other.moving &&
           background == other.background && backgroundPattern == other.backgroundPattern &&
           contents == other.contents && contentsFrame == other.contentsFrame &&
           contentsPixels == other.contentsPixels && contentsCenter == other.contentsCenter &&
           contentsScale == other.contentsScale && cornerRadius == other.cornerRadius &&
           borderWidth == other.borderWidth && border == other.border && extent == other.extent;
}

namespace {

PaintColor paintColor(const CGColor* color) {
    if (!color || color->pattern())
        return {};
    const RGBAColor rgba = color->rgba();
    const auto cut = [](CGFloat x) { return std::isfinite(x) ? std::clamp<float>(float(x), 0, 1) : 0; };
    const float alpha = cut(rgba.alpha);
    return {cut(rgba.red) * alpha, cut(rgba.green) * alpha, cut(rgba.blue) * alpha, alpha};
}

/// Whole pixels around a rectangle; a little is forgiven, so that rounding errors do not grow it by a pixel.
PixelRect pixelsAround(CGRect rect, PixelRect clip) {
    constexpr double kForgiven = 1.0 / 1024;
    if (!CGRectIsFinite(rect))
        return {};
    const double left = std::max<double>(std::floor(rect.origin.x + kForgiven), clip.x);
    const double top = std::max<double>(std::floor(rect.origin.y + kForgiven), clip.y);
    const double right = std::min<double>(std::ceil(rect.origin.x + rect.size.width - kForgiven), clip.right());
    const double bottom = std::min<double>(std::ceil(rect.origin.y + rect.size.height - kForgiven), clip.bottom());
    if (!(right > left && bottom > top))
        return {};
    return {int(left), int(top), int(right - left), int(bottom - top)};
}

/// Where an image of `size` points goes within `bounds`.
CGRect gravityFrame(const NSString& gravity, CGRect bounds, CGSize size) {
    CGRect frame{bounds.origin, size};
    const CGFloat freeX = bounds.size.width - size.width, freeY = bounds.size.height - size.height;
    if (gravity == kCAGravityResize)
        return bounds;
    if (gravity == kCAGravityResizeAspect || gravity == kCAGravityResizeAspectFill) {
        const CGFloat x = bounds.size.width / size.width, y = bounds.size.height / size.height;
        const CGFloat factor = gravity == kCAGravityResizeAspect ? std::min(x, y) : std::max(x, y);
        const CGSize scaled{size.width * factor, size.height * factor};
        return {{bounds.origin.x + (bounds.size.width - scaled.width) / 2,
                 bounds.origin.y + (bounds.size.height - scaled.height) / 2},
                scaled};
    }
    const std::string& name = gravity.utf8();
    const auto has = [&](std::string_view part) {
        return std::search(name.begin(), name.end(), part.begin(), part.end(),
                           [](char a, char b) { return std::tolower(a) == std::tolower(b); }) != name.end();
    };
    frame.origin.x += has("left") ? 0 : has("right") ? freeX : freeX / 2;
    frame.origin.y += has("top") ? 0 : has("bottom") ? freeY : freeY / 2;
    return frame;
}

/// Each edge on the nearest pixel, so that neighbours still meet; what had a width keeps at least a pixel of it.
CGRect onWholePixels(CGRect rect) {
    const auto round = [](double x) { return std::floor(x + 0.5 + 1.0 / 1024); };
    const double left = round(rect.origin.x), top = round(rect.origin.y);
    double right = round(rect.origin.x + rect.size.width), bottom = round(rect.origin.y + rect.size.height);
    if (right == left && rect.size.width > 0)
        right += 1;
    if (bottom == top && rect.size.height > 0)
        bottom += 1;
    return {{CGFloat(left), CGFloat(top)}, {CGFloat(right - left), CGFloat(bottom - top)}};
}

class SceneBuilder {
public:
    SceneBuilder(double scale, PixelRect screen, bool collectsEdges) :
        m_scale(scale), m_screen(screen), m_collectsEdges(collectsEdges) {}

    void add(const CALayer& layer, const CATransform3D& toScreen, PixelRect clip, int parent);
    /// The edges of all layers so far, above them; none of those to come.
    void addEdges();
    Scene take() { return std::move(m_scene); }
    CATransform3D screenTransform() const { return CATransform3DMakeScale(m_scale, m_scale, m_scale); }

private:
    void addSublayers(const CALayer& layer, const LayerValues& values, const CATransform3D& toScreen, PixelRect clip,
                      int index);
    void collectEdge(const SceneNode& node, PixelRect extent);

    double m_scale;
    PixelRect m_screen;
    bool m_collectsEdges;
    std::vector<SceneNode> m_edges;
    Scene m_scene;
};

void SceneBuilder::add(const CALayer& layer, const CATransform3D& superToScreen, PixelRect clip, int parent) {
    const LayerValues values = layer.hasAnimations() ? layer.presentationValues() : layer.modelValues();
    // What cannot be seen at this moment may be about to appear; below a layer that is hidden nothing can.
    if (!layer.isHidden())
        m_scene.nextChangeTime = std::min(m_scene.nextChangeTime, layer.nextChangeTime());
    if (values.hidden || !(values.opacity > 0))
        return;
    const CATransform3D transform = CATransform3DConcat(values.toSuperlayer(), superToScreen);
    SceneNode node;
    node.identity = &layer;
    node.toScreen = Homography::fromTransform(transform);
    if (!node.toScreen.isFinite() || !CGRectIsFinite(values.bounds))
        return;
    node.bounds = values.bounds;
    node.opacity = std::min(values.opacity, 1.0f);
    node.cornerRadius = std::isfinite(values.cornerRadius)
                            ? std::clamp<CGFloat>(values.cornerRadius, 0,
                                                  std::min(values.bounds.size.width, values.bounds.size.height) / 2)
                            : 0;
    node.background = paintColor(values.backgroundColor);
    node.backgroundPattern = values.backgroundColor ? values.backgroundColor->pattern() : nullptr;
    node.borderWidth = std::isfinite(values.borderWidth) ? std::max<CGFloat>(values.borderWidth, 0) : 0;
    node.border = paintColor(values.borderColor);

    node.moving = layer.isMoving() || (parent >= 0 && m_scene.nodes[parent].moving);
    CGRect box = node.toScreen.boundingBox(values.bounds);
    const bool straight = node.toScreen.isScaleAndTranslation();
    // Corners that are squeezed are no arcs of circles any more.
    const bool even = std::fabs(node.toScreen.xx - node.toScreen.yy) < 1e-9;
    if (straight && (even || node.cornerRadius == 0)) {
        if (!node.moving)
            box = onWholePixels(box);
        node.box = box;
    }
    node.clipsToShape = values.masksToBounds && !(straight && node.cornerRadius == 0 && onWholePixels(box) == box);
    CGRect contentsBox = box;
    if (values.contents && !CGRectIsEmpty(values.bounds)) {
        const CGRect part = values.contentsRect;
        const CGFloat width = values.contents->width(), height = values.contents->height();
        node.contents = values.contents;
        node.contentsScale = layer.contentsScale();
        node.contentsPixels = {{part.origin.x * width, part.origin.y * height},
                               {part.size.width * width, part.size.height * height}};
        const CGSize size{node.contentsPixels.size.width / node.contentsScale,
                          node.contentsPixels.size.height / node.contentsScale};
        node.contentsFrame = gravityFrame(layer.contentsGravity(), values.bounds, size);
        node.contentsCenter = values.contentsCenter;
        // A bitmap covers whole pixels: one made for these bounds may stand out at the right and the bottom, by less
        // than a pixel. It keeps its size, so that nothing is resampled.
        if (layer.contentsGravity() == kCAGravityResize && node.contentsScale == m_scale &&
            bitmapLength(values.bounds.size.width, m_scale) == width &&
            bitmapLength(values.bounds.size.height, m_scale) == height && part == CGRect{{0, 0}, {1, 1}})
            node.contentsFrame.size = {CGFloat(width / m_scale), CGFloat(height / m_scale)};
        contentsBox = node.toScreen.boundingBox(node.contentsFrame);
        if (!CGRectIsFinite(contentsBox))
            node.contents = nullptr;
    }

    const PixelRect boxPixels = pixelsAround(box, clip);
    if (m_collectsEdges && !boxPixels.isEmpty())
        collectEdge(node, boxPixels);
    if (values.masksToBounds)
        clip = intersection(clip, boxPixels);
    if (node.isVisible()) {
        node.extent = CGRectIsEmpty(values.bounds) ? PixelRect{} : boxPixels;
        if (node.contents)
            node.extent = unionOf(node.extent, pixelsAround(contentsBox, clip));
    }
    node.subtreeExtent = node.extent;
    node.parent = parent;
    node.inGroup = parent >= 0 && (m_scene.nodes[parent].inGroup || m_scene.nodes[parent].opacity < 1 ||
                                   m_scene.nodes[parent].clipsToShape);
    node.index = static_cast<int>(m_scene.nodes.size());
    const int index = node.index;
    m_scene.nodes.push_back(std::move(node));
    if (!clip.isEmpty())
        addSublayers(layer, values, transform, clip, index);

    SceneNode& finished = m_scene.nodes[index];
    finished.end = static_cast<int>(m_scene.nodes.size());
    if (finished.subtreeExtent.isEmpty()) {
        m_scene.nodes.pop_back();
        return;
    }
    if (parent >= 0) {
        PixelRect& around = m_scene.nodes[parent].subtreeExtent;
        around = unionOf(around, finished.subtreeExtent);
    }
}

void SceneBuilder::collectEdge(const SceneNode& node, PixelRect extent) {
    constexpr PaintColor kRed{0.9f, 0, 0.1f, 0.9f}, kBlue{0, 0.2f, 0.9f, 0.9f};
    SceneNode& edge = m_edges.emplace_back();
    edge.identity = static_cast<const std::byte*>(node.identity) + 1;
    edge.toScreen = node.toScreen;
    edge.bounds = node.bounds;
    edge.box = node.box;
    edge.moving = node.moving;
    edge.cornerRadius = node.cornerRadius;
    edge.border = node.contents ? kBlue : kRed;
    edge.borderWidth = static_cast<CGFloat>(1 / (node.box ? node.toScreen.xx : m_scale));
    edge.extent = edge.subtreeExtent = extent;
}

void SceneBuilder::addEdges() {
    m_collectsEdges = false;
    for (SceneNode& edge : m_edges) {
        edge.index = static_cast<int>(m_scene.nodes.size());
        edge.end = edge.index + 1;
        edge.parent = -1;
        m_scene.nodes.push_back(std::move(edge));
    }
}

bool mayLeaveItsPlace(const Ref<CALayer>& layer) { return layer->zPosition() != 0 || layer->hasAnimations(); }

/// The zPosition that shows; what is not a number has no place among the others, and counts as 0.
CGFloat heightOf(const CALayer& layer) {
    const CGFloat height = layer.hasAnimations() ? layer.presentationValues().zPosition : layer.zPosition();
    return std::isnan(height) ? 0 : height;
}

void SceneBuilder::addSublayers(const CALayer& layer, const LayerValues& values, const CATransform3D& toScreen,
                                PixelRect clip, int index) {
    CATransform3D transform = toScreen;
    if (!CATransform3DIsIdentity(values.sublayerTransform)) {
        const CGFloat x = values.bounds.origin.x + values.anchorPoint.x * values.bounds.size.width;
        const CGFloat y = values.bounds.origin.y + values.anchorPoint.y * values.bounds.size.height;
        transform = CATransform3DTranslate(toScreen, x, y, 0);
        transform = CATransform3DConcat(values.sublayerTransform, transform);
        transform = CATransform3DTranslate(transform, -x, -y, 0);
    }
    const auto& sublayers = layer.sublayers();
    if (std::none_of(sublayers.begin(), sublayers.end(), mayLeaveItsPlace)) {
        for (const auto& sublayer : sublayers)
            add(*sublayer, transform, clip, index);
        return;
    }
    std::vector<std::pair<CGFloat, const CALayer*>> byHeight;
    for (const auto& sublayer : sublayers)
        byHeight.emplace_back(heightOf(*sublayer), sublayer);
    std::stable_sort(byHeight.begin(), byHeight.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [height, sublayer] : byHeight)
        add(*sublayer, transform, clip, index);
}

} // namespace

Scene makeScene(const std::vector<CALayer*>& roots, double scale, PixelRect screen, const SceneAids& aids) {
    SceneBuilder builder(scale, screen, aids.layerBorders);
    for (const CALayer* root : roots)
        builder.add(*root, builder.screenTransform(), screen, -1);
    builder.addEdges();
    if (aids.overlay)
        builder.add(*aids.overlay, builder.screenTransform(), screen, -1);
    return builder.take();
}

} // namespace zr
