#pragma once

#include <ZRPlatform/QuartzCore/Layers/CALayer.h>

#include <functional>

#pragma GCC visibility push(default)
namespace zr {

/// What happens between two frames: which layers have new animations, and whether a frame is due.
class CATransaction {
public:
    /// A layer changed: a frame is due. Wakes the host through the handler the first time.
    static void setNeedsFrame();
    /// Whether a layer has changed since the last commit.
    static bool needsFrame();
    /// Called when a frame becomes due, once until the next commit; the host's. May be empty.
    static void setFrameHandler(std::function<void()> handler);

    /// Ends the turn for the trees below `roots`: layout, then display, until nothing asks for either, then the new
    /// animations start at the clock's time. Afterwards no frame is due any more.
    static void commit(const std::vector<CALayer*>& roots);

    /// From here to `endWithoutActions` changes make no animations, whatever the layers' delegates say. Calls nest.
    static void beginWithoutActions();
    /// Ends the latest `beginWithoutActions`.
    static void endWithoutActions();
    /// Whether changes make no animations now.
    static bool actionsDisabled();

private:
    friend class CALayer;
    static void addPendingAnimation(CALayer* layer);
};

} // namespace zr
#pragma GCC visibility pop
