#include <ZRPlatform/UIKit/Controllers/UIBarButtonItem.h>

#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>

namespace zr {

bool UIBarButtonItem::initWithTitle_style_target_action(const NSString& title, UIBarButtonItemStyle style,
                                                        NSObject* target, SEL action) {
    if (!init())
        return false;
    m_style = style;
    setTitle(title);
    setTarget(target);
    m_action = action;
    return true;
}

bool UIBarButtonItem::initWithImage_style_target_action(UIImage* image, UIBarButtonItemStyle style, NSObject* target,
                                                        SEL action) {
    if (!initWithTitle_style_target_action(nullptr, style, target, action))
        return false;
    setImage(image);
    return true;
}

bool UIBarButtonItem::initWithCustomView(UIView* view) {
    if (!init())
        return false;
    m_customView = view;
    return true;
}

void UIBarButtonItem::setTarget(NSObject* target) {
    m_target = target;
    m_hasTarget = target != nullptr;
}

UIView* UIBarButtonItem::shownView() {
    if (m_customView)
        return m_customView;
    if (m_button || (title().length() == 0 && !image()))
        return m_button;
    const auto button = UIButton::buttonWithType(UIButtonTypeSystem);
    constexpr CGFloat kFontSize = 17;
    button->titleLabel()->setFont(m_style == UIBarButtonItemStyleDone ? UIFont::boldSystemFontOfSize(kFontSize)
                                                                      : UIFont::systemFontOfSize(kFontSize));
    button->addTarget_action_forControlEvents(this, selector<&UIBarButtonItem::tapped>, UIControlEventTouchUpInside);
    m_button = button;
    itemChanged();
    return m_button;
}

void UIBarButtonItem::itemChanged() {
    auto* button = dynamic_cast<UIButton*>(m_button.get());
    if (!button)
        return;
    button->setTitle_forState(image() ? NSString() : title(), UIControlStateNormal);
    button->setImage_forState(image(), UIControlStateNormal);
    button->setEnabled(isEnabled());
    // The bar gives it its new room.
    if (UIView* bar = button->superview())
        bar->setNeedsLayout();
}

void UIBarButtonItem::tapped(NSObject*, UIEvent* event) {
    const Ref<NSObject> target = m_target.lock();
    UIApplication* application = UIApplication::sharedApplication();
    if (!application || (m_hasTarget && !target))
        return;
    if (target) {
        application->sendAction_to_from_forEvent(m_action, target, this, event);
        return;
    }
    // Upwards of the button: the item itself is no responder.
    UIResponder* taker = application->firstResponder();
    while (taker && !m_action.isAcceptedBy(taker))
        taker = taker->nextResponder();
    for (UIResponder* next = m_button; !taker && next; next = next->nextResponder())
        taker = m_action.isAcceptedBy(next) ? next : nullptr;
    if (taker)
        application->sendAction_to_from_forEvent(m_action, taker, this, event);
}

} // namespace zr
