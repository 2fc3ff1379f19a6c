#pragma once

#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>
#include <ZRPlatform/UIKit/Lists/UITableView.h>

#pragma GCC visibility push(default)
namespace zr {

/// A screen that is a list: below the kit's bar it is filled by a table, whose data source and delegate it is. A
/// subclass says what the rows are; left alone there are none, and each would be 50 points high.
///
/// The table is there from the initialiser on and comes into the view as that loads, from the bar's bottom edge down to
/// the view's, less the height of a tab bar (on systems whose version sorts from "7.0" on as text). Later it only grows
/// and shrinks with the view. Main thread only.
class ZRTTableViewController : public ZRTViewController, public UITableViewDataSource, public UITableViewDelegate {
public:
    /// With a table of the style, plain unless it was set.
    bool init() override;
    bool initWithNibName_bundle(const NSString& nibName, NSBundle* bundle) override;
    /// With a table of this style.
    virtual bool initWithStyle(UITableViewStyle style);

    /// @name Table
    /// @{
    /// A `ZRTableView`, kept. Setting another one, or nil, before the view loads puts that one in its place; later the
    /// old one stays in the view.
    UITableView* tableView() const { return m_tableView; }
    virtual void setTableView(UITableView* table) { m_tableView = table; }
    /// The style of the table that the initialiser makes; setting it later changes nothing.
    UITableViewStyle style() const { return m_style; }
    virtual void setStyle(UITableViewStyle style) { m_style = style; }
    /// Makes the table, clear and without an indicator, unless there is one.
    virtual void createTableViewIfNeed();
    /// @}

    /// Places the table below the bar. No insets are added to it.
    void viewDidLoad() override;

    /// @name Rows
    /// @{
    /// 50 points for every row.
    CGFloat tableView_heightForRowAtIndexPath(UITableView* table, const NSIndexPath& indexPath) override;
    /// None: 0. To be overridden.
    NSInteger tableView_numberOfRowsInSection(UITableView* table, NSInteger section) override;
    /// Nil. To be overridden along with the number of rows.
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& indexPath) override;
    /// @}

protected:
    const KeyTable& keyTable() const override;

private:
    Ref<UITableView> m_tableView;
    UITableViewStyle m_style = UITableViewStylePlain;
};

} // namespace zr
#pragma GCC visibility pop
