#pragma once

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::gallery {

/// The colours that the gallery's own views share with the kit.
namespace Look {

/// One of the theme registry's three hues.
enum class Hue { Green, Red, Orange };

/// The hue of the gallery's bars; green at first.
Hue hue();
/// Announces the change with `kChangeThemeNotification`.
void setHue(Hue hue);
/// The theme registry's colours of a hue.
UIColor* barColor(Hue hue);
UIColor* backgroundColor(Hue hue);
/// The property of the theme registry that holds the colour.
const char* barColorName(Hue hue);
const char* backgroundColorName(Hue hue);
const char* name(Hue hue);
inline constexpr Hue kHues[] = {Hue::Green, Hue::Red, Hue::Orange};

UIColor* titleColor();
UIColor* detailColor();
UIColor* separatorColor();
UIColor* highlightColor();
UIColor* pageColor();
UIColor* green();
UIColor* pressedGreen();
/// Of a line that moves along a scale.
UIColor* cursorColor();

/// The thinnest crisp line, in points.
CGFloat hairline();
/// `points` moved to the nearest whole pixel.
CGFloat wholePixels(CGFloat points);

/// Between the screen's edge and what stands on it, in points.
inline constexpr CGFloat kMargin = 15;
/// Status bar area and title, in points.
inline constexpr CGFloat kBarHeight = 64;

/// Of cards, buttons and pictures, in points.
inline constexpr CGFloat kCornerRadius = 6;

/// A label without background; 0 lines for as many as the text needs. Its frame is zero.
Ref<UILabel> label(const NSString& text, UIFont* font, UIColor* color, NSInteger lines = 1,
                   NSTextAlignment alignment = NSTextAlignmentLeft);
/// The height that the label's text takes at this width, in whole pixels.
CGFloat heightOfLabel(const UILabel* label, CGFloat width);
/// A view of one colour that takes no touches.
Ref<UIView> line(CGRect frame);
/// A white ground with round corners and a thin edge.
Ref<UIView> card(CGRect frame);

} // namespace Look

} // namespace zr::gallery
