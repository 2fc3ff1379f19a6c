#pragma once

#include <ZRPlatform/UIKit/Controllers/UITabBarItem.h>
#include <ZRPlatform/UIKit/Controls/UIControl.h>

#pragma GCC visibility push(default)
namespace zr {

/// Told of taps on the tabs.
class UITabBarDelegate {
public:
    virtual ~UITabBarDelegate() = default;
    /// The user tapped a tab, which is selected now; the selected one's tap is told too.
    virtual void tabBar_didSelectItem(UITabBar*, UITabBarItem*) {}
};

/// A strip of equally wide tabs, a picture over a title each, one of them selected. 49 points high in a
/// `UITabBarController`, which fills it. However many there are, all share the width.
class UITabBar : public UIView {
public:
    bool initWithFrame(CGRect frame) override;

    /// From left to right; kept.
    const std::vector<Ref<UITabBarItem>>& items() const { return m_items; }
    /// Nil ones are left out. The selected one stays so when it is among them; else none is.
    virtual void setItems(const std::vector<Ref<UITabBarItem>>& items);
    /// The item of the selected tab; nil for none.
    UITabBarItem* selectedItem() const { return m_selectedItem; }
    /// Ignored when it is not in the bar. The delegate is not told.
    virtual void setSelectedItem(UITabBarItem* item);
    /// Told of taps on the tabs; not kept. Nil at first.
    UITabBarDelegate* delegate() const { return m_delegate; }
    void setDelegate(const Delegate<UITabBarDelegate>& delegate) { m_delegate = delegate; }
    /// The ground of the bar; kept. Nearly white at first, and when nil.
    UIColor* barTintColor() const { return m_barTintColor; }
    virtual void setBarTintColor(UIColor* color);

    void layoutSubviews() override;

private:
    friend class UITabBarItem;

    void itemChanged();
    void tabTapped(NSObject* tab);
    void showItems();

    std::vector<Ref<UITabBarItem>> m_items;
    /// One an item.
    std::vector<Ref<UIControl>> m_tabs;
    Ref<UITabBarItem> m_selectedItem;
    Ref<UIView> m_hairline;
    Ref<UIColor> m_barTintColor;
    Delegate<UITabBarDelegate> m_delegate;
};

} // namespace zr
#pragma GCC visibility pop
