#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>

#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowButton.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

namespace zr {

namespace {

/// The data source, if it knows about swipes; kept while it is asked.
struct SwipeSource {
    explicit SwipeSource(const UITableView* table) :
        kept(dynamic_cast<NSObject*>(table->dataSource())),
        source(dynamic_cast<ZRTableViewDataSource*>(table->dataSource())) {}

    Ref<NSObject> kept;
    ZRTableViewDataSource* source;
};

} // namespace

const KeyTable& ZRTableView::keyTable() const {
    static const KeyTable table(UITableView::keyTable(),
                                {key<&ZRTableView::zrIsSwipped, &ZRTableView::setZrIsSwipped>("zrIsSwipped")});
    return table;
}

// Cells

void ZRTableView::tableViewCellSwiped(UITableViewCell* cell) {
    m_zrEditingCell = cell;
    setScrollEnabled(false);
}

std::vector<Ref<ZRTableViewRowAction>> ZRTableView::tableViewSwippedActions(UITableViewCell* cell) {
    const SwipeSource asked(this);
    if (!asked.source)
        return {};
    return asked.source->tableView_zrEditActionsForRowAtIndexPath(this, indexPathForCell(cell));
}

bool ZRTableView::zrCanEditRowAtIndexPath(UITableViewCell* cell) {
    const SwipeSource asked(this);
    return asked.source && asked.source->tableView_zrCanEditRowAtIndexPath(this, indexPathForCell(cell));
}

void ZRTableView::tableViewCellSwipedButtonClicked_button(UITableViewCell* cell, ZRTableViewRowButton* button) {
    const NSIndexPath path = indexPathForCell(cell);
    const Ref<ZRTableViewRowAction> action = button ? button->action() : nullptr;
    const ZRTableViewRowActionBlock block = action ? action->actionBlock() : nullptr;
    if (!block)
        return;
    const Ref<ZRTableView> keep = this; // the block may drop the table, and set itself to nil
    block(action, path);
    m_zrEditingCell = nullptr;
    setScrollEnabled(true);
}

/// A cell that closes without a touch, so that the next one does not go into closing it.
void ZRTableView::forgetSwipedCell(const UITableViewCell* cell) {
    if (m_zrEditingCell.get() == cell)
        m_zrEditingCell = nullptr;
}

// Touches

void ZRTableView::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    const Ref<UITableViewCell> open = m_zrEditingCell.lock();
    if (!open) {
        UITableView::touchesBegan_withEvent(touches, event);
        return;
    }
    if (auto* cell = dynamic_cast<ZRTableViewCellSlip*>(open.get()))
        cell->removeCellSwipped();
    m_zrEditingCell = nullptr;
}

} // namespace zr
