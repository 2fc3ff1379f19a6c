#include <Gallery/ContactSheet.h>

#include <Gallery/Look/Look.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace zr::gallery {

namespace {

constexpr std::size_t kColumns = 7;
constexpr CGFloat kMargin = 28;
constexpr CGFloat kGap = 24;
constexpr CGFloat kPictureWidth = 200;
constexpr CGFloat kCaptionHeight = 50;
/// All pages at three pixels a point would have more pixels than an image may.
constexpr CGFloat kMostScale = 2;

/// Where things go on the sheet, in points.
struct SheetGeometry {
    std::size_t columns, rows;
    CGFloat pictureHeight;

    CGSize size() const {
        return CGSizeMake(2 * kMargin + columns * kPictureWidth + (columns - 1) * kGap,
                          2 * kMargin + rows * (pictureHeight + kCaptionHeight) + (rows - 1) * kGap);
    }
    CGRect picture(std::size_t index) const {
        const std::size_t column = index % columns, row = index / columns;
        return CGRectMake(kMargin + column * (kPictureWidth + kGap),
                          kMargin + row * (pictureHeight + kCaptionHeight + kGap), kPictureWidth, pictureHeight);
    }
};

SheetGeometry calculateGeometry(std::size_t count, const CGImage* picture) {
    const std::size_t columns = std::min(count, kColumns);
    const CGFloat aspect = static_cast<CGFloat>(picture->height()) / static_cast<CGFloat>(picture->width());
    return {columns, (count + columns - 1) / columns, std::round(kPictureWidth * aspect)};
}

void drawCaption(const NSString& text, CGRect line, UIFont* font, UIColor* color) {
    color->setFill();
    drawInRect_withFont_lineBreakMode_alignment(text, line, font, NSLineBreakByTruncatingTail, NSTextAlignmentCenter);
}

/// The largest rectangle of the picture's shape in the middle of `place`.
CGRect fittedRect(const CGImage* picture, CGRect place) {
    const auto width = static_cast<CGFloat>(picture->width());
    const auto height = static_cast<CGFloat>(picture->height());
    const CGFloat scale = std::min(place.size.width / width, place.size.height / height);
    const CGSize size = CGSizeMake(std::round(width * scale), std::round(height * scale));
    return CGRectMake(place.origin.x + std::round((place.size.width - size.width) / 2),
                      place.origin.y + std::round((place.size.height - size.height) / 2), size.width, size.height);
}

void drawPicture(CGImage* picture, CGRect place, CGFloat scale) {
    UIImage::imageWithCGImage(picture)->drawInRect(place);
    Look::separatorColor()->setFill();
    const CGFloat edge = 1 / scale;
    const CGRect outside = CGRectInset(place, -edge, -edge);
    UIRectFill(CGRectMake(outside.origin.x, outside.origin.y, outside.size.width, edge));
    UIRectFill(CGRectMake(outside.origin.x, CGRectGetMaxY(place), outside.size.width, edge));
    UIRectFill(CGRectMake(outside.origin.x, outside.origin.y, edge, outside.size.height));
    UIRectFill(CGRectMake(CGRectGetMaxX(place), outside.origin.y, edge, outside.size.height));
}

void drawEntry(const ContactSheetEntry& entry, CGRect place, CGFloat scale) {
    drawPicture(entry.picture, fittedRect(entry.picture, place), scale);
    const CGFloat y = CGRectGetMaxY(place);
    drawCaption(entry.title, CGRectMake(place.origin.x, y + 10, place.size.width, 22), UIFont::boldSystemFontOfSize(15),
                Look::titleColor());
    drawCaption(entry.name, CGRectMake(place.origin.x, y + 31, place.size.width, 18), UIFont::systemFontOfSize(12),
                Look::detailColor());
}

/// What `draw` draws, on the ground of a page.
Ref<CGImage> drawSheet(CGSize size, CGFloat scale, const std::function<void()>& draw) {
    UIGraphicsBeginImageContextWithOptions(size, true, scale);
    CGContextSetInterpolationQuality(UIGraphicsGetCurrentContext(), kCGInterpolationHigh);
    Look::pageColor()->setFill();
    UIRectFill(CGRectMake(0, 0, size.width, size.height));
    draw();
    const Ref<UIImage> sheet = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return sheet ? sheet->CGImage() : nullptr;
}

} // namespace

Ref<CGImage> drawContactSheet(const std::vector<ContactSheetEntry>& entries, CGFloat scale) {
    if (entries.empty())
        return nullptr;
    scale = std::min(scale, kMostScale);
    const SheetGeometry geometry = calculateGeometry(entries.size(), entries.front().picture);
    return drawSheet(geometry.size(), scale, [&] {
        for (std::size_t i = 0; i < entries.size(); ++i)
            drawEntry(entries[i], geometry.picture(i), scale);
    });
}

Ref<CGImage> drawSideBySide(const std::vector<Ref<CGImage>>& pictures) {
    if (pictures.empty())
        return nullptr;
    constexpr CGFloat kWidth = 225, kHeight = 400, kEdge = 10, kSpace = 20;
    const auto count = static_cast<CGFloat>(pictures.size());
    const CGSize size = CGSizeMake(2 * kEdge + count * (kWidth + kSpace) - kSpace, 2 * kEdge + kHeight);
    return drawSheet(size, 1, [&] {
        CGFloat x = kEdge;
        for (const Ref<CGImage>& picture : pictures) {
            const CGRect place = CGRectMake(x, kEdge, kWidth, kHeight);
            UIImage::imageWithCGImage(picture)->drawInRect(fittedRect(picture, place));
            x += kWidth + kSpace;
        }
    });
}

} // namespace zr::gallery
