#pragma once

#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <cstdint>

#pragma GCC visibility push(default)
namespace zr {

/// Makes the kit's labels.
class ZRLabel : public UILabel {
public:
    /// A plain `UILabel` (no `ZRLabel`) with a clear background and the platform's text colour. `lines`: 0 for as many
    /// as fit. `font` and `text` may be nil.
    static Ref<UILabel> zrInitLabelWithFrame_lines_font_text_alignment(CGRect frame, std::int32_t lines, UIFont* font,
                                                                       const NSString& text, NSTextAlignment alignment);
};

} // namespace zr
#pragma GCC visibility pop
