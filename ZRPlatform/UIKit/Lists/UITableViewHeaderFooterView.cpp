#include <ZRPlatform/UIKit/Lists/UITableViewHeaderFooterView.h>

#include <algorithm>

namespace zr {

namespace {

constexpr CGFloat kMargin = 15;
constexpr CGFloat kFontSize = 14;

} // namespace

bool UITableViewHeaderFooterView::initWithReuseIdentifier(const NSString& reuseIdentifier) {
    if (!UIView::initWithFrame(CGRectZero))
        return false;
    m_reuseIdentifier = reuseIdentifier;
    m_contentView = make<UIView>();
    m_textLabel = make<UILabel>();
    m_textLabel->setFont(UIFont::boldSystemFontOfSize(kFontSize));
    addSubview(m_contentView);
    m_contentView->addSubview(m_textLabel);
    return true;
}

bool UITableViewHeaderFooterView::initWithFrame(CGRect frame) {
    if (!initWithReuseIdentifier(nullptr))
        return false;
    setFrame(frame);
    return true;
}

void UITableViewHeaderFooterView::setBackgroundView(UIView* view) {
    if (view == m_backgroundView.get())
        return;
    if (m_backgroundView && m_backgroundView->superview() == this)
        m_backgroundView->removeFromSuperview();
    m_backgroundView = view;
    insertSubview_atIndex(view, 0);
    setNeedsLayout();
}

void UITableViewHeaderFooterView::layoutSubviews() {
    const CGRect all = bounds();
    if (m_backgroundView)
        m_backgroundView->setFrame(all);
    m_contentView->setFrame(all);
    m_textLabel->setFrame({{kMargin, 0}, {std::max<CGFloat>(all.size.width - 2 * kMargin, 0), all.size.height}});
}

} // namespace zr
