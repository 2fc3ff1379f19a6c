#pragma once

#include <ZRPlatform/Foundation/NSIndexPath.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/Ref.h>

#pragma GCC visibility push(default)
namespace zr {

class UITableView;
class UITableViewCell;

/// Says what is in a table view. A function that is not overridden is one that the data source does not answer.
///
/// Counts are asked for when the table is loaded, and again for every change it is told of. A cell is asked for when
/// its row comes into sight. The functions may do anything to the table, let go of it included.
class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;

    /// How many sections there are: 1 when it is not overridden. Negative counts count as 0.
    virtual NSInteger numberOfSectionsInTableView(UITableView*) { return 1; }
    /// How many rows a section has: none when it is not overridden. Negative counts count as 0.
    virtual NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger /*section*/) { return 0; }
    /// A cell that shows the row: one that `dequeueReusableCellWithIdentifier` gives, or a new one. The table places
    /// and keeps it.
    virtual Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&);
    /// The text above a section; nil for none.
    virtual NSString tableView_titleForHeaderInSection(UITableView*, NSInteger /*section*/) { return nullptr; }
    /// The text below a section; nil for none.
    virtual NSString tableView_titleForFooterInSection(UITableView*, NSInteger /*section*/) { return nullptr; }
};

} // namespace zr
#pragma GCC visibility pop
