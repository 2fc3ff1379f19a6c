#pragma once

#include <ZRPlatform/CoreGraphics/CGColor.h>
#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/Foundation/NSValue.h>
#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>

#include <cmath>
#include <string_view>

#pragma GCC visibility push(default)
namespace zr {

/// Everything about a layer that shows and can be animated. A layer has one set, its model; the presentation is a copy
/// with the running animations applied.
struct LayerValues {
    /// Where the anchor point lies in the superlayer.
    CGPoint position;
    /// The layer's own coordinates: its size, and what lies at its top left corner.
    CGRect bounds;
    /// 0..1 of the bounds.
    CGPoint anchorPoint{0.5, 0.5};
    /// Before its siblings when it is greater than theirs.
    CGFloat zPosition = 0;
    /// About the anchor point.
    CATransform3D transform;
    /// Of the sublayers, about the anchor point.
    CATransform3D sublayerTransform;
    /// 0..1, of the layer and its sublayers as one picture.
    float opacity = 1;
    /// Neither the layer nor its sublayers show.
    bool hidden = false;
    /// Sublayers and contents are cut to the bounds, rounded by the corner radius.
    bool masksToBounds = false;
    /// Below the contents; nil for none.
    Ref<CGColor> backgroundColor;
    /// Points.
    CGFloat cornerRadius = 0;
    /// Points, inside the bounds.
    CGFloat borderWidth = 0;
    /// Nil for no border; a layer's is opaque black at first.
    Ref<CGColor> borderColor;
    /// Nil shows nothing.
    Ref<CGImage> contents;
    /// The part of the contents that shows, 0..1 in both directions.
    CGRect contentsRect{{0, 0}, {1, 1}};
    /// The part of `contentsRect` that stretches, 0..1; the rest keeps its size.
    CGRect contentsCenter{{0, 0}, {1, 1}};

    /// The box around the transformed bounds, in the superlayer's coordinates.
    CGRect frame() const;
    /// From this layer's coordinates to its superlayer's.
    CATransform3D toSuperlayer() const;
};

/// How many pixels a bitmap has along `length` points. A part of a pixel is a whole one; a millionth of one or less is
/// a rounding error, and is dropped.
inline double bitmapLength(CGFloat length, CGFloat scale) { return std::ceil(double(length) * scale - 1e-6); }

/// The value of a key path such as "opacity", "bounds.size.width", "transform.rotation.z" or "transform.scale"; nil
/// when there is no such value.
NSValue layerValueForKeyPath(const LayerValues& values, std::string_view keyPath);
/// Sets such a value; false when there is none.
bool setLayerValueForKeyPath(LayerValues& values, std::string_view keyPath, const NSValue& value);

/// The value a fraction `t` of the way (not limited to 0..1): numbers, points, sizes, rectangles, transforms and
/// colours; anything else jumps at the middle.
NSValue interpolateValues(const NSValue& from, const NSValue& to, CGFloat t);
/// `value` plus `sign` times `amount`, for values that can be added (transforms are concatenated).
NSValue addValues(const NSValue& value, const NSValue& amount, int sign);

} // namespace zr
#pragma GCC visibility pop
