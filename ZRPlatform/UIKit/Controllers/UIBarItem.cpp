#include <ZRPlatform/UIKit/Controllers/UIBarItem.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

namespace zr {

void UIBarItem::setTitle(const NSString& title) {
    setObservable(m_title, title, "title");
    itemChanged();
}

void UIBarItem::setImage(UIImage* image) {
    m_image = image;
    itemChanged();
}

void UIBarItem::setEnabled(bool enabled) {
    m_enabled = enabled;
    itemChanged();
}

const KeyTable& UIBarItem::keyTable() const {
    static const KeyTable table(NSObject::keyTable(), {key<&UIBarItem::title, &UIBarItem::setTitle>("title"),
                                                       key<&UIBarItem::image, &UIBarItem::setImage>("image"),
                                                       key<&UIBarItem::isEnabled, &UIBarItem::setEnabled>("enabled"),
                                                       key<&UIBarItem::tag, &UIBarItem::setTag>("tag")});
    return table;
}

} // namespace zr
