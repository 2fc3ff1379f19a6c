#pragma once

#include <ZRPlatform/Foundation/SEL.h>

#pragma GCC visibility push(default)
namespace zr {

/// Threads of one's own, and the question whether this is the main one.
struct NSThread {
    /// Whether the calling thread is the main one.
    static bool isMainThread();
    /// Sends the message on a new thread. Target and object are kept alive until it has returned.
    static void detachNewThreadSelector_toTarget_withObject(SEL selector, NSObject* target, const NSValue& object);
};

} // namespace zr
#pragma GCC visibility pop
