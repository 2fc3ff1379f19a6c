#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>
#include <ZRPlatform/UIKit/Lists/UITableViewCell.h>

namespace zr {

/// What a cell shows at its right for its accessory type: a chevron, a check mark, a button with an i, or the button
/// and a chevron. Of the size it needs.
class TableViewCellAccessory : public UIView {
public:
    virtual bool initWithType(UITableViewCellAccessoryType type);

    /// The part that can be tapped; nil for types without one.
    UIControl* button() const { return m_button; }

private:
    Ref<UIControl> m_button;
};

} // namespace zr
