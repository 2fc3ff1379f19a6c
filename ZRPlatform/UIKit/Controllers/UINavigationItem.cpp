#include <ZRPlatform/UIKit/Controllers/UINavigationItem.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationBar.h>

namespace zr {

bool UINavigationItem::initWithTitle(const NSString& title) {
    m_title = title;
    return init();
}

void UINavigationItem::setTitle(const NSString& title) {
    setObservable(m_title, title, "title");
    itemChanged();
}

void UINavigationItem::setTitleView(UIView* view) {
    m_titleView = view;
    itemChanged();
}

void UINavigationItem::setHidesBackButton(bool hides) {
    m_hidesBackButton = hides;
    itemChanged();
}

void UINavigationItem::setBackBarButtonItem(UIBarButtonItem* item) {
    m_backItem = item;
    itemChanged();
}

void UINavigationItem::setLeftBarButtonItem(UIBarButtonItem* item) {
    m_leftItem = item;
    itemChanged();
}

void UINavigationItem::setRightBarButtonItem(UIBarButtonItem* item) {
    m_rightItem = item;
    itemChanged();
}

void UINavigationItem::itemChanged() {
    if (UINavigationBar* bar = m_bar.get())
        bar->itemChanged(this);
}

const KeyTable& UINavigationItem::keyTable() const {
    static const KeyTable table(
        NSObject::keyTable(),
        {key<&UINavigationItem::title, &UINavigationItem::setTitle>("title"),
         key<&UINavigationItem::titleView, &UINavigationItem::setTitleView>("titleView"),
         key<&UINavigationItem::hidesBackButton, &UINavigationItem::setHidesBackButton>("hidesBackButton"),
         key<&UINavigationItem::backBarButtonItem, &UINavigationItem::setBackBarButtonItem>("backBarButtonItem"),
         key<&UINavigationItem::leftBarButtonItem, &UINavigationItem::setLeftBarButtonItem>("leftBarButtonItem"),
         key<&UINavigationItem::rightBarButtonItem, &UINavigationItem::setRightBarButtonItem>("rightBarButtonItem")});
    return table;
}

} // namespace zr
