// A finger on a row, and what it does to the selection.

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Lists/Internal/RowSelection.h>
#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViews.h>

namespace zr {

bool UITableView::maySelectSeveral() const {
    return m_editing ? m_allowsMultipleSelectionDuringEditing : m_allowsMultipleSelection;
}

bool UITableView::maySelect() const {
    return maySelectSeveral() || (m_editing ? m_allowsSelectionDuringEditing : m_allowsSelection);
}

// Touches, which cells pass on

void UITableView::touchesBegan_withEvent(const TouchSet& touches, UIEvent*) {
    const Ref<UITableView> keep = this;
    if (touches.empty() || m_selection->hasTouch() || !maySelect())
        return;
    UITouch* touch = touches.front();
    const UIView* view = touch->view();
    while (view && view->superview() != this)
        view = view->superview();
    const TableViews::Row* row = m_views->rowOf(view);
    if (!row)
        return;
    const NSIndexPath path = row->path;
    const Ref<UITableViewCell> cell = row->cell;
    const auto asked = askedDelegate();
    if (asked && !asked->tableView_shouldHighlightRowAtIndexPath(this, path))
        return;
    if (m_views->cellAt(path) != cell)
        return;
    m_selection->beginTouch(touch, path);
    cell->setHighlighted_animated(true, false);
    if (asked)
        asked->tableView_didHighlightRowAtIndexPath(this, path);
}

/// A finger that leaves its row selects nothing any more.
void UITableView::touchesMoved_withEvent(const TouchSet& touches, UIEvent*) {
    if (touches.empty() || !m_selection->follows(touches.front()))
        return;
    const UITableViewCell* cell = m_views->cellAt(m_selection->touchedRow());
    if (!cell || !CGRectContainsPoint(cell->bounds(), touches.front()->locationInView(cell)))
        unhighlight();
}

void UITableView::touchesEnded_withEvent(const TouchSet& touches, UIEvent*) {
    if (touches.empty() || !m_selection->follows(touches.front()))
        return;
    const Ref<UITableView> keep = this;
    const NSIndexPath path = m_selection->touchedRow();
    const unsigned generation = m_generation;
    unhighlight();
    if (m_generation == generation)
        tapRow(path);
}

void UITableView::touchesCancelled_withEvent(const TouchSet& touches, UIEvent*) {
    if (!touches.empty() && m_selection->follows(touches.front()))
        unhighlight();
}

void UITableView::unhighlight() {
    const Ref<UITableView> keep = this;
    const NSIndexPath path = m_selection->touchedRow();
    m_selection->endTouch();
    if (UITableViewCell* cell = m_views->cellAt(path))
        cell->setHighlighted_animated(false, false);
    if (const auto asked = askedDelegate())
        asked->tableView_didUnhighlightRowAtIndexPath(this, path);
}

// Selection by a tap

void UITableView::tapRow(const NSIndexPath& path) {
    if (!maySelect())
        return;
    if (maySelectSeveral() && m_selection->contains(path))
        tapToDeselect(path);
    else
        tapToSelect(path);
}

/// Whatever the delegate does meanwhile, nothing is selected that is not what was touched: where the list has changed,
/// the rest is left.
void UITableView::tapToSelect(const NSIndexPath& touched) {
    const auto asked = askedDelegate();
    const unsigned generation = m_generation;
    const NSIndexPath path = asked ? asked->tableView_willSelectRowAtIndexPath(this, touched) : touched;
    if (path.isNil() || m_generation != generation)
        return;
    if (!m_geometry->hasRow(path)) {
        NSLog("a delegate wants row %s selected, which is not in its table view", path.description().UTF8String());
        return;
    }
    if (!maySelectSeveral()) {
        const auto selected = m_selection->rows();
        for (const NSIndexPath& other : selected) {
            if (other != path && !tapToDeselect(other))
                return;
        }
    }
    setRowSelected(path, true, false);
    if (asked)
        asked->tableView_didSelectRowAtIndexPath(this, path);
}

/// False when the list has changed meanwhile.
bool UITableView::tapToDeselect(const NSIndexPath& selected) {
    const auto asked = askedDelegate();
    const unsigned generation = m_generation;
    const NSIndexPath path = asked ? asked->tableView_willDeselectRowAtIndexPath(this, selected) : selected;
    if (m_generation != generation)
        return false;
    if (path.isNil() || !m_selection->contains(path))
        return true;
    setRowSelected(path, false, false);
    if (asked)
        asked->tableView_didDeselectRowAtIndexPath(this, path);
    return m_generation == generation;
}

void UITableView::setRowSelected(const NSIndexPath& path, bool selected, bool animated) {
    if (selected)
        m_selection->insert(path);
    else
        m_selection->erase(path);
    if (const Ref<UITableViewCell> cell = m_views->cellAt(path))
        cell->setSelected_animated(selected, animated);
}

void UITableView::detailButtonTapped(UITableViewCell* cell) {
    const Ref<UITableView> keep = this;
    const NSIndexPath path = indexPathForCell(cell);
    if (const auto asked = askedDelegate(); asked && !path.isNil())
        asked->tableView_accessoryButtonTappedForRowWithIndexPath(this, path);
}

// Selection by code

NSIndexPath UITableView::indexPathForSelectedRow() const {
    return m_selection->rows().empty() ? NSIndexPath() : *m_selection->rows().begin();
}

std::vector<NSIndexPath> UITableView::indexPathsForSelectedRows() const {
    return {m_selection->rows().begin(), m_selection->rows().end()};
}

void UITableView::selectRowAtIndexPath_animated_scrollPosition(const NSIndexPath& indexPath, bool animated,
                                                               UITableViewScrollPosition position) {
    const Ref<UITableView> keep = loadIfNeeded();
    if (!indexPath.isNil() && !m_geometry->hasRow(indexPath))
        return;
    const bool replaces = indexPath.isNil() || !maySelectSeveral();
    const auto selected = m_selection->rows();
    for (const NSIndexPath& other : selected) {
        if (replaces && other != indexPath)
            setRowSelected(other, false, animated);
    }
    if (indexPath.isNil())
        return;
    setRowSelected(indexPath, true, animated);
    if (position != UITableViewScrollPositionNone)
        scrollToRowAtIndexPath_atScrollPosition_animated(indexPath, position, animated);
}

void UITableView::deselectRowAtIndexPath_animated(const NSIndexPath& indexPath, bool animated) {
    if (m_selection->contains(indexPath))
        setRowSelected(indexPath, false, animated);
}

} // namespace zr
