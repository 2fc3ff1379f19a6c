#pragma once

#include <Gallery/Look/RowScreen.h>

namespace zr::gallery {

/// The gallery's first screen: all pages by family, and the way to the settings.
class ListScreen : public RowScreen {
public:
    bool init() override;

    void viewDidLoad() override;

    /// @name Rows
    /// @{
    NSInteger numberOfSectionsInTableView(UITableView* table) override;
    NSString tableView_titleForHeaderInSection(UITableView* table, NSInteger section) override;
    NSInteger tableView_numberOfRowsInSection(UITableView* table, NSInteger section) override;
    CGFloat tableView_heightForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    void tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    /// @}

private:
    void openSettings();
};

} // namespace zr::gallery
