#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// Whole points, within the room.
CGSize roundedUp(const TextLayout& layout, CGFloat width, CGFloat height) {
    return {std::min(std::ceil(layout.size().width), width), std::min(std::ceil(layout.size().height), height)};
}

std::shared_ptr<const TextLayout> oneLine(const NSString& text, UIFont* font) {
    TextRequest request{text, font};
    request.lineLimit = 1;
    request.lineBreakMode = NSLineBreakByClipping;
    return TextEngine::current().layout(request);
}

std::shared_ptr<const TextLayout> layoutInSize(const NSString& text, UIFont* font, CGSize size, NSLineBreakMode mode,
                                               NSTextAlignment alignment) {
    TextRequest request{text, font, size.width, size.height};
    request.lineBreakMode = mode;
    request.alignment = alignment;
    return TextEngine::current().layout(request);
}

} // namespace

CGSize sizeWithFont(const NSString& text, UIFont* font) {
    return roundedUp(*oneLine(text, font), TextRequest::unlimited, TextRequest::unlimited);
}

CGSize sizeWithFont_constrainedToSize(const NSString& text, UIFont* font, CGSize size) {
    return sizeWithFont_constrainedToSize_lineBreakMode(text, font, size, NSLineBreakByWordWrapping);
}

CGSize sizeWithFont_constrainedToSize_lineBreakMode(const NSString& text, UIFont* font, CGSize size,
                                                    NSLineBreakMode mode) {
    const auto layout = layoutInSize(text, font, size, mode, NSTextAlignmentNatural);
    return layout->lines().empty() ? CGSizeZero : roundedUp(*layout, size.width, size.height);
}

CGSize drawInRect_withFont(const NSString& text, CGRect rect, UIFont* font) {
    return drawInRect_withFont_lineBreakMode(text, rect, font, NSLineBreakByWordWrapping);
}

CGSize drawInRect_withFont_lineBreakMode(const NSString& text, CGRect rect, UIFont* font, NSLineBreakMode mode) {
    return drawInRect_withFont_lineBreakMode_alignment(text, rect, font, mode, NSTextAlignmentLeft);
}

CGSize drawInRect_withFont_lineBreakMode_alignment(const NSString& text, CGRect rect, UIFont* font,
                                                   NSLineBreakMode mode, NSTextAlignment alignment) {
    const auto layout = layoutInSize(text, font, rect.size, mode, alignment);
    if (layout->lines().empty())
        return CGSizeZero;
    layout->drawAtPoint(UIGraphicsGetCurrentContext(), rect.origin);
    return roundedUp(*layout, rect.size.width, rect.size.height);
}

CGSize drawAtPoint_withFont(const NSString& text, CGPoint point, UIFont* font) {
    const auto layout = oneLine(text, font);
    layout->drawAtPoint(UIGraphicsGetCurrentContext(), point);
    return roundedUp(*layout, TextRequest::unlimited, TextRequest::unlimited);
}

} // namespace zr
