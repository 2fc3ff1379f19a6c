// What the data source and the delegate say about counts and heights.

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Lists/Internal/RowSelection.h>
#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViews.h>

#include <cmath>

namespace zr {

namespace {

constexpr NSInteger kMostSections = 1'000'000;
constexpr NSInteger kMostRows = 100'000'000;

/// A data source that asks for another load in each one is believed the last time.
constexpr int kMostLoadsInARow = 3;

/// What a grouped section's header or footer has on top of its plain height.
constexpr CGFloat kGroupedTitle = 20;
constexpr CGFloat kAboveFirstGroup = 17;

} // namespace

UITableView::Asked<UITableViewDataSource> UITableView::askedSource() const {
    return {m_dataSource.object(), m_dataSource};
}

UITableView::Asked<UITableViewDelegate> UITableView::askedDelegate() const {
    return {m_scrollDelegate.object(), delegate()};
}

void UITableView::setNeedsLoad() {
    m_needsLoad = true;
    setNeedsLayout();
}

Ref<UITableView> UITableView::loadIfNeeded() {
    const Ref<UITableView> self = this;
    if (m_needsLoad && !m_isLoading)
        load();
    return self;
}

void UITableView::reloadData() {
    if (m_isLoading || m_isCounting)
        m_needsReload = true; // what has been answered may be from before
    else
        load();
}

void UITableView::load() {
    const Ref<UITableView> keep = this;
    SectionGeometry geometry;
    m_isLoading = true;
    m_needsReload = true;
    for (int i = 0; m_needsReload && i < kMostLoadsInARow; ++i) {
        m_needsLoad = m_needsReload = false; // unless whoever is asked gives the table another list
        geometry = askForGeometry(askForCounts());
    }
    m_isLoading = m_needsReload = false;
    m_countDoubt = CountDoubt::None;
    ++m_generation;
    *m_geometry = std::move(geometry);
    *m_changes = RowChanges();
    m_selection->clear();
    retireAll();
    updateContentSize();
    setNeedsLayout();
}

UITableView::Counts UITableView::askForCounts() {
    m_isCut = false;
    const auto source = askedSource();
    if (!source)
        return {};
    const NSInteger sections = std::max<NSInteger>(source->numberOfSectionsInTableView(this), 0);
    Counts counts;
    NSInteger rowsLeft = kMostRows;
    for (NSInteger section = 0; section < std::min(sections, kMostSections); ++section) {
        const NSInteger rows = std::max<NSInteger>(source->tableView_numberOfRowsInSection(this, section), 0);
        counts.push_back(std::min(rows, rowsLeft));
        m_isCut = m_isCut || rows > rowsLeft;
        rowsLeft -= counts.back();
    }
    m_isCut = m_isCut || sections > kMostSections;
    if (m_isCut)
        NSLog("a table view ends after %td sections and %td rows; its data source has more", kMostSections, kMostRows);
    return counts;
}

/// Whether the delegate overrides what `question` asks for.
template <class Question>
bool UITableView::isAnswered(const Question& question) {
    m_wasAnswered = true;
    question();
    return m_wasAnswered;
}

SectionGeometry UITableView::askForGeometry(const Counts& counts) {
    SectionGeometry geometry(TableViews::heightOf(m_tableHeaderView));
    const auto asked = askedDelegate();
    m_givesHeaderViews.reset();
    m_givesFooterViews.reset();
    m_badHeights = 0;
    const auto heightOfRow = [&](NSInteger row, NSInteger section) {
        const NSIndexPath path = NSIndexPath::indexPathForRow_inSection(row, section);
        return usableHeight(asked->tableView_heightForRowAtIndexPath(this, path), m_rowHeight);
    };
    const auto firstWithRows = std::find_if(counts.begin(), counts.end(), [](NSInteger count) { return count > 0; });
    const bool givesRowHeights =
        asked && firstWithRows != counts.end() && isAnswered([&] { heightOfRow(0, firstWithRows - counts.begin()); });

    bool hasMemory = true;
    for (NSInteger section = 0; section < static_cast<NSInteger>(counts.size()); ++section) {
        const NSInteger count = hasMemory ? counts[static_cast<std::size_t>(section)] : 0;
        SectionHeights heights;
        heights.header = askForEdgeHeight(Edge::Header, section);
        heights.footer = askForEdgeHeight(Edge::Footer, section);
        heights.rows = givesRowHeights ? RowHeights(count, [&](NSInteger row) { return heightOfRow(row, section); })
                                       : RowHeights(count, m_rowHeight);
        hasMemory = hasMemory && heights.rows.count() == count;
        geometry.append(std::move(heights));
    }
    if (!hasMemory) {
        m_isCut = true;
        NSLog("a table view ends where there is no memory for the heights of more rows");
    }
    return geometry;
}

CGFloat UITableView::usableHeight(CGFloat height, CGFloat otherwise) {
    if (!std::isfinite(height) || height < 0) {
        if (height != UITableViewAutomaticDimension && m_badHeights++ == 0)
            NSLog("a table view was given %f as a height; it takes %f, and so for all that are none",
                  static_cast<double>(height), static_cast<double>(otherwise));
        return boundedRowHeight(otherwise);
    }
    return boundedRowHeight(height);
}

CGFloat UITableView::askForEdgeHeight(Edge edge, NSInteger section) {
    CGFloat height = UITableViewAutomaticDimension;
    if (const auto asked = askedDelegate())
        height = edge == Edge::Header ? asked->tableView_heightForHeaderInSection(this, section)
                                      : asked->tableView_heightForFooterInSection(this, section);
    if (height >= 0 && std::isfinite(height))
        return usableHeight(height, 0);
    return usableHeight(height, automaticEdgeHeight(edge, section));
}

CGFloat UITableView::automaticEdgeHeight(Edge edge, NSInteger section) {
    const CGFloat plain = edge == Edge::Header ? m_sectionHeaderHeight : m_sectionFooterHeight;
    const bool hasTitle = askForTitle(edge, section).length() > 0;
    if (m_style == UITableViewStyleGrouped)
        return plain + (hasTitle ? kGroupedTitle : 0) + (edge == Edge::Header && section == 0 ? kAboveFirstGroup : 0);
    return hasTitle || givesViews(edge, section) ? plain : 0;
}

/// A section may have a view that nobody has asked for yet. Whether the delegate gives any is found out with the first
/// section that matters; the view is kept for later.
bool UITableView::givesViews(Edge edge, NSInteger section) {
    std::optional<bool>& gives = edge == Edge::Header ? m_givesHeaderViews : m_givesFooterViews;
    if (!gives)
        gives = delegate() && isAnswered([&] { recycle(askForEdgeView(edge, section)); });
    return *gives;
}

NSString UITableView::askForTitle(Edge edge, NSInteger section) {
    const auto source = askedSource();
    if (!source)
        return nullptr;
    return edge == Edge::Header ? source->tableView_titleForHeaderInSection(this, section)
                                : source->tableView_titleForFooterInSection(this, section);
}

void UITableView::updateContentSize() {
    setContentSize({bounds().size.width, m_geometry->all().bottom() + TableViews::heightOf(m_tableFooterView)});
}

/// False when the list is loaded anew.
bool UITableView::countStillHolds(NSInteger section) {
    if (m_isCut)
        return true;
    const auto source = askedSource();
    const unsigned generation = m_generation;
    NSString problem;
    m_isCounting = true;
    const NSInteger sections = source ? source->numberOfSectionsInTableView(this) : 0;
    if (m_generation == generation && sections != m_geometry->numberOfSections()) {
        problem = NSString::stringWithFormat("there were %td sections and now there are %td",
                                             m_geometry->numberOfSections(), sections);
    } else if (m_generation == generation) {
        const NSInteger rows = source->tableView_numberOfRowsInSection(this, section);
        if (m_generation == generation && rows != m_geometry->numberOfRows(section))
            problem = NSString::stringWithFormat("section %td had %td rows and now has %td", section,
                                                 m_geometry->numberOfRows(section), rows);
    }
    m_isCounting = false;
    const bool isToReload = std::exchange(m_needsReload, false);
    return m_generation == generation && ((!isToReload && problem.isNil()) || isToBeShownInSpiteOf(problem));
}

/// A list that has changed is loaded anew; one that has changed again before it was ever shown would be so without end.
/// The problem is nil for one whose data source has asked for that.
bool UITableView::isToBeShownInSpiteOf(const NSString& problem) {
    if (m_countDoubt != CountDoubt::None) {
        m_countDoubt = CountDoubt::Unsteady;
        return true;
    }
    reloadBecause(problem);
    m_countDoubt = CountDoubt::Reloaded;
    return false;
}

void UITableView::reloadBecause(const NSString& problem) {
    if (!problem.isNil())
        NSLog("a table view's list is not what it was told: %s; loading it anew", problem.UTF8String());
    reloadData();
}

} // namespace zr
