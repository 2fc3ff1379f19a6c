#pragma once

#include <ZRPlatform/Foundation/Weak.h>
#include <ZRPlatform/UIKit/Controllers/UIBarButtonItem.h>

#pragma GCC visibility push(default)
namespace zr {

class UINavigationBar;

/// What a navigation bar shows of one screen. A change shows at once.
class UINavigationItem : public NSObject {
public:
    /// `title`: may be nil.
    virtual bool initWithTitle(const NSString& title);

    /// The bar shows the first 100 characters at most, and on the back button of the next screen the first 20.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title);
    /// Shows in place of the title; it keeps its size. Nil at first.
    UIView* titleView() const { return m_titleView; }
    virtual void setTitleView(UIView* view);
    /// Whether the screen shows no way back; false at first. Without a back button a swipe from the edge does not pop
    /// either.
    bool hidesBackButton() const { return m_hidesBackButton; }
    virtual void setHidesBackButton(bool hides);
    /// Its title stands on the back button of the next screen, in place of this one's title. Nil at first.
    UIBarButtonItem* backBarButtonItem() const { return m_backItem; }
    virtual void setBackBarButtonItem(UIBarButtonItem* item);
    /// The item at the left, in place of the back button. Nil at first.
    UIBarButtonItem* leftBarButtonItem() const { return m_leftItem; }
    virtual void setLeftBarButtonItem(UIBarButtonItem* item);
    /// The item at the right. Nil at first.
    UIBarButtonItem* rightBarButtonItem() const { return m_rightItem; }
    virtual void setRightBarButtonItem(UIBarButtonItem* item);

protected:
    const KeyTable& keyTable() const override;

private:
    friend class UINavigationBar;

    void itemChanged();

    NSString m_title;
    Ref<UIView> m_titleView;
    Ref<UIBarButtonItem> m_backItem;
    Ref<UIBarButtonItem> m_leftItem;
    Ref<UIBarButtonItem> m_rightItem;
    bool m_hidesBackButton = false;
    /// The bar that shows this item.
    Weak<UINavigationBar> m_bar;
};

} // namespace zr
#pragma GCC visibility pop
