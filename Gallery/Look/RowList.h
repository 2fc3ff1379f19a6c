#pragma once

#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

namespace zr::gallery {

/// Rows of full width in sections, each below a heading.
class RowList : public UIScrollView {
public:
    bool initWithFrame(CGRect frame) override;

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
