#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Views/UIGeometry.h>

#include <cstdint>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// How the bitmap is to be turned to stand upright: "right" means a quarter turn clockwise. The mirrored ones are
/// flipped left to right before that.
enum UIImageOrientation : NSInteger {
    UIImageOrientationUp,
    UIImageOrientationDown,
    UIImageOrientationLeft,
    UIImageOrientationRight,
    UIImageOrientationUpMirrored,
    UIImageOrientationDownMirrored,
    UIImageOrientationLeftMirrored,
    UIImageOrientationRightMirrored,
};

/// Whether an image is shown in its own colours.
enum UIImageRenderingMode : NSInteger {
    UIImageRenderingModeAutomatic,
    UIImageRenderingModeAlwaysOriginal,
    /// Only the shape (alpha) counts; image views and system buttons colour it with their tint.
    UIImageRenderingModeAlwaysTemplate,
};

/// An immutable picture: a bitmap, its pixels a point, and how it is turned. May be used on any thread.
///
/// Every function that makes one from a file or from bytes gives nil when there is none, or it is of no known format
/// (PNG, JPEG, GIF (first frame), WebP), longer than 32767 pixels on a side, of more than 64 million pixels, or a file
/// of more than 512 MiB; and when it ends before the end that it announces, or is damaged as far as its format lets one
/// know. That is all of the pixels in a PNG, which has checksums, but not so elsewhere: a JPEG or WebP whose pixels
/// were overwritten, or some left out in a way that its end and lengths still fit, is an image with other colours
/// there.
///
/// What a photograph's metadata say of how it is turned is followed in JPEG, PNG and WebP.
class UIImage : public NSObject {
public:
    /// The image of that name among the main bundle's resources. Without an extension, and when there is none of that
    /// extension, it is a PNG: "icon.v2" may be "icon.v2.png". Of the variants for scales 1 (plain), 2 ("@2x" before
    /// the extension) and 3 ("@3x") it is the one nearest above the screen's scale,
    /// else the one nearest below. Decoded images are kept until a memory warning, so asking twice gives the same
    /// object.
    static Ref<UIImage> imageNamed(const NSString& name);
    /// Exactly this file; "@2x" or "@3x" at the end of its name gives the scale. Nil for a path with a zero byte.
    static Ref<UIImage> imageWithContentsOfFile(const NSString& path);
    /// Of the bytes of an image file; `scale`: its pixels a point.
    static Ref<UIImage> imageWithData(const std::vector<std::uint8_t>& data, CGFloat scale = 1);
    /// The bitmap as it is, a pixel a point. Nil gives nil.
    static Ref<UIImage> imageWithCGImage(CGImageRef image);
    /// The bitmap with so many pixels a point, to be turned like that. Nil gives nil; a scale that is not a positive
    /// number counts as 1.
    static Ref<UIImage> imageWithCGImage_scale_orientation(CGImageRef image, CGFloat scale,
                                                           UIImageOrientation orientation);

    /// In points, standing upright.
    CGSize size() const;
    /// Pixels a point.
    CGFloat scale() const { return m_scale; }
    /// How the stored bitmap is to be turned to stand upright.
    UIImageOrientation imageOrientation() const { return m_orientation; }
    /// The bitmap as stored, not turned; owned by the image.
    CGImageRef CGImage() const { return m_image; }

    /// @name Drawing
    /// Upright, in the current context, at full opacity unless an alpha (0..1) is given. The middle of an image with
    /// caps stretches, its corners keep their size.
    /// @{
    /// Draws the image in its own size, the top left corner at the point.
    void drawAtPoint(CGPoint point) const;
    /// The same with a blend mode and an alpha.
    void drawAtPoint_blendMode_alpha(CGPoint point, CGBlendMode mode, CGFloat alpha) const;
    /// Draws the image stretched to fill the rectangle.
    void drawInRect(CGRect rect) const;
    /// The same with a blend mode and an alpha.
    void drawInRect_blendMode_alpha(CGRect rect, CGBlendMode mode, CGFloat alpha) const;
    /// @}

    /// @name Caps
    /// The parts at the edges that keep their size when the image is stretched, in points.
    /// @{
    /// A copy of which one column and one row stretch: those after the caps.
    Ref<UIImage> stretchableImageWithLeftCapWidth_topCapHeight(NSInteger leftCapWidth, NSInteger topCapHeight) const;
    /// A copy with these caps; it shares the bitmap.
    Ref<UIImage> resizableImageWithCapInsets(UIEdgeInsets capInsets) const;
    /// How far the caps reach in from the edges; zero at first: all of the image stretches.
    UIEdgeInsets capInsets() const { return m_capInsets; }
    /// The part between the caps, 0..1 of the upright image in both directions: what `CALayer::contentsCenter` takes.
    CGRect contentsCenter() const;
    /// @}

    /// Whether views show it in its own colours or in their tint.
    UIImageRenderingMode renderingMode() const { return m_renderingMode; }
    /// The same bitmap, shared, with that mode.
    Ref<UIImage> imageWithRenderingMode(UIImageRenderingMode mode) const;

    /// The bitmap turned upright: the stored one when it stands so already.
    Ref<zr::CGImage> uprightImage() const;
    /// The upright bitmap's shape filled with a colour.
    Ref<zr::CGImage> imageTintedWithColor(CGColorRef color) const;

private:
    /// As numbered in photographs' metadata, 1..8.
    static UIImageOrientation orientationWithNumber(int number);
    Ref<UIImage> copy() const;

    Ref<zr::CGImage> m_image;
    CGFloat m_scale = 1;
    UIImageOrientation m_orientation = UIImageOrientationUp;
    UIEdgeInsets m_capInsets;
    UIImageRenderingMode m_renderingMode = UIImageRenderingModeAutomatic;
};

/// The bytes of a PNG file that shows the upright image, a bitmap pixel a pixel; empty for nil.
std::vector<std::uint8_t> UIImagePNGRepresentation(const UIImage* image);

} // namespace zr
#pragma GCC visibility pop
