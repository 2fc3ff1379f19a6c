#include <ZRPlatform/QuartzCore/Composition/Internal/Painter.h>

#include <ZRPlatform/QuartzCore/Composition/Internal/Pixman.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// Painted at one go, so that the picture of a group stays in the processor's cache.
constexpr int kBandHeight = 64;
/// What a layer hides is left out where it is as wide as this.
constexpr int kWorthwhileWidth = 64;
/// In steps of 1/255, as the pixels of a faded picture are: a colour looks the same whether it is faded alone or with
/// others.
PaintColor faded(const PaintColor& color, float opacity) {
    if (opacity >= 1)
        return color;
    const auto level = [](float x) { return static_cast<int>(x * 65535 + 0.5f) >> 8; };
    const auto product = [factor = level(opacity), level](float x) {
        const int scaled = level(x) * factor + 128;
        return static_cast<float>((scaled + (scaled >> 8)) >> 8) / 255;
    };
    return {product(color.red), product(color.green), product(color.blue), product(color.alpha)};
}

} // namespace

Painter::Painter(const Scene& scene, std::uint32_t* pixels, int width, int height) :
    m_scene(scene), m_bounds{0, 0, width, height},
    m_screenImage(managed(pixman_image_create_bits_no_clear(PIXMAN_a8r8g8b8, width, height, pixels, width * 4))) {
    m_screen = {m_screenImage.get(), m_bounds};
}

void Painter::paint(PixelRect area) {
    area = intersection(area, m_bounds);
    for (int y = area.y; y < area.bottom(); y += kBandHeight)
        paintBand({area.x, y, area.width, std::min(kBandHeight, area.bottom() - y)});
}

void Painter::paintBand(PixelRect band) {
    PixelRect covered;
    const int first = topmostCover(band, covered);
    // Screens that slide lie side by side: what one of them hides of the other is not painted.
    if (first >= 0 && covered != band) {
        forEachPartAround(covered, band, [this](PixelRect part) { paintBand(part); });
        paintBand(covered);
        return;
    }
    if (first < 0)
        fillRect(band, {0, 0, 0, 1}, 1, m_screen);
    if (m_scene.nodes.empty())
        return;
    // What is below an opaque layer is not painted; the layers around it have painted nothing above that.
    if (first >= 0) {
        int next = first;
        int parent = m_scene.nodes[first].parent;
        paintSubtree(m_scene.nodes[first], m_screen, band);
        next = m_scene.nodes[first].end;
        while (parent >= 0) {
            const SceneNode& node = m_scene.nodes[parent];
            paintNodes(next, node.end, m_screen, band);
            paintBorder(node, m_screen, intersection(band, node.extent), node.opacity, false);
            next = node.end;
            parent = node.parent;
        }
        paintNodes(next, static_cast<int>(m_scene.nodes.size()), m_screen, band);
        return;
    }
    paintNodes(0, static_cast<int>(m_scene.nodes.size()), m_screen, band);
}

/// The topmost layer that covers much of the area, from top to bottom, by itself; -1 when there is none.
int Painter::topmostCover(PixelRect area, PixelRect& covered) const {
    for (int i = static_cast<int>(m_scene.nodes.size()) - 1; i >= 0; --i) {
        covered = coveredPart(m_scene.nodes[i], area);
        if (!covered.isEmpty())
            return i;
    }
    return -1;
}

PixelRect Painter::coveredPart(const SceneNode& node, PixelRect area) const {
    if (node.inGroup || node.opacity < 1 || node.clipsToShape || !node.box || node.background.alpha < 1)
        return {};
    CGRect solidBox = *node.box;
    const CGFloat inset = node.cornerRadius * node.toScreen.xx;
    solidBox.origin.x += inset;
    solidBox.size.width -= 2 * inset;
    const PixelRect part = intersection(intersection(area, node.extent), insideOf(solidBox, 0));
    const bool isMuch = part.width == area.width || part.width >= kWorthwhileWidth;
    return part.height == area.height && isMuch ? part : PixelRect{};
}

void Painter::paintNodes(int first, int end, const Target& target, PixelRect area) {
    for (int i = first; i < end; i = m_scene.nodes[i].end)
        paintSubtree(m_scene.nodes[i], target, area);
}

void Painter::paintSubtree(const SceneNode& node, const Target& target, PixelRect area) {
    area = intersection(area, node.subtreeExtent);
    if (area.isEmpty())
        return;
    if (node.needsGroup())
        paintCut(node, target, area);
    else
        paintPlainly(node, target, area);
}

void Painter::paintPlainly(const SceneNode& node, const Target& target, PixelRect area) {
    const PixelRect own = intersection(area, node.extent);
    paintBelowSublayers(node, target, own, node.opacity, false);
    paintNodes(node.index + 1, node.end, target, area);
    paintBorder(node, target, own, node.opacity, false);
}

/// Only at its rim does a shape cut anything.
void Painter::paintCut(const SceneNode& node, const Target& target, PixelRect area) {
    PixelRect inside = area;
    if (node.clipsToShape)
        inside = node.box ? intersection(area, insideOf(*node.box, node.cornerRadius * node.toScreen.xx)) : PixelRect{};
    forEachPartAround(inside, area, [&](PixelRect part) { paintGroup(node, target, part, node.clipsToShape); });
    if (inside.isEmpty())
        return;
    if (node.opacity >= 1)
        paintPlainly(node, target, inside);
    else
        paintFaded(node, target, inside);
}

/// Where a single thing shows, nothing has to be put together before it is faded: around the others, that is the
/// largest one, often a colour over the whole screen.
void Painter::paintFaded(const SceneNode& node, const Target& target, PixelRect area) {
    const auto pixelCount = [](const PixelRect& rect) { return std::int64_t(rect.width) * rect.height; };
    const SceneNode* largest = &node;
    for (int i = node.index + 1; i < node.end; ++i) {
        if (pixelCount(m_scene.nodes[i].extent) > pixelCount(largest->extent))
            largest = &m_scene.nodes[i];
    }
    PixelRect together;
    for (int i = node.index; i < node.end; ++i) {
        if (&m_scene.nodes[i] != largest)
            together = unionOf(together, intersection(area, m_scene.nodes[i].extent));
    }
    if (!fadesAlone(*largest, node))
        together = area;
    forEachPartAround(together, area, [&](PixelRect part) {
        paintBelowSublayers(*largest, target, intersection(part, largest->extent), node.opacity, false);
    });
    if (!together.isEmpty())
        paintGroup(node, target, together, false);
}

/// Whether fading the layer alone gives the pixels that it has in the faded picture of `group`, to the last bit.
bool Painter::fadesAlone(const SceneNode& layer, const SceneNode& group) const {
    for (const SceneNode* each = &layer; each != &group; each = &m_scene.nodes[each->parent]) {
        if (each->opacity < 1 || each->clipsToShape || m_scene.nodes[each->parent].clipsToShape)
            return false;
    }
    return layer.ownParts() <= 1 && !layer.hasBorder() && layer.box && layer.cornerRadius == 0 &&
           contains(*layer.box, layer.extent);
}

void Painter::paintGroup(const SceneNode& node, const Target& target, PixelRect area, bool shaped) {
    if (m_scratch.size() <= m_groupDepth)
        m_scratch.emplace_back();
    auto& pixels = m_scratch[m_groupDepth++];
    pixels.assign(static_cast<std::size_t>(area.width) * area.height, 0);
    const ImagePointer image = managed(
        pixman_image_create_bits_no_clear(PIXMAN_a8r8g8b8, area.width, area.height, pixels.data(), area.width * 4));
    const Target group{image.get(), area};
    const PixelRect own = intersection(area, node.extent);
    paintBelowSublayers(node, group, own, 1, shaped);
    paintNodes(node.index + 1, node.end, group, area);
    paintBorder(node, group, own, 1, shaped);
    --m_groupDepth;

    const ImagePointer mask = shaped ? managed(shapeMask(node, area, node.opacity)) : solid({0, 0, 0, 1}, node.opacity);
    pixman_image_composite32(PIXMAN_OP_OVER, image.get(), mask.get(), target.image, 0, 0, 0, 0, area.x - target.area.x,
                             area.y - target.area.y, area.width, area.height);
}

void Painter::paintBelowSublayers(const SceneNode& node, const Target& target, PixelRect area, float opacity,
                                  bool shaped) {
    if (area.isEmpty())
        return;
    const CGFloat radius = shaped ? 0 : node.cornerRadius;
    if (node.background.alpha > 0) {
        const PaintColor color = faded(node.background, opacity);
        if (node.box)
            fillBox(*node.box, radius * node.toScreen.xx, color, target, area);
        else
            fillPolygons({outlineOnScreen(node, node.bounds, radius, true)}, color, target, area);
    }
    if (node.backgroundPattern)
        paintPattern(node, target, area, opacity, radius);
    if (node.contents)
        paintContents(node, target, area, opacity);
}

void Painter::paintBorder(const SceneNode& node, const Target& target, PixelRect area, float opacity, bool shaped) {
    if (!node.hasBorder() || area.isEmpty())
        return;
    const PaintColor color = faded(node.border, opacity);
    const CGFloat radius = shaped ? 0 : node.cornerRadius;
    if (node.box) {
        // The width in pixels; whole ones for what stands still.
        double width = node.borderWidth * node.toScreen.xx;
        if (!node.moving)
            width = std::max(1.0, std::round(width));
        const CGRect outer = *node.box;
        const CGRect inner = CGRectInset(outer, width, width);
        if (CGRectIsNull(inner) || CGRectIsEmpty(inner)) {
            fillBox(outer, radius * node.toScreen.xx, color, target, area);
            return;
        }
        const CGFloat outerRadius = radius * node.toScreen.xx;
        if (outerRadius > 0 || shaped) {
            const CGFloat innerRadius = std::max<CGFloat>(0, node.cornerRadius * node.toScreen.xx - width);
            forEachPartAround(intersection(area, insideOf(inner, innerRadius)), area, [&](PixelRect part) {
                fillPolygons({roundedRectOutline(outer, outerRadius, true, kArcTolerance),
                              roundedRectOutline(inner, innerRadius, false, kArcTolerance)},
                             color, target, part);
            });
            return;
        }
        const CGFloat bottom = inner.origin.y + inner.size.height, right = inner.origin.x + inner.size.width;
        fillStraightBox({outer.origin, {outer.size.width, CGFloat(width)}}, color, target, area);
        fillStraightBox({{outer.origin.x, bottom}, {outer.size.width, CGFloat(width)}}, color, target, area);
        fillStraightBox({{outer.origin.x, inner.origin.y}, {CGFloat(width), inner.size.height}}, color, target, area);
        fillStraightBox({{right, inner.origin.y}, {CGFloat(width), inner.size.height}}, color, target, area);
        return;
    }
    std::vector<std::vector<CGPoint>> outlines{outlineOnScreen(node, node.bounds, radius, true)};
    const CGRect inner = CGRectInset(node.bounds, node.borderWidth, node.borderWidth);
    if (!CGRectIsNull(inner) && !CGRectIsEmpty(inner))
        outlines.push_back(
            outlineOnScreen(node, inner, std::max<CGFloat>(0, node.cornerRadius - node.borderWidth), false));
    fillPolygons(outlines, color, target, area);
}

// Shapes

/// Only the corners of a rounded box need exact coverage; the rest is straight.
void Painter::fillBox(CGRect box, CGFloat radius, const PaintColor& color, const Target& target, PixelRect area) {
    if (!(radius > 0)) {
        fillStraightBox(box, color, target, area);
        return;
    }
    const int left = wholePixel(std::ceil(box.origin.x + radius)), top = wholePixel(std::ceil(box.origin.y + radius));
    const int right = wholePixel(std::floor(box.origin.x + box.size.width - radius));
    const int bottom = wholePixel(std::floor(box.origin.y + box.size.height - radius));
    if (right <= left || bottom <= top) {
        fillPolygons({roundedRectOutline(box, radius, true, kArcTolerance)}, color, target, area);
        return;
    }
    const int columns[] = {area.x, left, right, area.right()};
    const int rows[] = {area.y, top, bottom, area.bottom()};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const PixelRect zone = intersection(
                area, {columns[column], rows[row], columns[column + 1] - columns[column], rows[row + 1] - rows[row]});
            if (zone.isEmpty())
                continue;
            if (row != 1 && column != 1)
                fillPolygons({roundedRectOutline(box, radius, true, kArcTolerance)}, color, target, zone);
            else
                fillStraightBox(box, color, target, zone);
        }
    }
}

/// Edges between pixels cover these in part.
void Painter::fillStraightBox(CGRect box, const PaintColor& color, const Target& target, PixelRect area) {
    struct Strip {
        int start, length;
        float coverage;
    };
    const auto strips = [](double start, double end, int low, int high, Strip result[3]) {
        const double fullStart = std::ceil(start - kForgiven), fullEnd = std::floor(end + kForgiven);
        int count = 0;
        const auto add = [&](double from, double to, double coverage) {
            const int a = std::max(low, int(std::clamp<double>(from, low, high)));
            const int b = int(std::clamp<double>(to, low, high));
            if (b > a && coverage > 0)
                result[count++] = {a, b - a, float(coverage)};
        };
        if (fullEnd < fullStart) {
            add(fullEnd, fullStart, end - start);
            return count;
        }
        if (fullStart - start > kForgiven)
            add(fullStart - 1, fullStart, fullStart - start);
        add(fullStart, fullEnd, 1);
        if (end - fullEnd > kForgiven)
            add(fullEnd, fullEnd + 1, end - fullEnd);
        return count;
    };
    Strip columns[3], rows[3];
    const int columnCount = strips(box.origin.x, box.origin.x + box.size.width, area.x, area.right(), columns);
    const int rowCount = strips(box.origin.y, box.origin.y + box.size.height, area.y, area.bottom(), rows);
    for (int i = 0; i < rowCount; ++i) {
        for (int j = 0; j < columnCount; ++j)
            fillRect({columns[j].start, rows[i].start, columns[j].length, rows[i].length}, color,
                     columns[j].coverage * rows[i].coverage, target);
    }
}

void Painter::fillRect(PixelRect rect, PaintColor color, float coverage, const Target& target) {
    const ImagePointer source = solid(color, coverage);
    const auto operation = color.alpha >= 1 && coverage >= 1 ? PIXMAN_OP_SRC : PIXMAN_OP_OVER;
    pixman_image_composite32(operation, source.get(), nullptr, target.image, 0, 0, 0, 0, rect.x - target.area.x,
                             rect.y - target.area.y, rect.width, rect.height);
}

void Painter::fillPolygons(const std::vector<std::vector<CGPoint>>& polygons, const PaintColor& color,
                           const Target& target, PixelRect area) {
    m_coverage.begin(area);
    for (const auto& polygon : polygons)
        m_coverage.addPolygon(polygon);
    auto* bytes = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(m_coverage.finish(1)));
    const ImagePointer mask =
        managed(pixman_image_create_bits_no_clear(PIXMAN_a8, area.width, area.height, bytes, m_coverage.stride()));
    const ImagePointer source = solid(color);
    pixman_image_composite32(PIXMAN_OP_OVER, source.get(), mask.get(), target.image, 0, 0, 0, 0, area.x - target.area.x,
                             area.y - target.area.y, area.width, area.height);
}

pixman_image_t* Painter::shapeMask(const SceneNode& node, PixelRect area, float opacity) {
    m_coverage.begin(area);
    if (node.box)
        m_coverage.addPolygon(roundedRectOutline(*node.box, node.cornerRadius * node.toScreen.xx, true, kArcTolerance));
    else
        m_coverage.addPolygon(outlineOnScreen(node, node.bounds, node.cornerRadius, true));
    auto* bytes = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(m_coverage.finish(opacity)));
    return pixman_image_create_bits_no_clear(PIXMAN_a8, area.width, area.height, bytes, m_coverage.stride());
}

std::vector<CGPoint> Painter::outlineOnScreen(const SceneNode& node, CGRect rect, CGFloat radius,
                                              bool clockwise) const {
    const double pixelsPerPoint = std::max(
        {std::hypot(node.toScreen.xx, node.toScreen.xy), std::hypot(node.toScreen.yx, node.toScreen.yy), 1e-3});
    std::vector<CGPoint> outline = roundedRectOutline(rect, radius, clockwise, CGFloat(kArcTolerance / pixelsPerPoint));
    for (CGPoint& point : outline)
        point = node.toScreen.apply(point).value_or(CGPoint{});
    return outline;
}

} // namespace zr
