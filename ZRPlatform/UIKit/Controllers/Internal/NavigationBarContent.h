#pragma once

#include <ZRPlatform/UIKit/Controllers/UINavigationBar.h>

namespace zr {

class UIButton;
class UILabel;

/// What a navigation bar shows of one item: the title between a left and a right button.
class NavigationBarContent : public UIView {
public:
    /// A nil item shows nothing; a nil `back` gives no back button.
    void showItem(UINavigationItem* item, UINavigationItem* back, UINavigationBar* bar);
    void layoutSubviews() override;

private:
    Ref<UIView> makeTitle(UINavigationItem* item, const UINavigationBar* bar) const;
    Ref<UIView> makeLeft(UINavigationItem* item, UINavigationItem* back, const UINavigationBar* bar) const;
    void replace(Ref<UIView>& view, UIView* other);

    Ref<UIView> m_title;
    Ref<UIView> m_left;
    Ref<UIView> m_right;
    bool m_leftIsBack = false;
};

} // namespace zr
