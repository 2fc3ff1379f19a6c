#include <Gallery/Look/RowList.h>

#include <Gallery/Look/Look.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kFirstSectionSpace = 24;
constexpr CGFloat kSectionSpace = 32;
constexpr CGFloat kHeadingHeight = 18;
constexpr CGFloat kHeadingSpace = 7;
constexpr CGFloat kNoteSpace = 10;

} // namespace

bool RowList::initWithFrame(CGRect frame) {
    if (!UIScrollView::initWithFrame(frame))
        return false;
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    return true;
}

void RowList::addHeading(const NSString& heading) {
    const CGFloat width = bounds().size.width;
    m_nextY += m_nextY == 0 ? kFirstSectionSpace : kSectionSpace;
    const auto label = Look::label(heading, UIFont::systemFontOfSize(13), Look::detailColor());
    label->setFrame(CGRectMake(Look::kMargin, 0, width - 2 * Look::kMargin, kHeadingHeight));
    place(label, kHeadingSpace - Look::hairline());
    place(Look::line(CGRectMake(0, 0, width, Look::hairline())), 0);
}

void RowList::addRow(UIView* row) { place(row, 0); }

void RowList::addNote(const NSString& note) {
    const CGFloat width = bounds().size.width - 2 * Look::kMargin;
    m_nextY += kNoteSpace;
    const auto label = Look::label(note, UIFont::systemFontOfSize(13), Look::detailColor(), 0);
    label->setFrame(CGRectMake(Look::kMargin, 0, width, Look::heightOfLabel(label, width)));
    place(label, 0);
}

void RowList::place(UIView* view, CGFloat spaceAfter) {
    view->setFrame(CGRectOffset(view->frame(), 0, m_nextY));
    view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    addSubview(view);
    m_nextY += view->frame().size.height + spaceAfter;
    setContentSize(CGSizeMake(0, m_nextY + kSectionSpace));
}

} // namespace zr::gallery
