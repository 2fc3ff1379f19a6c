#include <ZRPlatform/UIKit/Text/Internal/PangoTextEngine.h>

#include <ZRPlatform/UIKit/Text/Internal/PangoFonts.h>
#include <ZRPlatform/UIKit/Text/Internal/PangoTextLayout.h>
#include <ZRPlatform/UIKit/Text/Internal/TextIndices.h>

#include <cmath>

namespace zr {

namespace {

/// A screen shows some dozens of texts, each measured and drawn.
constexpr std::size_t kMostLayouts = 256;
constexpr std::size_t kMostBytes = 128 * 1024;

void mix(std::size_t& hash, std::size_t value) { hash ^= value + 0x9e3779b97f4a7c15ULL + (hash << 6) + (hash >> 2); }

bool hasRoom(const TextRequest& request) {
    return request.text.length() > 0 && request.font && request.font->pointSize() > 0 && request.width > 0 &&
           request.height > 0;
}

} // namespace

std::size_t PangoTextEngine::RequestHash::operator()(const TextRequest& request) const {
    std::size_t hash = std::hash<NSString>()(request.text);
    mix(hash, std::hash<CGFloat>()(request.font->pointSize()));
    mix(hash, static_cast<std::size_t>(request.font->weight()) * 2 + (request.font->isItalic() ? 1 : 0));
    mix(hash, std::hash<CGFloat>()(request.width));
    mix(hash, std::hash<CGFloat>()(request.height));
    mix(hash, request.lineLimit);
    mix(hash, static_cast<std::size_t>(request.lineBreakMode) * 8 + static_cast<std::size_t>(request.alignment));
    return hash;
}

bool PangoTextEngine::RequestEqual::operator()(const TextRequest& a, const TextRequest& b) const {
    return a.width == b.width && a.height == b.height && a.lineLimit == b.lineLimit &&
           a.lineBreakMode == b.lineBreakMode && a.alignment == b.alignment && a.font->isEqual(b.font) &&
           a.text == b.text;
}

PangoTextEngine& PangoTextEngine::shared() {
    static auto* engine = new PangoTextEngine; // never destroyed: another thread may still measure at exit
    return *engine;
}

FontMetrics PangoTextEngine::metrics(const FontFace& face) {
    const std::lock_guard lock(pangoMutex());
    return PangoFonts::shared().metrics(face);
}

std::optional<FontFace> PangoTextEngine::faceNamed(const NSString& name) {
    const std::lock_guard lock(pangoMutex());
    return PangoFonts::shared().faceNamed(name);
}

std::shared_ptr<const TextLayout> PangoTextEngine::layout(const TextRequest& request) {
    if (!hasRoom(request))
        return std::make_shared<PangoTextLayout>(request.font ? request.font->lineHeight() : 0);
    const std::lock_guard lock(pangoMutex());
    if (const auto found = m_index.find(request); found != m_index.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found->second);
        return found->second->second;
    }
    const auto layout = std::make_shared<PangoTextLayout>(request);
    remember(request, layout);
    return layout;
}

void PangoTextEngine::remember(const TextRequest& request, const std::shared_ptr<const TextLayout>& layout) {
    if (request.text.utf8().size() > kMostBytes / 8)
        return;
    m_entries.emplace_front(request, layout);
    m_index.emplace(request, m_entries.begin());
    m_bytes += request.text.utf8().size();
    while (m_entries.size() > kMostLayouts || m_bytes > kMostBytes) {
        const Entry& oldest = m_entries.back();
        m_bytes -= oldest.first.text.utf8().size();
        m_index.erase(oldest.first);
        m_entries.pop_back();
    }
}

std::vector<NSUInteger> PangoTextEngine::caretPositions(const NSString& text) {
    const TextIndices indices(text.utf8());
    const std::string& bytes = indices.text();
    const auto characters = static_cast<std::size_t>(g_utf8_strlen(bytes.data(), static_cast<gssize>(bytes.size())));
    std::vector<PangoLogAttr> attributes(characters + 1);
    {
        const std::lock_guard lock(pangoMutex());
        pango_get_log_attrs(bytes.data(), static_cast<int>(bytes.size()), -1, pango_language_from_string("en"),
                            attributes.data(), static_cast<int>(attributes.size()));
    }
    std::vector<NSUInteger> positions;
    const char* place = bytes.data();
    for (std::size_t i = 0; i < characters; ++i, place = g_utf8_next_char(place)) {
        if (i == 0 || attributes[i].is_cursor_position)
            positions.push_back(indices.utf16AtByte(static_cast<std::size_t>(place - bytes.data())));
    }
    positions.push_back(indices.length());
    if (characters == 0)
        positions = {0};
    return positions;
}

} // namespace zr
