#pragma once

#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <string>

#pragma GCC visibility push(default)
namespace zr {

/// The visible windows of `application` and everything in them as JSON text, lowest window first; "null" for nil.
///
/// The whole: `time` (seconds), `screen` (`bounds`, `scale`), `windows`. A view: `class` (without namespace), `frame`
/// and `bounds` [x, y, width, height], `center` [x, y], `transform` [a, b, c, d, tx, ty], `alpha`, `hidden`,
/// `background` ([red, green, blue, alpha] 0..1, "pattern", or null), `text` and `font` (`name`, `size`) where it has
/// them, `firstResponder` where it is, `presentation` (`position`, `bounds`, `opacity`, `transform` row by row),
/// `animations` (`key`, `keyPath`, `from`, `to`, `by`, `values`, `duration` and how it repeats) and `subviews`, bottom
/// to top. A window has `level` and `keyWindow` as well. Numbers that are not finite are null.
std::string dumpViewTrees(UIApplication* application);

} // namespace zr
#pragma GCC visibility pop
