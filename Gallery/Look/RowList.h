#pragma once

#include <Gallery/Look/ScrollBox.h>

namespace zr::gallery {

/// Rows of full width in sections, each below a heading.
class RowList : public ScrollBox {
public:
    /// Begins a section.
    void addHeading(const NSString& heading);
    /// Takes the row's height.
    void addRow(UIView* row);
    /// Small print below the rows.
    void addNote(const NSString& note);

private:
    void place(UIView* view, CGFloat spaceAfter);

    CGFloat m_nextY = 0;
};

} // namespace zr::gallery
