#pragma once

#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#pragma GCC visibility push(default)
namespace zr {

/// What an item in a bar has: a title, a picture, and whether it can be tapped.
class UIBarItem : public NSObject {
public:
    /// What the item says; nil for nothing.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title);
    /// The item's picture; nil for none.
    UIImage* image() const { return m_image; }
    virtual void setImage(UIImage* image);
    /// Whether it can be tapped; true at first.
    bool isEnabled() const { return m_enabled; }
    virtual void setEnabled(bool enabled);
    /// For the application's own use; 0 at first.
    NSInteger tag() const { return m_tag; }
    void setTag(NSInteger tag) { m_tag = tag; }

protected:
    const KeyTable& keyTable() const override;
    /// Called after a change that shows.
    virtual void itemChanged() {}

private:
    NSString m_title;
    Ref<UIImage> m_image;
    NSInteger m_tag = 0;
    bool m_enabled = true;
};

} // namespace zr
#pragma GCC visibility pop
