#pragma once

#include <ZRPlatform/UIKit/Events/UIEvent.h>

#include <deque>

namespace zr {

/// Tells the view of one touch what the touch does, as far as nothing holds it back, in the order in which it happened
/// and with the places where it happened.
class TouchDelivery {
public:
    explicit TouchDelivery(UITouch* touch) : m_touch(touch) {}

    /// Takes note of the touch as it is now. Moves that wait become one.
    void push(UIEvent* event);
    /// Tells what waits, up to the first thing that is held.
    void send(bool holdsBegan, bool holdsEnded);
    /// Drops what waits. A view that knows of the touch is told that it is cancelled; from now on it is told nothing.
    void cancel();
    /// Whether the view has been told of the touch, and not yet of its end.
    bool isKnownToView() const { return m_viewKnows && m_touch->m_reachesView; }
    /// Whether nothing waits.
    bool isEmpty() const { return m_waiting.empty(); }

    /// Tells the view of the touch what the touch does now, if the touch reaches it.
    static void sendToView(UITouch* touch, UIEvent* event);

private:
    struct Waiting {
        UITouch::Moment moment;
        Ref<UIEvent> event;
    };

    void sendMoment(const Waiting& waiting);
    static bool mayViewKnow(UITouch* touch, UIEvent* event);

    Ref<UITouch> m_touch;
    Ref<UIEvent> m_lastEvent;
    std::deque<Waiting> m_waiting;
    /// The view knows of the touch, and not yet of its end.
    bool m_viewKnows = false;
    bool m_isOff = false;
};

} // namespace zr
