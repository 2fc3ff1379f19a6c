#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/UIKit/Images/Internal/ImageDecoder.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zr {

namespace {

/// Where the bitmap's corner (u, v), 0..1 from the top left, shows: (a u + c v + e, b u + d v + f).
struct Turn {
    int a, b, c, d, e, f;

    bool swapsSides() const { return a == 0; }
};

/// By orientation.
constexpr Turn kTurns[] = {
    {1, 0, 0, 1, 0, 0},  {-1, 0, 0, -1, 1, 1}, {0, -1, 1, 0, 0, 1}, {0, 1, -1, 0, 1, 0},
    {-1, 0, 0, 1, 1, 0}, {1, 0, 0, -1, 0, 1},  {0, 1, 1, 0, 0, 0},  {0, -1, -1, 0, 1, 1},
};

/// By the number in a photograph's metadata, less one.
constexpr UIImageOrientation kOrientations[] = {
    UIImageOrientationUp,
    UIImageOrientationUpMirrored,
    UIImageOrientationDown,
    UIImageOrientationDownMirrored,
    UIImageOrientationLeftMirrored,
    UIImageOrientationRight,
    UIImageOrientationRightMirrored,
    UIImageOrientationLeft,
};

Turn turnOf(UIImageOrientation orientation) {
    const bool isKnown = orientation >= UIImageOrientationUp && orientation <= UIImageOrientationRightMirrored;
    return kTurns[isKnown ? orientation : UIImageOrientationUp];
}

CGFloat positiveOr1(CGFloat scale) { return scale > 0 && std::isfinite(scale) ? scale : 1; }

/// Fills `rect` of a space whose y grows downwards.
void drawTurned(CGContextRef context, CGRect rect, CGImageRef image, Turn turn) {
    const auto [width, height] = turn.swapsSides() ? CGSize{rect.size.height, rect.size.width} : rect.size;
    const CGFloat a = turn.a, b = turn.b, c = turn.c, d = turn.d, e = turn.e, f = turn.f;
    CGContextSaveGState(context);
    CGContextConcatCTM(context,
                       {a, b, c, d, rect.origin.x + e * rect.size.width, rect.origin.y + f * rect.size.height});
    CGContextTranslateCTM(context, 0, height);
    CGContextScaleCTM(context, 1, -1);
    CGContextDrawImage(context, {{0, 0}, {width, height}}, image);
    CGContextRestoreGState(context);
}

/// A run of the source, in pixels, and the run of the destination it fills.
struct Slice {
    CGFloat from, fromLength, to, toLength;
};

/// Start cap, middle, end cap. Caps that do not fit into `length` share it in proportion.
std::array<Slice, 3> slicesAlong(CGFloat origin, CGFloat length, CGFloat startCap, CGFloat endCap, CGFloat pixels,
                                 CGFloat scale) {
    const CGFloat caps = startCap + endCap;
    const CGFloat shrink = caps > length ? length / caps : 1;
    const CGFloat start = startCap * shrink, end = endCap * shrink;
    const CGFloat startPixels = startCap * scale, endPixels = endCap * scale;
    return {Slice{0, startPixels, origin, start},
            Slice{startPixels, pixels - startPixels - endPixels, origin + start, length - start - end},
            Slice{pixels - endPixels, endPixels, origin + length - end, end}};
}

void drawSliced(CGContextRef context, CGRect rect, CGImageRef upright, UIEdgeInsets caps, CGFloat scale) {
    const auto columns = slicesAlong(rect.origin.x, rect.size.width, caps.left, caps.right,
                                     static_cast<CGFloat>(upright->width()), scale);
    const auto rows = slicesAlong(rect.origin.y, rect.size.height, caps.top, caps.bottom,
                                  static_cast<CGFloat>(upright->height()), scale);
    for (const Slice& row : rows) {
        for (const Slice& column : columns) {
            const CGRect source{{column.from, row.from}, {column.fromLength, row.fromLength}};
            const CGRect target{{column.to, row.to}, {column.toLength, row.toLength}};
            const bool shows = source.size.width > 0 && source.size.height > 0 && !CGRectIsEmpty(target);
            if (const Ref<CGImage> part = shows ? CGImageCreateWithImageInRect(upright, source) : nullptr)
                drawTurned(context, target, part, turnOf(UIImageOrientationUp));
        }
    }
}

/// Insets within an image: none negative, and none beyond the opposite edge.
UIEdgeInsets insetsWithin(CGSize size, UIEdgeInsets insets) {
    const auto cut = [](CGFloat value, CGFloat limit) { return value > 0 ? std::min(value, limit) : 0; };
    const CGFloat top = cut(insets.top, size.height), left = cut(insets.left, size.width);
    return {top, left, cut(insets.bottom, size.height - top), cut(insets.right, size.width - left)};
}

/// A context of the bitmap's own size with y downwards from the top left, a pixel a unit.
Ref<CGContext> bitmapContext(NSUInteger width, NSUInteger height, bool opaque) {
    Ref<CGContext> context = CGBitmapContextCreateForLayer(width, height, opaque);
    CGContextTranslateCTM(context, 0, static_cast<CGFloat>(height));
    CGContextScaleCTM(context, 1, -1);
    return context;
}

} // namespace

Ref<UIImage> UIImage::imageWithData(const std::vector<std::uint8_t>& data, CGFloat scale) {
    const auto decoded = decodeImage(data);
    if (!decoded)
        return nullptr;
    return imageWithCGImage_scale_orientation(decoded->image, scale, orientationWithNumber(decoded->orientation));
}

UIImageOrientation UIImage::orientationWithNumber(int number) { return kOrientations[number - 1]; }

Ref<UIImage> UIImage::imageWithCGImage(CGImageRef image) {
    return imageWithCGImage_scale_orientation(image, 1, UIImageOrientationUp);
}

Ref<UIImage> UIImage::imageWithCGImage_scale_orientation(CGImageRef cgImage, CGFloat scale,
                                                         UIImageOrientation orientation) {
    if (!cgImage)
        return nullptr;
    auto image = make<UIImage>();
    image->m_image = cgImage;
    image->m_scale = positiveOr1(scale);
    image->m_orientation = orientation;
    return image;
}

Ref<UIImage> UIImage::copy() const {
    auto image = imageWithCGImage_scale_orientation(m_image, m_scale, m_orientation);
    if (image) {
        image->m_capInsets = m_capInsets;
        image->m_renderingMode = m_renderingMode;
    }
    return image;
}

CGSize UIImage::size() const {
    const CGFloat width = static_cast<CGFloat>(CGImageGetWidth(m_image)) / m_scale;
    const CGFloat height = static_cast<CGFloat>(CGImageGetHeight(m_image)) / m_scale;
    return turnOf(m_orientation).swapsSides() ? CGSize{height, width} : CGSize{width, height};
}

void UIImage::drawAtPoint(CGPoint point) const { drawInRect({point, size()}); }

void UIImage::drawAtPoint_blendMode_alpha(CGPoint point, CGBlendMode mode, CGFloat alpha) const {
    drawInRect_blendMode_alpha({point, size()}, mode, alpha);
}

void UIImage::drawInRect(CGRect rect) const { drawInRect_blendMode_alpha(rect, kCGBlendModeNormal, 1); }

void UIImage::drawInRect_blendMode_alpha(CGRect rect, CGBlendMode mode, CGFloat alpha) const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    rect = CGRectStandardize(rect);
    if (!context || !m_image || !CGRectIsFinite(rect) || CGRectIsEmpty(rect))
        return;
    CGContextSaveGState(context);
    CGContextSetBlendMode(context, mode);
    CGContextSetAlpha(context, alpha);
    if (m_capInsets == UIEdgeInsetsZero)
        drawTurned(context, rect, m_image, turnOf(m_orientation));
    else if (const Ref<zr::CGImage> upright = uprightImage())
        drawSliced(context, rect, upright, insetsWithin(size(), m_capInsets), m_scale);
    CGContextRestoreGState(context);
}

Ref<UIImage> UIImage::stretchableImageWithLeftCapWidth_topCapHeight(NSInteger leftCapWidth,
                                                                    NSInteger topCapHeight) const {
    const auto [width, height] = size();
    const CGFloat left = std::clamp(static_cast<CGFloat>(leftCapWidth), CGFloat(0), width);
    const CGFloat top = std::clamp(static_cast<CGFloat>(topCapHeight), CGFloat(0), height);
    const CGFloat right = left > 0 ? std::max(width - left - 1, CGFloat(0)) : 0;
    const CGFloat bottom = top > 0 ? std::max(height - top - 1, CGFloat(0)) : 0;
    return resizableImageWithCapInsets({top, left, bottom, right});
}

Ref<UIImage> UIImage::resizableImageWithCapInsets(UIEdgeInsets capInsets) const {
    auto image = copy();
    if (image)
        image->m_capInsets = capInsets;
    return image;
}

CGRect UIImage::contentsCenter() const {
    const auto [width, height] = size();
    if (!(width > 0 && height > 0))
        return {{0, 0}, {1, 1}};
    const UIEdgeInsets insets = insetsWithin({width, height}, m_capInsets);
    return {{insets.left / width, insets.top / height},
            {(width - insets.left - insets.right) / width, (height - insets.top - insets.bottom) / height}};
}

Ref<UIImage> UIImage::imageWithRenderingMode(UIImageRenderingMode mode) const {
    auto image = copy();
    if (image)
        image->m_renderingMode = mode;
    return image;
}

Ref<zr::CGImage> UIImage::uprightImage() const {
    const Turn turn = turnOf(m_orientation);
    if (!m_image || m_orientation == UIImageOrientationUp)
        return m_image;
    const NSUInteger width = turn.swapsSides() ? m_image->height() : m_image->width();
    const NSUInteger height = turn.swapsSides() ? m_image->width() : m_image->height();
    const Ref<CGContext> context = bitmapContext(width, height, m_image->isOpaque());
    CGContextSetInterpolationQuality(context, kCGInterpolationNone); // pixels only change places
    drawTurned(context, {{0, 0}, {static_cast<CGFloat>(width), static_cast<CGFloat>(height)}}, m_image, turn);
    return CGBitmapContextTakeImage(context);
}

Ref<zr::CGImage> UIImage::imageTintedWithColor(CGColorRef color) const {
    const Ref<zr::CGImage> upright = uprightImage();
    if (!upright || !color)
        return upright;
    const CGRect all{{0, 0}, {static_cast<CGFloat>(upright->width()), static_cast<CGFloat>(upright->height())}};
    const Ref<CGContext> context = bitmapContext(upright->width(), upright->height(), false);
    CGContextSetInterpolationQuality(context, kCGInterpolationNone);
    drawTurned(context, all, upright, turnOf(UIImageOrientationUp));
    CGContextSetBlendMode(context, kCGBlendModeSourceIn);
    CGContextSetFillColorWithColor(context, color);
    CGContextFillRect(context, all);
    return CGBitmapContextTakeImage(context);
}

std::vector<std::uint8_t> UIImagePNGRepresentation(const UIImage* image) {
    const Ref<CGImage> upright = image ? image->uprightImage() : nullptr;
    return upright ? encodePNG(*upright) : std::vector<std::uint8_t>();
}

} // namespace zr
