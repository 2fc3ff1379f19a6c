#pragma once

#include <Gallery/Source/PageSource.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>

#include <map>

namespace zr::gallery {

class SourceRow;

/// Sections of source code, one line of code a row, under headings that say where they are from. It scrolls both ways;
/// headings stay at the left edge meanwhile. Only the rows in sight exist.
class SourceView : public UIScrollView {
public:
    /// Points.
    static constexpr CGFloat rowHeight = 18;

    SourceView();
    ~SourceView() override;
    bool initWithFrame_sections(CGRect frame, const std::vector<SourceSection>& sections);

    void layoutSubviews() override;

private:
    /// A heading where there is no number.
    struct Row {
        NSString text;
        std::size_t number = 0;
        CGFloat width = 0;
    };

    void addRows(const SourceSection& section);
    CGFloat widthOf(std::string_view line) const;
    void showRow(std::size_t index);

    Ref<UIFont> m_font;
    CGFloat m_letterWidth = 0;
    std::vector<Row> m_rows;
    std::map<std::size_t, Ref<SourceRow>> m_shownRows;
    std::vector<Ref<SourceRow>> m_spareRows;
};

} // namespace zr::gallery
