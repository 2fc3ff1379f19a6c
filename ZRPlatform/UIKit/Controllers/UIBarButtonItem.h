#pragma once

#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/UIKit/Controllers/UIBarItem.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr { // not exported
class NavigationBarContent;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class UIEvent;

/// Plain, or bold for what ends an activity.
enum UIBarButtonItemStyle : NSInteger {
    UIBarButtonItemStylePlain = 0,
    UIBarButtonItemStyleDone = 2,
};

/// A button at the side of a navigation bar: a title, a picture or any view.
class UIBarButtonItem : public UIBarItem {
public:
    /// An item with a title. A tap sends `action` to `target`, with the item and the event; the target is held weakly,
    /// and nil stands for the responder chain.
    virtual bool initWithTitle_style_target_action(const NSString& title, UIBarButtonItemStyle style, NSObject* target,
                                                   SEL action);
    /// The same with a picture in place of the title; nil makes an item that shows nothing.
    virtual bool initWithImage_style_target_action(UIImage* image, UIBarButtonItemStyle style, NSObject* target,
                                                   SEL action);
    /// The view keeps its size. Nil makes an item that shows nothing.
    virtual bool initWithCustomView(UIView* view);

    /// As given to the initialiser.
    UIBarButtonItemStyle style() const { return m_style; }
    /// The view that shows in place of title and picture; kept. Nil but for an item that was made with one.
    UIView* customView() const { return m_customView; }
    /// Who is told of a tap; held weakly. Nil stands for the responder chain.
    NSObject* target() const { return m_target; }
    void setTarget(NSObject* target);
    /// What the target is sent at a tap; nil sends nothing.
    SEL action() const { return m_action; }
    void setAction(SEL action) { m_action = action; }

protected:
    void itemChanged() override;

private:
    friend class NavigationBarContent;

    /// What shows in the bar, made on first use; nil for an empty item.
    UIView* shownView();
    void tapped(NSObject* button, UIEvent* event);

    UIBarButtonItemStyle m_style = UIBarButtonItemStylePlain;
    Ref<UIView> m_customView;
    Ref<UIView> m_button;
    Weak<NSObject> m_target;
    bool m_hasTarget = false;
    SEL m_action;
};

} // namespace zr
#pragma GCC visibility pop
