#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <cstdint>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class UITapGestureRecognizer;

/// A white-outlined pill of equal segments, one of them selected: white with green text, where the others show what is
/// behind them. For coloured bars. Each segment is 94 x 29 points.
///
/// Sends UIControlEventValueChanged when the selection changes, by a tap or by code, before it shows. Main thread only.
class ZRSegmentedControl : public UIControl {
public:
    /// `items`: one title a segment, copied. The control lies at the origin, as wide as its segments.
    virtual bool initWithItems(const std::vector<NSString>& items);
    /// Looks, labels and the tap; part of the initialiser.
    virtual void initViews();

    /// The initialiser's items, or what was set.
    const std::vector<NSString>& titles() const { return m_titles; }
    /// The number of titles is the range of indices. Changes no label and no width.
    virtual void setTitles(const std::vector<NSString>& titles) { m_titles = titles; }
    /// One label a title, in the same order, on the control; nil ones are passed over. Setting them adds none to the
    /// control and takes none off.
    const std::vector<Ref<UILabel>>& titleLabels() const { return m_titleLabels; }
    virtual void setTitleLabels(const std::vector<Ref<UILabel>>& labels) { m_titleLabels = labels; }

    /// The selected segment, counted from the left; 0 at first.
    std::int64_t selectedSegmentIndex() const { return m_selectedSegmentIndex; }
    /// Selects a segment. Out-of-range values select the nearest; without segments, any index from 0 on is kept. Tells
    /// the targets of a change, and shows it whatever they do.
    virtual void setSelectedSegmentIndex(std::int64_t index);

    /// Changes a segment's title and its label's text. Ignored for an index beyond the last, and for a nil title.
    virtual void setTitle_forSegmentAtIndex(const NSString& title, NSUInteger index);
    /// A segment's title; nil beyond the last.
    virtual NSString titleForSegmentAtIndex(NSUInteger index) const;

    /// Selects the segment under the tap. Not called while the control is disabled.
    virtual void segmentedControlTaped(UITapGestureRecognizer* recognizer);
    /// The left and right arrows select the segment beside the selected one, if there is one.
    bool keyPressed(UIKey key, unsigned modifiers) override;
    /// Places the labels and colours them.
    virtual void updateSelectedSegment();
    /// The corners stay rounded to half the height.
    void layoutSubviews() override;

    /// Not the control's own while it is disabled; others as for every control.
    bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override;

protected:
    const KeyTable& keyTable() const override;

private:
    std::vector<NSString> m_titles;
    std::vector<Ref<UILabel>> m_titleLabels;
    std::int64_t m_selectedSegmentIndex = 0;
};

} // namespace zr
#pragma GCC visibility pop
