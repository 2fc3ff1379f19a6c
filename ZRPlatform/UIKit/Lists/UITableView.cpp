#include <ZRPlatform/UIKit/Lists/UITableView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Lists/Internal/RowSelection.h>
#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViews.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kGroupedEdgeHeight = 18;
constexpr CGFloat kSeparatorIndent = 15;

UIColor* lightGray() {
    static UIColor* const color =
        UIColor::colorWithRed_green_blue_alpha(200 / 255.0, 199 / 255.0, 204 / 255.0, 1).leak();
    return color;
}

} // namespace

UITableView::UITableView() :
    m_geometry(std::make_unique<SectionGeometry>()), m_views(std::make_unique<TableViews>()),
    m_selection(std::make_unique<RowSelection>()), m_changes(std::make_unique<RowChanges>()) {}

UITableView::~UITableView() {
    // What is left of a change must not find the table when its views go.
    m_views->departing.clear();
}

bool UITableView::initWithFrame_style(CGRect frame, UITableViewStyle style) {
    if (!UIScrollView::initWithFrame(frame))
        return false;
    m_style = style;
    const bool isGrouped = style == UITableViewStyleGrouped;
    setBackgroundColor(isGrouped ? UIColor::colorWithRed_green_blue_alpha(239 / 255.0, 239 / 255.0, 244 / 255.0, 1)
                                 : Ref<UIColor>(UIColor::whiteColor()));
    if (isGrouped)
        m_sectionHeaderHeight = m_sectionFooterHeight = kGroupedEdgeHeight;
    m_separatorColor = lightGray();
    m_separatorInset.left = kSeparatorIndent;
    setAlwaysBounceVertical(true);
    return true;
}

bool UITableView::initWithFrame(CGRect frame) { return initWithFrame_style(frame, UITableViewStylePlain); }

const KeyTable& UITableView::keyTable() const {
    static const KeyTable table(
        UIScrollView::keyTable(),
        {key<&UITableView::rowHeight, &UITableView::setRowHeight>("rowHeight"),
         key<&UITableView::sectionHeaderHeight, &UITableView::setSectionHeaderHeight>("sectionHeaderHeight"),
         key<&UITableView::sectionFooterHeight, &UITableView::setSectionFooterHeight>("sectionFooterHeight"),
         key<&UITableView::tableHeaderView, &UITableView::setTableHeaderView>("tableHeaderView"),
         key<&UITableView::tableFooterView, &UITableView::setTableFooterView>("tableFooterView"),
         key<&UITableView::backgroundView, &UITableView::setBackgroundView>("backgroundView"),
         key<&UITableView::separatorStyle, &UITableView::setSeparatorStyle>("separatorStyle"),
         key<&UITableView::separatorColor, &UITableView::setSeparatorColor>("separatorColor"),
         key<&UITableView::allowsSelection, &UITableView::setAllowsSelection>("allowsSelection"),
         key<&UITableView::allowsMultipleSelection, &UITableView::setAllowsMultipleSelection>(
             "allowsMultipleSelection"),
         key<&UITableView::isEditing, &UITableView::setEditing>("editing")});
    return table;
}

void UITableView::setDataSource(const Delegate<UITableViewDataSource>& dataSource) {
    const bool isAnother = !dataSource || dataSource.get() != m_dataSource.get();
    m_dataSource = dataSource;
    if (isAnother)
        setNeedsLoad();
}

UITableViewDelegate* UITableView::delegate() const { return m_scrollDelegate ? m_tableDelegate : nullptr; }

void UITableView::setDelegate(const Delegate<UIScrollViewDelegate>& delegate) {
    const bool isAnother = !delegate || delegate.get() != m_scrollDelegate.get();
    UIScrollView::setDelegate(delegate);
    m_scrollDelegate = delegate;
    m_tableDelegate = dynamic_cast<UITableViewDelegate*>(delegate.get());
    if (isAnother)
        setNeedsLoad();
}

// Content

NSInteger UITableView::numberOfSections() {
    const Ref<UITableView> keep = loadIfNeeded();
    return m_geometry->numberOfSections();
}

NSInteger UITableView::numberOfRowsInSection(NSInteger section) {
    const Ref<UITableView> keep = loadIfNeeded();
    return m_geometry->hasSection(section) ? m_geometry->numberOfRows(section) : 0;
}

void UITableView::setTableView(Ref<UIView>& field, UIView* view) {
    const Ref<UITableView> keep = this;
    if (field && field.get() != view && field->superview() == this)
        field->removeFromSuperview();
    field = view;
    if (view && view->superview() != this)
        insertSubview_atIndex(view, view == m_backgroundView.get() ? 0 : indexAboveCells());
    m_geometry->moveTo(TableViews::heightOf(m_tableHeaderView));
    updateContentSize();
    placeTableViews();
    placeAnew();
}

void UITableView::setTableHeaderView(UIView* view) { setTableView(m_tableHeaderView, view); }
void UITableView::setTableFooterView(UIView* view) { setTableView(m_tableFooterView, view); }
void UITableView::setBackgroundView(UIView* view) { setTableView(m_backgroundView, view); }

/// Headers stick below it.
void UITableView::setContentInset(UIEdgeInsets inset) {
    const Ref<UITableView> keep = this;
    UIScrollView::setContentInset(inset);
    setNeedsLayout();
}

// Heights

void UITableView::setHeight(CGFloat& field, CGFloat height) {
    if (!std::isfinite(height) || height < 0 || boundedRowHeight(height) == field)
        return;
    field = boundedRowHeight(height);
    askForHeightsAgain();
}

void UITableView::setRowHeight(CGFloat height) { setHeight(m_rowHeight, height); }
void UITableView::setSectionHeaderHeight(CGFloat height) { setHeight(m_sectionHeaderHeight, height); }
void UITableView::setSectionFooterHeight(CGFloat height) { setHeight(m_sectionFooterHeight, height); }

// Cells

void UITableView::registerCellMaker(const NSString& identifier, CellMaker maker) {
    m_views->cells.registerMaker(identifier, std::move(maker));
}

void UITableView::registerHeaderFooterMaker(const NSString& identifier, HeaderFooterMaker maker) {
    m_views->headerFooterViews.registerMaker(identifier, std::move(maker));
}

Ref<UITableViewCell> UITableView::dequeueReusableCellWithIdentifier(const NSString& identifier) {
    return m_views->cells.take(identifier);
}

Ref<UITableViewCell> UITableView::dequeueReusableCellWithIdentifier_forIndexPath(const NSString& identifier,
                                                                                 const NSIndexPath& indexPath) {
    const Ref<UITableView> keep = this;
    Ref<UITableViewCell> cell = m_views->cells.take(identifier);
    if (!cell) {
        NSLog("no class of cells is registered for \"%s\"", identifier.UTF8String());
        cell = make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault,
                                     identifier);
    }
    if (m_geometry->hasRow(indexPath))
        cell->setFrame(rectOf(m_geometry->row(indexPath)));
    return cell;
}

Ref<UITableViewHeaderFooterView>
UITableView::dequeueReusableHeaderFooterViewWithIdentifier(const NSString& identifier) {
    return m_views->headerFooterViews.take(identifier);
}

// What is where

CGRect UITableView::rectForSection(NSInteger section) {
    const Ref<UITableView> keep = loadIfNeeded();
    return m_geometry->hasSection(section) ? rectOf(m_geometry->section(section)) : CGRectZero;
}

CGRect UITableView::rectForHeaderInSection(NSInteger section) {
    const Ref<UITableView> keep = loadIfNeeded();
    return m_geometry->hasSection(section) ? rectOf(m_geometry->header(section)) : CGRectZero;
}

CGRect UITableView::rectForFooterInSection(NSInteger section) {
    const Ref<UITableView> keep = loadIfNeeded();
    return m_geometry->hasSection(section) ? rectOf(m_geometry->footer(section)) : CGRectZero;
}

CGRect UITableView::rectForRowAtIndexPath(const NSIndexPath& indexPath) {
    const Ref<UITableView> keep = loadIfNeeded();
    return m_geometry->hasRow(indexPath) ? rectOf(m_geometry->row(indexPath)) : CGRectZero;
}

NSIndexPath UITableView::indexPathForRowAtPoint(CGPoint point) {
    const Ref<UITableView> keep = loadIfNeeded();
    const bool isBeside = !(point.x >= 0 && point.x < bounds().size.width);
    return isBeside ? NSIndexPath() : m_geometry->rowAt(point.y);
}

std::vector<NSIndexPath> UITableView::indexPathsForRowsInRect(CGRect rect) {
    const Ref<UITableView> keep = loadIfNeeded();
    if (!CGRectIsFinite(rect) || CGRectGetMaxX(rect) <= 0 || CGRectGetMinX(rect) >= bounds().size.width)
        return {};
    return m_geometry->rowsIn({CGRectGetMinY(rect), CGRectGetHeight(rect)});
}

NSIndexPath UITableView::indexPathForCell(const UITableViewCell* cell) const {
    const TableViews::Row* row = m_views->rowOf(cell);
    return row ? row->path : NSIndexPath();
}

UITableViewCell* UITableView::cellForRowAtIndexPath(const NSIndexPath& indexPath) const {
    return m_views->cellAt(indexPath);
}

std::vector<Ref<UITableViewCell>> UITableView::visibleCells() const {
    std::vector<Ref<UITableViewCell>> cells;
    for (const auto& row : m_views->rows)
        cells.push_back(row.cell);
    return cells;
}

std::vector<NSIndexPath> UITableView::indexPathsForVisibleRows() const {
    std::vector<NSIndexPath> paths;
    for (const auto& row : m_views->rows)
        paths.push_back(row.path);
    return paths;
}

UIView* UITableView::headerViewForSection(NSInteger section) const {
    return TableViews::edgeAt(m_views->headers, section);
}

UIView* UITableView::footerViewForSection(NSInteger section) const {
    return TableViews::edgeAt(m_views->footers, section);
}

/// The vertical offset at which the extent is at the position; for position none, the nearest at which it is seen
/// whole.
CGFloat UITableView::offsetShowing(const Extent& extent, CGFloat headerHeight,
                                   UITableViewScrollPosition position) const {
    const UIEdgeInsets inset = contentInset();
    const CGFloat height = bounds().size.height;
    const CGFloat atTop = extent.top - inset.top - headerHeight;
    const CGFloat atBottom = extent.bottom() + inset.bottom - height;
    CGFloat offset = bounds().origin.y;
    switch (position) {
    case UITableViewScrollPositionNone:
        offset = std::min(std::max(offset, atBottom), atTop);
        break;
    case UITableViewScrollPositionTop:
        offset = atTop;
        break;
    case UITableViewScrollPositionMiddle:
        offset = (atTop + atBottom) / 2;
        break;
    case UITableViewScrollPositionBottom:
        offset = atBottom;
        break;
    }
    const CGFloat last = std::max(contentSize().height + inset.bottom - height, -inset.top);
    return std::clamp(offset, -inset.top, last);
}

void UITableView::scrollToRowAtIndexPath_atScrollPosition_animated(const NSIndexPath& indexPath,
                                                                   UITableViewScrollPosition position, bool animated) {
    const Ref<UITableView> keep = loadIfNeeded();
    if (!m_geometry->hasRow(indexPath))
        return;
    const bool sticks = m_style == UITableViewStylePlain;
    const CGFloat headerHeight = sticks ? m_geometry->header(indexPath.section()).height : 0;
    const CGFloat y = offsetShowing(m_geometry->row(indexPath), headerHeight, position);
    setContentOffset_animated({contentOffset().x, y}, animated);
}

void UITableView::scrollToNearestSelectedRowAtScrollPosition_animated(UITableViewScrollPosition position,
                                                                      bool animated) {
    const CGFloat middle = CGRectGetMidY(bounds());
    const auto distance = [&](const NSIndexPath& path) {
        const Extent row = m_geometry->row(path);
        return std::fabs(row.top + row.height / 2 - middle);
    };
    const auto& selected = m_selection->rows();
    const auto nearest =
        std::min_element(selected.begin(), selected.end(),
                         [&](const NSIndexPath& a, const NSIndexPath& b) { return distance(a) < distance(b); });
    if (nearest != selected.end())
        scrollToRowAtIndexPath_atScrollPosition_animated(NSIndexPath(*nearest), position, animated);
}

// Editing

void UITableView::setEditing_animated(bool editing, bool animated) {
    m_editing = editing;
    const auto rows = m_views->rows;
    for (const auto& row : rows)
        row.cell->setEditing_animated(editing, animated);
}

// Separators

void UITableView::setSeparatorStyle(UITableViewCellSeparatorStyle style) {
    m_separatorStyle = style;
    renewAllSeparators();
}

void UITableView::setSeparatorColor(UIColor* color) {
    m_separatorColor = color ? color : lightGray();
    renewAllSeparators();
}

void UITableView::setSeparatorInset(UIEdgeInsets inset) {
    m_separatorInset = inset;
    renewAllSeparators();
}

} // namespace zr
