#include <ZRPlatform/Accelerate/Internal/ParallelLoop.h>

#include <ZRPlatform/Dispatch/Internal/WorkerPool.h>

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <new>
#include <thread>

namespace zr::detail {

namespace {

constexpr int kHighestPriority = 0;

/// Shared with the helpers, as one may begin to run when the loop is over.
class Loop {
public:
    Loop(std::size_t count, const std::function<void(std::size_t)>& body) :
        m_count(count), m_left(count), m_body(body) {}

    /// Works until nothing is left to begin.
    void work() {
        std::unique_lock lock(m_mutex);
        while (m_next < m_count) {
            const std::size_t index = m_next++;
            lock.unlock();
            m_body(index);
            lock.lock();
            if (--m_left == 0)
                m_done.notify_all();
        }
    }
    /// The caller's body is not touched any more after this.
    void wait() {
        std::unique_lock lock(m_mutex);
        m_done.wait(lock, [this] { return m_left == 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_done;
    std::size_t m_next = 0;
    const std::size_t m_count;
    std::size_t m_left;
    const std::function<void(std::size_t)>& m_body;
};

} // namespace

void parallelLoop(std::size_t count, bool isLarge, const std::function<void(std::size_t)>& body) {
    const std::size_t processors = std::max(1u, std::thread::hardware_concurrency());
    const std::size_t helpers = isLarge && count > 0 ? std::min(processors, count) - 1 : 0;
    if (helpers == 0) {
        for (std::size_t index = 0; index < count; ++index)
            body(index);
        return;
    }
    const auto loop = std::make_shared<Loop>(count, body);
    try {
        for (std::size_t helper = 0; helper < helpers; ++helper)
            runOnWorker(kHighestPriority, [loop] { loop->work(); });
    } catch (const std::bad_alloc&) {
        // Without them it takes longer.
    }
    loop->work();
    loop->wait();
}

} // namespace zr::detail
