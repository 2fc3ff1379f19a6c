#include <ZRPlatform/UIKit/Text/Internal/GlyphMasks.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace zr {

namespace {

/// Steps within a pixel. Finer ones could not be seen.
constexpr int kPhases = 4;
/// The tallest font, in pixels, that is drawn by masks: larger glyphs are few, and their masks big.
constexpr double kTallest = 64;
/// Further out nothing is seen, and whole numbers stay exact.
constexpr double kFurthest = 1 << 20;

struct PixelBox {
    int left, top, right, bottom;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool isEmpty() const { return right <= left || bottom <= top; }
};

int pixelOf(double place) { return static_cast<int>(std::clamp(place, -kFurthest, kFurthest)); }

/// The pixels that a box in user space, which `extents` tells, touches.
PixelBox pixelsOf(cairo_t* cairo, void (*extents)(cairo_t*, double*, double*, double*, double*)) {
    double left, top, right, bottom;
    extents(cairo, &left, &top, &right, &bottom);
    cairo_user_to_device(cairo, &left, &top);
    cairo_user_to_device(cairo, &right, &bottom);
    return {pixelOf(std::floor(left)), pixelOf(std::floor(top)), pixelOf(std::ceil(right)), pixelOf(std::ceil(bottom))};
}

bool masksServe(cairo_t* cairo, cairo_scaled_font_t* font, const cairo_matrix_t& matrix) {
    if (matrix.xy != 0 || matrix.yx != 0 || !(matrix.xx > 0) || !(matrix.yy > 0))
        return false;
    cairo_matrix_t size;
    cairo_scaled_font_get_font_matrix(font, &size);
    return std::max(size.xx * matrix.xx, size.yy * matrix.yy) <= kTallest &&
           cairo_get_antialias(cairo) != CAIRO_ANTIALIAS_NONE;
}

bool hasStandInBox(const PangoGlyphString* glyphs) {
    return std::any_of(glyphs->glyphs, glyphs->glyphs + glyphs->num_glyphs, [](const PangoGlyphInfo& info) {
        return (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) && info.glyph != PANGO_GLYPH_EMPTY;
    });
}

/// A place in quarters of a pixel, as a whole pixel and the quarters beyond it.
struct Place {
    explicit Place(double value) {
        const double steps = std::floor(value * kPhases + 0.5);
        pixel = pixelOf(std::floor(steps / kPhases));
        phase = static_cast<int>(steps - std::floor(steps / kPhases) * kPhases);
    }
    int pixel;
    int phase;
};

} // namespace

/// A font at a scale, with a context that knows its glyphs' shapes. Its address is the key of its masks.
struct GlyphMasks::Face {
    explicit Face(const FaceKey& key) :
        font(cairo_scaled_font_reference(std::get<0>(key))), scaleX(std::get<1>(key)), scaleY(std::get<2>(key)) {}
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;
    ~Face() {
        cairo_surface_destroy(nowhere);
        cairo_scaled_font_destroy(font);
    }

    /// A context on `surface` with the glyph's shape as its path, its origin so many pixels from the surface's.
    cairo_t* shape(cairo_surface_t* surface, PangoGlyph index, double x, double y) const {
        cairo_t* cairo = cairo_create(surface);
        cairo_translate(cairo, x, y);
        cairo_scale(cairo, scaleX, scaleY);
        cairo_set_scaled_font(cairo, font);
        const cairo_glyph_t glyph{index, 0, 0};
        cairo_glyph_path(cairo, &glyph, 1);
        return cairo;
    }

    cairo_scaled_font_t* font;
    double scaleX;
    double scaleY;
    cairo_surface_t* nowhere = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
};

GlyphMasks& GlyphMasks::shared() {
    static auto* masks = new GlyphMasks; // views may be drawn until the very end of the program
    return *masks;
}

GlyphMasks::~GlyphMasks() { forgetAll(); }

void GlyphMasks::forgetAll() {
    if (m_cache) {
        pixman_glyph_cache_thaw(m_cache);
        pixman_glyph_cache_destroy(m_cache);
    }
    m_cache = nullptr;
    m_faces.clear();
    m_count = 0;
}

GlyphMasks::Face& GlyphMasks::faceFor(const FaceKey& key) {
    // Sizes that change all the time, as a text's that grows, would make ever new faces.
    if (m_count + m_faces.size() >= most)
        forgetAll();
    if (!m_cache) {
        m_cache = pixman_glyph_cache_create();
        pixman_glyph_cache_freeze(m_cache); // only here masks go
    }
    return m_faces.try_emplace(key, key).first->second;
}

bool GlyphMasks::draw(cairo_t* cairo, PangoFont* font, const PangoGlyphString* glyphs, CGPoint origin) {
    cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(reinterpret_cast<PangoCairoFont*>(font));
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo, &matrix);
    if (!scaled || !masksServe(cairo, scaled, matrix) || hasStandInBox(glyphs))
        return false;
    CGPoint start = origin;
    cairo_user_to_device(cairo, &start.x, &start.y);
    place(faceFor({scaled, matrix.xx, matrix.yy}), glyphs, start);
    paint(cairo);
    return true;
}

void GlyphMasks::place(Face& face, const PangoGlyphString* glyphs, CGPoint start) {
    m_placed.clear();
    double pen = 0;
    for (int i = 0; i < glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& info = glyphs->glyphs[i];
        if (info.glyph != PANGO_GLYPH_EMPTY) {
            const Place x(start.x + (pen + info.geometry.x_offset) * face.scaleX / PANGO_SCALE);
            const Place y(start.y + info.geometry.y_offset * face.scaleY / PANGO_SCALE);
            m_placed.push_back({x.pixel, y.pixel, mask(face, info.glyph, x.phase, y.phase)});
        }
        pen += info.geometry.width;
    }
}

const void* GlyphMasks::mask(Face& face, PangoGlyph glyph, int phaseX, int phaseY) {
    void* key = reinterpret_cast<void*>((std::uintptr_t(glyph) * kPhases + std::uintptr_t(phaseY)) * kPhases +
                                        std::uintptr_t(phaseX));
    const void* kept = pixman_glyph_cache_lookup(m_cache, &face, key);
    return kept ? kept : makeMask(face, glyph, phaseX, phaseY, key);
}

const void* GlyphMasks::makeMask(Face& face, PangoGlyph glyph, int phaseX, int phaseY, void* key) {
    const double x = double(phaseX) / kPhases, y = double(phaseY) / kPhases;
    cairo_t* measured = face.shape(face.nowhere, glyph, x, y);
    PixelBox box = pixelsOf(measured, &cairo_path_extents);
    cairo_destroy(measured);
    if (box.isEmpty())
        box = {0, 0, 1, 1}; // a space

    pixman_image_t* image = pixman_image_create_bits(PIXMAN_a8, box.width(), box.height(), nullptr, 0);
    cairo_surface_t* surface =
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixman_image_get_data(image)),
                                            CAIRO_FORMAT_A8, box.width(), box.height(), pixman_image_get_stride(image));
    cairo_t* cairo = face.shape(surface, glyph, x - box.left, y - box.top);
    cairo_fill(cairo);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    const void* kept = pixman_glyph_cache_insert(m_cache, &face, key, -box.left, -box.top, image);
    pixman_image_unref(image);
    ++m_count;
    return kept;
}

void GlyphMasks::paint(cairo_t* cairo) {
    pixman_box32_t extents;
    pixman_glyph_get_extents(m_cache, static_cast<int>(m_placed.size()), m_placed.data(), &extents);
    const PixelBox clip = pixelsOf(cairo, &cairo_clip_extents);
    const PixelBox box{std::max(extents.x1, clip.left), std::max(extents.y1, clip.top),
                       std::min(extents.x2, clip.right), std::min(extents.y2, clip.bottom)};
    if (m_placed.empty() || box.isEmpty())
        return;
    cairo_surface_t* line = cairo_image_surface_create(CAIRO_FORMAT_A8, box.width(), box.height());
    if (unsigned char* data = cairo_image_surface_get_data(line)) {
        const pixman_color_t white{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
        pixman_image_t* full = pixman_image_create_solid_fill(&white);
        pixman_image_t* target =
            pixman_image_create_bits(PIXMAN_a8, box.width(), box.height(), reinterpret_cast<std::uint32_t*>(data),
                                     cairo_image_surface_get_stride(line));
        pixman_composite_glyphs_no_mask(PIXMAN_OP_ADD, full, target, 0, 0, -box.left, -box.top, m_cache,
                                        static_cast<int>(m_placed.size()), m_placed.data());
        pixman_image_unref(target);
        pixman_image_unref(full);
        cairo_surface_mark_dirty(line);
        cairo_save(cairo);
        cairo_identity_matrix(cairo);
        cairo_mask_surface(cairo, line, box.left, box.top);
        cairo_restore(cairo);
    }
    cairo_surface_destroy(line);
}

} // namespace zr
