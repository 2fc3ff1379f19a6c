#pragma once

#include <ZRPlatform/UIKit/Lists/Internal/ReuseQueue.h>
#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>
#include <ZRPlatform/UIKit/Lists/UITableView.h>

#include <algorithm>

namespace zr {

/// The views of a table that exist now: those in sight, those on their way out, and those that wait to be used again.
struct TableViews {
    struct Row {
        NSIndexPath path;
        Ref<UITableViewCell> cell;
    };
    struct Edge {
        NSInteger section;
        /// Nil when another section has it, whose delegate gives one view for both.
        Ref<UIView> view;
    };
    struct Departing {
        Ref<UIView> view;
        /// The change that it belongs to.
        unsigned group;
        /// Takes it out of the table, as it was before, and tells of it.
        std::function<void()> leave;
    };
    using Rows = std::vector<Row>;
    using Edges = std::vector<Edge>;

    /// In sight, in order.
    Rows rows;
    Edges headers;
    Edges footers;
    std::vector<Departing> departing;
    unsigned lastGroup = 0;
    ReuseQueue<UITableViewCell> cells;
    ReuseQueue<UITableViewHeaderFooterView> headerFooterViews;

    Rows::iterator rowsFrom(const NSIndexPath& path) {
        return std::lower_bound(rows.begin(), rows.end(), path,
                                [](const Row& row, const NSIndexPath& other) { return row.path < other; });
    }
    /// Nil when the row is out of sight.
    UITableViewCell* cellAt(const NSIndexPath& path) {
        const auto found = rowsFrom(path);
        return found != rows.end() && found->path == path ? found->cell.get() : nullptr;
    }
    const Row* rowOf(const UIView* cell) const {
        const auto found =
            std::find_if(rows.begin(), rows.end(), [cell](const Row& row) { return row.cell.get() == cell; });
        return found == rows.end() ? nullptr : &*found;
    }
    static Edges::iterator edgesFrom(Edges& edges, NSInteger section) {
        return std::lower_bound(edges.begin(), edges.end(), section,
                                [](const Edge& edge, NSInteger other) { return edge.section < other; });
    }
    static bool hasEdge(Edges& edges, NSInteger section) {
        const auto found = edgesFrom(edges, section);
        return found != edges.end() && found->section == section;
    }
    static UIView* edgeAt(Edges& edges, NSInteger section) {
        return hasEdge(edges, section) ? edgesFrom(edges, section)->view.get() : nullptr;
    }
    /// A view that leaves its section may be shown by those that have lost it: these are to ask again.
    void forgetLost() {
        for (Edges* edges : {&headers, &footers})
            std::erase_if(*edges, [](const Edge& edge) { return !edge.view; });
    }
    /// Of the table's own header and footer. 0 for nil.
    static CGFloat heightOf(const UIView* view) { return view ? boundedHeight(view->bounds().size.height) : 0; }
};

} // namespace zr
