#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Text/NSText.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>

#pragma GCC visibility push(default)
namespace zr {

/// @name Measuring, in points
/// Width and height are rounded up to whole points, so that a label of that size shows all of the text on any screen,
/// but are never larger than the box. A nil or empty text, a nil font, and a box without width or height (or one that
/// is not a number) give a zero size. Any thread may measure.
///
/// Text is wrapped by words, and a word that is longer than the line by characters. Only whole lines count; a box lower
/// than one line is filled by the first.
/// @{
/// The size of the text on one line (up to its first line break).
CGSize sizeWithFont(const NSString& text, UIFont* font);
/// The size of the text wrapped by words within the box.
CGSize sizeWithFont_constrainedToSize(const NSString& text, UIFont* font, CGSize size);
/// The same by another line break mode.
CGSize sizeWithFont_constrainedToSize_lineBreakMode(const NSString& text, UIFont* font, CGSize size,
                                                    NSLineBreakMode mode);
/// @}

/// @name Drawing
/// Into the current graphics context with its fill colour, from the top left corner of the rectangle or from the point.
/// Lines that do not fit the rectangle whole are left out, but for the first one. Returns the size drawn, measured as
/// above; zero where nothing is drawn.
/// @{
/// Wraps the text by words within the rectangle's width.
CGSize drawInRect_withFont(const NSString& text, CGRect rect, UIFont* font);
/// The same by another line break mode.
CGSize drawInRect_withFont_lineBreakMode(const NSString& text, CGRect rect, UIFont* font, NSLineBreakMode mode);
/// The same with the lines aligned in the rectangle's width.
CGSize drawInRect_withFont_lineBreakMode_alignment(const NSString& text, CGRect rect, UIFont* font,
                                                   NSLineBreakMode mode, NSTextAlignment alignment);
/// Draws the text on one line.
CGSize drawAtPoint_withFont(const NSString& text, CGPoint point, UIFont* font);
/// @}

} // namespace zr
#pragma GCC visibility pop
