#pragma once

#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <pango/pangocairo.h>

#include <mutex>
#include <optional>

namespace zr {

/// Held by whoever calls Pango: its fonts and layouts know nothing of threads. Recursive, as the last reference to a
/// layout may go while another is made.
std::recursive_mutex& pangoMutex();

/// Points in Pango's units, rounded up so that a text measured fits its own width; -1, Pango's "unlimited", for what is
/// not finite or beyond any screen.
int pangoUnits(CGFloat points);
inline CGFloat pointsOfPango(int units) { return static_cast<CGFloat>(units) / PANGO_SCALE; }

/// The fonts of this machine, found and drawn in the same way whatever its user prefers: no hinting, no rounding to
/// pixels, grey antialiasing, and one order of stand-ins for missing characters.
class PangoFonts {
public:
    /// The mutex must be held here and below.
    static PangoFonts& shared();

    PangoContext* context() const { return m_context; }
    /// To be freed with `pango_font_description_free`.
    static PangoFontDescription* description(const FontFace& face, CGFloat size);
    FontMetrics metrics(const FontFace& face) const;
    std::optional<FontFace> faceNamed(const NSString& name) const;

private:
    PangoFonts();

    PangoFontMap* m_map;
    PangoContext* m_context;
};

} // namespace zr
