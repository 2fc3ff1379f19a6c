#include <ZRPlatform/Dispatch/Dispatch.h>

#include <ZRPlatform/Dispatch/Internal/WorkerPool.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/Foundation/NSThread.h>

#include <deque>
#include <future>
#include <memory>

namespace zr {

namespace {

using Block = std::function<void()>;

/// Hands the block over and waits. A block that is dropped unrun breaks its promise, which ends the wait as well.
void runAndWait(DispatchQueue& queue, const Block& block) {
    auto done = std::make_shared<std::promise<void>>();
    std::future<void> isDone = done->get_future();
    queue.async([block, done = std::move(done)] {
        block();
        done->set_value();
    });
    isDone.wait();
}

class MainQueue final : public DispatchQueue {
public:
    MainQueue() : DispatchQueue("main") {}

    void async(Block block) override { NSRunLoop::mainRunLoop()->performBlock(std::move(block)); }

    void sync(const Block& block) override {
        if (NSThread::isMainThread())
            block();
        else
            runAndWait(*this, block);
    }
};

class GlobalQueue final : public DispatchQueue {
public:
    GlobalQueue(const char* label, int priority) : DispatchQueue(label), m_priority(priority) {}

    void async(Block block) override { detail::runOnWorker(m_priority, std::move(block)); }
    void sync(const Block& block) override { block(); }

private:
    int m_priority;
};

constexpr int kDefaultPriority = 1;

class SerialQueue final : public DispatchQueue {
public:
    explicit SerialQueue(const NSString& label) : DispatchQueue(label) {}

    void async(Block block) override {
        const std::lock_guard lock(m_mutex);
        m_blocks.push_back(std::move(block));
        if (!m_isBusy)
            startWorker();
    }

    void sync(const Block& block) override {
        if (s_queueOfThisThread == this) {
            block();
            return;
        }
        if (!beginIfIdle()) {
            runAndWait(*this, block);
            return;
        }
        run(block);
        const std::lock_guard lock(m_mutex);
        m_isBusy = false;
        if (!m_blocks.empty())
            startWorker();
    }

private:
    /// Marks the queue busy when it is idle, so that a block may run past the list.
    bool beginIfIdle() {
        const std::lock_guard lock(m_mutex);
        if (m_isBusy)
            return false;
        m_isBusy = true;
        return true;
    }

    /// To be called with the mutex locked.
    void startWorker() {
        m_isBusy = true;
        detail::runOnWorker(kDefaultPriority, [queue = Ref(this)] { queue->drain(); });
    }

    void drain() {
        for (;;) {
            Block block;
            {
                const std::lock_guard lock(m_mutex);
                m_isBusy = !m_blocks.empty();
                if (!m_isBusy)
                    return;
                block = std::move(m_blocks.front());
                m_blocks.pop_front();
            }
            run(block);
        }
    }

    void run(const Block& block) {
        DispatchQueue* const outer = std::exchange(s_queueOfThisThread, this);
        block();
        s_queueOfThisThread = outer;
    }

    /// Whose block is running on this thread; null outside serial queues.
    static thread_local DispatchQueue* s_queueOfThisThread;

    std::mutex m_mutex;
    bool m_isBusy = false; // from the moment a worker is asked for until the list is empty
    std::deque<Block> m_blocks;
};

thread_local DispatchQueue* SerialQueue::s_queueOfThisThread = nullptr;

struct GlobalQueues {
    GlobalQueue high{"global.high", 0};
    GlobalQueue standard{"global.default", kDefaultPriority};
    GlobalQueue low{"global.low", 2};
    GlobalQueue background{"global.background", 3};
};

} // namespace

dispatch_queue_t dispatch_get_main_queue() {
    static const auto queue = new MainQueue; // never destroyed: workers hand over until the very end
    return queue;
}

dispatch_queue_t dispatch_get_global_queue(long priority, unsigned long) {
    static const auto queues = new GlobalQueues; // never destroyed, as the main queue
    switch (priority) {
    case DISPATCH_QUEUE_PRIORITY_HIGH:
        return &queues->high;
    case DISPATCH_QUEUE_PRIORITY_DEFAULT:
        return &queues->standard;
    case DISPATCH_QUEUE_PRIORITY_LOW:
        return &queues->low;
    case DISPATCH_QUEUE_PRIORITY_BACKGROUND:
        return &queues->background;
    default:
        return nullptr;
    }
}

Ref<DispatchQueue> dispatch_queue_create(const NSString& label) {
    return Ref<DispatchQueue>::adopt(new SerialQueue(label));
}

void dispatch_async(dispatch_queue_t queue, Block block) {
    if (queue && block)
        queue->async(std::move(block));
}

void dispatch_sync(dispatch_queue_t queue, const Block& block) {
    if (queue && block)
        queue->sync(block);
}

void dispatch_after(double seconds, dispatch_queue_t queue, Block block) {
    if (!queue || !block)
        return;
    NSRunLoop::mainRunLoop()->performBlock_afterDelay(
        [queue = Ref(queue), block = std::move(block)] { queue->async(block); }, seconds);
}

void dispatch_once(dispatch_once_t* predicate, const Block& block) {
    if (predicate && block)
        std::call_once(*predicate, block);
}

} // namespace zr
