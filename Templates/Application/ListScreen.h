#pragma once

#include <ZRKitDynamic/ZRKitDynamic.h>

#include <vector>

/// What is to be done. A tap on a row asks whether it is done, and takes it off the list.
class ListScreen : public zr::ZRTTableViewController, public zr::ZRTAlertViewDelegate {
public:
    bool init() override;
    void viewDidLoad() override;

    zr::NSInteger tableView_numberOfRowsInSection(zr::UITableView* table, zr::NSInteger section) override;
    zr::Ref<zr::UITableViewCell> tableView_cellForRowAtIndexPath(zr::UITableView* table,
                                                                 const zr::NSIndexPath& indexPath) override;
    void tableView_didSelectRowAtIndexPath(zr::UITableView* table, const zr::NSIndexPath& indexPath) override;

    void zrTAlertView_clickedButtonAtIndex(zr::ZRBaseAlert* alert, zr::NSInteger index) override;

private:
    const zr::NSString& taskAt(const zr::NSIndexPath& indexPath) const { return m_tasks.at(indexPath.row()); }

    std::vector<zr::NSString> m_tasks = {"Water the plants", "Call the dentist", "Return the books", "Buy bread"};
    zr::NSIndexPath m_asked;        // the row that the alert asks about
    zr::Ref<zr::UILabel> m_allDone; // behind the rows
};
