#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#include <pango/pangocairo.h>
#include <pixman.h>

#include <cstddef>
#include <map>
#include <tuple>
#include <vector>

namespace zr {

/// Small glyphs as masks, each filled once for a font, a scale and a quarter of a pixel: to put a line together from
/// them takes a fraction of the time that filling its shapes takes. Keeps a bounded number. The Pango mutex must be
/// held.
class GlyphMasks {
public:
    static GlyphMasks& shared();

    GlyphMasks() = default;
    GlyphMasks(const GlyphMasks&) = delete;
    GlyphMasks& operator=(const GlyphMasks&) = delete;
    ~GlyphMasks();

    /// Draws the glyphs with the context's source, beginning at `origin` in user space. False, and nothing drawn, where
    /// masks do not serve: turned, mirrored, large or without antialiasing, or a character that no font has.
    bool draw(cairo_t* cairo, PangoFont* font, const PangoGlyphString* glyphs, CGPoint origin);

    /// How many masks are kept: `most` at most.
    std::size_t count() const { return m_count; }
    static constexpr std::size_t most = 4096;

private:
    struct Face;
    using FaceKey = std::tuple<cairo_scaled_font_t*, double, double>;

    Face& faceFor(const FaceKey& key);
    void place(Face& face, const PangoGlyphString* glyphs, CGPoint start);
    const void* mask(Face& face, PangoGlyph glyph, int phaseX, int phaseY);
    const void* makeMask(Face& face, PangoGlyph glyph, int phaseX, int phaseY, void* key);
    void paint(cairo_t* cairo);
    void forgetAll();

    pixman_glyph_cache_t* m_cache = nullptr;
    std::map<FaceKey, Face> m_faces;
    std::size_t m_count = 0;
    /// The glyphs being drawn.
    std::vector<pixman_glyph_t> m_placed;
};

} // namespace zr
