#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSObject.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class CGImage;

/// How many components a colour has: one, three, or a pattern instead.
enum CGColorSpaceModel { kCGColorSpaceModelMonochrome = 0, kCGColorSpaceModelRGB = 1, kCGColorSpaceModelPattern = 6 };

/// What a colour's components mean.
class CGColorSpace : public NSObject {
public:
    /// A space of its own; `CGColorSpaceCreateDeviceRGB` and its kin give shared ones.
    explicit CGColorSpace(CGColorSpaceModel model) : m_model(model) {}
    /// How many components its colours have.
    CGColorSpaceModel model() const { return m_model; }

private:
    CGColorSpaceModel m_model;
};
using CGColorSpaceRef = CGColorSpace*;

/// The space of red, green and blue. Every call gives the same one.
Ref<CGColorSpace> CGColorSpaceCreateDeviceRGB();
/// The space of one component, from 0 (black) to 1 (white). Every call gives the same one.
Ref<CGColorSpace> CGColorSpaceCreateDeviceGray();
/// How many components the space's colours have; monochrome for nil.
CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space);
/// Colour components without alpha: 3, 1, or 0 for a pattern or nil.
NSUInteger CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space);

/// Red, green, blue and alpha, not premultiplied, meant 0..1 and not clamped.
struct RGBAColor {
    /// A component, 0..1.
    CGFloat red = 0, green = 0, blue = 0, alpha = 0;
    friend bool operator==(const RGBAColor&, const RGBAColor&) = default;
};

/// An immutable colour: components and alpha in a colour space, or an image that is tiled from the origin.
class CGColor : public NSObject {
public:
    /// `components`: those of the space, then alpha; 0..1, not clamped.
    CGColor(CGColorSpaceRef space, std::vector<CGFloat> components);
    /// A pattern: the image, tiled from the origin. Kept.
    explicit CGColor(CGImage* pattern);
    ~CGColor() override;

    /// Nil only for one that was made without.
    CGColorSpaceRef colorSpace() const { return m_space; }
    /// The colour components, then alpha. Empty for a pattern.
    const std::vector<CGFloat>& components() const { return m_components; }
    /// 0..1; a pattern's is 1.
    CGFloat alpha() const { return m_components.empty() ? 1 : m_components.back(); }
    /// The colour as red, green and blue: grey is spread over the three; a pattern gives transparent black.
    RGBAColor rgba() const;
    /// The tile (one pixel a unit); null for a plain colour and for a pattern of no image.
    CGImage* pattern() const;
    /// Equal colour spaces, components and pattern images.
    bool isEqual(const NSObject* other) const override;

private:
    Ref<CGColorSpace> m_space;
    std::vector<CGFloat> m_components;
    Ref<CGImage> m_pattern;
};
using CGColorRef = CGColor*;

/// `components`: the space's components, then alpha. Nil when the space is nil.
Ref<CGColor> CGColorCreate(CGColorSpaceRef space, const CGFloat* components);
/// The same colour with another alpha. Nil when `color` is nil or a pattern.
Ref<CGColor> CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha);
/// The colour's space, which the colour goes on owning; nil for nil.
CGColorSpaceRef CGColorGetColorSpace(CGColorRef color);
/// The components, then alpha, as long as the colour lives; null for a pattern and for nil.
const CGFloat* CGColorGetComponents(CGColorRef color);
/// How many of them there are, alpha included; 0 for a pattern and for nil.
NSUInteger CGColorGetNumberOfComponents(CGColorRef color);
/// 0..1, 1 for a pattern; 0 for nil.
CGFloat CGColorGetAlpha(CGColorRef color);
/// Equal colour spaces, components and pattern images. Nil equals nil alone.
bool CGColorEqualToColor(CGColorRef a, CGColorRef b);

} // namespace zr
#pragma GCC visibility pop
