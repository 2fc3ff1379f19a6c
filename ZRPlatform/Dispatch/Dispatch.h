#pragma once

#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>

#include <functional>
#include <mutex>

#pragma GCC visibility push(default)
namespace zr {

/// Runs blocks in the order they come: one at a time (serial), several at a time on worker threads (global), or on the
/// main thread (main). Blocks are kept until they have run.
class DispatchQueue : public NSObject {
public:
    /// Returns at once; the block runs later, on a thread of the queue's.
    virtual void async(std::function<void()> block) = 0;
    /// Returns when the block has run.
    virtual void sync(const std::function<void()>& block) = 0;
    /// For logs; may be nil.
    const NSString& label() const { return m_label; }

protected:
    /// `label`: for logs, may be nil.
    explicit DispatchQueue(NSString label) : m_label(std::move(label)) {}

private:
    NSString m_label;
};

/// Borrowed; the main and the global queues live as long as the process.
using dispatch_queue_t = DispatchQueue*;

/// A priority of the global queues: waiting blocks of a higher one are begun first.
inline constexpr long DISPATCH_QUEUE_PRIORITY_HIGH = 2;
inline constexpr long DISPATCH_QUEUE_PRIORITY_DEFAULT = 0;
inline constexpr long DISPATCH_QUEUE_PRIORITY_LOW = -2;
inline constexpr long DISPATCH_QUEUE_PRIORITY_BACKGROUND = -32768;

/// Its blocks run on the main thread, in turns of the run loop.
dispatch_queue_t dispatch_get_main_queue();
/// The queue of this priority; an unknown priority gives nil. `flags` is reserved, and 0.
dispatch_queue_t dispatch_get_global_queue(long priority, unsigned long flags);
/// A new serial queue; its blocks run on worker threads, one at a time. `label` may be nil.
Ref<DispatchQueue> dispatch_queue_create(const NSString& label);

/// Hands the block over and returns at once. A nil queue or an empty block is ignored.
void dispatch_async(dispatch_queue_t queue, std::function<void()> block);
/// Returns when the block has run. It runs at once, on this thread, when it need not wait for its turn: on the main
/// queue from the main thread, on a global queue, on a serial queue that is idle, and on the serial queue that is
/// calling.
void dispatch_sync(dispatch_queue_t queue, const std::function<void()>& block);
/// Runs the block on the queue `seconds` from now, on the current clock.
void dispatch_after(double seconds, dispatch_queue_t queue, std::function<void()> block);

/// Whether it has run; outlives every call.
using dispatch_once_t = std::once_flag;
/// Runs the block the first time only; every caller returns after it has run.
void dispatch_once(dispatch_once_t* predicate, const std::function<void()>& block);

} // namespace zr
#pragma GCC visibility pop
