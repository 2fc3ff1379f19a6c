#include <ZRPlatform/QuartzCore/Composition/Internal/Painter.h>

#include <pixman.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// Painted at one go, so that the picture of a group stays in the processor's cache.
constexpr int kBandHeight = 64;
/// How far, in pixels, a drawn arc may be from the true one.
constexpr double kArcTolerance = 0.05;
/// Less than this many pixels is a rounding error.
constexpr double kForgiven = 1.0 / 1024;

using ImagePointer = std::shared_ptr<pixman_image_t>;

ImagePointer managed(pixman_image_t* image) {
    return {image, [](pixman_image_t* i) {
                if (i)
                    pixman_image_unref(i);
            }};
}

ImagePointer solid(const PaintColor& color, float factor = 1) {
    const auto number = [factor](float x) { return static_cast<std::uint16_t>(x * factor * 65535 + 0.5f); };
    const pixman_color_t pixmanColor{number(color.red), number(color.green), number(color.blue), number(color.alpha)};
    return managed(pixman_image_create_solid_fill(&pixmanColor));
}

/// A view of an image's pixels; `part` in whole pixels.
ImagePointer viewOf(const CGImage& image, PixelRect part) {
    auto* first = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(
        image.pixels() + std::size_t(part.y) * image.bytesPerRow() + std::size_t(part.x) * 4));
    return managed(pixman_image_create_bits_no_clear(PIXMAN_a8r8g8b8, part.width, part.height, first,
                                                     static_cast<int>(image.bytesPerRow())));
}

/// A whole pixel; far outside of every screen for numbers that no integer holds.
int wholePixel(double x) { return static_cast<int>(std::clamp(x, -1e8, 1e8)); }

bool isWhole(double x) { return std::fabs(x - std::round(x)) < kForgiven; }

/// `map` takes the screen's pixels to the image's.
bool setTransform(pixman_image_t* image, const Homography& map) {
    pixman_f_transform f;
    const double columns[3][3] = {{map.xx, map.yx, map.tx}, {map.xy, map.yy, map.ty}, {map.xw, map.yw, map.tw}};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            f.m[i][j] = columns[i][j] / (map.isAffine() ? 1 : map.tw);
    }
    pixman_transform_t transform;
    return pixman_transform_from_pixman_f_transform(&transform, &f) && pixman_image_set_transform(image, &transform);
}

/// First `a`, then `b`.
Homography concat(const Homography& a, const Homography& b) {
    return {a.xx * b.xx + a.xy * b.yx + a.xw * b.tx, a.xx * b.xy + a.xy * b.yy + a.xw * b.ty,
            a.xx * b.xw + a.xy * b.yw + a.xw * b.tw, a.yx * b.xx + a.yy * b.yx + a.yw * b.tx,
            a.yx * b.xy + a.yy * b.yy + a.yw * b.ty, a.yx * b.xw + a.yy * b.yw + a.yw * b.tw,
            a.tx * b.xx + a.ty * b.yx + a.tw * b.tx, a.tx * b.xy + a.ty * b.yy + a.tw * b.ty,
            a.tx * b.xw + a.ty * b.yw + a.tw * b.tw};
}

Homography translation(double x, double y) {
    Homography h;
    h.tx = x;
    h.ty = y;
    return h;
}

/// Takes `from` to `to`.
Homography rectToRect(CGRect from, CGRect to) {
    Homography h;
    h.xx = to.size.width / from.size.width;
    h.yy = to.size.height / from.size.height;
    h.tx = to.origin.x - from.origin.x * h.xx;
    h.ty = to.origin.y - from.origin.y * h.yy;
    return h;
}

bool contains(CGRect box, PixelRect area) {
    return box.origin.x <= area.x && box.origin.y <= area.y && box.origin.x + box.size.width >= area.right() &&
           box.origin.y + box.size.height >= area.bottom();
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
    const int first = firstVisibleNode(band);
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

/// The topmost layer that covers the whole area by itself; -1 when there is none.
int Painter::firstVisibleNode(PixelRect area) const {
    for (int i = static_cast<int>(m_scene.nodes.size()) - 1; i >= 0; --i) {
        if (covers(m_scene.nodes[i], area))
            return i;
    }
    return -1;
}

bool Painter::covers(const SceneNode& node, PixelRect area) const {
    if (node.inGroup || node.opacity < 1 || node.clipsToShape || !node.box || intersection(node.extent, area) != area)
        return false;
    CGRect solidBox = *node.box;
    if (node.background.alpha < 1)
        return false;
    const CGFloat inset = node.cornerRadius * node.toScreen.xx;
    solidBox.origin.x += inset;
    solidBox.size.width -= 2 * inset;
    return contains(solidBox, area);
}

void Painter::paintNodes(int first, int end, const Target& target, PixelRect area) {
    for (int i = first; i < end; i = m_scene.nodes[i].end)
        paintSubtree(m_scene.nodes[i], target, area);
}

void Painter::paintSubtree(const SceneNode& node, const Target& target, PixelRect area) {
    area = intersection(area, node.subtreeExtent);
    if (area.isEmpty())
        return;
    if (node.needsGroup()) {
        paintGroup(node, target, area);
        return;
    }
    const PixelRect own = intersection(area, node.extent);
    paintBelowSublayers(node, target, own, node.opacity, false);
    paintNodes(node.index + 1, node.end, target, area);
    paintBorder(node, target, own, node.opacity, false);
}

void Painter::paintGroup(const SceneNode& node, const Target& target, PixelRect area) {
    if (m_scratch.size() <= m_groupDepth)
        m_scratch.emplace_back();
    auto& pixels = m_scratch[m_groupDepth++];
    pixels.assign(static_cast<std::size_t>(area.width) * area.height, 0);
    const ImagePointer image = managed(
        pixman_image_create_bits_no_clear(PIXMAN_a8r8g8b8, area.width, area.height, pixels.data(), area.width * 4));
    const Target group{image.get(), area};
    const PixelRect own = intersection(area, node.extent);
    paintBelowSublayers(node, group, own, 1, node.clipsToShape);
    paintNodes(node.index + 1, node.end, group, area);
    paintBorder(node, group, own, 1, node.clipsToShape);
    --m_groupDepth;

    const ImagePointer mask = node.clipsToShape  ? managed(shapeMask(node, area, node.opacity))
                              : node.opacity < 1 ? solid({0, 0, 0, 1}, node.opacity)
                                                 : ImagePointer();
    pixman_image_composite32(PIXMAN_OP_OVER, image.get(), mask.get(), target.image, 0, 0, 0, 0, area.x - target.area.x,
                             area.y - target.area.y, area.width, area.height);
}

void Painter::paintBelowSublayers(const SceneNode& node, const Target& target, PixelRect area, float opacity,
                                  bool shaped) {
    if (area.isEmpty())
        return;
    const CGFloat radius = shaped ? 0 : node.cornerRadius;
    if (node.background.alpha > 0) {
        PaintColor color = node.background;
        for (float* part : {&color.red, &color.green, &color.blue, &color.alpha})
            *part *= opacity;
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
    PaintColor color = node.border;
    for (float* part : {&color.red, &color.green, &color.blue, &color.alpha})
        *part *= opacity;
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
            fillPolygons({roundedRectOutline(outer, outerRadius, true, kArcTolerance),
                          roundedRectOutline(inner, innerRadius, false, kArcTolerance)},
                         color, target, area);
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

// Images

void Painter::paintContents(const SceneNode& node, const Target& target, PixelRect area, float opacity) {
    const CGRect center = node.contentsCenter;
    if (center == CGRect{{0, 0}, {1, 1}}) {
        paintImagePart(node, node.contentsPixels, node.contentsFrame, target, area, opacity);
        return;
    }
    // Nine parts: the corners keep their size, the rest stretches.
    const CGRect pixels = node.contentsPixels;
    const CGRect frame = node.contentsFrame;
    const auto edges = [&](CGFloat start, CGFloat length, CGFloat centerStart, CGFloat centerLength, CGFloat frameStart,
                           CGFloat frameLength, CGFloat source[4], CGFloat place[4]) {
        source[0] = start;
        source[1] = start + length * centerStart;
        source[2] = start + length * (centerStart + centerLength);
        source[3] = start + length;
        place[0] = frameStart;
        place[1] = frameStart + (source[1] - source[0]) / node.contentsScale;
        place[2] = frameStart + frameLength - (source[3] - source[2]) / node.contentsScale;
        place[3] = frameStart + frameLength;
    };
    CGFloat sourceX[4], placeX[4], sourceY[4], placeY[4];
    edges(pixels.origin.x, pixels.size.width, center.origin.x, center.size.width, frame.origin.x, frame.size.width,
          sourceX, placeX);
    edges(pixels.origin.y, pixels.size.height, center.origin.y, center.size.height, frame.origin.y, frame.size.height,
          sourceY, placeY);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            paintImagePart(
                node,
                {{sourceX[column], sourceY[row]},
                 {sourceX[column + 1] - sourceX[column], sourceY[row + 1] - sourceY[row]}},
                {{placeX[column], placeY[row]}, {placeX[column + 1] - placeX[column], placeY[row + 1] - placeY[row]}},
                target, area, opacity);
        }
    }
}

void Painter::paintImagePart(const SceneNode& node, CGRect pixels, CGRect frame, const Target& target, PixelRect area,
                             float opacity) {
    if (!(pixels.size.width > 0 && pixels.size.height > 0 && frame.size.width > 0 && frame.size.height > 0))
        return;
    const CGImage& image = *node.contents;
    const int left = wholePixel(std::floor(pixels.origin.x + kForgiven));
    const int top = wholePixel(std::floor(pixels.origin.y + kForgiven));
    const int right = wholePixel(std::ceil(pixels.origin.x + pixels.size.width - kForgiven));
    const int bottom = wholePixel(std::ceil(pixels.origin.y + pixels.size.height - kForgiven));
    const PixelRect part =
        intersection({left, top, right - left, bottom - top}, {0, 0, int(image.width()), int(image.height())});
    if (part.isEmpty())
        return;
    const ImagePointer source = viewOf(image, part);
    ImagePointer mask = opacity < 1 ? solid({0, 0, 0, 1}, opacity) : nullptr;

    CGRect box = node.toScreen.boundingBox(frame);
    const bool straight = node.toScreen.isScaleAndTranslation();
    const bool sameSize = straight && isWhole(pixels.origin.x) && isWhole(pixels.origin.y) &&
                          std::fabs(box.size.width - part.width) < kForgiven &&
                          std::fabs(box.size.height - part.height) < kForgiven;
    if (sameSize && !node.moving)
        box.origin = {std::round(box.origin.x), std::round(box.origin.y)};
    if (sameSize && isWhole(box.origin.x) && isWhole(box.origin.y)) {
        const int x = wholePixel(std::round(box.origin.x)), y = wholePixel(std::round(box.origin.y));
        const PixelRect visible = intersection(area, {x, y, part.width, part.height});
        if (visible.isEmpty())
            return;
        const auto operation = image.isOpaque() && opacity >= 1 ? PIXMAN_OP_SRC : PIXMAN_OP_OVER;
        pixman_image_composite32(operation, source.get(), mask.get(), target.image, visible.x - x, visible.y - y, 0, 0,
                                 visible.x - target.area.x, visible.y - target.area.y, visible.width, visible.height);
        return;
    }

    // Sampled: the image goes on beyond its edges, and the exact outline cuts it.
    const auto toPoints = node.toScreen.inverse();
    if (!toPoints)
        return;
    Homography map =
        concat(*toPoints, rectToRect(frame, {{pixels.origin.x - part.x, pixels.origin.y - part.y}, pixels.size}));
    area = intersection(area, {wholePixel(std::floor(box.origin.x)), wholePixel(std::floor(box.origin.y)),
                               wholePixel(std::ceil(box.size.width)) + 1, wholePixel(std::ceil(box.size.height)) + 1});
    if (area.isEmpty() || !setTransform(source.get(), concat(translation(area.x, area.y), map)))
        return;
    pixman_image_set_filter(source.get(), PIXMAN_FILTER_BILINEAR, nullptr, 0);
    pixman_image_set_repeat(source.get(), PIXMAN_REPEAT_PAD);
    if (!(straight && contains(box, area))) {
        m_coverage.begin(area);
        m_coverage.addPolygon(outlineOnScreen(node, frame, 0, true));
        auto* bytes = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(m_coverage.finish(opacity)));
        mask =
            managed(pixman_image_create_bits_no_clear(PIXMAN_a8, area.width, area.height, bytes, m_coverage.stride()));
    }
    pixman_image_composite32(PIXMAN_OP_OVER, source.get(), mask.get(), target.image, 0, 0, 0, 0, area.x - target.area.x,
                             area.y - target.area.y, area.width, area.height);
}

/// Tiles from the origin of the layer's coordinates, one pixel of the image a point; never blended across a tile's
/// edge.
void Painter::paintPattern(const SceneNode& node, const Target& target, PixelRect area, float opacity, CGFloat radius) {
    const CGImage& image = *node.backgroundPattern;
    const auto toPoints = node.toScreen.inverse();
    if (!toPoints)
        return;
    const ImagePointer source = viewOf(image, {0, 0, int(image.width()), int(image.height())});
    if (!setTransform(source.get(), concat(translation(area.x, area.y), *toPoints)))
        return;
    pixman_image_set_filter(source.get(), PIXMAN_FILTER_NEAREST, nullptr, 0);
    pixman_image_set_repeat(source.get(), PIXMAN_REPEAT_NORMAL);
    ImagePointer mask;
    if (radius > 0 || !node.box || !contains(*node.box, area))
        mask = managed(shapeMask(node, area, opacity));
    else if (opacity < 1)
        mask = solid({0, 0, 0, 1}, opacity);
    const auto operation = image.isOpaque() && !mask ? PIXMAN_OP_SRC : PIXMAN_OP_OVER;
    pixman_image_composite32(operation, source.get(), mask.get(), target.image, 0, 0, 0, 0, area.x - target.area.x,
                             area.y - target.area.y, area.width, area.height);
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
