#include <Gallery/Source/SourceView.h>

#include <Gallery/Look/Look.h>
#include <Gallery/Source/SourceRow.h>

#include <algorithm>
#include <cmath>

namespace zr::gallery {

namespace {

constexpr CGFloat kFontSize = 12;

Ref<UIFont> codeFont() {
    auto font = UIFont::fontWithName_size("Noto Sans Mono", kFontSize);
    return font ? font : UIFont::systemFontOfSize(kFontSize);
}

CGFloat measuredWidth(const NSString& text, UIFont* font) {
    return std::ceil(Look::label(text, font, nullptr)->sizeThatFits(CGSizeMake(10000, 100)).width);
}

bool isASCII(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 128; });
}

NSString headingOf(const SourceSection& section) {
    if (section.lines.first == section.lines.last)
        return NSString::stringWithFormat("%s, line %zu", std::string(section.path).c_str(), section.lines.first);
    return NSString::stringWithFormat("%s, lines %zu–%zu", std::string(section.path).c_str(), section.lines.first,
                                      section.lines.last);
}

} // namespace

SourceView::SourceView() = default;
SourceView::~SourceView() = default;

bool SourceView::initWithFrame_sections(CGRect frame, const std::vector<SourceSection>& sections) {
    if (!initWithFrame(frame))
        return false;
    m_font = codeFont();
    constexpr int kLetters = 100;
    m_letterWidth = measuredWidth(std::string(kLetters, '0'), m_font) / kLetters;
    for (const SourceSection& section : sections)
        addRows(section);
    CGFloat width = 0;
    for (const Row& row : m_rows)
        width = std::max(width, row.width);
    setContentSize(
        CGSizeMake(SourceRow::gutterWidth + width + Look::kMargin, static_cast<CGFloat>(m_rows.size()) * rowHeight));
    setDirectionalLockEnabled(true);
    return true;
}

void SourceView::addRows(const SourceSection& section) {
    m_rows.push_back({headingOf(section)});
    std::size_t number = section.lines.first;
    for (const std::string_view line : section.text)
        m_rows.push_back({line, number++, widthOf(line)});
}

/// Letters of one width need not be laid out to be measured; Chinese, Arabic and emoji come from other fonts.
CGFloat SourceView::widthOf(std::string_view line) const {
    if (isASCII(line))
        return std::ceil(static_cast<CGFloat>(line.size()) * m_letterWidth) + 1;
    return measuredWidth(line, m_font) + 1;
}

void SourceView::layoutSubviews() {
    UIScrollView::layoutSubviews();
    const auto rowAt = [this](CGFloat y) {
        return static_cast<std::size_t>(std::clamp<CGFloat>(y / rowHeight, 0, static_cast<CGFloat>(m_rows.size())));
    };
    const std::size_t first = rowAt(std::floor(CGRectGetMinY(bounds())));
    const std::size_t end = rowAt(std::ceil(CGRectGetMaxY(bounds())) + rowHeight);
    for (auto shown = m_shownRows.begin(); shown != m_shownRows.end();) {
        if (shown->first >= first && shown->first < end) {
            ++shown;
            continue;
        }
        shown->second->removeFromSuperview();
        m_spareRows.push_back(shown->second);
        shown = m_shownRows.erase(shown);
    }
    for (std::size_t index = first; index < end; ++index)
        showRow(index);
}

void SourceView::showRow(std::size_t index) {
    const Row& row = m_rows[index];
    const bool isHeading = row.number == 0;
    const CGFloat left = isHeading ? contentOffset().x : 0;
    const CGFloat width = isHeading ? bounds().size.width : contentSize().width;
    const CGRect frame = CGRectMake(left, static_cast<CGFloat>(index) * rowHeight, width, rowHeight);
    const auto [place, isNew] = m_shownRows.try_emplace(index);
    if (!isNew && place->second->frame() == frame)
        return;
    if (isNew && !m_spareRows.empty()) {
        place->second = m_spareRows.back();
        m_spareRows.pop_back();
    } else if (isNew) {
        place->second = make<SourceRow>();
    }
    SourceRow* view = place->second;
    view->setFrame(frame);
    if (isHeading)
        view->showHeading(row.text);
    else
        view->showCode(row.text, row.number, row.width, m_font);
    if (isNew)
        addSubview(view);
}

} // namespace zr::gallery
