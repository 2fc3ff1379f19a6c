#pragma once

#include <Gallery/Look/Screen.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>

namespace zr::gallery {

/// A screen of rows of the kit in sections with headings.
class RowScreen : public TableScreen {
public:
    void viewDidLoad() override;
    /// @name Headings, as `tableView_titleForHeaderInSection` gives them
    /// @{
    CGFloat tableView_heightForHeaderInSection(UITableView* table, NSInteger section) override;
    void tableView_willDisplayHeaderView_forSection(UITableView* table, UIView* view, NSInteger section) override;
    /// @}

protected:
    /// One that has left the screen, or a new one. Each kind of row has its own identifier: what a kind does not set
    /// is never what another kind has left behind.
    template <class Cell = ZRTableViewCell>
    Ref<Cell> reusedCell(const NSString& identifier, UITableViewCellStyle style = UITableViewCellStyleDefault) {
        auto cell = dynamicCast<Cell>(tableView()->dequeueReusableCellWithIdentifier(identifier));
        return cell ? cell : make<Cell>(&UITableViewCell::initWithStyle_reuseIdentifier, style, identifier);
    }
    /// Small print above or below all rows. Once the view has loaded.
    void setTextAboveRows(const NSString& text) { tableView()->setTableHeaderView(makeNote(text, 20, 0)); }
    void setTextBelowRows(const NSString& text) { tableView()->setTableFooterView(makeNote(text, 10, 32)); }
    /// Room below the last row.
    void setSpaceBelowRows();

private:
    Ref<UIView> makeNote(const NSString& text, CGFloat spaceAbove, CGFloat spaceBelow);
};

} // namespace zr::gallery
