#pragma once

#include <functional>

namespace zr {

/// One change of what is shown at a time: what is asked for while the messages of a change are being sent waits until
/// all have been.
class ChangeQueue {
public:
    /// Runs the change now, or when the ones under way are over.
    static void perform(std::function<void()> change);

    /// Whether no change is under way.
    static bool isIdle();

    /// A change under way, from its making to its end.
    class Step {
    public:
        Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step();
    };
};

} // namespace zr
