#include <ZRPlatform/Foundation/NSLog.h>

#include <ZRPlatform/Foundation/Internal/UTF.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <mutex>

namespace zr {

namespace {

using LogHandler = std::function<void(std::string_view)>;

struct Log {
    std::mutex mutex;
    std::shared_ptr<const LogHandler> handler;
};

Log& sharedLog() {
    static const auto log = new Log; // never destroyed: worker threads log until the very end
    return *log;
}

std::atomic<double> foundationVersionNumber{1144.17};

} // namespace

void NSLog(const char* format, ...) {
    if (!format)
        return;
    std::va_list arguments;
    va_start(arguments, format);
    std::string line = detail::formatted(format, arguments);
    va_end(arguments);

    std::shared_ptr<const LogHandler> handler;
    {
        const std::lock_guard lock(sharedLog().mutex);
        handler = sharedLog().handler;
    }
    // Outside the lock, as a handler may log itself or set another.
    if (handler) {
        (*handler)(line);
        return;
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void setLogHandler(LogHandler handler) {
    auto shared = handler ? std::make_shared<const LogHandler>(std::move(handler)) : nullptr;
    const std::lock_guard lock(sharedLog().mutex);
    sharedLog().handler.swap(shared);
}

double NSFoundationVersionNumber() { return foundationVersionNumber.load(std::memory_order_relaxed); }

void setFoundationVersionNumber(double number) { foundationVersionNumber.store(number, std::memory_order_relaxed); }

} // namespace zr
