#pragma once

#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewDataSource.h>
#include <ZRPlatform/UIKit/Lists/UITableView.h>

#pragma GCC visibility push(default)
namespace zr {

class ZRTableViewRowButton;

/// A table view whose rows can be swiped open to reveal buttons, if its cells are `ZRTableViewCellSlip` and its data
/// source is a `ZRTableViewDataSource` too.
///
/// At most one row is open, unless the application frees the table meanwhile: by `setZrIsSwipped(false)`, or by a reset
/// of another row. While one is open, the table does not scroll, and the next touch in it closes the row and is none of
/// the table's: it selects nothing. (The cell under the finger still runs its own blocks.) Main thread only.
class ZRTableView : public UITableView {
public:
    /// Whether a row is open, opening, or closing after a touch elsewhere: no other one can be swiped meanwhile. The
    /// cells set it; false at first.
    bool zrIsSwipped() const { return m_zrIsSwipped; }
    virtual void setZrIsSwipped(bool swiped) { m_zrIsSwipped = swiped; }

    /// @name For the cells
    /// @{
    /// The cell has opened; held weakly. One that was open before is forgotten, not closed.
    virtual void tableViewCellSwiped(UITableViewCell* cell);
    /// The data source's actions for the cell's row.
    virtual std::vector<Ref<ZRTableViewRowAction>> tableViewSwippedActions(UITableViewCell* cell);
    /// Whether the cell's row can be swiped open: the data source's answer.
    virtual bool zrCanEditRowAtIndexPath(UITableViewCell* cell);
    /// Runs the block of the button's action, then forgets the open cell and scrolls again; the cell stays as it is.
    /// Nothing happens when there is no block. The block may do anything, delete the row or let go of the table
    /// included.
    virtual void tableViewCellSwipedButtonClicked_button(UITableViewCell* cell, ZRTableViewRowButton* button);
    /// @}

    /// Closes the row that is open; the touch counts only when none is.
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;

private:
    friend class ZRTableViewCellSlip;

    void forgetSwipedCell(const UITableViewCell* cell);

    /// Its buttons are showing.
    Weak<UITableViewCell> m_zrEditingCell;
    /// The row that opened last; nil once the table is free. Unlike the other one it stays when a button was tapped.
    Weak<UITableViewCell> m_lockingCell;
    bool m_zrIsSwipped = false;
};

} // namespace zr
#pragma GCC visibility pop
