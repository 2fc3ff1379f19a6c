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

    const std::vector<NSString>& titles() const { return m_titles; }
    /// Their number is the range of indices. Changes no label and no width.
    virtual void setTitles(const std::vector<NSString>& titles) { m_titles = titles; }
    /// One a title, in the same order; nil ones are passed over.
    const std::vector<Ref<UILabel>>& titleLabels() const { return m_titleLabels; }
    virtual void setTitleLabels(const std::vector<Ref<UILabel>>& labels) { m_titleLabels = labels; }

    /// 0 at first.
    std::int64_t selectedSegmentIndex() const { return m_selectedSegmentIndex; }
    /// Out-of-range values select the nearest segment; without segments, any index from 0 on is kept. Tells the targets
    /// of a change, and shows it whatever they do.
    virtual void setSelectedSegmentIndex(std::int64_t index);

    /// Ignored for an index beyond the last, and for a nil title.
    virtual void setTitle_forSegmentAtIndex(const NSString& title, NSUInteger index);
    /// Nil beyond the last.
    virtual NSString titleForSegmentAtIndex(NSUInteger index) const;

    /// Selects the segment under the tap. Not called while the control is disabled.
    virtual void segmentedControlTaped(UITapGestureRecognizer* recognizer);
    /// The left and right arrows select the segment beside the selected one, if there is one.
    bool keyPressed(UIKey key, unsigned modifiers) override;
    /// Places the labels and colours them.
    virtual void updateSelectedSegment();
    /// The corners stay rounded to half the height.
    void layoutSubviews() override;
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
