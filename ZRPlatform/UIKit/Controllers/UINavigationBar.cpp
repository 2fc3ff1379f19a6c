#include <ZRPlatform/UIKit/Controllers/UINavigationBar.h>

#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controllers/Internal/NavigationBarContent.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ViewGlide.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <algorithm>

namespace zr {

namespace {

constexpr CGFloat kFontSize = 17;
constexpr CGFloat kMargin = 8;
constexpr NSUInteger kLongestTitle = 100;
constexpr NSUInteger kLongestBackTitle = 20;
/// How far titles glide, of the bar's width.
constexpr CGFloat kGlide = 0.3;

NSString shortened(const NSString& text, NSUInteger length) {
    return text.length() > length ? text.substringToIndex(length) : text;
}

} // namespace

// Content

void NavigationBarContent::replace(Ref<UIView>& view, UIView* other) {
    if (view == other && (!other || other->superview() == this))
        return;
    // It may show in another bar's content by now.
    if (view && view->superview() == this)
        view->removeFromSuperview();
    view = other;
    addSubview(other);
}

Ref<UIView> NavigationBarContent::makeTitle(UINavigationItem* item, const UINavigationBar* bar) const {
    if (item->titleView())
        return item->titleView();
    if (item->title().length() == 0)
        return nullptr;
    auto label = make<UILabel>();
    label->setText(shortened(item->title(), kLongestTitle));
    label->setFont(UIFont::boldSystemFontOfSize(kFontSize));
    label->setTextColor(bar->titleColor());
    label->setTextAlignment(NSTextAlignmentCenter);
    label->sizeToFit();
    return label;
}

Ref<UIView> NavigationBarContent::makeLeft(UINavigationItem* item, UINavigationItem* back,
                                           const UINavigationBar* bar) const {
    if (item->leftBarButtonItem())
        return item->leftBarButtonItem()->shownView();
    if (!back || item->hidesBackButton())
        return nullptr;
    NSString title = back->backBarButtonItem() ? back->backBarButtonItem()->title() : back->title();
    if (title.length() == 0)
        title = "Back";
    const auto button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->titleLabel()->setFont(UIFont::systemFontOfSize(kFontSize));
    button->setTitle_forState(NSString("‹ ").stringByAppendingString(shortened(title, kLongestBackTitle)),
                              UIControlStateNormal);
    const Ref<NSObject> target = bar->m_backTarget.lock();
    button->addTarget_action_forControlEvents(target, bar->m_backAction, UIControlEventTouchUpInside);
    return button;
}

void NavigationBarContent::showItem(UINavigationItem* item, UINavigationItem* back, UINavigationBar* bar) {
    m_leftIsBack = item && !item->leftBarButtonItem();
    UIBarButtonItem* right = item ? item->rightBarButtonItem() : nullptr;
    replace(m_title, item ? makeTitle(item, bar) : nullptr);
    replace(m_left, item ? makeLeft(item, back, bar) : nullptr);
    replace(m_right, right ? right->shownView() : nullptr);
    setNeedsLayout();
}

void NavigationBarContent::layoutSubviews() {
    const CGSize size = bounds().size;
    CGFloat leftEnd = kMargin, rightEnd = size.width - kMargin;
    // Buttons are as high as the bar, to be hit easily; views of one's own keep their size.
    const auto fit = [&](UIView* view) {
        if (!dynamic_cast<UIButton*>(view))
            return view->bounds().size;
        return CGSize{std::min(view->sizeThatFits(CGSizeZero).width, size.width / 3), size.height};
    };
    if (m_left && m_left->superview() == this) {
        const CGSize wanted = fit(m_left);
        m_left->setFrame({{kMargin, (size.height - wanted.height) / 2}, wanted});
        leftEnd += wanted.width + kMargin;
    }
    if (m_right && m_right->superview() == this) {
        const CGSize wanted = fit(m_right);
        m_right->setFrame({{rightEnd - wanted.width, (size.height - wanted.height) / 2}, wanted});
        rightEnd -= wanted.width + kMargin;
    }
    if (!m_title || m_title->superview() != this)
        return;
    CGSize wanted = m_title->sizeThatFits(CGSizeZero);
    wanted.width = std::clamp<CGFloat>(rightEnd - leftEnd, 0, wanted.width);
    const CGFloat middle = (size.width - wanted.width) / 2;
    const CGFloat x = std::max(leftEnd, std::min(middle, rightEnd - wanted.width));
    m_title->setFrame({{x, (size.height - wanted.height) / 2}, wanted});
}

// The bar

UINavigationBar::UINavigationBar() = default;
UINavigationBar::~UINavigationBar() = default;

bool UINavigationBar::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    m_background = make<UIView>();
    m_hairline = make<UIView>();
    m_hairline->setBackgroundColor(UIColor::colorWithWhite_alpha(0, 0.3));
    m_background->setUserInteractionEnabled(false);
    m_background->addSubview(m_hairline);
    addSubview(m_background);
    showColors();
    m_content = makeContent();
    return true;
}

UINavigationItem* UINavigationBar::topItem() const { return m_items.empty() ? nullptr : m_items.back().get(); }

UINavigationItem* UINavigationBar::backItem() const {
    return m_items.size() < 2 ? nullptr : m_items[m_items.size() - 2].get();
}

void UINavigationBar::takeItems(const std::vector<Ref<UINavigationItem>>& items) {
    for (const auto& item : m_items) {
        if (item->m_bar.get() == this)
            item->m_bar = nullptr;
    }
    m_items = items;
    std::erase(m_items, nullptr);
    for (const auto& item : m_items)
        item->m_bar = this;
}

void UINavigationBar::setItems(const std::vector<Ref<UINavigationItem>>& items) {
    if (items == m_items && !m_formerContent)
        return;
    removeFormerContent();
    takeItems(items);
    m_content->showItem(topItem(), backItem(), this);
}

Ref<NavigationBarContent> UINavigationBar::makeContent() {
    auto content = make<NavigationBarContent>();
    placeAtOnce(content, bounds());
    addSubview(content);
    return content;
}

void UINavigationBar::setItems_glidingWith(const std::vector<Ref<UINavigationItem>>& items, bool isPush,
                                           ViewGlide* glide) {
    removeFormerContent();
    takeItems(items);
    m_formerContent = m_content;
    m_content = makeContent();
    m_content->showItem(topItem(), backItem(), this);
    const CGPoint home = m_content->center();
    const CGFloat way = bounds().size.width * (isPush ? kGlide : -kGlide);
    glide->addPath({m_formerContent, home, {home.x - way, home.y}, 1, 0});
    glide->addPath({m_content, {home.x + way, home.y}, home, 0, 1});
    m_content->setUserInteractionEnabled(false);
    m_formerContent->setUserInteractionEnabled(false);
}

void UINavigationBar::removeFormerContent() {
    if (m_formerContent)
        m_formerContent->removeFromSuperview();
    m_formerContent = nullptr;
    m_content->setUserInteractionEnabled(true);
    UIView::performWithoutAnimation([this] {
        m_content->setAlpha(1);
        m_content->setCenter(centerOfFrame(bounds()));
    });
}

void UINavigationBar::itemChanged(const UINavigationItem* item) {
    if (item == topItem() || item == backItem())
        m_content->showItem(topItem(), backItem(), this);
}

void UINavigationBar::setBackTarget_action(NSObject* target, SEL action) {
    m_backTarget = target;
    m_backAction = action;
}

// Look

void UINavigationBar::setBarTintColor(UIColor* color) {
    m_barTintColor = color;
    showColors();
}

void UINavigationBar::setTitleColor(UIColor* color) {
    m_titleColor = color;
    m_content->showItem(topItem(), backItem(), this);
}

void UINavigationBar::showColors() {
    static UIColor* const nearlyWhite = UIColor::colorWithWhite_alpha(247 / 255.0, 1).leak();
    m_background->setBackgroundColor(m_barTintColor ? m_barTintColor.get() : nearlyWhite);
}

void UINavigationBar::layoutSubviews() {
    const UIApplication* application = UIApplication::sharedApplication();
    const CGFloat statusBarHeight = application ? application->statusBarFrame().size.height : 0;
    const CGFloat above = std::clamp<CGFloat>(frame().origin.y, 0, statusBarHeight);
    const CGSize size = bounds().size;
    const CGFloat hairline = 1 / UIScreen::mainScreen()->scale();
    m_background->setFrame({{0, -above}, {size.width, size.height + above}});
    m_hairline->setFrame({{0, size.height + above}, {size.width, hairline}});
    // What glides comes to the right place by itself.
    if (m_formerContent)
        return;
    m_content->setFrame(bounds());
}

} // namespace zr
