#include <ZRPlatform/UIKit/Lists/UITableView.h>

namespace zr {

Ref<UITableViewCell> UITableViewDataSource::tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) {
    return nullptr;
}

// Nobody overrides these, or they would not be called: the table learns that it need not ask on.

void UITableViewDelegate::leaveUnanswered(UITableView* tableView) {
    if (tableView)
        tableView->m_wasAnswered = false;
}

CGFloat UITableViewDelegate::tableView_heightForRowAtIndexPath(UITableView* tableView, const NSIndexPath&) {
    leaveUnanswered(tableView);
    return UITableViewAutomaticDimension;
}

Ref<UIView> UITableViewDelegate::tableView_viewForHeaderInSection(UITableView* tableView, NSInteger) {
    leaveUnanswered(tableView);
    return nullptr;
}

Ref<UIView> UITableViewDelegate::tableView_viewForFooterInSection(UITableView* tableView, NSInteger) {
    leaveUnanswered(tableView);
    return nullptr;
}

NSInteger UITableViewDelegate::tableView_indentationLevelForRowAtIndexPath(UITableView* tableView, const NSIndexPath&) {
    leaveUnanswered(tableView);
    return 0;
}

} // namespace zr
