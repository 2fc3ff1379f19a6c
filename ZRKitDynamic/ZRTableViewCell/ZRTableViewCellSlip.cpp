#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>

#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowButton.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>
#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zr {

namespace {

/// How far the content goes to the right.
constexpr CGFloat kSlack = 8;
/// Points a second; a finger that is slower moves horizontally only.
constexpr CGFloat kVerticalRest = 0.2;
constexpr NSTimeInterval kSettling = 0.2;
/// The last system on which a drag may begin while a row is open.
constexpr int kLastVersionWithoutLock = 5;

CGFloat usableWidth(CGFloat width) { return std::isfinite(width) ? std::max<CGFloat>(width, 0) : 0; }

} // namespace

// Construction

bool ZRTableViewCellSlip::initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) {
    if (!ZRTableViewCell::initWithStyle_reuseIdentifier(style, reuseIdentifier))
        return false;
    const auto pan = make<UIPanGestureRecognizer>(&UIGestureRecognizer::initWithTarget_action, this,
                                                  selector<&ZRTableViewCellSlip::panGesture>);
    pan->setDelegate(this);
    addGestureRecognizer(pan);
    m_panGesture = pan;
    m_defaultContentViewCenter = contentView()->center();
    return true;
}

const KeyTable& ZRTableViewCellSlip::keyTable() const {
    static const KeyTable table(
        ZRTableViewCell::keyTable(),
        {key<&ZRTableViewCellSlip::titleList, &ZRTableViewCellSlip::setTitleList>("titleList")});
    return table;
}

Ref<ZRTableView> ZRTableViewCellSlip::swipeTable() const { return dynamic_cast<ZRTableView*>(_tableView()); }

bool ZRTableViewCellSlip::zrCanEditing() const {
    const Ref<ZRTableView> table = swipeTable();
    // The table looks the cell up, and changes nothing in it.
    return table && table->zrCanEditRowAtIndexPath(const_cast<ZRTableViewCellSlip*>(this));
}

// The strip

void ZRTableViewCellSlip::setTitleList(const std::vector<Ref<ZRTableViewRowAction>>& actions) {
    m_titleList = actions;
    std::erase(m_titleList, nullptr);
}

UIView* ZRTableViewCellSlip::zrEditingView() {
    if (m_zrEditingView)
        return m_zrEditingView;
    const Ref<ZRTableView> table = swipeTable();
    setTitleList(table ? table->tableViewSwippedActions(this) : std::vector<Ref<ZRTableViewRowAction>>());
    m_zrEditingView = make<UIView>();
    m_zrEditingView->setBackgroundColor(UIColor::clearColor());
    for (NSInteger index = 0; index < static_cast<NSInteger>(m_titleList.size()); ++index)
        addButton(m_titleList[static_cast<std::size_t>(index)], index);
    m_zrEditingView->setFrame(CGRectMake(frame().size.width, 0, stripWidth(), frame().size.height));
    addSubview(m_zrEditingView);
    return m_zrEditingView;
}

void ZRTableViewCellSlip::addButton(ZRTableViewRowAction* action, NSInteger index) {
    const auto button = UIButton::buttonWithType<ZRTableViewRowButton>(UIButtonTypeCustom);
    button->setTag(index);
    m_actionButtonWidth = usableWidth(action->buttonWidth());
    button->addTarget_action_forControlEvents(this, selector<&ZRTableViewCellSlip::zrEditingButtonClicked>,
                                              UIControlEventTouchUpInside);
    button->setFrame(
        CGRectMake(static_cast<CGFloat>(index) * m_actionButtonWidth, 0, m_actionButtonWidth, frame().size.height));
    button->setTitle_forState(action->title(), UIControlStateNormal);
    button->setActionBlock(action->actionBlock());
    button->setBackgroundColor(action->backgroundColor());
    button->setAction(action);
    m_zrEditingView->addSubview(button);
}

void ZRTableViewCellSlip::removeStrip() {
    if (const Ref<UIView> strip = std::exchange(m_zrEditingView, nullptr))
        strip->removeFromSuperview();
}

CGFloat ZRTableViewCellSlip::stripWidth() const {
    return m_actionButtonWidth * static_cast<CGFloat>(m_titleList.size());
}

CGFloat ZRTableViewCellSlip::closedStripX() const { return 2 * m_defaultContentViewCenter.x + stripWidth() * 0.5; }

CGFloat ZRTableViewCellSlip::openStripX() const { return contentView()->frame().size.width - stripWidth() * 0.5; }

void ZRTableViewCellSlip::placeCenters(CGFloat contentX, CGFloat stripX) {
    const CGFloat y = contentView()->center().y;
    contentView()->setCenter({contentX, y});
    if (m_zrEditingView)
        m_zrEditingView->setCenter({stripX, y});
}

void ZRTableViewCellSlip::zrEditingButtonClicked(ZRTableViewRowButton* button) {
    if (const Ref<ZRTableView> table = swipeTable())
        table->tableViewCellSwipedButtonClicked_button(this, button);
}

// Whose drag it is

bool ZRTableViewCellSlip::gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) {
    // Asked as one of the views that a finger on its way to a superview's recogniser went through.
    if (recognizer && superview() && superview()->isDescendantOfView(recognizer->view()))
        return ZRTableViewCell::gestureRecognizerShouldBegin(recognizer);
    const Ref<ZRTableView> table = swipeTable();
    if (UIDevice::currentDevice()->systemVersion().intValue() > kLastVersionWithoutLock && table &&
        table->zrIsSwipped())
        return false;
    if (!recognizer || recognizer != m_panGesture.get())
        return true;
    const CGPoint way = m_panGesture->translationInView(superview());
    return std::abs(way.y) <= std::abs(way.x);
}

bool ZRTableViewCellSlip::gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(
    UIGestureRecognizer* recognizer, UIGestureRecognizer*) {
    const auto* pan = dynamic_cast<const UIPanGestureRecognizer*>(recognizer);
    return !pan || std::abs(pan->velocityInView(pan->view()).y) <= kVerticalRest;
}

// Dragging

void ZRTableViewCellSlip::panGesture(UIPanGestureRecognizer* recognizer) {
    const Ref<ZRTableViewCellSlip> keep = this; // the data source may drop it
    const CGPoint point = recognizer->locationInView(this);
    switch (recognizer->state()) {
    case UIGestureRecognizerStateBegan:
        m_defaultContentViewCenter = contentView()->center();
        m_zrStartEditingPoint = point;
        break;
    case UIGestureRecognizerStateChanged:
        if (const Ref<ZRTableView> table = swipeTable(); table && !table->zrIsSwipped())
            cellSwipedAnimationWithPoint(point);
        break;
    case UIGestureRecognizerStateEnded:
        finishedCellSwipedAnimationWithPoint(point);
        break;
    default:
        break;
    }
}

void ZRTableViewCellSlip::cellSwipedAnimationWithPoint(CGPoint point) {
    if (!zrCanEditing() || !std::isfinite(point.x))
        return;
    zrEditingView();
    const CGFloat rest = m_defaultContentViewCenter.x;
    if (contentView()->center().x > rest + kSlack)
        return;
    ++m_movement;
    const CGFloat x = std::min(rest - (m_zrStartEditingPoint.x - point.x), rest + kSlack);
    const bool isStripOut = x < rest - stripWidth();
    placeCenters(x, isStripOut ? openStripX() : x + rest + stripWidth() * 0.5);
}

void ZRTableViewCellSlip::finishedCellSwipedAnimationWithPoint(CGPoint) {
    const bool canEdit = zrCanEditing();
    const Ref<ZRTableView> table = swipeTable();
    if (!canEdit || !table)
        return;
    if (m_zrEditingView && !isLocking(table) && table->zrIsSwipped())
        close(nullptr); // two fingers on two rows: the other one has opened, and stays open
    else if (m_defaultContentViewCenter.x - contentView()->center().x <= m_actionButtonWidth)
        close(table);
    else
        open(table);
}

// Settling

void ZRTableViewCellSlip::open(const Ref<ZRTableView>& table) {
    settle(
        [this, &table] {
            m_lockedTable = table;
            table->m_lockingCell = this;
            table->setZrIsSwipped(true);
            placeCenters(m_defaultContentViewCenter.x - stripWidth(), openStripX());
            cellSwipedAction();
        },
        [] {});
}

void ZRTableViewCellSlip::cellSwipedAction() {
    if (const Ref<ZRTableView> table = swipeTable())
        table->tableViewCellSwiped(this);
}

/// After a drag. Other rows of `table`, if any, can be swiped from now on, and it scrolls again afterwards.
void ZRTableViewCellSlip::close(const Ref<ZRTableView>& table) {
    settle(
        [this, &table] {
            if (table) {
                table->m_lockingCell = nullptr;
                table->setZrIsSwipped(false);
            }
            placeCenters(m_defaultContentViewCenter.x, closedStripX());
        },
        [this, weakTable = Weak<ZRTableView>(table)] {
            // Another row may have opened meanwhile.
            if (const Ref<ZRTableView> freed = weakTable.lock(); freed && !freed->zrIsSwipped())
                freed->setScrollEnabled(true);
            removeStrip();
        });
}

void ZRTableViewCellSlip::removeCellSwipped() {
    settle([this] { placeCenters(m_defaultContentViewCenter.x, closedStripX()); },
           [this] {
               freeTable(swipeTable());
               removeStrip();
           });
}

/// `afterwards` is dropped when something else has moved the row meanwhile, or the cell is gone.
void ZRTableViewCellSlip::settle(const std::function<void()>& movement, const std::function<void()>& afterwards) {
    UIView::animateWithDuration_animations_completion(
        kSettling, movement, [weakSelf = Weak<ZRTableViewCellSlip>(this), number = ++m_movement, afterwards](bool) {
            const Ref<ZRTableViewCellSlip> self = weakSelf.lock();
            if (self && self->m_movement == number)
                afterwards();
        });
}

void ZRTableViewCellSlip::resetSwipButton() {
    placeAtRest();
    freeTable(swipeTable());
    removeStrip();
}

void ZRTableViewCellSlip::placeAtRest() {
    ++m_movement;
    placeCenters(m_defaultContentViewCenter.x, closedStripX());
    // Neither what is under way nor an animation that this is part of takes its time.
    contentView()->layer()->removeAnimationForKey("position");
}

bool ZRTableViewCellSlip::isLocking(const ZRTableView* table) const { return table->m_lockingCell.get() == this; }

void ZRTableViewCellSlip::freeTable(const Ref<ZRTableView>& table) {
    if (!table)
        return;
    table->m_lockingCell = nullptr;
    table->setScrollEnabled(true);
    table->setZrIsSwipped(false);
}

/// Because the row is not what was swiped any more. A table that is locked on another row's account stays so.
void ZRTableViewCellSlip::giveUp() {
    if (!m_zrEditingView)
        return;
    placeAtRest();
    if (const Ref<ZRTableView> table = m_lockedTable.lock()) {
        if (isLocking(table))
            freeTable(table);
        table->forgetSwipedCell(this);
    }
    removeStrip();
}

// Changes of the row

void ZRTableViewCellSlip::willMoveToSuperview(UIView* superview) {
    ZRTableViewCell::willMoveToSuperview(superview);
    giveUp();
}

/// The superclass places the content anew when the cell's size has changed.
void ZRTableViewCellSlip::layoutSubviews() {
    const CGRect before = contentView()->frame();
    ZRTableViewCell::layoutSubviews();
    const CGPoint center = contentView()->center();
    const CGSize size = contentView()->frame().size;
    if (!m_zrEditingView) {
        m_defaultContentViewCenter = center;
    } else if (size.width != before.size.width) {
        m_defaultContentViewCenter = center;
        giveUp();
    } else if (size.height != before.size.height) {
        contentView()->setCenter({CGRectGetMidX(before), center.y});
        resizeStrip();
    }
}

void ZRTableViewCellSlip::resizeStrip() {
    const auto resize = [height = frame().size.height](UIView* view) {
        const CGRect old = view->frame();
        view->setFrame(CGRectMake(CGRectGetMinX(old), 0, old.size.width, height));
    };
    resize(m_zrEditingView);
    for (const auto& button : m_zrEditingView->subviews())
        resize(button);
}

} // namespace zr
