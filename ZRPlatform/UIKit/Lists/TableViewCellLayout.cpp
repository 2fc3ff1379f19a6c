#include <ZRPlatform/UIKit/Lists/Internal/TableViewCellLayout.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// Between the cell's edges and what is in it, and between image and text.
constexpr CGFloat kMargin = 15;
/// Between the content and the accessory.
constexpr CGFloat kAccessoryGap = 10;
/// Between text and detail text side by side.
constexpr CGFloat kTextGap = 6;
/// The text's column in the style that has one.
constexpr CGFloat kTextColumn = 91;

CGRect accessoryFrame(const TableViewCellParts& parts) {
    const auto [width, height] = parts.accessory;
    if (width <= 0)
        return CGRectZero;
    return {{parts.cell.width - kMargin - width, std::round((parts.cell.height - height) / 2)}, {width, height}};
}

/// No taller than the cell, in its proportions.
CGRect imageFrame(const TableViewCellParts& parts) {
    CGSize size = parts.image;
    if (size.width <= 0 || size.height <= 0)
        return CGRectZero;
    if (size.height > parts.cell.height)
        size = {size.width * parts.cell.height / size.height, parts.cell.height};
    return {{kMargin + parts.indentation, std::round((parts.cell.height - size.height) / 2)}, size};
}

/// Both in whole lines, as a pair in the middle of the height.
void placeBelowEachOther(const TableViewCellParts& parts, CGRect room, TableViewCellLayout& layout) {
    const CGFloat top = std::round((room.size.height - parts.text.height - parts.detailText.height) / 2);
    layout.text = {{room.origin.x, top}, {room.size.width, parts.text.height}};
    layout.detailText = {{room.origin.x, top + parts.text.height}, {room.size.width, parts.detailText.height}};
}

/// The text takes what it needs, the detail text what is left of that at the right end.
void placeAtBothEnds(const TableViewCellParts& parts, CGRect room, TableViewCellLayout& layout) {
    const CGFloat textWidth = std::min(parts.text.width, room.size.width);
    const CGFloat left = std::max<CGFloat>(room.size.width - textWidth - kTextGap, 0);
    const CGFloat detailWidth = std::min(parts.detailText.width, left);
    layout.text = {room.origin, {textWidth, room.size.height}};
    layout.detailText = {{room.origin.x + room.size.width - detailWidth, 0}, {detailWidth, room.size.height}};
}

void placeInColumns(CGRect room, TableViewCellLayout& layout) {
    const CGFloat column = std::min(kTextColumn, room.size.width);
    const CGFloat left = std::max<CGFloat>(room.size.width - column - kTextGap, 0);
    layout.text = {room.origin, {column, room.size.height}};
    layout.detailText = {{room.origin.x + room.size.width - left, 0}, {left, room.size.height}};
}

} // namespace

TableViewCellLayout layoutOfTableViewCell(const TableViewCellParts& parts) {
    TableViewCellLayout layout;
    layout.accessory = accessoryFrame(parts);
    const bool hasAccessory = layout.accessory.size.width > 0;
    const CGFloat contentWidth =
        hasAccessory ? std::max<CGFloat>(layout.accessory.origin.x - kAccessoryGap, 0) : parts.cell.width;
    layout.content = {{0, 0}, {contentWidth, parts.cell.height}};

    layout.image = imageFrame(parts);
    const CGFloat left =
        layout.image.size.width > 0 ? CGRectGetMaxX(layout.image) + kMargin : kMargin + parts.indentation;
    const CGFloat right = hasAccessory ? contentWidth : contentWidth - kMargin;
    const CGRect room{{left, 0}, {std::max<CGFloat>(right - left, 0), parts.cell.height}};
    switch (parts.style) {
    case UITableViewCellStyleSubtitle:
        placeBelowEachOther(parts, room, layout);
        break;
    case UITableViewCellStyleValue1:
        placeAtBothEnds(parts, room, layout);
        break;
    case UITableViewCellStyleValue2:
        placeInColumns(room, layout);
        break;
    case UITableViewCellStyleDefault:
        layout.text = room;
        break;
    }
    return layout;
}

} // namespace zr
