#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <atomic>
#include <semaphore>
#include <thread>

using namespace zr;
using namespace zr::testing;

namespace {

constexpr int kThreads = 8;
constexpr int kWrites = 10000;
/// So many at a go, so that the main thread is never left far behind.
constexpr int kWritesAtOnce = 200;

class ZRProgressHUDThreads : public HUDTest {};

/// Strings, fonts and colours of the thread `writer`, so that what is read tells who wrote it.
struct Values {
    explicit Values(int writer) :
        text("Written by thread " + std::to_string(writer)), font(UIFont::systemFontOfSize(10 + writer)),
        color(UIColor::colorWithWhite_alpha(writer / 10.0, 1)) {}

    NSString text;
    Ref<UIFont> font;
    Ref<UIColor> color;
};

/// Every observed property, once.
void writeAll(ZRProgressHUD* hud, const Values& values, int mode, float progress, UIView* customView) {
    hud->setMode(mode);
    hud->setCustomView(customView);
    hud->setLabelText(values.text);
    hud->setLabelFont(values.font);
    hud->setLabelColor(values.color);
    hud->setDetailsLabelText(values.text);
    hud->setDetailsLabelFont(values.font);
    hud->setDetailsLabelColor(values.color);
    hud->setProgress(progress);
    hud->setActivityIndicatorColor(values.color);
}

} // namespace

TEST_F(ZRProgressHUDThreads, EightThreadsWriteEverythingWhileTheHUDComesAndGoes) {
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 20, 20));
    auto hud = addHUD();
    const Weak<ZRProgressHUD> weak = hud;
    std::atomic<int> running{kThreads};
    std::counting_semaphore<> tickets{kThreads};
    std::vector<std::thread> threads;
    for (int writer = 0; writer < kThreads; ++writer) {
        threads.emplace_back([&running, &tickets, writer, view, written = hud] {
            const Values values(writer);
            for (int i = 0; i < kWrites; ++i) {
                if (i % kWritesAtOnce == 0)
                    tickets.acquire();
                writeAll(written, values, i % 7, static_cast<float>(i) / kWrites, i % 2 ? view.get() : nullptr);
            }
            --running;
        });
    }
    int rounds = 0;
    while (running > 0) {
        tickets.release(kThreads);
        switch (rounds++ % 6) {
        case 0:
            hud->show(true);
            break;
        case 1:
            hud->setDimBackground(rounds % 4 == 0);
            hud->setSquare(rounds % 8 == 0);
            break;
        case 2:
            hud->hide(true);
            break;
        case 3:
            hud->removeFromSuperview();
            break;
        case 4:
            window->addSubview(hud);
            break;
        case 5:
            // Another takes its place; the threads keep writing to the first one, and are the last to hold it.
            if (hud == weak.get() && rounds > 24) {
                hud->removeFromSuperview();
                hud = addHUD();
            }
            break;
        }
        host.advance(0.05);
    }
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
    EXPECT_NE(hud, weak.get());
    ASSERT_TRUE(host.waitUntil([&] { return weak == nullptr; }));
    EXPECT_GT(rounds, 40);
}

TEST_F(ZRProgressHUDThreads, TheLastValueWrittenIsTheOneShown) {
    const auto hud = addHUD();
    hud->show(false);
    std::vector<std::thread> threads;
    for (int writer = 0; writer < kThreads; ++writer) {
        threads.emplace_back([&hud, writer] {
            const Values values(writer);
            for (int i = 0; i < 200; ++i)
                writeAll(hud, values, ZRProgressHUDModePie + i % 2, static_cast<float>(writer + 1) / 16, nullptr);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    host.advance(0);
    // Whichever thread was the last one for each.
    EXPECT_EQ(labelOf(hud)->text(), hud->labelText());
    EXPECT_EQ(labelOf(hud)->font(), hud->labelFont());
    EXPECT_EQ(labelOf(hud)->textColor(), hud->labelColor());
    EXPECT_EQ(detailsLabelOf(hud)->text(), hud->detailsLabelText());
    EXPECT_EQ(detailsLabelOf(hud)->font(), hud->detailsLabelFont());
    EXPECT_EQ(detailsLabelOf(hud)->textColor(), hud->detailsLabelColor());
    hud->setProgress(hud->progress());
    EXPECT_EQ(hud->indicator()->valueForKey("progress").floatValue(), hud->progress());
}

TEST_F(ZRProgressHUDThreads, TheOtherPropertiesMayBeWrittenWhileTheHUDIsShown) {
    const auto hud = addHUD();
    HUDDelegate delegate;
    int completions = 0;
    std::atomic<bool> stop{false};
    std::thread writer([&] {
        const Values values(3);
        for (int i = 0; !stop; ++i) {
            const auto number = static_cast<float>(i % 10);
            hud->setColor(i % 2 ? values.color.get() : nullptr);
            hud->setOpacity(number / 10);
            hud->setXOffset(number);
            hud->setYOffset(number);
            hud->setMargin(number);
            hud->setCornerRadius(number);
            hud->setDimBackground(i % 2);
            hud->setMinSize(CGSizeMake(i % 10, i % 10));
            hud->setSquare(i % 2);
            hud->setAnimationType(i % 3);
            hud->setRemoveFromSuperViewOnHide(false);
            hud->setGraceTime(0);
            hud->setMinShowTime(number / 100);
            hud->setTaskInProgress(i % 2);
            hud->setDelegate(&delegate);
            hud->setCompletionBlock([&completions] { ++completions; });
        }
    });
    for (int i = 0; i < 60; ++i) {
        hud->show(true);
        hud->setNeedsLayout();
        host.advance(0.4);
        hud->hide(true);
        host.advance(0.5);
        // What is read was written whole.
        const CGSize least = hud->minSize();
        EXPECT_EQ(least.width, least.height);
    }
    stop = true;
    writer.join();
    EXPECT_TRUE(hud->isFinished());
    EXPECT_GT(delegate.count, 0);
    EXPECT_GT(completions, 0);
}
