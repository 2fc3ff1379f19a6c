#include <Gallery/Pages/HUDDemo.h>
#include <Gallery/Pages/TaskPace.h>
#include <Gallery/Settings/SampleText.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "HUD TASKS";

/// When about half of the numbers have been looked at.
constexpr NSTimeInterval kHalfCounted = 1.8;

bool isPrime(int number) {
    for (int divisor = 2; divisor * divisor <= number; ++divisor) {
        if (number % divisor == 0)
            return false;
    }
    return number > 1;
}

/// Counts primes on another thread, a stretch of numbers at a step, and says in a HUD how far it has come.
class PrimeCount : public NSObject {
public:
    bool initWithHUD_mode_pace(ZRProgressHUD* hud, int mode, TaskPace* pace) {
        m_hud = hud;
        m_mode = mode;
        m_pace = pace;
        // Here, as the language is the main thread's.
        m_preparing = SampleText::translated("Getting ready");
        m_counting = SampleText::translated("Counting primes");
        m_below = SampleText::translated("below");
        return init();
    }

    void count() {
        const Ref<ZRProgressHUD> hud = m_hud.lock();
        hud->setLabelText(m_preparing);
        for (int step = 0; step < kStepsToGetReady; ++step) {
            if (!m_pace->waitForStep())
                return;
        }
        hud->setMode(m_mode);
        hud->setLabelText(m_counting);
        int primes = 0;
        for (int stretch = 1; stretch <= kStretches && m_pace->waitForStep(); ++stretch) {
            primes += primesInStretch(stretch);
            hud->setProgress(static_cast<float>(stretch) / kStretches);
            hud->setDetailsLabelText(NSString::stringWithFormat("%d %s %d", primes, m_below, stretch * kStretchLength));
        }
    }

private:
    static constexpr int kStepsToGetReady = 10;
    static constexpr int kStretches = 50;
    static constexpr int kStretchLength = 1000;

    static int primesInStretch(int stretch) {
        int primes = 0;
        for (int number = (stretch - 1) * kStretchLength; number < stretch * kStretchLength; ++number)
            primes += isPrime(number);
        return primes;
    }

    Weak<ZRProgressHUD> m_hud;
    int m_mode = ZRProgressHUDModeSpinner;
    NSString m_preparing;
    NSString m_counting;
    const char* m_below = nullptr;
    Ref<TaskPace> m_pace;
};

/// Runs a count of primes while its HUD shows. The HUD hides when the count is over or cancelled, and the count ends
/// with the page.
class TaskDemo : public HUDDemo {
public:
    ~TaskDemo() override { leave(); }

    void buildPage() override {
        addLandscape(230);
        page()->addButtons({{"Start", [this] { show(); }}, {"Cancel", [this] { leave(); }}});
        addLog();
    }

    void leave() override {
        if (m_timer)
            m_timer->invalidate();
        m_timer = nullptr;
        if (const auto pace = std::exchange(m_pace, nullptr))
            pace->end();
    }

protected:
    void presentHUD(ZRProgressHUD* hud) override {
        leave();
        m_pace = make<TaskPace>();
        runTask(hud, m_pace);
        m_timer =
            NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.05, true, [this](NSTimer*) { m_pace->step(); });
    }
    virtual void runTask(ZRProgressHUD* hud, TaskPace* pace) = 0;
    void hudIsGone() override { leave(); }

private:
    Ref<TaskPace> m_pace;
    Ref<NSTimer> m_timer;
};

class ThreadDemo : public TaskDemo {
protected:
    /// Knows when its thread has nothing left to do.
    class ThreadHUD : public ZRProgressHUD {
    public:
        void setPace(TaskPace* pace) { m_pace = pace; }
        void launchExecution() override {
            ZRProgressHUD::launchExecution();
            m_pace->leave();
        }

    private:
        Ref<TaskPace> m_pace;
    };

    Ref<ZRProgressHUD> makeHUD() override { return make<ThreadHUD>(&ZRProgressHUD::initWithView, hostView()); }

    void runTask(ZRProgressHUD* hud, TaskPace* pace) override {
        dynamic_cast<ThreadHUD*>(hud)->setPace(pace);
        const auto task = make<PrimeCount>(&PrimeCount::initWithHUD_mode_pace, hud, ZRProgressHUDModeRing, pace);
        hud->showWhileExecuting_onTarget_withObject_animated(selector<&PrimeCount::count>, task, nullptr, true);
    }
};

class QueueDemo : public TaskDemo {
protected:
    void runTask(ZRProgressHUD* hud, TaskPace* pace) override {
        const auto task = make<PrimeCount>(&PrimeCount::initWithHUD_mode_pace, hud, ZRProgressHUDModeBar, pace);
        const auto queue = dispatch_queue_create("gallery.primes");
        const auto tell = [page = Weak<PageView>(page())] {
            if (const Ref<PageView> shown = page.lock())
                shown->log("completionBlock");
        };
        hud->showAnimated_whileExecutingBlock_onQueue_completionBlock(
            true, [task] { task->count(); }, queue, tell);
        // The queue runs one block at a time, so this one comes when the task is over.
        dispatch_async(queue, [pace = Ref<TaskPace>(pace)] { pace->leave(); });
    }
};

} // namespace

std::vector<Page> hudTaskPages() {
    return {
        {"hud-thread", "On a thread", kFamily, "A message sent to an object", "icon_hud_thread.png",
         "The HUD shows while a message runs on a thread of its own. Progress, texts and even the indicator are set "
         "from that thread.",
         showsHUD<ThreadDemo>(nullptr), kHalfCounted},
        {"hud-queue", "On a queue", kFamily, "A block, and one for its end", "icon_hud_queue.png",
         "The HUD shows while a block runs on a queue; another block runs when the HUD has gone.",
         showsHUD<QueueDemo>(nullptr), kHalfCounted},
    };
}

} // namespace zr::gallery
