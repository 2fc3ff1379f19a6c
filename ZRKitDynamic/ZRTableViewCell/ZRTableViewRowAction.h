#pragma once

#include <ZRPlatform/Foundation/NSIndexPath.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>

#include <functional>

#pragma GCC visibility push(default)
namespace zr {

class ZRTableViewRowAction;

/// Takes the action and the row that it is for; nil for a row that is out of sight.
using ZRTableViewRowActionBlock = std::function<void(ZRTableViewRowAction* action, const NSIndexPath& indexPath)>;

/// What one of the buttons behind a row of a `ZRTableView` says, looks like and does. The data source gives them, row
/// by row.
class ZRTableViewRowAction : public NSObject {
public:
    /// An action of the class that is asked for. Each argument may be nil; see the setters. (A letter of the name is
    /// missing; names that applications use stay as they are.)
    template <class Action = ZRTableViewRowAction>
    static Ref<Action> rowActionWithBackgrounColor_buttonWidth_title_handler(UIColor* color, CGFloat width,
                                                                             const NSString& title,
                                                                             const ZRTableViewRowActionBlock& handler);

    /// What the button says; nil, at first, for nothing.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title) { m_title = title; }
    /// The button's ground; kept. Nil, for a clear button, at first.
    UIColor* backgroundColor() const { return m_backgroundColor; }
    virtual void setBackgroundColor(UIColor* color) { m_backgroundColor = color; }
    /// How wide the button is, in points; 0 at first. One of a width that is negative or no number has none.
    CGFloat buttonWidth() const { return m_buttonWidth; }
    virtual void setButtonWidth(CGFloat width) { m_buttonWidth = width; }
    /// Run when the button is tapped; the row stays open until it is reset, is reloaded or leaves the table otherwise,
    /// or becomes wider or narrower. Nil at first: then a tap of the button does nothing.
    const ZRTableViewRowActionBlock& actionBlock() const { return m_actionBlock; }
    virtual void setActionBlock(const ZRTableViewRowActionBlock& block) { m_actionBlock = block; }

protected:
    const KeyTable& keyTable() const override;

private:
    Ref<UIColor> m_backgroundColor;
    ZRTableViewRowActionBlock m_actionBlock;
    NSString m_title;
    CGFloat m_buttonWidth = 0;
};

template <class Action>
Ref<Action> ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(
    UIColor* color, CGFloat width, const NSString& title, const ZRTableViewRowActionBlock& handler) {
    const Ref<Action> action = make<Action>();
    if (!action)
        return nullptr;
    action->setBackgroundColor(color);
    action->setActionBlock(handler);
    action->setTitle(title);
    action->setButtonWidth(width);
    return action;
}

} // namespace zr
#pragma GCC visibility pop
