#pragma once

#include <ZRPlatform/Foundation/NSIndexSet.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>
#include <ZRPlatform/UIKit/Lists/UITableViewCell.h>
#include <ZRPlatform/UIKit/Lists/UITableViewDataSource.h>
#include <ZRPlatform/UIKit/Lists/UITableViewDelegate.h>
#include <ZRPlatform/UIKit/Lists/UITableViewHeaderFooterView.h>
#include <ZRPlatform/UIKit/Lists/UITableViewRowAnimation.h>

#include <memory>

namespace zr { // not exported
class RowChanges;
class RowSelection;
class SectionGeometry;
struct Extent;
struct TableViews;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// How sections are shown.
enum UITableViewStyle : NSInteger {
    /// Headers and footers stay in sight for as long as rows of their section do.
    UITableViewStylePlain,
    /// Sections are set apart, on a grey background.
    UITableViewStyleGrouped,
};

/// Where in the table a row is to be.
enum UITableViewScrollPosition : NSInteger {
    /// As little as it takes for the row to be seen whole.
    UITableViewScrollPositionNone,
    UITableViewScrollPositionTop,
    UITableViewScrollPositionMiddle,
    UITableViewScrollPositionBottom,
};

/// The lines between rows; etched ones look like single ones.
enum UITableViewCellSeparatorStyle : NSInteger {
    UITableViewCellSeparatorStyleNone,
    UITableViewCellSeparatorStyleSingleLine,
    UITableViewCellSeparatorStyleSingleLineEtched,
};

/// A list of rows in sections, which scrolls. Only the rows in sight have cells, which are used again for others: what
/// a list costs does not depend on its length, except that heights that differ take 8 bytes a row.
///
/// The table knows the data source's counts and the heights, and works with these until it is told of a change:
/// `reloadData`, or insertions, deletions and so on. It loads itself when it first needs to know.
///
/// What is wrong is logged and comes to no harm:
/// - Changes that do not add up to the data source's new counts, or name rows that are not there, become a
///   `reloadData`; and so does a count found to have changed without a word when a row of that section comes into
///   sight. A data source that never says the same twice is believed the last time.
/// - A row for which the data source gives no cell, or one that shows another row, gets an empty one.
/// - A view that the delegate gives for the headers or footers of several sections is shown at the one that asked last,
///   and only there.
/// - A height that is negative or not finite is the table's own, or 0 where it is that of a table header or footer
///   view. One above a million points is a million. Rows, headers and footers of sections are 0 below half a point;
///   rows without height have no cells.
/// - A negative count is 0; the list ends with the hundred-millionth row, with the millionth section, and with the last
///   row whose height there is memory for.
/// - Index paths of rows that are not there give nil and zero rectangles, and are ignored in calls.
/// - A cell that somebody takes out of the table is replaced.
class UITableView : public UIScrollView {
public:
    UITableView();
    ~UITableView() override;
    /// The style is for good.
    virtual bool initWithFrame_style(CGRect frame, UITableViewStyle style);
    /// Of the plain style.
    bool initWithFrame(CGRect frame) override;

    /// As given to the initialiser; plain for others.
    UITableViewStyle style() const { return m_style; }
    /// Says what is in the table; not kept. Nil, at first, for an empty table. Another one means loading anew.
    UITableViewDataSource* dataSource() const { return m_dataSource; }
    virtual void setDataSource(const Delegate<UITableViewDataSource>& dataSource);
    /// Says how the table looks and follows what is done with it; nil also when the delegate follows the scrolling
    /// only.
    UITableViewDelegate* delegate() const;
    /// Should be a `UITableViewDelegate` to be asked about rows. Another one means loading anew.
    void setDelegate(const Delegate<UIScrollViewDelegate>& delegate) override;

    /// @name Content
    /// @{
    /// Asks for all counts and heights, now; cells are made anew at the next layout. Nothing is selected afterwards.
    /// Called by whoever is being asked, it has the table ask again as soon as it has been answered, though not more
    /// than twice in a row.
    virtual void reloadData();
    /// How many sections the table knows of.
    NSInteger numberOfSections();
    /// How many rows the table knows of in a section; 0 for one that is not there.
    NSInteger numberOfRowsInSection(NSInteger section);
    /// Above the first section, as wide as the table; its height is its own. Kept; nil at first. Setting the view again
    /// takes over another height.
    UIView* tableHeaderView() const { return m_tableHeaderView; }
    virtual void setTableHeaderView(UIView* view);
    /// Below the last section, likewise.
    UIView* tableFooterView() const { return m_tableFooterView; }
    virtual void setTableFooterView(UIView* view);
    /// Behind the rows, as large as the table; it does not scroll. Kept; nil at first.
    UIView* backgroundView() const { return m_backgroundView; }
    virtual void setBackgroundView(UIView* view);
    /// @}

    /// @name Heights, in points
    /// Where the delegate gives none. Numbers that are not finite, or negative, are ignored.
    /// @{
    /// Of a row for which the delegate gives no height; 44 at first.
    CGFloat rowHeight() const { return m_rowHeight; }
    virtual void setRowHeight(CGFloat height);
    /// The height of headers for which the delegate gives none. Of a plain section with a header: 28 at first. Of every
    /// grouped section: 18 at first, or 38 with a title; 17 more for the first one.
    CGFloat sectionHeaderHeight() const { return m_sectionHeaderHeight; }
    virtual void setSectionHeaderHeight(CGFloat height);
    /// The same for footers, without the 17 more.
    CGFloat sectionFooterHeight() const { return m_sectionFooterHeight; }
    virtual void setSectionFooterHeight(CGFloat height);
    /// @}

    /// @name Cells
    /// @{
    /// A cell that is out of sight now, made ready, or a new one of the registered class; nil when there is neither.
    Ref<UITableViewCell> dequeueReusableCellWithIdentifier(const NSString& identifier);
    /// The same, in the size of the row. Never nil: with neither it is logged, and a plain cell is made.
    Ref<UITableViewCell> dequeueReusableCellWithIdentifier_forIndexPath(const NSString& identifier,
                                                                        const NSIndexPath& indexPath);
    /// The class whose cells are made when there is none to use again:
    /// `registerClass_forCellReuseIdentifier<MyCell>("row")`. They are of the default style, unless the class's
    /// initialiser chooses another one.
    template <class Cell>
    void registerClass_forCellReuseIdentifier(const NSString& identifier) {
        registerCellMaker(identifier, [](const NSString& reuseIdentifier) -> Ref<UITableViewCell> {
            return make<Cell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault,
                              reuseIdentifier);
        });
    }
    /// A header or footer view that is out of sight now, made ready, or a new one of the registered class; nil when
    /// there is neither.
    Ref<UITableViewHeaderFooterView> dequeueReusableHeaderFooterViewWithIdentifier(const NSString& identifier);
    /// The class whose views `dequeueReusableHeaderFooterViewWithIdentifier` makes when there is none to use again.
    template <class View>
    void registerClass_forHeaderFooterViewReuseIdentifier(const NSString& identifier) {
        registerHeaderFooterMaker(identifier, [](const NSString& reuseIdentifier) -> Ref<UITableViewHeaderFooterView> {
            return make<View>(&UITableViewHeaderFooterView::initWithReuseIdentifier, reuseIdentifier);
        });
    }
    /// @}

    /// @name What is where
    /// Rectangles are in the table's coordinates: headers and footers where they are when they do not stick.
    /// @{
    /// All of a section, header and footer included; zero for one that is not there.
    CGRect rectForSection(NSInteger section);
    /// Zero, too, for a section that is not there; of no height for one without a header.
    CGRect rectForHeaderInSection(NSInteger section);
    /// Zero, too, for a section that is not there; of no height for one without a footer.
    CGRect rectForFooterInSection(NSInteger section);
    /// Zero for a row that is not there.
    CGRect rectForRowAtIndexPath(const NSIndexPath& indexPath);
    /// The row that the point is in; nil where there is none.
    NSIndexPath indexPathForRowAtPoint(CGPoint point);
    /// The rows that the rectangle touches, in order; none when it is not finite or beside the table.
    std::vector<NSIndexPath> indexPathsForRowsInRect(CGRect rect);
    /// The row that the cell shows; nil for one that is not in the table.
    NSIndexPath indexPathForCell(const UITableViewCell* cell) const;
    /// The cell that shows the row; nil when it is out of sight.
    UITableViewCell* cellForRowAtIndexPath(const NSIndexPath& indexPath) const;
    /// The cells of the rows in sight as of the last layout, in order.
    std::vector<Ref<UITableViewCell>> visibleCells() const;
    /// The rows in sight as of the last layout, in order.
    std::vector<NSIndexPath> indexPathsForVisibleRows() const;
    /// The header that shows; nil for one out of sight, and for none.
    UIView* headerViewForSection(NSInteger section) const;
    /// The footer that shows; nil for one out of sight, and for none.
    UIView* footerViewForSection(NSInteger section) const;
    /// Scrolls until the row is at that position, not beyond the ends of the content. Top is below a header that
    /// sticks.
    virtual void scrollToRowAtIndexPath_atScrollPosition_animated(const NSIndexPath& indexPath,
                                                                  UITableViewScrollPosition position, bool animated);
    /// The same for the selected row that is nearest to the middle of the table; nothing without one.
    void scrollToNearestSelectedRowAtScrollPosition_animated(UITableViewScrollPosition position, bool animated);
    /// @}

    /// @name Selection
    /// A row that is touched is highlighted, and selected when the finger goes up inside it. Selected rows keep their
    /// selection wherever changes move them.
    /// @{
    /// Whether a touch selects a row; true at first.
    bool allowsSelection() const { return m_allowsSelection; }
    virtual void setAllowsSelection(bool allows) { m_allowsSelection = allows; }
    /// Whether several rows may be selected; a touch of a selected one then deselects it. False at first.
    bool allowsMultipleSelection() const { return m_allowsMultipleSelection; }
    virtual void setAllowsMultipleSelection(bool allows) { m_allowsMultipleSelection = allows; }
    /// In place of `allowsSelection` while the table is editing; false at first.
    bool allowsSelectionDuringEditing() const { return m_allowsSelectionDuringEditing; }
    virtual void setAllowsSelectionDuringEditing(bool allows) { m_allowsSelectionDuringEditing = allows; }
    /// In place of `allowsMultipleSelection` while the table is editing; false at first.
    bool allowsMultipleSelectionDuringEditing() const { return m_allowsMultipleSelectionDuringEditing; }
    virtual void setAllowsMultipleSelectionDuringEditing(bool allows) {
        m_allowsMultipleSelectionDuringEditing = allows;
    }
    /// The first selected row; nil when there is none.
    NSIndexPath indexPathForSelectedRow() const;
    /// All of them, in order.
    std::vector<NSIndexPath> indexPathsForSelectedRows() const;
    /// Selects the row, instead of the one selected before unless several may be. Nil deselects all. Position none does
    /// not scroll. The delegate is not told.
    virtual void selectRowAtIndexPath_animated_scrollPosition(const NSIndexPath& indexPath, bool animated,
                                                              UITableViewScrollPosition position);
    /// Ignored when the row is not selected. The delegate is not told.
    virtual void deselectRowAtIndexPath_animated(const NSIndexPath& indexPath, bool animated);
    /// @}

    /// @name Changes
    /// What goes is named by its place before the changes, what comes by its place after them. Changes between begin
    /// and end are one change, in which their order does not matter; the data source must have all of them when the
    /// last end is called, and nothing comes into sight before that. Cells move to their new places in 0.3 s, heights
    /// are asked for again, and what is selected stays so. Without a window, or when all animations are none, all is
    /// done at once.
    /// @{
    /// Begins a change of several parts. Calls nest.
    virtual void beginUpdates();
    /// Ends the latest begin; the last one carries the change out. Ignored without one.
    virtual void endUpdates();
    /// The rows are where the index paths say after the change.
    virtual void insertRowsAtIndexPaths_withRowAnimation(const std::vector<NSIndexPath>& indexPaths,
                                                         UITableViewRowAnimation animation);
    /// The rows were where the index paths say before the change.
    virtual void deleteRowsAtIndexPaths_withRowAnimation(const std::vector<NSIndexPath>& indexPaths,
                                                         UITableViewRowAnimation animation);
    /// Asks for new cells of rows that stay; named by their places before the change.
    virtual void reloadRowsAtIndexPaths_withRowAnimation(const std::vector<NSIndexPath>& indexPaths,
                                                         UITableViewRowAnimation animation);
    /// From its place before the change to its place after it, with its cell.
    virtual void moveRowAtIndexPath_toIndexPath(const NSIndexPath& indexPath, const NSIndexPath& newIndexPath);
    /// With all their rows; named by their numbers after the change.
    virtual void insertSections_withRowAnimation(const NSIndexSet& sections, UITableViewRowAnimation animation);
    /// With all their rows; named by their numbers before the change.
    virtual void deleteSections_withRowAnimation(const NSIndexSet& sections, UITableViewRowAnimation animation);
    /// All of the sections, headers and numbers of rows too; what is selected in them is no more.
    virtual void reloadSections_withRowAnimation(const NSIndexSet& sections, UITableViewRowAnimation animation);
    /// With its rows and their cells: from its number before the change to its number after it.
    virtual void moveSection_toSection(NSInteger section, NSInteger newSection);
    /// @}

    /// @name Editing
    /// A flag, which cells are given too; the table itself offers no controls for editing.
    /// @{
    /// Whether the table is being edited; false at first.
    bool isEditing() const { return m_editing; }
    /// The same as `setEditing_animated`, not animated.
    void setEditing(bool editing) { setEditing_animated(editing, false); }
    /// Sets the flag, and that of the cells in sight; `animated` is handed on to them.
    virtual void setEditing_animated(bool editing, bool animated);
    /// @}

    /// @name Separators
    /// Hairlines at the lower edges of rows; around a grouped section they go from side to side.
    /// @{
    /// A single line at first; etched lines look the same.
    UITableViewCellSeparatorStyle separatorStyle() const { return m_separatorStyle; }
    virtual void setSeparatorStyle(UITableViewCellSeparatorStyle style);
    /// The lines' colour; light grey at first, and for nil.
    UIColor* separatorColor() const { return m_separatorColor; }
    virtual void setSeparatorColor(UIColor* color);
    /// How far the lines stay away from the sides of the rows; 15 points at the left at first. Only left and right
    /// count.
    UIEdgeInsets separatorInset() const { return m_separatorInset; }
    virtual void setSeparatorInset(UIEdgeInsets inset);
    /// @}

    void setContentInset(UIEdgeInsets inset) override;
    void layoutSubviews() override;
    void willRemoveSubview(UIView* view) override;
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;

private:
    friend class UITableViewCell;
    friend class UITableViewDelegate;
    class [[gnu::visibility("hidden")]] Update;

    /// An object that is asked, kept for as long as that takes.
    template <class Protocol>
    struct Asked {
        Ref<NSObject> kept;
        Protocol* object = nullptr;
        Protocol* operator->() const { return object; }
        explicit operator bool() const { return object != nullptr; }
    };
    enum class Edge { Header, Footer };
    enum class CountDoubt { None, Reloaded, Unsteady };
    using Counts = std::vector<NSInteger>;
    using CellMaker = std::function<Ref<UITableViewCell>(const NSString&)>;
    using HeaderFooterMaker = std::function<Ref<UITableViewHeaderFooterView>(const NSString&)>;

    void registerCellMaker(const NSString& identifier, CellMaker maker);
    void registerHeaderFooterMaker(const NSString& identifier, HeaderFooterMaker maker);

    Asked<UITableViewDataSource> askedSource() const;
    Asked<UITableViewDelegate> askedDelegate() const;

    // Loading: what the data source and the delegate say about counts and heights.
    void setNeedsLoad();
    void load();
    /// The table itself, to be held on to: whoever is asked may let go of it.
    [[nodiscard]] Ref<UITableView> loadIfNeeded();
    Counts askForCounts();
    SectionGeometry askForGeometry(const Counts& counts);
    CGFloat askForEdgeHeight(Edge edge, NSInteger section);
    CGFloat automaticEdgeHeight(Edge edge, NSInteger section);
    CGFloat usableHeight(CGFloat height, CGFloat otherwise);
    template <class Question>
    bool isAnswered(const Question& question);
    bool givesViews(Edge edge, NSInteger section);
    void recycle(const Ref<UIView>& view);
    void setHeight(CGFloat& field, CGFloat height);
    void updateContentSize();
    CGFloat offsetShowing(const Extent& extent, CGFloat headerHeight, UITableViewScrollPosition position) const;

    // Showing: cells, headers and footers of what is in sight.
    CGRect rectOf(const Extent& extent) const;
    Extent visibleExtent() const;
    Extent edgeExtent(Edge edge, NSInteger section) const;
    void placeTableViews();
    void placeAnew();
    void placeEdges();
    bool showRows();
    bool showEdges(Edge edge);
    static bool showWithoutAnimation(const std::function<bool()>& show);
    bool showRow(const NSIndexPath& path);
    bool showEdge(Edge edge, NSInteger section);
    bool countStillHolds(NSInteger section);
    bool isToBeShownInSpiteOf(const NSString& problem);
    Ref<UITableViewCell> askForCell(const NSIndexPath& path);
    Ref<UIView> askForEdgeView(Edge edge, NSInteger section);
    NSString askForTitle(Edge edge, NSInteger section);
    void dressCell(UITableViewCell* cell, const NSIndexPath& path);
    void renewSeparators(UITableViewCell* cell);
    void renewAllSeparators();
    void takeOut(const Ref<UITableViewCell>& cell, const NSIndexPath& path);
    void takeOut(Edge edge, const Ref<UIView>& view, NSInteger section);
    void retireCell(const Ref<UITableViewCell>& cell, const NSIndexPath& path);
    void retireEdge(Edge edge, const Ref<UIView>& view, NSInteger section);
    void retireAll();
    void endDeparture(const UIView* view);
    void takeFromItsSection(const Ref<UIView>& view);
    /// Those that an animated change has let go of; all of them with group 0.
    void retireDeparting(unsigned group);
    NSInteger indexOfCells() const;
    NSInteger indexAboveCells() const;
    void setTableView(Ref<UIView>& field, UIView* view);

    // Changes.
    template <class Note>
    void change(const Note& note);
    void apply(RowChanges& changes);
    void askForHeightsAgain();
    Counts counts() const;
    void reloadBecause(const NSString& problem);

    // Touches and selection.
    bool maySelect() const;
    bool maySelectSeveral() const;
    void unhighlight();
    void tapRow(const NSIndexPath& path);
    void tapToSelect(const NSIndexPath& path);
    bool tapToDeselect(const NSIndexPath& path);
    void setRowSelected(const NSIndexPath& path, bool selected, bool animated);
    void detailButtonTapped(UITableViewCell* cell);

    Delegate<UITableViewDataSource> m_dataSource;
    Delegate<UIScrollViewDelegate> m_scrollDelegate;
    /// The same one, if it is a table's delegate.
    UITableViewDelegate* m_tableDelegate = nullptr;
    std::unique_ptr<SectionGeometry> m_geometry;
    std::unique_ptr<TableViews> m_views;
    std::unique_ptr<RowSelection> m_selection;
    std::unique_ptr<RowChanges> m_changes;
    Ref<UIView> m_tableHeaderView;
    Ref<UIView> m_tableFooterView;
    Ref<UIView> m_backgroundView;
    Ref<UIColor> m_separatorColor;
    UIEdgeInsets m_separatorInset;
    CGFloat m_rowHeight = 44;
    CGFloat m_sectionHeaderHeight = 28;
    CGFloat m_sectionFooterHeight = 28;
    /// As of when the cells were placed.
    CGFloat m_placedWidth = 0;
    UITableViewStyle m_style = UITableViewStylePlain;
    UITableViewCellSeparatorStyle m_separatorStyle = UITableViewCellSeparatorStyleSingleLine;
    int m_updateDepth = 0;
    /// Counts loads and changes: who asks the data source or the delegate sees whether all is still as it was.
    unsigned m_generation = 0;
    bool m_needsLoad = true;
    bool m_isLoading = false;
    /// While it is seen whether a count is still as it was.
    bool m_isCounting = false;
    /// Whoever is being asked has asked for that.
    bool m_needsReload = false;
    bool m_isShowing = false;
    /// The list was longer than a table can be.
    bool m_isCut = false;
    /// Since a count was found to have changed without a word.
    CountDoubt m_countDoubt = CountDoubt::None;
    bool m_wasAnswered = true;
    /// Whether the delegate does; none before it was tried.
    std::optional<bool> m_givesHeaderViews;
    std::optional<bool> m_givesFooterViews;
    /// Heights at the last load that were none.
    int m_badHeights = 0;
    bool m_allowsSelection = true;
    bool m_allowsMultipleSelection = false;
    bool m_allowsSelectionDuringEditing = false;
    bool m_allowsMultipleSelectionDuringEditing = false;
    bool m_editing = false;
};

} // namespace zr
#pragma GCC visibility pop
