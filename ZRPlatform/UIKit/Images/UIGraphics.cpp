#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/QuartzCore/Layers/LayerValues.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Images/Internal/ImageDecoder.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace zr {

namespace {

struct StackedContext {
    /// Nil in the place of a bitmap that could not be made.
    Ref<CGContext> context;
    /// Pixels a point for an image context; 0 for one that was pushed.
    CGFloat imageScale = 0;
};

std::vector<StackedContext>& contextStack() {
    thread_local std::vector<StackedContext> stack;
    return stack;
}

/// Pixels along one side; 0 for a length without any or beyond all limits.
NSUInteger pixelsFor(CGFloat length, CGFloat scale) {
    const double pixels = bitmapLength(length, scale);
    return pixels >= 1 && pixels <= static_cast<double>(kMaximumImageSide) ? static_cast<NSUInteger>(pixels) : 0;
}

Ref<CGContext> makeImageContext(CGSize size, bool opaque, CGFloat scale) {
    const NSUInteger width = pixelsFor(size.width, scale);
    const NSUInteger height = pixelsFor(size.height, scale);
    if (!imageSizeIsAllowed(width, height))
        return nullptr;
    Ref<CGContext> context = CGBitmapContextCreateForLayer(width, height, opaque);
    if (!context)
        return nullptr;
    const CGAffineTransform pointsFromTopLeft{scale, 0, 0, -scale, 0, static_cast<CGFloat>(height)};
    CGContextConcatCTM(context, pointsFromTopLeft);
    CGContextSetBaseCTM(context, pointsFromTopLeft);
    return context;
}

} // namespace

CGContextRef UIGraphicsGetCurrentContext() {
    const auto& stack = contextStack();
    return stack.empty() ? nullptr : stack.back().context.get();
}

void UIGraphicsPushContext(CGContextRef context) { contextStack().push_back({context}); }

void UIGraphicsPopContext() {
    auto& stack = contextStack();
    if (!stack.empty() && stack.back().imageScale == 0)
        stack.pop_back();
}

void UIGraphicsBeginImageContext(CGSize size) { UIGraphicsBeginImageContextWithOptions(size, false, 1); }

void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque, CGFloat scale) {
    if (scale == 0)
        scale = UIScreen::mainScreen()->scale();
    if (!(scale > 0))
        scale = 1;
    contextStack().push_back({makeImageContext(size, opaque, scale), scale});
}

Ref<UIImage> UIGraphicsGetImageFromCurrentImageContext() {
    const auto& stack = contextStack();
    const CGContextRef context = UIGraphicsGetCurrentContext();
    const auto origin = std::find_if(stack.rbegin(), stack.rend(), [&](const StackedContext& stacked) {
        return stacked.imageScale != 0 && stacked.context.get() == context;
    });
    if (!context || origin == stack.rend())
        return nullptr;
    return UIImage::imageWithCGImage_scale_orientation(CGBitmapContextCreateImage(context), origin->imageScale,
                                                       UIImageOrientationUp);
}

void UIGraphicsEndImageContext() {
    auto& stack = contextStack();
    const auto last = std::find_if(stack.rbegin(), stack.rend(),
                                   [](const StackedContext& stacked) { return stacked.imageScale != 0; });
    if (last != stack.rend())
        stack.erase(std::prev(last.base()), stack.end());
}

void UIRectFill(CGRect rect) { UIRectFillUsingBlendMode(rect, kCGBlendModeCopy); }

void UIRectFillUsingBlendMode(CGRect rect, CGBlendMode mode) {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    CGContextSetBlendMode(context, mode);
    CGContextFillRect(context, rect);
    CGContextRestoreGState(context);
}

void UIRectFrame(CGRect rect) { UIRectFrameUsingBlendMode(rect, kCGBlendModeCopy); }

void UIRectFrameUsingBlendMode(CGRect rect, CGBlendMode mode) {
    rect = CGRectStandardize(rect);
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    const CGFloat line = std::min({CGFloat(1), width / 2, height / 2});
    UIRectFillUsingBlendMode({{x, y}, {width, line}}, mode);
    UIRectFillUsingBlendMode({{x, y + height - line}, {width, line}}, mode);
    UIRectFillUsingBlendMode({{x, y + line}, {line, height - 2 * line}}, mode);
    UIRectFillUsingBlendMode({{x + width - line, y + line}, {line, height - 2 * line}}, mode);
}

void UIRectClip(CGRect rect) { CGContextClipToRect(UIGraphicsGetCurrentContext(), rect); }

} // namespace zr
