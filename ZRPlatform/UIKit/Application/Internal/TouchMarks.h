#pragma once

#include <ZRPlatform/QuartzCore/Layers/CALayer.h>

#include <map>

namespace zr {

/// Circles under fingers, in a layer tree that is in no window: nothing finds them, neither a touch nor a dump.
class TouchMarks {
public:
    TouchMarks();

    /// The tree's root, in points of the screen.
    CALayer* layer() const { return m_root; }

    /// A finger is there now.
    void show(std::int64_t finger, CGPoint location);
    /// It has gone.
    void fadeOut(std::int64_t finger);

private:
    Ref<CALayer> m_root;
    std::map<std::int64_t, Ref<CALayer>> m_circles;
};

} // namespace zr
