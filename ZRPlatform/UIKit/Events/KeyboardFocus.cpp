#include <ZRPlatform/UIKit/Events/Internal/KeyboardFocus.h>

#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Events/Internal/TouchDispatcher.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Lists/UITableView.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace zr {

namespace {

/// The keyboard's finger; a mouse's is -1, those of touch screens count from 0.
constexpr std::int64_t kKeyboardFinger = -2;
constexpr CGFloat kRingWidth = 3;
/// Above all of a window's views.
constexpr CGFloat kRingHeight = 1e6;

bool takesText(const UIResponder* responder) { return dynamic_cast<const UITextInput*>(responder); }

/// The view itself or the nearest upwards that is of that class.
template <class Wanted>
Wanted* nearest(UIView* view) {
    while (view && !dynamic_cast<Wanted*>(view))
        view = view->superview();
    return dynamic_cast<Wanted*>(view);
}

UIView* nearestStop(UIView* view) {
    while (view && !view->canBecomeFocused())
        view = view->superview();
    return view;
}

bool isShown(const UIView* view) {
    for (; view; view = view->superview()) {
        if (view->isHidden() || view->alpha() < 0.01)
            return false;
    }
    return true;
}

CGPoint onScreen(const UIView* view, CGPoint point) { return view->layer()->convertPoint_toLayer(point, nullptr); }

CGRect placeOnScreen(const UIView* view) {
    const CGRect bounds = view->bounds();
    const CGPoint a = onScreen(view, bounds.origin);
    const CGPoint b = onScreen(view, {CGRectGetMaxX(bounds), CGRectGetMaxY(bounds)});
    return CGRectStandardize(CGRectMake(a.x, a.y, b.x - a.x, b.y - a.y));
}

/// The next row that way; a null path at the end.
NSIndexPath rowBeside(UITableView* list, const NSIndexPath& path, int step) {
    NSInteger section = path.section(), row = path.row() + step;
    while (row < 0 || row >= list->numberOfRowsInSection(section)) {
        section += step;
        if (section < 0 || section >= list->numberOfSections())
            return nullptr;
        row = step > 0 ? 0 : list->numberOfRowsInSection(section) - 1;
    }
    return NSIndexPath::indexPathForRow_inSection(row, section);
}

} // namespace

KeyboardFocus::~KeyboardFocus() {
    if (m_ring)
        m_ring->removeFromSuperlayer();
}

UIView* KeyboardFocus::view() const {
    UIView* view = m_list ? m_list->cellForRowAtIndexPath(m_row) : m_view.get();
    return view && view->window() ? view : nullptr;
}

void KeyboardFocus::forget() {
    if (view())
        CATransaction::setNeedsFrame();
    m_view = nullptr;
    m_list = nullptr;
}

void KeyboardFocus::cellLeaves(const UIView* cell) {
    if (m_view && m_view->isDescendantOfView(cell))
        forget();
}

bool KeyboardFocus::keyPressed(UIKey key, unsigned modifiers) {
    if (m_application.isIgnoringInteractionEvents())
        return false;
    switch (key) {
    case UIKey::Tab:
        return moveBy(modifiers & UIKeyModifierShift ? -1 : 1);
    case UIKey::Return:
        return touchView();
    case UIKey::Escape:
        return escape();
    case UIKey::Left:
    case UIKey::Right:
    case UIKey::Up:
    case UIKey::Down:
    case UIKey::Home:
    case UIKey::End:
        return pressArrow(key);
    default:
        return false;
    }
}

// What a key does

/// In a list, up and down go from row to row; elsewhere arrows go where the tab key does.
bool KeyboardFocus::pressArrow(UIKey key) {
    const bool goesAcross = key == UIKey::Left || key == UIKey::Right;
    if (UITableView* list = currentList(); list && !goesAcross)
        return moveInList(list, key);
    if (key == UIKey::Home || key == UIKey::End)
        return false;
    return moveBy(key == UIKey::Left || key == UIKey::Up ? -1 : 1);
}

/// The rows of a list are one stop: the one where the keyboard was, else the first one seen.
bool KeyboardFocus::moveBy(int step) {
    std::vector<Stop> all = stops();
    const UIView* current = view();
    if (const auto* field = dynamic_cast<UIView*>(m_application.firstResponder()); field && takesText(field))
        current = field;
    std::vector<const UITableView*> passed;
    std::erase_if(all, [&](const Stop& stop) {
        const auto* row = dynamic_cast<const UITableViewCell*>(stop.view.get());
        if (!row || row == current)
            return false;
        const auto* list = nearest<UITableView>(stop.view);
        const auto* currentRow = dynamic_cast<const UITableViewCell*>(current);
        const bool isLeft = currentRow && currentRow->isDescendantOfView(list);
        const bool isPassed = std::find(passed.begin(), passed.end(), list) != passed.end();
        passed.push_back(list);
        return isLeft || isPassed;
    });
    if (all.empty())
        return false;
    const auto count = static_cast<std::ptrdiff_t>(all.size());
    const auto here = std::find_if(all.begin(), all.end(), [&](const Stop& stop) { return stop.view == current; });
    std::ptrdiff_t next = step > 0 ? 0 : count - 1;
    if (here != all.end())
        next = (here - all.begin() + step + count) % count;
    focus(all[static_cast<std::size_t>(next)].view);
    return true;
}

bool KeyboardFocus::moveInList(UITableView* list, UIKey key) {
    const Ref<UITableView> kept = list;
    NSIndexPath path = m_list == list ? m_row : list->indexPathForCell(nearest<UITableViewCell>(view()));
    const int step = key == UIKey::Up || key == UIKey::End ? -1 : 1;
    const NSInteger sections = list->numberOfSections();
    if (key == UIKey::Home)
        path = rowBeside(list, NSIndexPath::indexPathForRow_inSection(-1, 0), 1);
    else if (key == UIKey::End)
        path = rowBeside(list, NSIndexPath::indexPathForRow_inSection(0, sections), -1);
    else if (path != nullptr)
        path = rowBeside(list, path, step);
    else if (const auto seen = list->indexPathsForVisibleRows(); !seen.empty())
        path = step > 0 ? seen.front() : seen.back();
    while (path != nullptr) {
        list->scrollToRowAtIndexPath_atScrollPosition_animated(path, UITableViewScrollPositionNone, false);
        list->layoutIfNeeded();
        UITableViewCell* cell = list->cellForRowAtIndexPath(path);
        if (cell && cell->canBecomeFocused()) {
            focus(cell);
            return true;
        }
        path = rowBeside(list, path, step);
    }
    return true; // the end is no reason to go elsewhere
}

bool KeyboardFocus::touchView() {
    const Ref<UIView> touched = view();
    const auto point = touched ? touchPoint(touched) : std::nullopt;
    if (!point)
        return false;
    m_application.touchByKeyboard(kKeyboardFinger, *point);
    return true;
}

/// What an edited text, else the view where the keyboard is, else what lies in the middle of the screen makes of it.
bool KeyboardFocus::escape() {
    Ref<UIResponder> from = m_application.firstResponder();
    if (!takesText(from))
        from = isReachable(view()) ? view() : nullptr;
    const CGRect screen = UIScreen::mainScreen()->bounds();
    if (!from)
        from = viewAt({CGRectGetMidX(screen), CGRectGetMidY(screen)});
    return from && from->accessibilityPerformEscape();
}

void KeyboardFocus::focus(UIView* view) {
    const Ref<UIView> kept = view;
    const auto* row = dynamic_cast<UITableViewCell*>(view);
    m_list = row ? nearest<UITableView>(view) : nullptr;
    m_view = m_list ? nullptr : view;
    if (m_list)
        m_row = m_list->indexPathForCell(row);
    for (UIView* parent = view->superview(); parent; parent = parent->superview()) {
        if (auto* scroller = dynamic_cast<UIScrollView*>(parent); scroller && scroller->isScrollEnabled())
            scroller->scrollRectToVisible_animated(view->convertRect_toView(view->bounds(), scroller), false);
    }
    const Ref<UIResponder> first = m_application.firstResponder();
    if (takesText(view))
        view->becomeFirstResponder();
    else if (takesText(first))
        first->resignFirstResponder();
    CATransaction::setNeedsFrame();
}

// Where it can go

/// From top to bottom and, side by side, from left to right.
std::vector<KeyboardFocus::Stop> KeyboardFocus::stops() {
    std::vector<Stop> found;
    for (UIWindow* window : m_application.windows())
        collectStops(window, found);
    std::stable_sort(found.begin(), found.end(), [](const Stop& a, const Stop& b) {
        const auto order = [](const Stop& stop) {
            return std::tuple(std::round(CGRectGetMidY(stop.place)), CGRectGetMinX(stop.place));
        };
        return order(a) < order(b);
    });
    return found;
}

void KeyboardFocus::collectStops(UIView* view, std::vector<Stop>& stops) {
    if (view->isHidden() || view->alpha() < 0.01 || !view->isUserInteractionEnabled())
        return;
    if (view->canBecomeFocused() && isReachable(view))
        stops.push_back({view, placeOnScreen(view)});
    for (const auto& subview : view->subviews())
        collectStops(subview, stops);
}

/// The list that the keyboard is in; while it is nowhere, the first one.
UITableView* KeyboardFocus::currentList() {
    if (m_list && m_list->window())
        return m_list.get();
    if (UIView* current = view())
        return nearest<UITableView>(current);
    for (const Stop& stop : stops()) {
        if (dynamic_cast<UITableViewCell*>(stop.view.get()))
            return nearest<UITableView>(stop.view);
    }
    return nullptr;
}

UIView* KeyboardFocus::viewAt(CGPoint place) const { return TouchDispatcher::viewAt(place, m_application.windows()); }

/// A finger would touch it, or could after scrolling.
bool KeyboardFocus::isReachable(UIView* view) const {
    if (!view)
        return false;
    if (touchPoint(view))
        return true;
    auto* scroller = nearest<UIScrollView>(view->superview());
    if (!scroller || !scroller->isScrollEnabled())
        return false;
    const CGRect place = view->convertRect_toView(view->bounds(), scroller);
    if (CGRectContainsRect(scroller->bounds(), place) || CGRectIsEmpty(place))
        return false;
    const CGRect bounds = scroller->bounds();
    const UIView* hit = viewAt(onScreen(scroller, {CGRectGetMidX(bounds), CGRectGetMidY(bounds)}));
    return hit && hit->isDescendantOfView(scroller);
}

/// On the screen, where a finger would touch this view and not a part of it that the keyboard can go to itself.
std::optional<CGPoint> KeyboardFocus::touchPoint(const UIView* view) const {
    const CGRect bounds = view->bounds();
    for (const CGFloat across : {0.5, 0.25, 0.75, 0.1, 0.9}) {
        const CGPoint place = onScreen(view, {bounds.origin.x + across * bounds.size.width, CGRectGetMidY(bounds)});
        if (nearestStop(viewAt(place)) == view)
            return place;
    }
    return std::nullopt;
}

// The ring

bool KeyboardFocus::placeRing() {
    const UIView* ringed = view();
    UIWindow* window = ringed && !takesText(ringed) && isShown(ringed) ? ringed->window() : nullptr;
    CGRect place = CGRectNull;
    if (window) {
        place = CGRectInset(ringed->convertRect_toView(ringed->bounds(), window), -kRingWidth, -kRingWidth);
        place = CGRectIntersection(place, window->bounds());
    }
    if (CGRectIsNull(place)) {
        const bool wasSeen = m_ring && m_ring->superlayer();
        if (wasSeen)
            m_ring->removeFromSuperlayer();
        return wasSeen;
    }
    if (!m_ring) {
        m_ring = make<CALayer>();
        m_ring->setZPosition(kRingHeight);
        m_ring->setBorderWidth(kRingWidth);
        m_ring->setCornerRadius(2 * kRingWidth);
    }
    if (m_ring->superlayer() == window->layer() && m_ring->frame() == place)
        return false;
    CATransaction::beginWithoutActions();
    m_ring->setBorderColor(window->tintColor()->cgColor());
    m_ring->setFrame(place);
    if (m_ring->superlayer() != window->layer())
        window->layer()->addSublayer(m_ring);
    CATransaction::endWithoutActions();
    return true;
}

} // namespace zr
