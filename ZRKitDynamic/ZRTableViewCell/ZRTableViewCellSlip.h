#pragma once

#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowAction.h>
#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizerDelegate.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class UIPanGestureRecognizer;
class ZRTableView;
class ZRTableViewRowButton;

/// A row that a finger drags to the left to reveal buttons behind its right edge, in a `ZRTableView` whose data source
/// lets the row be swiped. Elsewhere it is a plain `ZRTableViewCell`.
///
/// Let go further left than the width of one button, the content stops where all the buttons show, and the row is open;
/// else it closes. While a row is open no other can be swiped. A tap of a button leaves the row open. A drag that is
/// cancelled leaves the content where the finger was; the next drag takes that for the place of rest.
///
/// Two fingers may drag two rows; the one that opens first stays open, and the other one closes.
///
/// All buttons should be of one width. Each lies at its own width times its number, and the strip that they are on is
/// as wide as their number times the last one's width, so buttons of several widths overlap or leave gaps. Widths that
/// are negative or no numbers count as 0.
///
/// A cell closes at once, and its table is free again, when it leaves the table (it scrolls out of sight, is deleted or
/// reloaded, or the table goes) and when its width changes. Main thread only.
class ZRTableViewCellSlip : public ZRTableViewCell, public UIGestureRecognizerDelegate {
public:
    bool initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) override;

    /// The row's actions, as of when the strip was made; nil ones are left out.
    const std::vector<Ref<ZRTableViewRowAction>>& titleList() const { return m_titleList; }
    virtual void setTitleList(const std::vector<Ref<ZRTableViewRowAction>>& actions);
    /// The strip of buttons, a subview of the cell; made of the table's actions when there is none. It goes when the
    /// row has closed.
    virtual UIView* zrEditingView();
    /// Whether the row can be swiped open: the table's answer, false outside of a `ZRTableView`.
    virtual bool zrCanEditing() const;

    /// @name Closing
    /// Both let the table scroll, and other rows be swiped.
    /// @{
    /// Closes the row within 0.2 s.
    virtual void removeCellSwipped();
    /// Closes the row at once. For applications, after an action that leaves the row in its place.
    virtual void resetSwipButton();
    /// @}

    /// @name Parts of the swipe
    /// @{
    /// The drag of the cell: its beginning, its moves and its end.
    virtual void panGesture(UIPanGestureRecognizer* recognizer);
    /// Lets content and strip follow a finger that is at the point of the cell, by no more than 8 points to the right
    /// of the place of rest. Ignored when the row cannot be swiped or a number is not finite.
    virtual void cellSwipedAnimationWithPoint(CGPoint point);
    /// The finger has gone: opens or closes within 0.2 s. The point does not count.
    virtual void finishedCellSwipedAnimationWithPoint(CGPoint point);
    /// Tells the table that the row opens.
    virtual void cellSwipedAction();
    /// Tells the table that the button was tapped.
    virtual void zrEditingButtonClicked(ZRTableViewRowButton* button);
    /// @}

    /// No for any while a row is open or closing (but on systems before 6), and for the cell's own drag when it is more
    /// vertical than horizontal. What the superviews recognise, as the table its scrolling, is not the cell's to stop.
    bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override;
    /// A drag goes together with other gestures while it has no vertical speed to speak of: 0.2 points a second.
    bool gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(UIGestureRecognizer* recognizer,
                                                                              UIGestureRecognizer* other) override;
    /// A row whose width has changed closes; else content and strip stay where they are.
    void layoutSubviews() override;
    /// The row closes at once: it comes into a table or leaves one.
    void willMoveToSuperview(UIView* superview) override;

protected:
    const KeyTable& keyTable() const override;

private:
    Ref<ZRTableView> swipeTable() const;
    bool isLocking(const ZRTableView* table) const;
    CGFloat stripWidth() const;
    CGFloat closedStripX() const;
    CGFloat openStripX() const;
    void placeCenters(CGFloat contentX, CGFloat stripX);
    void addButton(ZRTableViewRowAction* action, NSInteger index);
    void open(const Ref<ZRTableView>& table);
    void close(const Ref<ZRTableView>& table);
    void settle(const std::function<void()>& movement, const std::function<void()>& afterwards);
    void removeStrip();
    void resizeStrip();
    void placeAtRest();
    void freeTable(const Ref<ZRTableView>& table);
    void giveUp();

    Weak<UIPanGestureRecognizer> m_panGesture;
    Ref<UIView> m_zrEditingView;
    std::vector<Ref<ZRTableViewRowAction>> m_titleList;
    CGPoint m_defaultContentViewCenter;
    CGPoint m_zrStartEditingPoint;
    CGFloat m_actionButtonWidth = 0;
    /// Counts what moves the row: a completion whose movement is not the last one has nothing to clear away.
    unsigned m_movement = 0;
    /// The table that this row has locked as it opened. It may be free again, or locked by another row.
    Weak<ZRTableView> m_lockedTable;
};

} // namespace zr
#pragma GCC visibility pop
