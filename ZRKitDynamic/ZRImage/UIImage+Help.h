#pragma once

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#pragma GCC visibility push(default)
namespace zr {

/// @name Images made of images
/// Each gives a new image, without caps and rendered as images are at first, and leaves the one it is given alone. A
/// nil image gives nil, one without a bitmap too where nothing else is said, and so does a result that is not one of an
/// image (see `UIImage`) or for which there is not enough memory. Any thread may ask.
///
/// Some count in points and some in pixels, and some of the results have other pixels a point than the image: it is
/// stated at each.
/// @{

/// A thumbnail of 200 x 200 points, a pixel a point: the square in the middle, as large as the shorter side.
Ref<UIImage> rectImage(const UIImage* image);

/// The part inside `rect` (points from the top left), with the image's scale and orientation. It shares the pixels; it
/// is cut out of the bitmap as stored, from what is not turned yet, and grown outwards to whole pixels (but not for a
/// millionth of one, which is a rounding error).
///
/// Nil when a side of the rectangle is zero, negative or not a number, and when it misses the image. Infinite sides
/// reach to the image's edge; an origin that is not finite misses.
Ref<UIImage> subImageWithRect(const UIImage* image, CGRect rect);

/// The whole image, upright, drawn into `size` points, a pixel a point. Fractions of a pixel are rounded up. Without a
/// bitmap there is nothing to draw, and the result is transparent.
Ref<UIImage> scaleToSize(const UIImage* image, CGSize size);

/// The bitmap as stored, at 0.4 of its size in pixels (fractions rounded up), a pixel a point. It sets nothing.
Ref<UIImage> setFuzzyPhoto(const UIImage* image);

/// A Gaussian blur of the bitmap as stored, a pixel a point, over transparency all around. `blurLevel`: the standard
/// deviation in pixels; see `CIFilter` for numbers that are none. The result is larger than the bitmap by three of them
/// on every side.
///
/// That is all when a side of `size` is 0 or less, whatever the other one is. With a `size` (points) whose sides are
/// both above 0 it is squeezed into a square of the larger side and 300 more, of which the part of that size at
/// ((height - width) / 2 + 150, 150) is returned, as far as the square reaches: the middle one when the height is not
/// the smaller side; else one that lies left of it and above it, by half the difference each. A side that is not a
/// number, and none beside it that is 0 or less, gives nil.
Ref<UIImage> blurryImageWithBlurLevel_size(const UIImage* image, CGFloat blurLevel, CGSize size);

/// Three box blurs of the bitmap as stored, a pixel a point; the border is repeated outwards. The result has no
/// transparency: what is not opaque lies over black.
///
/// `blur`: 0 (none) to 1; each box is 40 times as many pixels wide and high, cut to a whole number and made odd, so 41
/// at most; 21 for any number outside, and for what is no number. `tintColor` is laid over the part from the lower left
/// corner of as many pixels as the image has points: over all of an image of scale 1, over a quarter of one of scale 2.
/// Nil lays nothing.
///
/// When the buffer that it needs beside the image and its copy cannot be had it logs so, and what is returned is black
/// under the tint; where memory does not suffice for that either, with fewer pixels a point (its scale is 1/2, 1/4 and
/// so on) and its sides rounded up to whole pixels. When the blur fails, which is logged with the error's code, it is
/// black under the tint or, after the first of the three, blurred once.
Ref<UIImage> zr_boxblurImageWithBlur_withTintColor(const UIImage* image, double blur, const UIColor* tintColor);

/// @}

} // namespace zr
#pragma GCC visibility pop
