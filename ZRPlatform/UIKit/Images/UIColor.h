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
    static Ref<UIColor> colorWithWhite_alpha(CGFloat white, CGFloat alpha);
    /// Hue, saturation and brightness 0..1.
    static Ref<UIColor> colorWithHue_saturation_brightness_alpha(CGFloat hue, CGFloat saturation, CGFloat brightness,
                                                                 CGFloat alpha);
    /// Nil gives a pattern of nothing, which draws nothing.
    static Ref<UIColor> colorWithPatternImage(UIImage* image);
    /// Nil gives nil.
    static Ref<UIColor> colorWithCGColor(CGColorRef color);
    /// @{
    /// Fixed: each call gives the same object, which lives as long as the process.
    static UIColor* blackColor();
    static UIColor* darkGrayColor();
    static UIColor* lightGrayColor();
    static UIColor* whiteColor();
    static UIColor* grayColor();
    static UIColor* redColor();
    static UIColor* greenColor();
    static UIColor* blueColor();
    static UIColor* cyanColor();
    static UIColor* yellowColor();
    static UIColor* magentaColor();
    static UIColor* orangeColor();
    static UIColor* purpleColor();
    static UIColor* brownColor();
    static UIColor* clearColor();
    /// @}

    /// Components and alpha 0..1, not clamped.
    bool initWithRed_green_blue_alpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
    bool initWithWhite_alpha(CGFloat white, CGFloat alpha);

    /// Owned by the colour.
    CGColorRef cgColor() const { return m_color; }
    /// A copy with that alpha, 0..1.
    Ref<UIColor> colorWithAlphaComponent(CGFloat alpha) const;
    /// False for a pattern; the arguments are then left alone. Any of them may be null.
    bool getRed_green_blue_alpha(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const;
    bool getWhite_alpha(CGFloat* white, CGFloat* alpha) const;
    bool isEqual(const NSObject* other) const override;

    /// Make this the current graphics context's fill and stroke colour, or one of them.
    void set() const;
    void setFill() const;
    void setStroke() const;

private:
    Ref<CGColor> m_color;
};

} // namespace zr
#pragma GCC visibility pop
