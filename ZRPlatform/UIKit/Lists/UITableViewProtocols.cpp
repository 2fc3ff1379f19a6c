#include <ZRPlatform/UIKit/Lists/UITableView.h>

namespace zr {

Ref<UITableViewCell> UITableViewDataSource::tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) {
    return nullptr;
}

// Nobody overrides these, or they would not be called: the table learns that it need not ask on.

CGFloat UITableViewDelegate::tableView_heightForRowAtIndexPath(UITableView* tableView, const NSIndexPath&) {
    tableView->m_wasAnswered = false;
    return UITableViewAutomaticDimension;
}

Ref<UIView> UITableViewDelegate::tableView_viewForHeaderInSection(UITableView* tableView, NSInteger) {
    tableView->m_wasAnswered = false;
    return nullptr;
}

Ref<UIView> UITableViewDelegate::tableView_viewForFooterInSection(UITableView* tableView, NSInteger) {
    tableView->m_wasAnswered = false;
    return nullptr;
}

} // namespace zr
