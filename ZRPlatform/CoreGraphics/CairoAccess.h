#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>

/// For the text engine only, which draws glyphs with Cairo itself. Not installed.
typedef struct _cairo cairo_t;

namespace zr {

/// The Cairo context to draw with, set up with the context's transform (user space, whatever direction its y has),
/// clip, blend mode and antialiasing, and an empty path. Null for nil, for a context that is not Cairo's, and when
/// nothing can be drawn. Bracket the drawing with cairo_save and cairo_restore; the pointer is good until the context
/// is next used.
cairo_t* cairoOf(CGContextRef context);
/// Makes the context's fill colour (pattern, alpha) the source of what `cairoOf` returned. Some bitmaps hold red and
/// blue exchanged: set colours with these two, never with Cairo directly.
void applyFillColor(CGContextRef context);
/// Likewise for any colour, with the context's alpha.
void applyColor(CGContextRef context, const RGBAColor& color);
/// To be called after drawing: brings the pixels into the caller's memory where its form is not Cairo's.
void cairoDone(CGContextRef context);

} // namespace zr
