#include <Gallery/Source/SourceRow.h>

#include <Gallery/Look/Look.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kNumberGap = 10;

bool isComment(const NSString& code) {
    const std::string& text = code.utf8();
    const std::size_t start = text.find_first_not_of(' ');
    return start != std::string::npos && text.compare(start, 2, "//") == 0;
}

} // namespace

bool SourceRow::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setUserInteractionEnabled(false);
    m_number = Look::label("", nullptr, Look::detailColor(), 1, NSTextAlignmentRight);
    m_text = Look::label("", nullptr, Look::titleColor());
    addSubview(m_number);
    addSubview(m_text);
    return true;
}

void SourceRow::showCode(const NSString& code, std::size_t number, CGFloat width, UIFont* font) {
    const CGFloat height = bounds().size.height;
    setBackgroundColor(nullptr);
    m_number->setHidden(false);
    m_number->setFont(font);
    m_number->setText(NSString::stringWithFormat("%zu", number));
    m_number->setFrame(CGRectMake(0, 0, gutterWidth - kNumberGap, height));
    m_text->setFont(font);
    m_text->setTextColor(isComment(code) ? Look::detailColor() : Look::titleColor());
    m_text->setText(code);
    m_text->setFrame(CGRectMake(gutterWidth, 0, width, height));
}

void SourceRow::showHeading(const NSString& heading) {
    const CGSize size = bounds().size;
    setBackgroundColor(Look::separatorColor());
    m_number->setHidden(true);
    m_text->setFont(UIFont::boldSystemFontOfSize(12));
    m_text->setTextColor(Look::titleColor());
    m_text->setText(heading);
    m_text->setFrame(CGRectMake(Look::kMargin, 0, size.width - 2 * Look::kMargin, size.height));
}

} // namespace zr::gallery
