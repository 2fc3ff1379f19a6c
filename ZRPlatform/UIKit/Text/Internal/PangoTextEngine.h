#pragma once

#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <list>
#include <unordered_map>

namespace zr {

/// The platform's own text engine. It remembers the layouts asked for last.
class PangoTextEngine final : public TextEngine {
public:
    static PangoTextEngine& shared();

    FontMetrics metrics(const FontFace& face) override;
    std::optional<FontFace> faceNamed(const NSString& name) override;
    std::shared_ptr<const TextLayout> layout(const TextRequest& request) override;
    std::vector<NSUInteger> caretPositions(const NSString& text) override;

private:
    struct RequestHash {
        std::size_t operator()(const TextRequest& request) const;
    };
    struct RequestEqual {
        bool operator()(const TextRequest& a, const TextRequest& b) const;
    };
    using Entry = std::pair<TextRequest, std::shared_ptr<const TextLayout>>;

    void remember(const TextRequest& request, const std::shared_ptr<const TextLayout>& layout);

    /// Last used first.
    std::list<Entry> m_entries;
    std::unordered_map<TextRequest, std::list<Entry>::iterator, RequestHash, RequestEqual> m_index;
    std::size_t m_bytes = 0;
};

} // namespace zr
