#pragma once

#include <ZRPlatform/CoreGraphics/CGColor.h>
#include <ZRPlatform/Foundation/NSObject.h>

#pragma GCC visibility push(default)
namespace zr {

class UIImage;

/// An immutable colour: red, green, blue and alpha, meant 0..1 and not clamped; or an image that is tiled.
///
/// Fixed colours are shared: asking twice gives the same object. They may be used on any thread.
class UIColor : public NSObject {
public:
    /// Components and alpha 0..1, not clamped.
    static Ref<UIColor> colorWithRed_green_blue_alpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
    /// A grey from 0 (black) to 1 (white), not clamped; alpha 0..1.
    static Ref<UIColor> colorWithWhite_alpha(CGFloat white, CGFloat alpha);
    /// Hue, saturation and brightness 0..1.
    static Ref<UIColor> colorWithHue_saturation_brightness_alpha(CGFloat hue, CGFloat saturation, CGFloat brightness,
                                                                 CGFloat alpha);
    /// A pattern of the image, tiled from the origin. Nil gives a pattern of nothing, which draws nothing.
    static Ref<UIColor> colorWithPatternImage(UIImage* image);
    /// The same colour; nil gives nil.
    static Ref<UIColor> colorWithCGColor(CGColorRef color);

    /// @name Fixed colours
    /// Opaque but for the last. Each call gives the same object, which lives as long as the process.
    /// @{
    /// White 0.
    static UIColor* blackColor();
    /// White 1/3.
    static UIColor* darkGrayColor();
    /// White 2/3.
    static UIColor* lightGrayColor();
    /// White 1.
    static UIColor* whiteColor();
    /// White 0.5.
    static UIColor* grayColor();
    /// Red 1, green 0, blue 0.
    static UIColor* redColor();
    /// Red 0, green 1, blue 0.
    static UIColor* greenColor();
    /// Red 0, green 0, blue 1.
    static UIColor* blueColor();
    /// Red 0, green 1, blue 1.
    static UIColor* cyanColor();
    /// Red 1, green 1, blue 0.
    static UIColor* yellowColor();
    /// Red 1, green 0, blue 1.
    static UIColor* magentaColor();
    /// Red 1, green 0.5, blue 0.
    static UIColor* orangeColor();
    /// Red 0.5, green 0, blue 0.5.
    static UIColor* purpleColor();
    /// Red 0.6, green 0.4, blue 0.2.
    static UIColor* brownColor();
    /// White 0 of alpha 0.
    static UIColor* clearColor();
    /// @}

    /// Components and alpha 0..1, not clamped.
    bool initWithRed_green_blue_alpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
    /// A grey from 0 (black) to 1 (white), not clamped; alpha 0..1.
    bool initWithWhite_alpha(CGFloat white, CGFloat alpha);

    /// What the drawing functions take; owned by the colour.
    CGColorRef cgColor() const { return m_color; }
    /// A copy with that alpha, 0..1.
    Ref<UIColor> colorWithAlphaComponent(CGFloat alpha) const;
    /// The components, 0..1; a grey's are equal. False for a pattern; the arguments are then left alone. Any of them
    /// may be null.
    bool getRed_green_blue_alpha(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const;
    /// How bright the colour looks, from 0 (black) to 1 (white), and its alpha. False for a pattern; the arguments are
    /// then left alone. Either may be null.
    bool getWhite_alpha(CGFloat* white, CGFloat* alpha) const;

    /// Equal colour spaces, components and pattern images.
    bool isEqual(const NSObject* other) const override;

    /// Makes this the current graphics context's fill and stroke colour.
    void set() const;
    /// Makes this the current graphics context's fill colour.
    void setFill() const;
    /// Makes this the current graphics context's stroke colour.
    void setStroke() const;

private:
    Ref<CGColor> m_color;
};

} // namespace zr
#pragma GCC visibility pop
