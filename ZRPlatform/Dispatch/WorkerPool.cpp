#include <ZRPlatform/Dispatch/Internal/WorkerPool.h>

#include <algorithm>
#include <array>
#include <deque>
#include <glib.h>
#include <mutex>

namespace zr::detail {

namespace {

/// Far more than there are processors: blocks sleep, read files and wait for one another, and must not keep the others
/// from running meanwhile. Idle threads are used before new ones are started.
constexpr int kMaximumThreads = 64;

class WorkerPool {
public:
    WorkerPool() : m_threads(g_thread_pool_new(&WorkerPool::work, this, kMaximumThreads, FALSE, nullptr)) {}

    void add(int priority, std::function<void()> block) {
        {
            const std::lock_guard lock(m_mutex);
            m_blocks[static_cast<std::size_t>(priority)].push_back(std::move(block));
        }
        // The threads are only told that there is something to do; what, they take from the queues above.
        g_thread_pool_push(m_threads, this, nullptr);
    }

private:
    static void work(gpointer, gpointer pool) { static_cast<WorkerPool*>(pool)->next()(); }

    /// There is one block for every call.
    std::function<void()> next() {
        const std::lock_guard lock(m_mutex);
        auto& queue = *std::ranges::find_if_not(m_blocks, [](const auto& each) { return each.empty(); });
        std::function<void()> block = std::move(queue.front());
        queue.pop_front();
        return block;
    }

    std::mutex m_mutex;
    std::array<std::deque<std::function<void()>>, kPriorityCount> m_blocks;
    GThreadPool* m_threads;
};

} // namespace

void runOnWorker(int priority, std::function<void()> block) {
    static const auto pool = new WorkerPool; // never destroyed: its threads run until the very end
    pool->add(priority, std::move(block));
}

} // namespace zr::detail
