#include <Gallery/Look/RowScreen.h>

#include <Gallery/Look/Look.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kHeadingHeight = 40;
constexpr CGFloat kSpaceWithoutHeading = 14;
constexpr CGFloat kSpaceBelowRows = 14;

} // namespace

void RowScreen::viewDidLoad() {
    TableScreen::viewDidLoad();
    // The kit's cells bring their own lines; on screens of one pixel a point they lie beside the table's.
    tableView()->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
}

CGFloat RowScreen::tableView_heightForHeaderInSection(UITableView* table, NSInteger section) {
    return tableView_titleForHeaderInSection(table, section).isNil() ? kSpaceWithoutHeading : kHeadingHeight;
}

void RowScreen::tableView_willDisplayHeaderView_forSection(UITableView* table, UIView* view, NSInteger) {
    auto* heading = dynamic_cast<UITableViewHeaderFooterView*>(view);
    if (!heading)
        return;
    heading->textLabel()->setFont(UIFont::systemFontOfSize(13));
    heading->textLabel()->setTextColor(Look::detailColor());
    // One that sticks hides the rows behind it.
    if (table->style() == UITableViewStylePlain)
        heading->contentView()->setBackgroundColor(this->view()->backgroundColor());
}

void RowScreen::setSpaceBelowRows() {
    tableView()->setTableFooterView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 0, kSpaceBelowRows)));
}

Ref<UIView> RowScreen::makeNote(const NSString& text, CGFloat spaceAbove, CGFloat spaceBelow) {
    const CGFloat width = view()->bounds().size.width - 2 * Look::kMargin;
    const auto label = Look::label(text, UIFont::systemFontOfSize(13), Look::detailColor(), 0);
    const CGFloat height = Look::heightOfLabel(label, width);
    label->setFrame(CGRectMake(Look::kMargin, spaceAbove, width, height));
    label->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    auto note = make<UIView>(&UIView::initWithFrame,
                             CGRectMake(0, 0, width + 2 * Look::kMargin, spaceAbove + height + spaceBelow));
    note->addSubview(label);
    return note;
}

} // namespace zr::gallery
