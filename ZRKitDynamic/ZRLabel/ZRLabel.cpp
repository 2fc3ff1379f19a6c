#include <ZRKitDynamic/ZRLabel/ZRLabel.h>

namespace zr {

Ref<UILabel> ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRect frame, std::int32_t lines, UIFont* font,
                                                                     const NSString& text, NSTextAlignment alignment) {
    Ref<UILabel> label = make<UILabel>(&UILabel::initWithFrame, frame);
    label->setBackgroundColor(UIColor::clearColor());
    label->setNumberOfLines(lines);
    label->setFont(font);
    label->setText(text);
    label->setTextAlignment(alignment);
    return label;
}

} // namespace zr
