#pragma once

#include <ZRPlatform/UIKit/Lists/UITableViewCell.h>

namespace zr {

/// What the layout of a cell depends on. Sizes are those that the parts would like; zero for parts there are not.
struct TableViewCellParts {
    CGSize cell;
    CGSize accessory;
    CGSize image;
    CGSize text;
    CGSize detailText;
    CGFloat indentation = 0;
    UITableViewCellStyle style = UITableViewCellStyleDefault;
};

struct TableViewCellLayout {
    /// In the cell.
    CGRect content;
    CGRect accessory;
    /// In the content view.
    CGRect image;
    CGRect text;
    CGRect detailText;
};

TableViewCellLayout layoutOfTableViewCell(const TableViewCellParts& parts);

} // namespace zr
