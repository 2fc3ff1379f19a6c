// The cells, headers and footers of what is in sight.

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Lists/Internal/RowSelection.h>
#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViews.h>

#include <utility>

namespace zr {

namespace {

/// A table that is as tall as a mountain shows its first rows only.
constexpr CGFloat kTallestSight = 100'000;
constexpr const char* kTitleIdentifier = "UITableViewTitle";

} // namespace

// Where things are

CGRect UITableView::rectOf(const Extent& extent) const {
    return {{0, extent.top}, {bounds().size.width, extent.height}};
}

Extent UITableView::visibleExtent() const {
    const CGRect visible = bounds();
    return {visible.origin.y, std::min(visible.size.height, kTallestSight)};
}

Extent UITableView::edgeExtent(Edge edge, NSInteger section) const {
    const bool sticks = m_style == UITableViewStylePlain;
    const Extent visible = visibleExtent();
    if (edge == Edge::Header)
        return sticks ? m_geometry->stuckHeader(section, visible.top + contentInset().top)
                      : m_geometry->header(section);
    return sticks ? m_geometry->stuckFooter(section, visible.bottom() - contentInset().bottom)
                  : m_geometry->footer(section);
}

// Layout

void UITableView::layoutSubviews() {
    UIScrollView::layoutSubviews();
    // Between the beginning and the end of a change the data source may have made it or not.
    if (m_isShowing || m_updateDepth > 0)
        return;
    const Ref<UITableView> keep = loadIfNeeded();
    if (m_needsLoad)
        return; // there is another list meanwhile, which the next round of layout loads
    if (bounds().size.width != m_placedWidth) {
        updateContentSize();
        placeAnew();
    }
    m_isShowing = true;
    placeTableViews();
    const bool isDone = showRows() && showEdges(Edge::Header) && showEdges(Edge::Footer);
    m_isShowing = false;
    if (!isDone)
        setNeedsLayout();
    else if (m_countDoubt == CountDoubt::Reloaded)
        m_countDoubt = CountDoubt::None;
}

/// The views that are the table's own, not its rows'.
void UITableView::placeTableViews() {
    const CGRect visible = bounds();
    if (m_backgroundView)
        m_backgroundView->setFrame(visible);
    if (m_tableHeaderView)
        m_tableHeaderView->setFrame({{0, 0}, {visible.size.width, TableViews::heightOf(m_tableHeaderView)}});
    if (m_tableFooterView)
        m_tableFooterView->setFrame(
            {{0, m_geometry->all().bottom()}, {visible.size.width, TableViews::heightOf(m_tableFooterView)}});
}

/// After another width, or another beginning of the list.
void UITableView::placeAnew() {
    m_placedWidth = bounds().size.width;
    for (const auto& row : m_views->rows)
        row.cell->setFrame(rectOf(m_geometry->row(row.path)));
    placeEdges();
    setNeedsLayout();
}

void UITableView::placeEdges() {
    const auto place = [this](Edge edge, const TableViews::Edges& edges) {
        for (const auto& each : edges)
            if (each.view)
                each.view->setFrame(rectOf(edgeExtent(edge, each.section)));
    };
    place(Edge::Header, m_views->headers);
    place(Edge::Footer, m_views->footers);
}

// Rows

/// Retires the cells of rows that have left before it asks for new ones, so that those can be used for these. False
/// when the list has changed meanwhile, and the rest is for the next layout.
bool UITableView::showRows() {
    const std::vector<NSIndexPath> visible = m_geometry->rowsIn(visibleExtent());
    const unsigned generation = m_generation;
    TableViews::Rows leaving;
    std::erase_if(m_views->rows, [&](const TableViews::Row& row) {
        const bool stays = std::binary_search(visible.begin(), visible.end(), row.path);
        if (!stays)
            leaving.push_back(row);
        return !stays;
    });
    for (const auto& row : leaving)
        retireCell(row.cell, row.path);
    for (const NSIndexPath& path : visible) {
        if (m_generation != generation)
            return false;
        if (!m_views->cellAt(path) && !showWithoutAnimation([&] { return showRow(path); }))
            return false;
    }
    return true;
}

/// Whoever asks for layout in an animation does not mean what comes into sight: that is where it is from the beginning.
bool UITableView::showWithoutAnimation(const std::function<bool()>& show) {
    bool isDone = false;
    UIView::performWithoutAnimation([&] { isDone = show(); });
    return isDone;
}

bool UITableView::showRow(const NSIndexPath& path) {
    const unsigned generation = m_generation;
    if (!countStillHolds(path.section()))
        return false;
    const Ref<UITableViewCell> cell = askForCell(path);
    endDeparture(cell);
    if (m_generation != generation) {
        recycle(cell);
        return false;
    }
    m_views->cells.remove(cell);
    m_views->rows.insert(m_views->rowsFrom(path), {path, cell});
    cell->m_tableView = this;
    cell->setAlpha(1);
    cell->setFrame(rectOf(m_geometry->row(path)));
    dressCell(cell, path);
    insertSubview_atIndex(cell, indexOfCells());
    if (const auto asked = askedDelegate())
        asked->tableView_willDisplayCell_forRowAtIndexPath(this, cell, path);
    return m_generation == generation;
}

/// Never nil.
Ref<UITableViewCell> UITableView::askForCell(const NSIndexPath& path) {
    const auto source = askedSource();
    Ref<UITableViewCell> cell = source ? source->tableView_cellForRowAtIndexPath(this, path) : nullptr;
    if (cell && !m_views->rowOf(cell))
        return cell;
    NSLog("the data source of a table view gives %s for row %s; showing an empty one",
          cell ? "the cell of another row" : "no cell", path.description().UTF8String());
    return make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
}

/// What the table says about the look of a cell.
void UITableView::dressCell(UITableViewCell* cell, const NSIndexPath& path) {
    cell->setSelected_animated(m_selection->contains(path), false);
    cell->setHighlighted_animated(false, false); // a row on its way out may have left it so
    if (cell->isEditing() != m_editing)
        cell->setEditing_animated(m_editing, false);
    if (const auto asked = askedDelegate()) {
        m_wasAnswered = true;
        const NSInteger level = asked->tableView_indentationLevelForRowAtIndexPath(this, path);
        if (m_wasAnswered)
            cell->setIndentationLevel(level);
    }
    renewSeparators(cell);
}

void UITableView::renewSeparators(UITableViewCell* cell) {
    const TableViews::Row* row = m_views->rowOf(cell);
    if (!row)
        return;
    UITableViewCell::Separator above, below;
    if (m_separatorStyle != UITableViewCellSeparatorStyleNone) {
        const bool isGrouped = m_style == UITableViewStyleGrouped;
        const bool isLast = row->path.row() + 1 == m_geometry->numberOfRows(row->path.section());
        below = {m_separatorColor, isGrouped && isLast ? UIEdgeInsetsZero : cell->separatorInset()};
        if (isGrouped && row->path.row() == 0)
            above.color = m_separatorColor;
    }
    cell->setSeparators(above, below);
}

void UITableView::renewAllSeparators() {
    for (const auto& row : m_views->rows)
        renewSeparators(row.cell);
}

void UITableView::takeOut(const Ref<UITableViewCell>& cell, const NSIndexPath& path) {
    if (cell->superview() == this)
        cell->removeFromSuperview();
    if (const auto asked = askedDelegate())
        asked->tableView_didEndDisplayingCell_forRowAtIndexPath(this, cell, path);
}

void UITableView::retireCell(const Ref<UITableViewCell>& cell, const NSIndexPath& path) {
    takeOut(cell, path);
    recycle(cell);
}

// Headers and footers

bool UITableView::showEdges(Edge edge) {
    TableViews::Edges& edges = edge == Edge::Header ? m_views->headers : m_views->footers;
    const Extent visible = visibleExtent();
    std::vector<NSInteger> sections = m_geometry->sectionsIn(visible);
    std::erase_if(sections, [&](NSInteger section) {
        const Extent extent = edgeExtent(edge, section);
        return extent.height <= 0 || extent.bottom() <= visible.top || extent.top >= visible.bottom();
    });
    const unsigned generation = m_generation;
    TableViews::Edges leaving;
    std::erase_if(edges, [&](const TableViews::Edge& each) {
        const bool stays = std::binary_search(sections.begin(), sections.end(), each.section);
        if (!stays)
            leaving.push_back(each);
        return !stays;
    });
    for (const auto& each : leaving)
        retireEdge(edge, each.view, each.section);
    if (!leaving.empty())
        m_views->forgetLost();
    for (const NSInteger section : sections) {
        if (m_generation != generation)
            return false;
        if (!TableViews::hasEdge(edges, section) && !showWithoutAnimation([&] { return showEdge(edge, section); }))
            return false;
    }
    placeEdges();
    return true;
}

bool UITableView::showEdge(Edge edge, NSInteger section) {
    TableViews::Edges& edges = edge == Edge::Header ? m_views->headers : m_views->footers;
    const unsigned generation = m_generation;
    const Ref<UIView> view = askForEdgeView(edge, section);
    endDeparture(view);
    takeFromItsSection(view);
    if (m_generation != generation) {
        recycle(view);
        return false;
    }
    if (!view)
        return true;
    if (const auto* waiting = dynamic_cast<const UITableViewHeaderFooterView*>(view.get()))
        m_views->headerFooterViews.remove(waiting);
    edges.insert(TableViews::edgesFrom(edges, section), {section, view});
    view->setAlpha(1);
    view->setFrame(rectOf(edgeExtent(edge, section)));
    insertSubview_atIndex(view, indexAboveCells());
    if (const auto asked = askedDelegate()) {
        if (edge == Edge::Header)
            asked->tableView_willDisplayHeaderView_forSection(this, view, section);
        else
            asked->tableView_willDisplayFooterView_forSection(this, view, section);
    }
    return m_generation == generation;
}

/// The delegate's view, else one with the data source's title; nil when there is neither.
Ref<UIView> UITableView::askForEdgeView(Edge edge, NSInteger section) {
    if (const auto asked = askedDelegate()) {
        const Ref<UIView> view = edge == Edge::Header ? asked->tableView_viewForHeaderInSection(this, section)
                                                      : asked->tableView_viewForFooterInSection(this, section);
        if (view)
            return view;
    }
    const NSString title = askForTitle(edge, section);
    if (title.length() == 0)
        return nullptr;
    auto view = m_views->headerFooterViews.take(kTitleIdentifier);
    if (!view)
        view =
            make<UITableViewHeaderFooterView>(&UITableViewHeaderFooterView::initWithReuseIdentifier, kTitleIdentifier);
    view->contentView()->setBackgroundColor(
        m_style == UITableViewStylePlain ? UIColor::colorWithWhite_alpha(247 / 255.0, 1) : Ref<UIColor>());
    view->textLabel()->setText(title);
    return view;
}

void UITableView::takeOut(Edge edge, const Ref<UIView>& view, NSInteger section) {
    if (view->superview() == this)
        view->removeFromSuperview();
    const auto asked = askedDelegate();
    if (asked && edge == Edge::Header)
        asked->tableView_didEndDisplayingHeaderView_forSection(this, view, section);
    else if (asked)
        asked->tableView_didEndDisplayingFooterView_forSection(this, view, section);
}

void UITableView::retireEdge(Edge edge, const Ref<UIView>& view, NSInteger section) {
    if (!view)
        return;
    takeOut(edge, view, section);
    recycle(view);
}

/// A delegate that gives one view for two sections: the view leaves the one that it was given for first.
void UITableView::takeFromItsSection(const Ref<UIView>& view) {
    for (const Edge edge : {Edge::Header, Edge::Footer}) {
        TableViews::Edges& edges = edge == Edge::Header ? m_views->headers : m_views->footers;
        const auto former =
            std::find_if(edges.begin(), edges.end(), [&](const auto& each) { return view && each.view == view; });
        if (former == edges.end())
            continue;
        NSLog("the delegate of a table view gives the view of section %td for another one too; showing it there only",
              former->section);
        former->view = nullptr;
        takeOut(edge, view, former->section);
        return;
    }
}

// All of them

/// Lists that keep views of their own may have given one that is on show; that does not wait to be used again.
void UITableView::recycle(const Ref<UIView>& view) {
    if (!view || view->superview())
        return;
    if (const auto cell = dynamicCast<UITableViewCell>(view))
        m_views->cells.put(cell);
    else if (const auto edgeView = dynamicCast<UITableViewHeaderFooterView>(view))
        m_views->headerFooterViews.put(edgeView);
}

void UITableView::retireAll() {
    retireDeparting(0);
    const auto rows = std::exchange(m_views->rows, {});
    const auto headers = std::exchange(m_views->headers, {});
    const auto footers = std::exchange(m_views->footers, {});
    for (const auto& row : rows)
        retireCell(row.cell, row.path);
    for (const auto& header : headers)
        retireEdge(Edge::Header, header.view, header.section);
    for (const auto& footer : footers)
        retireEdge(Edge::Footer, footer.view, footer.section);
}

void UITableView::retireDeparting(unsigned group) {
    std::vector<TableViews::Departing> leaving;
    std::erase_if(m_views->departing, [&](const TableViews::Departing& each) {
        const bool isMeant = group == 0 || each.group == group;
        if (isMeant)
            leaving.push_back(each);
        return isMeant;
    });
    for (const auto& each : leaving) {
        each.leave();
        recycle(each.view);
    }
}

/// A view that comes back while it is on its way out: lists that keep one for each row and section give the same again
/// when these are reloaded. It leaves first, as others do.
void UITableView::endDeparture(const UIView* view) {
    const auto found = std::find_if(m_views->departing.begin(), m_views->departing.end(),
                                    [view](const TableViews::Departing& each) { return each.view.get() == view; });
    if (found == m_views->departing.end())
        return;
    const auto leave = found->leave;
    m_views->departing.erase(found);
    leave();
}

/// Cells lie right above the background: below headers, indicators, and whatever else is in the table.
NSInteger UITableView::indexOfCells() const { return m_backgroundView ? 1 : 0; }

NSInteger UITableView::indexAboveCells() const {
    auto index = static_cast<std::size_t>(indexOfCells());
    while (index < subviews().size() && subviews()[index]->isKindOfClass<UITableViewCell>())
        ++index;
    return static_cast<NSInteger>(index);
}

/// A cell that somebody else takes out is missed, and made anew.
void UITableView::willRemoveSubview(UIView* view) {
    UIScrollView::willRemoveSubview(view);
    const auto isView = [view](const auto& each) { return each.view.get() == view; };
    const auto missed = std::erase_if(m_views->rows, [view](const auto& row) { return row.cell.get() == view; }) +
                        std::erase_if(m_views->headers, isView) + std::erase_if(m_views->footers, isView);
    if (missed == 0)
        return;
    m_views->forgetLost();
    setNeedsLayout();
}

} // namespace zr
