#include <ZRPlatform/UIKit/Text/Internal/PangoFonts.h>

#include <fontconfig/fontconfig.h>
#include <hb-ot.h>
#include <pango/pangofc-font.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

namespace zr {

namespace {

/// No screen is wider, in points; and Pango's units must not overflow.
constexpr CGFloat kWidestLine = 1e6;
/// Font units are asked for at this size, large enough that their rounding does not matter.
constexpr int kMetricsUnits = 1 << 16;

/// Which fonts stand in for missing characters, in this order, and how glyphs are drawn. Colour glyphs are bitmaps of
/// one size: they are scaled, and told nothing about outlines, with which they would not load.
constexpr const char* kRules = R"(
  <match target="pattern">
    <test name="family"><string>emoji</string></test>
    <edit name="family" mode="prepend" binding="strong"><string>Noto Color Emoji</string></edit>
  </match>
  <match target="pattern">
    <edit name="family" mode="append" binding="strong">
      <string>Inter</string>
      <string>Noto Sans CJK SC</string>
      <string>Noto Sans Arabic</string>
      <string>Noto Color Emoji</string>
      <string>Noto Sans</string>
      <string>DejaVu Sans</string>
    </edit>
  </match>
  <match target="font">
    <test name="outline"><bool>true</bool></test>
    <edit name="antialias"><bool>true</bool></edit>
    <edit name="hinting"><bool>false</bool></edit>
    <edit name="autohint"><bool>false</bool></edit>
    <edit name="hintstyle"><const>hintnone</const></edit>
    <edit name="rgba"><const>none</const></edit>
    <edit name="lcdfilter"><const>lcdnone</const></edit>
    <edit name="embolden"><bool>false</bool></edit>
  </match>
  <match target="font">
    <test name="outline"><bool>false</bool></test>
    <test name="color"><bool>true</bool></test>
    <edit name="matrix" mode="assign">
      <times>
        <name>matrix</name>
        <matrix>
          <divide><name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide><double>0</double>
          <double>0</double><divide><name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide>
        </matrix>
      </times>
    </edit>
  </match>
)";

std::string escapedForXML(const char* text) {
    std::string escaped;
    for (; *text; ++text) {
        if (*text == '&')
            escaped += "&amp;";
        else if (*text == '<')
            escaped += "&lt;";
        else
            escaped += *text;
    }
    return escaped;
}

void appendDirectories(std::string& xml, const char* element, FcStrList* list) {
    while (const FcChar8* directory = FcStrListNext(list))
        xml += std::string("<") + element + ">" + escapedForXML(reinterpret_cast<const char*>(directory)) + "</" +
               element + ">\n";
    FcStrListDone(list);
}

/// The machine's font folders with rules of our own. The user's rules would change widths and looks.
FcConfig* makeConfiguration() {
    std::string xml = "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>\n";
    if (FcConfig* machine = FcInitLoadConfig()) {
        appendDirectories(xml, "dir", FcConfigGetFontDirs(machine));
        appendDirectories(xml, "cachedir", FcConfigGetCacheDirs(machine));
        FcConfigDestroy(machine);
    }
    xml += kRules;
    xml += "</fontconfig>";
    FcConfig* configuration = FcConfigCreate();
    FcConfigParseAndLoadFromMemory(configuration, reinterpret_cast<const FcChar8*>(xml.c_str()), FcTrue);
    FcConfigBuildFonts(configuration);
    return configuration;
}

std::optional<FontFace> faceOfPattern(FcPattern* pattern) {
    FcChar8* family = nullptr;
    if (FcPatternGetString(pattern, FC_FAMILY, 0, &family) != FcResultMatch)
        return std::nullopt;
    FontFace face{reinterpret_cast<const char*>(family), 400, false};
    double weight = FC_WEIGHT_REGULAR;
    FcPatternGetDouble(pattern, FC_WEIGHT, 0, &weight);
    face.weight = static_cast<int>(std::lround(FcWeightToOpenTypeDouble(weight)));
    int slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(pattern, FC_SLANT, 0, &slant);
    face.italic = slant != FC_SLANT_ROMAN;
    return face;
}

CGFloat metric(hb_font_t* font, hb_ot_metrics_tag_t tag, CGFloat fallback) {
    hb_position_t value = 0;
    return hb_ot_metrics_get_position(font, tag, &value) ? static_cast<CGFloat>(value) / kMetricsUnits : fallback;
}

} // namespace

std::recursive_mutex& pangoMutex() {
    static auto* mutex = new std::recursive_mutex; // never destroyed: layouts may go after the end of main
    return *mutex;
}

int pangoUnits(CGFloat points) {
    if (!(points < kWidestLine))
        return -1;
    return static_cast<int>(std::ceil(std::max<CGFloat>(points, 0) * PANGO_SCALE));
}

PangoFonts& PangoFonts::shared() {
    static auto* fonts = new PangoFonts; // never destroyed, like the mutex
    return *fonts;
}

PangoFonts::PangoFonts() : m_map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)), m_context(nullptr) {
    FcConfig* configuration = makeConfiguration();
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(m_map), configuration);
    FcConfigDestroy(configuration);
    m_context = pango_font_map_create_context(m_map);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(m_context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(m_context, FALSE);
    // Fixed, as the locale would choose among the stand-ins.
    pango_context_set_language(m_context, pango_language_from_string("en"));
}

PangoFontDescription* PangoFonts::description(const FontFace& face, CGFloat size) {
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family(description, face.family.UTF8String());
    pango_font_description_set_weight(description, static_cast<PangoWeight>(face.weight));
    pango_font_description_set_style(description, face.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(description, static_cast<double>(size) * PANGO_SCALE);
    return description;
}

FontMetrics PangoFonts::metrics(const FontFace& face) const {
    FontMetrics metrics;
    PangoFontDescription* wanted = description(face, 16);
    PangoFont* font = pango_font_map_load_font(m_map, m_context, wanted);
    pango_font_description_free(wanted);
    if (!font)
        return metrics;
    // Not the font Pango scaled, whose measures are rounded.
    hb_font_t* unscaled = hb_font_create(hb_font_get_face(pango_font_get_hb_font(font)));
    hb_font_set_scale(unscaled, kMetricsUnits, kMetricsUnits);
    hb_ot_font_set_funcs(unscaled);
    metrics.ascender = metric(unscaled, HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER, 0.95);
    metrics.descender = -std::fabs(metric(unscaled, HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER, -0.25));
    metrics.capHeight = metric(unscaled, HB_OT_METRICS_TAG_CAP_HEIGHT, 0.7);
    metrics.xHeight = metric(unscaled, HB_OT_METRICS_TAG_X_HEIGHT, 0.5);
    hb_font_destroy(unscaled);
    FcChar8* name = nullptr;
    FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
    if (pattern && FcPatternGetString(pattern, FC_POSTSCRIPT_NAME, 0, &name) == FcResultMatch)
        metrics.fontName = reinterpret_cast<const char*>(name);
    else
        metrics.fontName = face.family;
    g_object_unref(font);
    return metrics;
}

std::optional<FontFace> PangoFonts::faceNamed(const NSString& name) const {
    if (name.length() == 0)
        return std::nullopt;
    FcConfig* configuration = pango_fc_font_map_get_config(PANGO_FC_FONT_MAP(m_map));
    const auto* text = reinterpret_cast<const FcChar8*>(name.UTF8String());
    FcObjectSet* wanted = FcObjectSetBuild(FC_FAMILY, FC_WEIGHT, FC_SLANT, nullptr);
    std::optional<FontFace> face;
    for (const char* kind : {FC_POSTSCRIPT_NAME, FC_FULLNAME, FC_FAMILY}) {
        FcPattern* pattern = FcPatternCreate();
        FcPatternAddString(pattern, kind, text);
        FcFontSet* found = FcFontList(configuration, pattern, wanted);
        FcPatternDestroy(pattern);
        if (found && found->nfont > 0) {
            face = faceOfPattern(found->fonts[0]);
            if (face && std::string(kind) == FC_FAMILY) {
                face->weight = 400;
                face->italic = false;
            }
        }
        if (found)
            FcFontSetDestroy(found);
        if (face)
            break;
    }
    FcObjectSetDestroy(wanted);
    return face;
}

} // namespace zr
