#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>

#include <deque>

namespace zr {

namespace {

/// Main thread only. Never destroyed, as controllers may go at any time during exit.
struct QueueState {
    int stepsUnderWay = 0;
    std::deque<std::function<void()>> waiting;
};

QueueState& state() {
    static auto* theState = new QueueState;
    return *theState;
}

} // namespace

ChangeQueue::Step::Step() { ++state().stepsUnderWay; }

ChangeQueue::Step::~Step() {
    QueueState& queue = state();
    // Still under way while the others run, so that what they lead to waits its turn.
    while (queue.stepsUnderWay == 1 && !queue.waiting.empty()) {
        const auto change = std::move(queue.waiting.front());
        queue.waiting.pop_front();
        change();
    }
    --queue.stepsUnderWay;
}

bool ChangeQueue::isIdle() { return state().stepsUnderWay == 0; }

void ChangeQueue::perform(std::function<void()> change) {
    const Step step;
    if (state().stepsUnderWay == 1)
        change();
    else
        state().waiting.push_back(std::move(change));
}

} // namespace zr
