#pragma once

#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowAction.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class ZRTableView;

/// What a `ZRTableView` asks its data source about swipes: the object that is its `dataSource`, if it is one of these
/// too. Index paths are nil for cells that the table does not show (any more).
class ZRTableViewDataSource {
public:
    virtual ~ZRTableViewDataSource() = default;

    /// The actions behind the row, the leftmost first. Asked whenever the buttons are made; none by default, and then
    /// nothing is revealed.
    virtual std::vector<Ref<ZRTableViewRowAction>> tableView_zrEditActionsForRowAtIndexPath(ZRTableView*,
                                                                                            const NSIndexPath&) {
        return {};
    }
    /// Whether the row can be swiped open; asked at every move of the finger. No by default.
    virtual bool tableView_zrCanEditRowAtIndexPath(ZRTableView*, const NSIndexPath&) { return false; }
};

} // namespace zr
#pragma GCC visibility pop
