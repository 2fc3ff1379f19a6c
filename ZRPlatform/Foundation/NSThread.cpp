#include <ZRPlatform/Foundation/NSThread.h>

#include <ZRPlatform/Foundation/NSLog.h>

#include <system_error>
#include <thread>

namespace zr {

namespace {

std::thread::id mainThread() {
    static const std::thread::id id = std::this_thread::get_id();
    return id;
}

/// The main thread is the one that loads the library.
[[maybe_unused]] const std::thread::id askedAtLoad = mainThread();

} // namespace

bool NSThread::isMainThread() { return std::this_thread::get_id() == mainThread(); }

void NSThread::detachNewThreadSelector_toTarget_withObject(SEL selector, NSObject* target, const NSValue& object) {
    if (!target || !selector)
        return;
    try {
        std::thread([selector, target = Ref(target), object] {
            const NSValue arguments[] = {object};
            selector.send(target, arguments);
        }).detach();
    } catch (const std::system_error& error) {
        NSLog("No new thread: %s", error.what());
    }
}

} // namespace zr
