#include <ZRPlatform/UIKit/Controllers/UITabBar.h>

#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kFontSize = 10;
constexpr CGFloat kTitleHeight = 13;
/// Between the tab's lower edge and its title.
constexpr CGFloat kTitleMargin = 1;
constexpr NSUInteger kLongestTitle = 50;

/// One tab: a picture over a title.
class TabView : public UIControl {
public:
    bool initWithFrame(CGRect frame) override {
        if (!UIControl::initWithFrame(frame))
            return false;
        m_image = make<UIImageView>();
        m_image->setContentMode(UIViewContentModeCenter);
        m_label = make<UILabel>();
        m_label->setFont(UIFont::systemFontOfSize(kFontSize));
        m_label->setTextAlignment(NSTextAlignmentCenter);
        addSubview(m_image);
        addSubview(m_label);
        return true;
    }

    void showItem(const UITabBarItem* item, bool isSelected) {
        setSelected(isSelected);
        setEnabled(item->isEnabled());
        const NSString& title = item->title();
        m_label->setText(title.length() > kLongestTitle ? title.substringToIndex(kLongestTitle) : title);
        m_label->setEnabled(item->isEnabled());
        m_image->setImage(isSelected && item->selectedImage() ? item->selectedImage() : item->image());
        tintColorDidChange();
    }

    void tintColorDidChange() override {
        if (!m_label)
            return;
        m_label->setTextColor(isSelected() ? tintColor() : UIColor::grayColor());
        m_image->setTintColor(isSelected() ? nullptr : UIColor::grayColor());
    }

    void layoutSubviews() override {
        const CGSize size = bounds().size;
        const CGFloat titleTop = size.height - kTitleHeight - kTitleMargin;
        m_label->setFrame({{0, titleTop}, {size.width, kTitleHeight}});
        m_image->setFrame({{0, 0}, {size.width, std::max<CGFloat>(0, titleTop)}});
    }

private:
    Ref<UIImageView> m_image;
    Ref<UILabel> m_label;
};

} // namespace

bool UITabBar::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    m_hairline = make<UIView>();
    m_hairline->setBackgroundColor(UIColor::colorWithWhite_alpha(0, 0.3));
    m_hairline->setUserInteractionEnabled(false);
    addSubview(m_hairline);
    setBarTintColor(nullptr);
    return true;
}

void UITabBar::setBarTintColor(UIColor* color) {
    static UIColor* const nearlyWhite = UIColor::colorWithWhite_alpha(247 / 255.0, 1).leak();
    m_barTintColor = color;
    setBackgroundColor(color ? color : nearlyWhite);
}

void UITabBar::setItems(const std::vector<Ref<UITabBarItem>>& items) {
    for (const auto& item : m_items) {
        if (item->m_bar.get() == this)
            item->m_bar = nullptr;
    }
    for (const auto& tab : m_tabs)
        tab->removeFromSuperview();
    m_tabs.clear();
    m_items = items;
    std::erase(m_items, nullptr);
    if (std::find(m_items.begin(), m_items.end(), m_selectedItem) == m_items.end())
        m_selectedItem = nullptr;
    for (const auto& item : m_items) {
        item->m_bar = this;
        const auto tab = make<TabView>();
        tab->addTarget_action_forControlEvents(this, selector<&UITabBar::tabTapped>, UIControlEventTouchUpInside);
        m_tabs.emplace_back(tab);
        addSubview(tab);
    }
    showItems();
    setNeedsLayout();
}

void UITabBar::setSelectedItem(UITabBarItem* item) {
    if (item && std::find(m_items.begin(), m_items.end(), Ref<UITabBarItem>(item)) == m_items.end())
        return;
    m_selectedItem = item;
    showItems();
}

void UITabBar::itemChanged() { showItems(); }

void UITabBar::showItems() {
    for (std::size_t i = 0; i < m_tabs.size(); ++i)
        static_cast<TabView*>(m_tabs[i].get())->showItem(m_items[i], m_items[i] == m_selectedItem);
}

void UITabBar::tabTapped(NSObject* tab) {
    const auto found =
        std::find_if(m_tabs.begin(), m_tabs.end(), [tab](const Ref<UIControl>& each) { return each.get() == tab; });
    if (found == m_tabs.end())
        return;
    const Ref<UITabBar> keep = this;
    const Ref<UITabBarItem> item = m_items[static_cast<std::size_t>(found - m_tabs.begin())];
    const Ref<NSObject> delegate = m_delegate.object();
    setSelectedItem(item);
    if (m_delegate)
        m_delegate->tabBar_didSelectItem(this, item);
}

void UITabBar::layoutSubviews() {
    const CGSize size = bounds().size;
    m_hairline->setFrame({{0, 0}, {size.width, 1 / UIScreen::mainScreen()->scale()}});
    const auto count = static_cast<CGFloat>(m_tabs.size());
    for (std::size_t i = 0; i < m_tabs.size(); ++i) {
        const CGFloat left = std::round(size.width * static_cast<CGFloat>(i) / count);
        const CGFloat right = std::round(size.width * static_cast<CGFloat>(i + 1) / count);
        m_tabs[i]->setFrame({{left, 0}, {right - left, size.height}});
    }
}

} // namespace zr
