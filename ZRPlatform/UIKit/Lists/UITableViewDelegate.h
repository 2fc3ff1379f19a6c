#pragma once

#include <ZRPlatform/Foundation/NSIndexPath.h>
#include <ZRPlatform/Foundation/Ref.h>
#include <ZRPlatform/UIKit/Lists/UIScrollViewDelegate.h>

#pragma GCC visibility push(default)
namespace zr {

class UITableView;
class UITableViewCell;
class UIView;

/// The answer to a question for a height that leaves it to the table.
inline constexpr CGFloat UITableViewAutomaticDimension = -1;

/// Says how a table view looks, and follows what is done with it. A function that is not overridden is one that the
/// delegate does not answer. The functions may do anything to the table, let go of it included.
class UITableViewDelegate : public UIScrollViewDelegate {
public:
    /// @name Heights, in points
    /// All are asked for when the table is loaded and at every change. A delegate that does not answer for the first
    /// row is asked for no other; so an override that has no height of its own for a row gives
    /// `UITableViewAutomaticDimension`, and does not call this function.
    /// @{
    /// The height of a row; the table's own for `UITableViewAutomaticDimension`.
    virtual CGFloat tableView_heightForRowAtIndexPath(UITableView* tableView, const NSIndexPath& indexPath);
    /// The height of a section's header; the table's own for `UITableViewAutomaticDimension`.
    virtual CGFloat tableView_heightForHeaderInSection(UITableView*, NSInteger /*section*/) {
        return UITableViewAutomaticDimension;
    }
    /// The height of a section's footer; the table's own for `UITableViewAutomaticDimension`.
    virtual CGFloat tableView_heightForFooterInSection(UITableView*, NSInteger /*section*/) {
        return UITableViewAutomaticDimension;
    }
    /// @}

    /// @name Headers and footers
    /// A view instead of the data source's title; nil for none. A delegate that overrides one of these and gives no
    /// heights gets the table's header or footer height for every section.
    /// @{
    /// A section's header; the table places and keeps it. Nil leaves the title.
    virtual Ref<UIView> tableView_viewForHeaderInSection(UITableView* tableView, NSInteger section);
    /// A section's footer; the table places and keeps it. Nil leaves the title.
    virtual Ref<UIView> tableView_viewForFooterInSection(UITableView* tableView, NSInteger section);
    /// @}

    /// @name What comes into sight, and what has left it
    /// @{
    /// The cell is about to come into sight.
    virtual void tableView_willDisplayCell_forRowAtIndexPath(UITableView*, UITableViewCell*, const NSIndexPath&) {}
    /// A section's header is about to come into sight.
    virtual void tableView_willDisplayHeaderView_forSection(UITableView*, UIView*, NSInteger /*section*/) {}
    /// A section's footer is about to come into sight.
    virtual void tableView_willDisplayFooterView_forSection(UITableView*, UIView*, NSInteger /*section*/) {}
    /// The cell has left sight. The index path is that of the row when it was last in the table.
    virtual void tableView_didEndDisplayingCell_forRowAtIndexPath(UITableView*, UITableViewCell*, const NSIndexPath&) {}
    /// A section's header has left sight.
    virtual void tableView_didEndDisplayingHeaderView_forSection(UITableView*, UIView*, NSInteger /*section*/) {}
    /// A section's footer has left sight.
    virtual void tableView_didEndDisplayingFooterView_forSection(UITableView*, UIView*, NSInteger /*section*/) {}
    /// @}

    /// @name Touches of rows
    /// A tap is told in this order: should highlight, did highlight, did unhighlight, will select, then for the row
    /// that was selected before will deselect and did deselect, did select. What code selects is not told.
    /// @{
    /// No leaves the row alone: it is not selected either.
    virtual bool tableView_shouldHighlightRowAtIndexPath(UITableView*, const NSIndexPath&) { return true; }
    /// A finger is on the row.
    virtual void tableView_didHighlightRowAtIndexPath(UITableView*, const NSIndexPath&) {}
    /// The finger has gone, up or elsewhere.
    virtual void tableView_didUnhighlightRowAtIndexPath(UITableView*, const NSIndexPath&) {}
    /// The row that is to be selected, this one or another; nil for none.
    virtual NSIndexPath tableView_willSelectRowAtIndexPath(UITableView*, const NSIndexPath& indexPath) {
        return indexPath;
    }
    /// The row that is to be deselected, this one or another; nil for none.
    virtual NSIndexPath tableView_willDeselectRowAtIndexPath(UITableView*, const NSIndexPath& indexPath) {
        return indexPath;
    }
    /// A tap has selected the row.
    virtual void tableView_didSelectRowAtIndexPath(UITableView*, const NSIndexPath&) {}
    /// A tap has deselected the row, or selected another one in its place.
    virtual void tableView_didDeselectRowAtIndexPath(UITableView*, const NSIndexPath&) {}
    /// The detail button of the row was tapped.
    virtual void tableView_accessoryButtonTappedForRowWithIndexPath(UITableView*, const NSIndexPath&) {}
    /// @}

    /// How far the row's content is moved to the right, in steps of the cell's indentation width; asked as the row
    /// comes into sight. A delegate that does not answer leaves the cell's own.
    virtual NSInteger tableView_indentationLevelForRowAtIndexPath(UITableView* tableView, const NSIndexPath& indexPath);

private:
    static void leaveUnanswered(UITableView* tableView);
};

} // namespace zr
#pragma GCC visibility pop
