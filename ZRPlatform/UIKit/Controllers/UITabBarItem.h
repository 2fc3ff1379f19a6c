#pragma once

#include <ZRPlatform/Foundation/Weak.h>
#include <ZRPlatform/UIKit/Controllers/UIBarItem.h>

#pragma GCC visibility push(default)
namespace zr {

class UITabBar;

/// One tab of a tab bar. A change shows at once.
class UITabBarItem : public UIBarItem {
public:
    /// Title and images may be nil.
    virtual bool initWithTitle_image_tag(const NSString& title, UIImage* image, NSInteger tag);
    /// The same with a picture of its own for the selected tab, and 0 as the tag.
    virtual bool initWithTitle_image_selectedImage(const NSString& title, UIImage* image, UIImage* selectedImage);

    /// Shown while the tab is selected; with nil `image` is. Kept.
    UIImage* selectedImage() const { return m_selectedImage; }
    virtual void setSelectedImage(UIImage* image);

protected:
    void itemChanged() override;

private:
    friend class UITabBar;

    Ref<UIImage> m_selectedImage;
    /// The bar that shows this item.
    Weak<UITabBar> m_bar;
};

} // namespace zr
#pragma GCC visibility pop
