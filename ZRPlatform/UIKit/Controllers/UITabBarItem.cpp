#include <ZRPlatform/UIKit/Controllers/UITabBarItem.h>

#include <ZRPlatform/UIKit/Controllers/UITabBar.h>

namespace zr {

bool UITabBarItem::initWithTitle_image_tag(const NSString& title, UIImage* image, NSInteger tag) {
    if (!init())
        return false;
    setTitle(title);
    setImage(image);
    setTag(tag);
    return true;
}

bool UITabBarItem::initWithTitle_image_selectedImage(const NSString& title, UIImage* image, UIImage* selectedImage) {
    m_selectedImage = selectedImage;
    return initWithTitle_image_tag(title, image, 0);
}

void UITabBarItem::setSelectedImage(UIImage* image) {
    m_selectedImage = image;
    itemChanged();
}

void UITabBarItem::itemChanged() {
    if (UITabBar* bar = m_bar.get())
        bar->itemChanged();
}

} // namespace zr
