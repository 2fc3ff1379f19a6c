#pragma once

#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowAction.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>

#pragma GCC visibility push(default)
namespace zr {

/// The button that a swiped row shows for one of its actions, and that tells the table which one was tapped.
class ZRTableViewRowButton : public UIButton {
public:
    /// What the button stands for; kept, nil at first.
    ZRTableViewRowAction* action() const { return m_action; }
    virtual void setAction(ZRTableViewRowAction* action) { m_action = action; }
    /// For the application's own use, nil at first: a tap runs the action's block, not this one.
    const ZRTableViewRowActionBlock& actionBlock() const { return m_actionBlock; }
    virtual void setActionBlock(const ZRTableViewRowActionBlock& block) { m_actionBlock = block; }

private:
    Ref<ZRTableViewRowAction> m_action;
    ZRTableViewRowActionBlock m_actionBlock;
};

} // namespace zr
#pragma GCC visibility pop
