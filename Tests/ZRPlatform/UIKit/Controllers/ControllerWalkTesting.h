#pragma once

#include <Tests/ZRPlatform/UIKit/Controllers/ControllerTesting.h>

#include <algorithm>

namespace zr::tests {

/// Follows the messages it gets, and writes down one that does not follow from the one before. It may have a wish,
/// which comes true in the middle of one of its messages.
class WalkScreen : public UIViewController {
public:
    enum class State { Away, Coming, There, Going };
    enum class Move { Out, GoingIn, In, GoingOut };

    WalkScreen() { ++alive; }
    ~WalkScreen() override {
        --alive;
        // Who goes with the whole tree is not taken out of it first.
        if (state != State::Away)
            note("destroyed while " + std::to_string(int(state)));
        if (isStrict && move != Move::Out)
            note("destroyed, as a child that was told " + std::to_string(int(move)));
    }
    void loadView() override {
        auto pad = make<Pad>();
        pad->setMultipleTouchEnabled(true);
        setView(pad);
    }
    void viewWillAppear(bool animated) override {
        UIViewController::viewWillAppear(animated);
        go(State::Coming, {State::Away, State::Going});
    }
    void viewDidAppear(bool animated) override {
        UIViewController::viewDidAppear(animated);
        go(State::There, {State::Coming});
    }
    void viewWillDisappear(bool animated) override {
        UIViewController::viewWillDisappear(animated);
        go(State::Going, {State::There, State::Coming});
    }
    void viewDidDisappear(bool animated) override {
        UIViewController::viewDidDisappear(animated);
        go(State::Away, {State::Going});
    }
    void willMoveToParentViewController(UIViewController* parent) override {
        UIViewController::willMoveToParentViewController(parent);
        move = parent ? Move::GoingIn : Move::GoingOut;
    }
    void didMoveToParentViewController(UIViewController* parent) override {
        UIViewController::didMoveToParentViewController(parent);
        // A swipe back that is let go ends with the second of the two only.
        if (!parent && move != Move::GoingOut)
            note("told that it left, after " + std::to_string(int(move)));
        move = parent ? Move::In : Move::Out;
    }
    /// Whether a finger at its middle reached it since the last question.
    bool takeTouch() { return std::exchange(wasTouched, false); }

    State state = State::Away;
    Move move = Move::Out;
    /// Called once, in the first message that makes this state.
    std::function<void()> wish;
    State wishState = State::Coming;

    static inline int alive = 0;
    /// What went wrong first; empty while nothing has.
    static inline std::string mistake;
    static inline bool isStrict = true;

private:
    /// Keeps its touches.
    class Pad : public UIView {
    public:
        void touchesBegan_withEvent(const TouchSet&, UIEvent*) override {
            if (auto* screen = dynamic_cast<WalkScreen*>(nextResponder()))
                screen->wasTouched = true;
        }
    };

    static void note(const std::string& what) {
        if (mistake.empty())
            mistake = what;
    }
    void go(State next, std::initializer_list<State> from) {
        if (std::find(from.begin(), from.end(), state) == from.end())
            note("told " + std::to_string(int(next)) + " after " + std::to_string(int(state)));
        state = next;
        if (wish && next == wishState)
            std::exchange(wish, nullptr)();
    }

    bool wasTouched = false;
};

inline WalkScreen* asWalkScreen(const Ref<UIViewController>& screen) { return dynamic_cast<WalkScreen*>(screen.get()); }

} // namespace zr::tests
