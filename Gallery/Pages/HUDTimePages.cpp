#include <Gallery/Pages/HUDDemo.h>

#include <Gallery/Look/TimeLine.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "HUD COMING AND GOING";

/// In the middle of the 0.3 seconds that a HUD takes to come.
constexpr NSTimeInterval kHalfShown = 0.15;

/// From the top.
enum Lane { kTaskLane, kHUDLane };

/// Puts down on a time line what happens to it.
class WatchedHUD : public ZRProgressHUD {
public:
    /// Nil ends the watching.
    void setTimeLine(TimeLine* timeLine) { m_timeLine = timeLine; }

    void show(bool animated) override {
        mark("show called");
        ZRProgressHUD::show(animated);
    }
    void handleGraceTimer(NSTimer* timer) override {
        mark("grace time over");
        ZRProgressHUD::handleGraceTimer(timer);
    }
    void showUsingAnimation(bool animated) override {
        if (m_timeLine)
            m_timeLine->beginBar(kHUDLane);
        ZRProgressHUD::showUsingAnimation(animated);
    }
    void handleMinShowTimer(NSTimer* timer) override {
        mark("minimum over");
        ZRProgressHUD::handleMinShowTimer(timer);
    }
    void done() override {
        if (m_timeLine)
            m_timeLine->endBar(kHUDLane);
        mark("hidden");
        ZRProgressHUD::done();
    }

private:
    void mark(const NSString& name) {
        if (m_timeLine)
            m_timeLine->mark(name);
    }

    Ref<TimeLine> m_timeLine;
};

/// Runs a task of some seconds, and shows on a time line when the HUD comes and goes.
class TimeLineDemo : public HUDDemo {
public:
    ~TimeLineDemo() override { stop(); }

    void buildPage() override {
        addLandscape(140);
        const CGRect frame = CGRectMake(0, 0, page()->contentWidth(), TimeLine::kHeight);
        m_timeLine =
            make<TimeLine>(&TimeLine::initWithFrame_lanes_duration, frame, std::vector<NSString>{"Task", "HUD"}, 2.5);
        page()->addView(m_timeLine);
        page()->addHeading("RUN A TASK OF");
        std::vector<PageButton> buttons;
        for (const NSTimeInterval seconds : taskDurations())
            buttons.push_back({NSString::stringWithFormat("%g s", seconds), [this, seconds] { runTask(seconds); }});
        page()->addButtons(buttons);
        m_taskDuration = taskDurations().front();
    }

protected:
    /// Seconds; a button for each. The first one shows what the page is about.
    virtual std::vector<NSTimeInterval> taskDurations() const = 0;

    Ref<ZRProgressHUD> makeHUD() override {
        // The grace timer of the one before may still be running.
        if (m_watched)
            m_watched->setTimeLine(nullptr);
        const auto hud = make<WatchedHUD>(&ZRProgressHUD::initWithView, hostView());
        hud->setTimeLine(m_timeLine);
        m_watched = hud;
        return hud;
    }

    void presentHUD(ZRProgressHUD* hud) override {
        stop();
        m_timeLine->start();
        hud->setTaskInProgress(true);
        hud->show(true);
        m_timeLine->beginBar(kTaskLane);
        m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(m_taskDuration, false,
                                                                        [this](NSTimer*) { endTask(); });
    }

private:
    /// Ignored while the HUD of the task before is still there.
    void runTask(NSTimeInterval seconds) {
        m_taskDuration = seconds;
        show();
    }
    void endTask() {
        m_timeLine->endBar(kTaskLane);
        m_timeLine->mark("task over");
        hud()->setTaskInProgress(false);
        hud()->hide(true);
    }
    void stop() {
        if (m_timer)
            m_timer->invalidate();
        m_timer = nullptr;
    }

    Ref<TimeLine> m_timeLine;
    Weak<WatchedHUD> m_watched;
    Ref<NSTimer> m_timer;
    NSTimeInterval m_taskDuration = 0;
};

/// Has a block of the HUD's write into the log.
class CompletionDemo : public HUDDemo {
protected:
    void presentHUD(ZRProgressHUD* hud) override {
        hud->setCompletionBlock([page = Weak<PageView>(page())] {
            if (const Ref<PageView> shown = page.lock())
                shown->log("completionBlock");
        });
        HUDDemo::presentHUD(hud);
    }
};

class GraceDemo : public TimeLineDemo {
protected:
    std::vector<NSTimeInterval> taskDurations() const override { return {1.5, 0.3}; }
};

class MinShowDemo : public TimeLineDemo {
protected:
    std::vector<NSTimeInterval> taskDurations() const override { return {0.3, 1.8}; }
};

} // namespace

std::vector<Page> hudTimePages() {
    return {
        {"hud-fade", "Fade", kFamily, "Comes and goes where it is", "icon_hud_fade.png",
         "The HUD fades in and out, within 0.3 seconds each.", showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setAnimationType(ZRProgressHUDAnimationFade);
         }),
         kHalfShown},
        {"hud-shrink", "Shrink", kFamily, "Comes large, goes small", "icon_hud_shrink.png",
         "The HUD comes shrinking from one and a half times its size, and goes shrinking to half of it.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setAnimationType(ZRProgressHUDAnimationShrink);
         }),
         kHalfShown},
        {"hud-grow", "Grow", kFamily, "Comes small, goes large", "icon_hud_grow.png",
         "The HUD comes growing from half its size, and goes growing to one and a half times of it.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setAnimationType(ZRProgressHUDAnimationGrow);
         }),
         kHalfShown},
        {"hud-grace", "Grace time", kFamily, "Short tasks are not worth a HUD", "icon_hud_grace.png",
         "With a grace time of 0.5 seconds, a HUD whose task is over by then never shows.",
         showsHUD<GraceDemo>([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setGraceTime(0.5f);
         })},
        {"hud-min-show", "Minimum time", kFamily, "Long enough to be read", "icon_hud_min_show.png",
         "Once it shows, this HUD stays for 1.3 seconds at least, even when its task is over sooner.",
         showsHUD<MinShowDemo>([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setMinShowTime(1.3f);
         })},
        {"hud-completion", "Completion block", kFamily, "What is to be done when it has gone", "icon_hud_queue.png",
         "A block of the HUD’s runs once, when the HUD has gone, and before the delegate is told. This one hides by "
         "itself after two seconds.",
         showsHUD<CompletionDemo>([](ZRProgressHUD* hud) {
             hud->setLabelText("Saving");
             hud->hide_afterDelay(true, 2);
         })},
    };
}

} // namespace zr::gallery
