#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>

#include <cairo.h>

#include <functional>

namespace zr {

/// Cairo's fixed-point coordinates end at 2^23 pixels; beyond the half of that nothing on a bitmap can be told apart.
inline constexpr double kFarthest = 4194304;

/// 0 to 1, and 0 for what is not a number.
inline double clampedToUnit(CGFloat value) { return value > 0 ? std::fmin(value, 1) : 0; }

/// Draws with Cairo onto an image surface. Not installed.
///
/// Cairo knows one order of the colour bytes, callers' bitmaps come in two. Blending treats the three colours alike, so
/// a bitmap of the other order is declared to Cairo as its own, and every colour, gradient and image handed to Cairo
/// for it has red and blue exchanged ("exchanged" below): what Cairo writes as blue is then the bitmap's red. The blend
/// modes that weigh the colours differently (hue, saturation, colour, luminosity) are the price: there they come out
/// slightly different from the same drawing in the platform's own order.
///
/// Between calls, `m_cairo` has the identity for a matrix: paths go to Cairo in its device space (y downwards from the
/// top), and only sources and pens are set under the user's transform.
class CairoContext : public CGContext {
public:
    ~CairoContext() override;

    /// Null when the context is empty.
    cairo_t* cairo() const { return m_cairo; }
    /// Makes Cairo follow the state: operator, antialiasing. Brings memory that Cairo cannot draw into, if any, before
    /// it.
    void begin();
    /// The counterpart: lets go of sources and brings the drawing into memory.
    void finish();
    cairo_matrix_t userMatrix() const;
    void setColor(const RGBAColor& color, CGFloat alpha);
    /// A colour with the state's alpha in it, or a pattern without.
    void setSource(CGColorRef color);

    void fill(const CGPath& path, bool evenOdd) override;
    void stroke(const CGPath& path) override;
    void clear(const CGPath& path) override;
    void clip(const CGPath& path, bool evenOdd) override;
    CGRect clipBounds() const override;
    void drawImage(CGRect rect, const CGImage& image) override;
    void drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end, CGGradientOptions options) override;
    void drawRadialGradient(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius, CGPoint endCenter,
                            CGFloat endRadius, CGGradientOptions options) override;

protected:
    void saveClip() override;
    void restoreClip() override;
    void beginGroup() override;
    void endGroup() override;

    /// Draws onto `surface` from now on, which has this many rows.
    void setSurface(cairo_surface_t* surface, CGFloat height, bool exchanged);
    void closeSurface();
    /// Called around each drawing operation.
    virtual void willDraw() {}
    virtual void didDraw() {}

private:
    /// Runs `paint` between `begin` and `finish`, with the shadow of what it paints below it.
    void paint(const std::function<void()>& paint);
    void paintWithShadow(const std::function<void()>& paint);
    /// Puts the source down inside the path.
    void paintInside(const CGPath& path, bool evenOdd, CGFloat alpha);
    void emit(const CGPath& path);
    void emit(CGPoint point, void (*add)(cairo_t*, double, double));
    /// A source from the image's pixels; null when Cairo cannot read them.
    cairo_pattern_t* imagePattern(const CGImage& image) const;
    /// Sets the pattern, placed in user space, as the source and releases it. False when it cannot be placed.
    bool setUserSource(cairo_pattern_t* pattern);
    void addStop(cairo_pattern_t* pattern, CGFloat location, RGBAColor color) const;
    void paintGradient(cairo_pattern_t* pattern);
    /// The box around the clip in user space.
    CGRect userClip() const;
    void paintCone(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius, CGPoint endCenter,
                   CGFloat endRadius, CGGradientOptions options);

    cairo_t* m_cairo = nullptr;
    CGFloat m_height = 0;
    bool m_exchanged = false;
};

} // namespace zr
