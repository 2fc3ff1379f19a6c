#include <ZRPlatform/QuartzCore/Composition/Internal/Painter.h>

#include <ZRPlatform/QuartzCore/Composition/Internal/Pixman.h>

#include <cstring>

namespace zr {

namespace {

/// A view of an image's pixels; `part` in whole pixels.
ImagePointer viewOf(const CGImage& image, PixelRect part) {
    auto* first = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(
        image.pixels() + std::size_t(part.y) * image.bytesPerRow() + std::size_t(part.x) * 4));
    return managed(pixman_image_create_bits_no_clear(PIXMAN_a8r8g8b8, part.width, part.height, first,
                                                     static_cast<int>(image.bytesPerRow())));
}

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

} // namespace

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
    const PixelRect start = firstPixel(box);
    if (area.isEmpty() || !setTransform(source.get(), concat(translation(start.x, start.y), map)))
        return;
    pixman_image_set_filter(source.get(), PIXMAN_FILTER_BILINEAR, nullptr, 0);
    pixman_image_set_repeat(source.get(), PIXMAN_REPEAT_PAD);
    // Where the outline cuts nothing there is no mask to be made and followed.
    const PixelRect inside = straight ? intersection(area, insideOf(box, 0)) : PixelRect{};
    if (!inside.isEmpty())
        sample(source.get(), start, mask.get(), target, inside);
    forEachPartAround(inside, area, [&](PixelRect rim) {
        m_coverage.begin(rim);
        m_coverage.addPolygon(outlineOnScreen(node, frame, 0, true));
        auto* bytes = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(m_coverage.finish(opacity)));
        const ImagePointer cut =
            managed(pixman_image_create_bits_no_clear(PIXMAN_a8, rim.width, rim.height, bytes, m_coverage.stride()));
        sample(source.get(), start, cut.get(), target, rim);
    });
}

/// Paints `rect` with an image whose first pixel lies on the screen's pixel `start`.
void Painter::sample(pixman_image_t* source, PixelRect start, pixman_image_t* mask, const Target& target,
                     PixelRect rect) {
    pixman_image_composite32(PIXMAN_OP_OVER, source, mask, target.image, rect.x - start.x, rect.y - start.y, 0, 0,
                             rect.x - target.area.x, rect.y - target.area.y, rect.width, rect.height);
}

/// Where sampling starts: a pixel that does not depend on what is painted anew, as rounding counts from there.
PixelRect Painter::firstPixel(CGRect box) const {
    return {wholePixel(std::clamp<double>(std::floor(box.origin.x), 0, m_bounds.width)),
            wholePixel(std::clamp<double>(std::floor(box.origin.y), 0, m_bounds.height)), 1, 1};
}

/// Tiles that nothing shines through, upright: the columns are looked up, and rows that are alike are copied.
void Painter::copyTiles(const CGImage& image, const Homography& toPoints, const Target& target, PixelRect area) {
    const auto tileIndex = [](double point, NSUInteger size) {
        const double index = std::floor(std::clamp(point, -1e9, 1e9));
        return static_cast<std::uint32_t>(index - std::floor(index / double(size)) * double(size));
    };
    m_columns.resize(area.width);
    for (int x = 0; x < area.width; ++x)
        m_columns[x] = tileIndex((area.x + x + 0.5) * toPoints.xx + toPoints.tx, image.width());
    auto* pixels = pixman_image_get_data(target.image);
    const std::size_t stride = pixman_image_get_stride(target.image) / 4;
    const std::uint32_t* above = nullptr;
    std::size_t indexAbove = 0;
    for (int y = 0; y < area.height; ++y) {
        std::uint32_t* row = pixels + (area.y + y - target.area.y) * stride + (area.x - target.area.x);
        const std::size_t index = tileIndex((area.y + y + 0.5) * toPoints.yy + toPoints.ty, image.height());
        if (above && index == indexAbove) {
            std::memcpy(row, above, std::size_t(area.width) * 4);
        } else {
            const auto* tile = reinterpret_cast<const std::uint32_t*>(image.pixels() + index * image.bytesPerRow());
            for (int x = 0; x < area.width; ++x)
                row[x] = tile[m_columns[x]];
        }
        above = row;
        indexAbove = index;
    }
}

/// Tiles from the origin of the layer's coordinates, one pixel of the image a point; never blended across a tile's
/// edge.
void Painter::paintPattern(const SceneNode& node, const Target& target, PixelRect area, float opacity, CGFloat radius) {
    const CGImage& image = *node.backgroundPattern;
    const auto toPoints = node.toScreen.inverse();
    if (!toPoints)
        return;
    // Only at a rim between pixels, or a rounded one, is there anything to be cut off.
    const PixelRect inside = node.box && !(radius > 0) ? intersection(area, insideOf(*node.box, 0)) : PixelRect{};
    const bool isCopied = opacity >= 1 && image.isOpaque();
    if (isCopied && !inside.isEmpty())
        copyTiles(image, *toPoints, target, inside);
    const ImagePointer source = viewOf(image, {0, 0, int(image.width()), int(image.height())});
    const PixelRect start = firstPixel(node.toScreen.boundingBox(node.bounds));
    if (!setTransform(source.get(), concat(translation(start.x, start.y), *toPoints)))
        return;
    pixman_image_set_filter(source.get(), PIXMAN_FILTER_NEAREST, nullptr, 0);
    pixman_image_set_repeat(source.get(), PIXMAN_REPEAT_NORMAL);
    if (!isCopied && !inside.isEmpty())
        sample(source.get(), start, opacity < 1 ? solid({0, 0, 0, 1}, opacity).get() : nullptr, target, inside);
    forEachPartAround(inside, area, [&](PixelRect rim) {
        sample(source.get(), start, managed(shapeMask(node, rim, opacity)).get(), target, rim);
    });
}

} // namespace zr
