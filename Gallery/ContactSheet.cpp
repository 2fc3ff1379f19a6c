#include <Gallery/ContactSheet.h>

#include <Gallery/Look/Look.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <algorithm>
#include <cmath>

namespace zr::gallery {

namespace {

constexpr std::size_t kColumns = 7;
constexpr CGFloat kMargin = 28;
constexpr CGFloat kGap = 24;
constexpr CGFloat kPictureWidth = 200;
constexpr CGFloat kCaptionHeight = 50;

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

} // namespace

Ref<CGImage> drawContactSheet(const std::vector<ContactSheetEntry>& entries, CGFloat scale) {
    if (entries.empty())
        return nullptr;
    const SheetGeometry geometry = calculateGeometry(entries.size(), entries.front().picture);
    const CGSize size = geometry.size();
    UIGraphicsBeginImageContextWithOptions(size, true, scale);
    CGContextSetInterpolationQuality(UIGraphicsGetCurrentContext(), kCGInterpolationHigh);
    Look::pageColor()->setFill();
    UIRectFill(CGRectMake(0, 0, size.width, size.height));
    for (std::size_t i = 0; i < entries.size(); ++i)
        drawEntry(entries[i], geometry.picture(i), scale);
    const Ref<UIImage> sheet = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return sheet ? sheet->CGImage() : nullptr;
}

} // namespace zr::gallery
