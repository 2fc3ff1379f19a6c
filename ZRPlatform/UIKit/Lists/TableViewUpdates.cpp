// Changes: what is inserted, deleted, moved and reloaded, and how it gets to its place.

#include <ZRPlatform/UIKit/Lists/Internal/RowChanges.h>
#include <ZRPlatform/UIKit/Lists/Internal/RowSelection.h>
#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViews.h>

#include <algorithm>
#include <utility>

namespace zr {

namespace {

constexpr NSTimeInterval kDuration = 0.3;

/// How something looks that is not there yet or no more.
struct Absence {
    CGRect frame;
    CGFloat alpha = 1;
};

Absence absenceOf(CGRect frame, UITableViewRowAnimation animation) {
    switch (animation) {
    case UITableViewRowAnimationRight:
        return {CGRectOffset(frame, frame.size.width, 0)};
    case UITableViewRowAnimationLeft:
        return {CGRectOffset(frame, -frame.size.width, 0)};
    case UITableViewRowAnimationTop:
        return {CGRectOffset(frame, 0, -frame.size.height)};
    case UITableViewRowAnimationBottom:
        return {CGRectOffset(frame, 0, frame.size.height)};
    case UITableViewRowAnimationMiddle:
        return {CGRectInset(frame, 0, frame.size.height / 2), 0};
    case UITableViewRowAnimationNone:
        return {frame};
    case UITableViewRowAnimationFade:
    case UITableViewRowAnimationAutomatic:
        break;
    }
    return {frame, 0};
}

void show(UIView* view, const Absence& look) {
    view->setFrame(look.frame);
    view->setAlpha(look.alpha);
}

} // namespace

/// One change that the data source has made already: from the cells as they are to those of the new list.
class UITableView::Update {
public:
    Update(UITableView& table, const RowChanges& changes, const SectionGeometry& before) :
        m_table(table), m_views(*table.m_views), m_changes(changes), m_before(before), m_group(++m_views.lastGroup) {}

    /// In an animation block, all places are animated.
    void run(bool animated);
    unsigned group() const { return m_group; }

private:
    struct Gone {
        TableViews::Row row;
        UITableViewRowAnimation animation;
    };

    void sortOutRows();
    void sortOutEdges(Edge edge);
    void moveRows();
    void bringRowsIn();
    void sendRowsOut();
    void fadeEdges(Edge edge, const TableViews::Edges& known);
    void letGo(const Ref<UITableViewCell>& cell, const NSIndexPath& path);
    Absence startOf(const NSIndexPath& path, CGRect frame) const;
    TableViews::Edges& edges(Edge edge) { return edge == Edge::Header ? m_views.headers : m_views.footers; }

    UITableView& m_table;
    TableViews& m_views;
    const RowChanges& m_changes;
    const SectionGeometry& m_before;
    unsigned m_group;
    bool m_animated = false;
    std::vector<Gone> m_gone;
};

/// Every step may run into a reload, after which there is nothing left to be done.
void UITableView::Update::run(bool animated) {
    m_animated = animated;
    const unsigned generation = m_table.m_generation;
    const auto isOn = [&] { return m_table.m_generation == generation; };
    sortOutRows();
    sortOutEdges(Edge::Header);
    sortOutEdges(Edge::Footer);
    const TableViews::Edges headers = m_views.headers, footers = m_views.footers;
    m_table.updateContentSize();
    if (!isOn())
        return;
    m_table.placeTableViews();
    moveRows();
    bringRowsIn();
    if (!isOn())
        return;
    sendRowsOut();
    if (!m_table.showEdges(Edge::Header) || !m_table.showEdges(Edge::Footer))
        return;
    fadeEdges(Edge::Header, headers);
    fadeEdges(Edge::Footer, footers);
}

/// Rows that stay keep their cells.
void UITableView::Update::sortOutRows() {
    const TableViews::Rows rows = std::exchange(m_views.rows, {});
    for (const auto& row : rows) {
        const NSIndexPath now = m_changes.newPath(row.path);
        if (now.isNil() || m_changes.isReloaded(row.path)) {
            m_gone.push_back({row, m_changes.deletionAnimation(row.path)});
            letGo(row.cell, row.path);
        } else {
            m_views.rows.push_back({now, row.cell});
        }
    }
    std::sort(m_views.rows.begin(), m_views.rows.end(),
              [](const TableViews::Row& a, const TableViews::Row& b) { return a.path < b.path; });
}

void UITableView::Update::sortOutEdges(Edge edge) {
    const TableViews::Edges all = std::exchange(edges(edge), {});
    bool isAnyDeparting = false;
    for (const auto& each : all) {
        const auto now = m_changes.newSection(each.section);
        if (now && !m_changes.isReloaded(each.section)) {
            edges(edge).push_back({*now, each.view});
            continue;
        }
        if (!each.view)
            continue;
        isAnyDeparting = true;
        m_views.departing.push_back({each.view, m_group, [table = &m_table, edge, each] {
                                         each.view->setAlpha(1);
                                         table->takeOut(edge, each.view, each.section);
                                     }});
        each.view->setAlpha(0);
    }
    std::sort(edges(edge).begin(), edges(edge).end(),
              [](const TableViews::Edge& a, const TableViews::Edge& b) { return a.section < b.section; });
    if (isAnyDeparting)
        m_views.forgetLost();
}

/// The table knows the cell no more, and keeps it until its animation is over. The departing ones are the table's.
void UITableView::Update::letGo(const Ref<UITableViewCell>& cell, const NSIndexPath& path) {
    m_views.departing.push_back({cell, m_group, [table = &m_table, cell, path] {
                                     cell->setAlpha(1);
                                     table->takeOut(cell, path);
                                 }});
}

/// Those that leave the sight go to their places all the same.
void UITableView::Update::moveRows() {
    const std::vector<NSIndexPath> visible = m_table.m_geometry->rowsIn(m_table.visibleExtent());
    for (const auto& row : m_views.rows) {
        const CGSize size = row.cell->bounds().size;
        row.cell->setFrame(m_table.rectOf(m_table.m_geometry->row(row.path)));
        m_table.renewSeparators(row.cell);
        // What is in a cell that grows or shrinks goes along.
        if (m_animated && !(row.cell->bounds().size == size))
            row.cell->layoutIfNeeded();
    }
    std::erase_if(m_views.rows, [&](const TableViews::Row& row) {
        const bool leaves = !std::binary_search(visible.begin(), visible.end(), row.path);
        if (leaves)
            letGo(row.cell, row.path);
        return leaves;
    });
}

void UITableView::Update::bringRowsIn() {
    for (const NSIndexPath& path : m_table.m_geometry->rowsIn(m_table.visibleExtent())) {
        if (m_views.cellAt(path))
            continue;
        if (!m_table.showWithoutAnimation([&] { return m_table.showRow(path); }))
            return;
        UITableViewCell* cell = m_views.cellAt(path);
        if (!m_animated || !cell)
            continue;
        const CGRect frame = cell->frame();
        UIView::performWithoutAnimation([&] { show(cell, startOf(path, frame)); });
        show(cell, {frame});
    }
}

/// Where a row that comes into sight comes from: its place in the old list, though not from further than a screen away,
/// or out of nothing.
Absence UITableView::Update::startOf(const NSIndexPath& path, CGRect frame) const {
    const NSIndexPath old = m_changes.oldPath(path);
    if (old.isNil() || m_changes.isReloaded(old))
        return absenceOf(frame, m_changes.insertionAnimation(path));
    const Extent visible = m_table.visibleExtent();
    const Extent place = m_before.row(old);
    const CGFloat highest = visible.top - visible.height - place.height;
    return {m_table.rectOf({std::clamp(place.top, highest, visible.bottom() + visible.height), place.height})};
}

/// Below the others, which close up over them.
void UITableView::Update::sendRowsOut() {
    for (const auto& [row, animation] : m_gone) {
        if (row.cell->superview() != &m_table || m_views.rowOf(row.cell))
            continue;
        m_table.insertSubview_atIndex(row.cell, m_table.indexOfCells());
        if (animation == UITableViewRowAnimationNone)
            row.cell->setAlpha(0);
        else
            show(row.cell, absenceOf(row.cell->frame(), animation));
    }
}

void UITableView::Update::fadeEdges(Edge edge, const TableViews::Edges& known) {
    if (!m_animated)
        return;
    for (const auto& each : edges(edge)) {
        const bool isKnown = std::any_of(known.begin(), known.end(),
                                         [&](const TableViews::Edge& other) { return other.view == each.view; });
        if (isKnown || !each.view)
            continue;
        UIView::performWithoutAnimation([&] { each.view->setAlpha(0); });
        each.view->setAlpha(1);
    }
}

// What the table is told

void UITableView::beginUpdates() { ++m_updateDepth; }

void UITableView::endUpdates() {
    if (m_updateDepth == 0 || --m_updateDepth > 0)
        return;
    RowChanges changes = std::exchange(*m_changes, RowChanges());
    setNeedsLayout();
    apply(changes);
}

/// A change outside of begin and end is one by itself. A table that has loaded nothing yet will find the change made.
template <class Note>
void UITableView::change(const Note& note) {
    beginUpdates();
    note(*m_changes);
    endUpdates();
}

UITableView::Counts UITableView::counts() const {
    Counts all;
    for (NSInteger section = 0; section < m_geometry->numberOfSections(); ++section)
        all.push_back(m_geometry->numberOfRows(section));
    return all;
}

/// The rows stay, and have other heights at once; in the middle of a change, with its end.
void UITableView::askForHeightsAgain() {
    if (m_updateDepth > 0)
        return;
    RowChanges none;
    UIView::performWithoutAnimation([&] { apply(none); });
}

void UITableView::apply(RowChanges& changes) {
    if (m_isLoading)
        setNeedsLoad(); // what is being asked for may be from before the change
    if (m_needsLoad)
        return;
    const Ref<UITableView> keep = this;
    const unsigned generation = m_generation;
    m_isLoading = true;
    const Counts after = askForCounts();
    const NSString problem = changes.settle(counts(), after);
    SectionGeometry geometry = problem.isNil() ? askForGeometry(after) : SectionGeometry();
    m_isLoading = false;
    const bool isToReload = std::exchange(m_needsReload, false);
    if (m_generation != generation)
        return;
    if (isToReload || !problem.isNil()) {
        reloadBecause(isToReload ? NSString() : problem);
        return;
    }
    if (m_selection->losesTouch(changes))
        unhighlight();
    if (m_generation != generation)
        return;
    m_countDoubt = CountDoubt::None;
    ++m_generation;
    const SectionGeometry before = std::exchange(*m_geometry, std::move(geometry));
    m_selection->follow(changes);

    const bool wasShowing = std::exchange(m_isShowing, true);
    Update update(*this, changes, before);
    if (window() && UIView::areAnimationsEnabled() && !changes.isAtOnce()) {
        UIView::animateWithDuration_animations_completion(
            kDuration, [&] { update.run(true); },
            [weakSelf = Weak<UITableView>(this), group = update.group()](bool) {
                if (const Ref<UITableView> self = weakSelf.lock())
                    self->retireDeparting(group);
            });
    } else {
        UIView::performWithoutAnimation([&] { update.run(false); });
        retireDeparting(update.group());
    }
    m_isShowing = wasShowing;
    setNeedsLayout();
}

void UITableView::insertRowsAtIndexPaths_withRowAnimation(const std::vector<NSIndexPath>& indexPaths,
                                                          UITableViewRowAnimation animation) {
    change([&](RowChanges& changes) {
        for (const NSIndexPath& path : indexPaths)
            changes.insertRow(path, animation);
    });
}

void UITableView::deleteRowsAtIndexPaths_withRowAnimation(const std::vector<NSIndexPath>& indexPaths,
                                                          UITableViewRowAnimation animation) {
    change([&](RowChanges& changes) {
        for (const NSIndexPath& path : indexPaths)
            changes.deleteRow(path, animation);
    });
}

void UITableView::reloadRowsAtIndexPaths_withRowAnimation(const std::vector<NSIndexPath>& indexPaths,
                                                          UITableViewRowAnimation animation) {
    change([&](RowChanges& changes) {
        for (const NSIndexPath& path : indexPaths)
            changes.reloadRow(path, animation);
    });
}

void UITableView::moveRowAtIndexPath_toIndexPath(const NSIndexPath& indexPath, const NSIndexPath& newIndexPath) {
    change([&](RowChanges& changes) { changes.moveRow(indexPath, newIndexPath); });
}

void UITableView::insertSections_withRowAnimation(const NSIndexSet& sections, UITableViewRowAnimation animation) {
    change([&](RowChanges& changes) {
        for (const NSInteger section : sections)
            changes.insertSection(section, animation);
    });
}

void UITableView::deleteSections_withRowAnimation(const NSIndexSet& sections, UITableViewRowAnimation animation) {
    change([&](RowChanges& changes) {
        for (const NSInteger section : sections)
            changes.deleteSection(section, animation);
    });
}

void UITableView::reloadSections_withRowAnimation(const NSIndexSet& sections, UITableViewRowAnimation animation) {
    change([&](RowChanges& changes) {
        for (const NSInteger section : sections)
            changes.reloadSection(section, animation);
    });
}

void UITableView::moveSection_toSection(NSInteger section, NSInteger newSection) {
    change([&](RowChanges& changes) { changes.moveSection(section, newSection); });
}

} // namespace zr
