#include "ListScreen.h"

#include <ZRPlatform/UIKit/UIKit.h>

using namespace zr;

bool ListScreen::init() {
    if (!ZRTTableViewController::init())
        return false;
    setTitle("@NAME@");
    return true;
}

void ListScreen::viewDidLoad() {
    ZRTTableViewController::viewDidLoad();
    tNavigationBar()->hiddenBackButtonAnimated(false);                 // there is nothing to go back to
    tableView()->setSeparatorStyle(UITableViewCellSeparatorStyleNone); // the kit's cells bring their own lines
    m_allDone = make<UILabel>(&UILabel::initWithFrame, CGRectZero);
    m_allDone->setTextAlignment(NSTextAlignmentCenter);
    m_allDone->setTextColor(UIColor::grayColor());
    tableView()->setBackgroundView(m_allDone);
}

// Rows

NSInteger ListScreen::tableView_numberOfRowsInSection(UITableView*, NSInteger) {
    return static_cast<NSInteger>(m_tasks.size());
}

Ref<UITableViewCell> ListScreen::tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& indexPath) {
    auto cell = dynamicCast<ZRTableViewCell>(table->dequeueReusableCellWithIdentifier("task"));
    if (!cell)
        cell =
            make<ZRTableViewCell>(&ZRTableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, "task");
    cell->zrTextLabel()->setText(taskAt(indexPath));
    return cell;
}

void ListScreen::tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& indexPath) {
    table->deselectRowAtIndexPath_animated(indexPath, false);
    m_asked = indexPath;
    const auto alert =
        make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                           taskAt(indexPath), "Is it done?", this, "Not yet", "Done");
    alert->showWithAnimation(true);
}

// The alert's answer

void ListScreen::zrTAlertView_clickedButtonAtIndex(ZRBaseAlert*, NSInteger index) {
    if (index != 1)
        return;
    m_tasks.erase(m_tasks.begin() + m_asked.row());
    tableView()->deleteRowsAtIndexPaths_withRowAnimation({m_asked}, UITableViewRowAnimationFade);
    if (m_tasks.empty())
        m_allDone->setText("All done");
}
