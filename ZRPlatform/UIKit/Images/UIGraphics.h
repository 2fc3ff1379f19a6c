#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>

#pragma GCC visibility push(default)
namespace zr {

class UIImage;

/// @name The current context
/// Each thread has a stack of its own. Drawing code asks for the current context; nil when there is none, which every
/// drawing function tolerates. Here y grows downwards from the top left corner, in points.
/// @{

/// What drawing of this thread goes to; not kept. Nil for none.
CGContextRef UIGraphicsGetCurrentContext();
/// Makes `context` current (nil: none is) until it is popped. The stack keeps it.
void UIGraphicsPushContext(CGContextRef context);
/// Takes back the last push. Ignored when nothing was pushed since the last image context began.
void UIGraphicsPopContext();
/// @}

/// @name Image contexts
/// @{

/// A transparent context of scale 1.0.
void UIGraphicsBeginImageContext(CGSize size);
/// Makes a new bitmap of `size` points the current context. `scale`: pixels a point, 0 for the screen's. `opaque`: it
/// starts out black and its image has no transparency; otherwise it starts out clear. Fractions of a pixel are rounded
/// up (a millionth of a pixel or less is a rounding error, and is dropped). A size that is zero, not a number or beyond
/// what an image may have (see `UIImage`) makes no bitmap: the current context is nil until the end.
void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque, CGFloat scale);
/// A copy of what the current image context shows by now, with its scale; nil when there is none.
Ref<UIImage> UIGraphicsGetImageFromCurrentImageContext();
/// Ends the last image context that began, with everything pushed since. Ignored when there is none.
void UIGraphicsEndImageContext();
/// @}

/// @name Rectangles in the current context
/// Fill and frame replace what is there, alpha included, unless a blend mode is given.
/// @{
/// Fills the rectangle with the fill colour, which replaces what is there, alpha included.
void UIRectFill(CGRect rect);
/// The same with a blend mode.
void UIRectFillUsingBlendMode(CGRect rect, CGBlendMode mode);
/// Draws a line of one point just inside the rectangle, in the fill colour, which replaces what is there.
void UIRectFrame(CGRect rect);
/// The same with a blend mode.
void UIRectFrameUsingBlendMode(CGRect rect, CGBlendMode mode);
/// Cuts the clip down to the rectangle, until the context's state is restored.
void UIRectClip(CGRect rect);
/// @}

} // namespace zr
#pragma GCC visibility pop
