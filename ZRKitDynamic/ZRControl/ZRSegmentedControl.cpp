#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Gestures/UITapGestureRecognizer.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kSegmentWidth = 94;
constexpr CGFloat kHeight = 29;
/// Farther from the control than any tap is, in segments.
constexpr CGFloat kFarAway = 1e9;

CGRect segmentFrame(std::size_t index) {
    return CGRectMake(static_cast<CGFloat>(index) * kSegmentWidth, 0, kSegmentWidth, kHeight);
}

} // namespace

// Construction

bool ZRSegmentedControl::initWithItems(const std::vector<NSString>& items) {
    if (!initWithFrame(CGRectZero))
        return false;
    m_titles = items;
    m_titleLabels.clear();
    initViews();
    return true;
}

void ZRSegmentedControl::initViews() {
    setClipsToBounds(true);
    layer()->setBorderWidth(1);
    layer()->setBorderColor(UIColor::whiteColor()->cgColor());
    setBackgroundColor(UIColor::clearColor());
    layer()->setCornerRadius(frame().size.height * 0.5);
    setFrame(CGRectMake(0, 0, static_cast<CGFloat>(m_titles.size()) * kSegmentWidth, kHeight));
    addGestureRecognizer(make<UITapGestureRecognizer>(&UITapGestureRecognizer::initWithTarget_action, this,
                                                      selector<&ZRSegmentedControl::segmentedControlTaped>));
    for (const NSString& title : m_titles) {
        const auto label = make<UILabel>(&UILabel::initWithFrame, segmentFrame(0));
        label->setText(title);
        label->layer()->setBorderWidth(0.5);
        label->layer()->setBorderColor(UIColor::whiteColor()->cgColor());
        label->setTextAlignment(NSTextAlignmentCenter);
        label->setFont(UIFont::systemFontOfSize(13));
        label->setBackgroundColor(UIColor::clearColor());
        addSubview(label);
        m_titleLabels.push_back(label);
    }
    updateSelectedSegment();
}

const KeyTable& ZRSegmentedControl::keyTable() const {
    static const KeyTable table(
        UIControl::keyTable(),
        {key<&ZRSegmentedControl::selectedSegmentIndex, &ZRSegmentedControl::setSelectedSegmentIndex>(
            "selectedSegmentIndex")});
    return table;
}

// Selection

bool ZRSegmentedControl::gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) {
    const bool isOurs = recognizer && recognizer->view() == this;
    return (isEnabled() || !isOurs) && UIControl::gestureRecognizerShouldBegin(recognizer);
}

void ZRSegmentedControl::segmentedControlTaped(UITapGestureRecognizer* recognizer) {
    if (!recognizer)
        return;
    const CGFloat segment = recognizer->locationInView(this).x / kSegmentWidth;
    if (std::abs(segment) < kFarAway)
        setSelectedSegmentIndex(static_cast<std::int64_t>(segment));
}

bool ZRSegmentedControl::keyPressed(UIKey key, unsigned modifiers) {
    if (key != UIKey::Left && key != UIKey::Right)
        return UIControl::keyPressed(key, modifiers);
    setSelectedSegmentIndex(m_selectedSegmentIndex + (key == UIKey::Left ? -1 : 1));
    return true;
}

void ZRSegmentedControl::setSelectedSegmentIndex(std::int64_t index) {
    const Ref<ZRSegmentedControl> keep = this; // a target may drop it
    index = std::max<std::int64_t>(index, 0);
    if (!m_titles.empty())
        index = std::min<std::int64_t>(index, static_cast<std::int64_t>(m_titles.size()) - 1);
    if (index != m_selectedSegmentIndex) {
        m_selectedSegmentIndex = index;
        sendActionsForControlEvents(UIControlEventValueChanged);
    }
    // Whatever a target has selected meanwhile.
    setObservable(m_selectedSegmentIndex, index, "selectedSegmentIndex");
    updateSelectedSegment();
}

void ZRSegmentedControl::updateSelectedSegment() {
    const Ref<UIColor> selectedText = ZRColor::zrColorWithRed_green_blue_alpha(45, 167, 5, 1);
    for (std::size_t i = 0; i < m_titleLabels.size(); ++i) {
        UILabel* label = m_titleLabels[i];
        if (!label)
            continue;
        const bool isSelected = static_cast<std::int64_t>(i) == m_selectedSegmentIndex;
        label->setFrame(segmentFrame(i));
        label->setBackgroundColor(isSelected ? UIColor::whiteColor() : UIColor::clearColor());
        label->setTextColor(isSelected ? selectedText.get() : UIColor::whiteColor());
    }
}

// Titles

void ZRSegmentedControl::setTitle_forSegmentAtIndex(const NSString& title, NSUInteger index) {
    if (index >= m_titles.size() || title.isNil())
        return;
    m_titles[index] = title;
    if (index < m_titleLabels.size() && m_titleLabels[index])
        m_titleLabels[index]->setText(title);
}

NSString ZRSegmentedControl::titleForSegmentAtIndex(NSUInteger index) const {
    return index < m_titles.size() ? m_titles[index] : nullptr;
}

// Layout

void ZRSegmentedControl::layoutSubviews() {
    UIControl::layoutSubviews();
    layer()->setCornerRadius(frame().size.height * 0.5);
    for (std::size_t i = 0; i < m_titleLabels.size(); ++i) {
        if (m_titleLabels[i])
            m_titleLabels[i]->setFrame(segmentFrame(i));
    }
}

} // namespace zr
