#pragma once

#include <ZRPlatform/Foundation/NSIndexPath.h>
#include <ZRPlatform/UIKit/Events/UIResponder.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <optional>
#include <vector>

namespace zr {

class UIApplication;
class UITableView;

/// Where the keyboard is: on the view that the return key touches, shown by a ring. It goes to whatever a finger could
/// touch, seen or scrolled to, and leaves when a finger comes.
class KeyboardFocus {
public:
    /// `application` outlives the focus.
    explicit KeyboardFocus(UIApplication& application) : m_application(application) {}
    KeyboardFocus(const KeyboardFocus&) = delete;
    KeyboardFocus& operator=(const KeyboardFocus&) = delete;
    ~KeyboardFocus();

    /// Null while the keyboard is nowhere, and while the view is not in a window.
    UIView* view() const;
    /// A key that the first responder left. True when it was used.
    bool keyPressed(UIKey key, unsigned modifiers);
    void forget();
    /// A cell that leaves its list comes back as another row.
    void cellLeaves(const UIView* cell);
    /// Puts the ring around the view. True when that changed what is seen.
    bool placeRing();

private:
    /// A view that the keyboard can go to, and its box on the screen.
    struct Stop {
        Ref<UIView> view;
        CGRect place;
    };

    bool moveBy(int step);
    bool moveInList(UITableView* list, UIKey key);
    bool pressArrow(UIKey key);
    bool touchView();
    bool escape();
    void focus(UIView* view);
    std::vector<Stop> stops();
    void collectStops(UIView* view, std::vector<Stop>& stops);
    UITableView* currentList();
    bool isReachable(UIView* view) const;
    UIView* viewAt(CGPoint place) const;
    std::optional<CGPoint> touchPoint(const UIView* view) const;

    UIApplication& m_application;
    /// One of the two: a view, or a row of a list, whichever cell shows it.
    Weak<UIView> m_view;
    Weak<UITableView> m_list;
    NSIndexPath m_row;
    Ref<CALayer> m_ring;
};

} // namespace zr
