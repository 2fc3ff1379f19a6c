#pragma once

#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationItem.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr { // not exported
class NavigationBarContent;
class NavigationTransition;
class ViewGlide;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// A strip with the title of a screen in the middle, a way back at the left and room for one button on either side. Its
/// colour reaches up under the status bar. 44 points high in a `UINavigationController`, which fills it.
class UINavigationBar : public UIView {
public:
    UINavigationBar();
    ~UINavigationBar() override;
    bool initWithFrame(CGRect frame) override;

    /// The screens' items, lowest first; the last one is shown.
    const std::vector<Ref<UINavigationItem>>& items() const { return m_items; }
    /// Shows other items, without animation. Nil ones are left out.
    virtual void setItems(const std::vector<Ref<UINavigationItem>>& items);
    /// The item that is shown; nil for none.
    UINavigationItem* topItem() const;
    /// The item below it, which the way back leads to; nil for none.
    UINavigationItem* backItem() const;
    /// The ground of the bar; kept. Nearly white at first, and when nil.
    UIColor* barTintColor() const { return m_barTintColor; }
    virtual void setBarTintColor(UIColor* color);
    /// The colour of the titles; kept. Black at first, and when nil.
    UIColor* titleColor() const { return m_titleColor; }
    virtual void setTitleColor(UIColor* color);

    void layoutSubviews() override;

private:
    friend class NavigationBarContent;
    friend class NavigationTransition;
    friend class UINavigationController;
    friend class UINavigationItem;

    void setBackTarget_action(NSObject* target, SEL action);
    /// As `setItems`, but what was shown stays in front until `removeFormerContent`: both glide.
    void setItems_glidingWith(const std::vector<Ref<UINavigationItem>>& items, bool isPush, ViewGlide* glide);
    void removeFormerContent();
    void itemChanged(const UINavigationItem* item);
    void takeItems(const std::vector<Ref<UINavigationItem>>& items);
    Ref<NavigationBarContent> makeContent();
    void showColors();

    std::vector<Ref<UINavigationItem>> m_items;
    Ref<UIView> m_background;
    Ref<UIView> m_hairline;
    Ref<NavigationBarContent> m_content;
    /// What was shown, while it glides away.
    Ref<NavigationBarContent> m_formerContent;
    Ref<UIColor> m_barTintColor;
    Ref<UIColor> m_titleColor;
    Weak<NSObject> m_backTarget;
    SEL m_backAction;
};

} // namespace zr
#pragma GCC visibility pop
