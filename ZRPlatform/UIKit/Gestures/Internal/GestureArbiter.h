#pragma once

#include <ZRPlatform/UIKit/Gestures/Internal/GestureDecisions.h>
#include <ZRPlatform/UIKit/Gestures/Internal/TouchDelivery.h>

#include <memory>

namespace zr {

/// Stands between a window and its views: shows each touch to the recognisers on its way, settles who of them is
/// recognised, and lets the view have what they leave of the touch. A touch that no recogniser follows goes straight
/// to its view.
///
/// What a recogniser says while it is shown a touch changes its state at once, and that of those whom it prevents.
/// The rest is settled when all have seen the touch: those that waited go on or fail, targets are told, the view is
/// told, and those that have nothing left to see are reset.
class GestureArbiter {
public:
    ~GestureArbiter();
    /// The application's; null without an application.
    static GestureArbiter* shared();

    /// @name The window's and the touch dispatcher's side
    /// @{
    void touchChanged(UITouch* touch, UIEvent* event);
    /// The finger has gone. A touch whose end the window has kept to itself is cancelled.
    void touchIsOver(UITouch* touch, UIEvent* event);
    /// Whether recognisers follow the touch.
    bool isFollowed(const UITouch* touch) const;
    /// Whether the touch, which recognisers follow, has been made known to its view.
    bool isKnownToView(const UITouch* touch) const;
    /// The recognisers of the view and of those below it are withdrawn, and their touches cancelled for them.
    void viewLeaves(const UIView* view);
    /// @}

    /// @name The recognisers' side
    /// @{
    void changeState(UIGestureRecognizer* recognizer, UIGestureRecognizerState state);
    void ignoreTouch(UITouch* touch, UIGestureRecognizer* recognizer);
    /// One that is under way is cancelled, and its targets are told at once. It follows its touches no further.
    void withdraw(UIGestureRecognizer* recognizer);
    /// @}

private:
    struct TrackedTouch {
        explicit TrackedTouch(UITouch* followed) : touch(followed), delivery(followed) {}
        Ref<UITouch> touch;
        TouchDelivery delivery;
        bool isUp = false;
    };
    using Tracked = std::shared_ptr<TrackedTouch>;
    using Candidate = std::shared_ptr<Contender>;
    enum class Requirements { Met, Open, Broken };

    /// What happens while one lives is settled when the outermost one ends.
    class Turn {
    public:
        explicit Turn(GestureArbiter& arbiter) : m_arbiter(arbiter) { ++m_arbiter.m_turns; }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        ~Turn() {
            m_arbiter.m_isUnsettled = true;
            if (m_arbiter.m_turns == 1)
                m_arbiter.settle();
            --m_arbiter.m_turns;
        }

    private:
        GestureArbiter& m_arbiter;
    };

    Tracked trackedTouch(const UITouch* touch) const;
    Candidate contenderOf(const UIGestureRecognizer* recognizer) const;
    Candidate enter(UIGestureRecognizer* recognizer);
    bool hasFingerDown(const Contender& contender) const;

    bool canFollow(const UIGestureRecognizer* recognizer, const UIView* view, const UITouch* touch) const;
    void offerTouch(UITouch* touch);
    void show(UITouch* touch, UIEvent* event);

    void attempt(const Candidate& contender, UIGestureRecognizerState state);
    void begin(const Candidate& contender, UIGestureRecognizerState state);
    void advance(Contender& contender, UIGestureRecognizerState state);
    void changeWouldBe(Contender& contender, UIGestureRecognizerState state);
    void stop(Contender& contender);
    void fail(Contender& contender);
    bool isExcluded(const Candidate& contender) const;
    void preventOthers(const Candidate& contender);
    void findRequirements(Contender& contender) const;
    Requirements requirementsOf(const Contender& contender) const;
    bool isWaitingFor(const Contender& contender, const UIGestureRecognizer* other, std::size_t depth = 0) const;

    void settle();
    bool settleWaiting();
    void takeTouches();
    void tell(Contender& contender);
    void tellTargets();
    void deliver();
    void forgetFingersGone();
    void resetDecided();

    std::vector<Tracked> m_touches;
    std::vector<Candidate> m_contenders;
    int m_turns = 0;
    bool m_isUnsettled = false;
};

} // namespace zr
