#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSString.h>

#pragma GCC visibility push(default)
namespace zr {

class Compositor;

/// Where frames go and what the platform asks of the surroundings: a window, no screen at all, later a browser. Hosts
/// deliver input to `UIApplication` and own the loop.
class UIApplicationHost {
public:
    virtual ~UIApplicationHost() = default;
    /// The application has something to show or to do soon: from any thread, wakes the host's loop.
    virtual void wake() = 0;
    /// A text input took or lost the focus; the caret is in points of the screen. Input methods follow it.
    virtual void textInputChanged(bool active, CGRect caret) = 0;
    /// Ends the application, as the user does who closes its window, once what runs now has returned. Main thread.
    virtual void close() = 0;
    /// From now on a second of the application's clock takes so many real ones; at least 1. Main thread. A host that
    /// has no slow motion does nothing, as it is here.
    virtual void setSlowMotion(int /*factor*/) {}
    /// Of the surroundings, as far as they have one; nil when it holds no text.
    virtual NSString clipboardText() const = 0;
    virtual void setClipboardText(const NSString& text) = 0;
};

} // namespace zr
#pragma GCC visibility pop
