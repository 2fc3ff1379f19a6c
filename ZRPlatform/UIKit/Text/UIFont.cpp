#include <ZRPlatform/UIKit/Text/UIFont.h>

#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>
#include <tuple>

namespace zr {

namespace {

constexpr const char* kSystemFamily = "Inter";
constexpr int kRegular = 400;
constexpr int kBold = 700;
constexpr CGFloat kLargestSize = 2048;

CGFloat usableSize(CGFloat size) { return std::isnan(size) ? 0 : std::clamp<CGFloat>(size, 0, kLargestSize); }

/// Fonts are made all the time, in few faces.
FontMetrics metricsOf(const FontFace& face) {
    static std::mutex mutex;
    static auto* known = new std::map<std::tuple<NSString, int, bool>, FontMetrics>;
    const std::lock_guard lock(mutex);
    const auto key = std::tuple(face.family, face.weight, face.italic);
    const auto found = known->find(key);
    if (found != known->end())
        return found->second;
    return known->emplace(key, TextEngine::current().metrics(face)).first->second;
}

} // namespace

Ref<UIFont> UIFont::fontWithFace(const FontFace& face, CGFloat size) {
    const FontMetrics metrics = metricsOf(face);
    auto font = make<UIFont>();
    font->m_fontName = metrics.fontName;
    font->m_familyName = face.family;
    font->m_pointSize = usableSize(size);
    font->m_weight = face.weight;
    font->m_italic = face.italic;
    font->m_ascender = metrics.ascender;
    font->m_descender = metrics.descender;
    font->m_capHeight = metrics.capHeight;
    font->m_xHeight = metrics.xHeight;
    return font;
}

Ref<UIFont> UIFont::systemFont(int weight, bool italic, CGFloat size) {
    return fontWithFace({kSystemFamily, weight, italic}, size);
}

Ref<UIFont> UIFont::systemFontOfSize(CGFloat size) { return systemFont(kRegular, false, size); }
Ref<UIFont> UIFont::boldSystemFontOfSize(CGFloat size) { return systemFont(kBold, false, size); }
Ref<UIFont> UIFont::italicSystemFontOfSize(CGFloat size) { return systemFont(kRegular, true, size); }

Ref<UIFont> UIFont::fontWithName_size(const NSString& name, CGFloat size) {
    const std::optional<FontFace> face = TextEngine::current().faceNamed(name);
    return face ? fontWithFace(*face, size) : nullptr;
}

Ref<UIFont> UIFont::fontWithSize(CGFloat size) const { return fontWithFace({m_familyName, m_weight, m_italic}, size); }

bool UIFont::isEqual(const NSObject* other) const {
    if (this == other)
        return true;
    const auto* font = dynamic_cast<const UIFont*>(other);
    return font && m_pointSize == font->m_pointSize && m_weight == font->m_weight && m_italic == font->m_italic &&
           m_familyName == font->m_familyName;
}

} // namespace zr
