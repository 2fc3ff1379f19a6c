#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <malloc.h>
#include <string>
#include <vector>

using namespace zr;

namespace {

Ref<UIImage> disc() {
    UIGraphicsBeginImageContextWithOptions({29, 29}, false, 2);
    UIColor::orangeColor()->setFill();
    CGContextFillEllipseInRect(UIGraphicsGetCurrentContext(), {{0, 0}, {29, 29}});
    Ref<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

/// Rows with an icon, two lines of text and a chevron.
class Rows : public NSObject, public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return count; }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        auto cell = table->dequeueReusableCellWithIdentifier("row");
        if (!cell) {
            cell = make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleSubtitle,
                                         "row");
            cell->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
            cell->imageView()->setImage(icon);
        }
        const std::string number = std::to_string(path.row());
        cell->textLabel()->setText("Message number " + number);
        cell->detailTextLabel()->setText("The first words of message " + number + ", which go on for a while");
        return cell;
    }

    NSInteger count = 0;
    Ref<UIImage> icon = disc();
};

class UnevenRows : public Rows {
public:
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        return 40 + path.row() % 30;
    }
};

/// A table over a screen of 750 x 1334 pixels.
template <class List>
struct ListScene {
    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<List> list = make<List>();
    Ref<UITableView> table;

    explicit ListScene(NSInteger count) {
        list->count = count;
        window->makeKeyAndVisible();
    }
    void open() {
        table = make<UITableView>(&UITableView::initWithFrame, window->bounds());
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
        host.advance(0);
    }
    void close() {
        table->removeFromSuperview();
        table = nullptr;
        host.advance(0);
    }
};

std::size_t bytesInUse() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// From nothing to the first frame.
template <class List>
void OpeningATable(benchmark::State& state) {
    ListScene<List> scene(state.range(0));
    scene.open();
    scene.close();
    const std::size_t before = bytesInUse();
    std::size_t after = before;
    for (auto _ : state) {
        scene.open();
        state.PauseTiming();
        after = bytesInUse();
        scene.close();
        state.ResumeTiming();
    }
    state.counters["bytes a row"] = static_cast<double>(after - before) / static_cast<double>(state.range(0));
}
BENCHMARK_TEMPLATE(OpeningATable, Rows)->Arg(1'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(OpeningATable, UnevenRows)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// A frame of scrolling by so many points, which all of the rows move in and some come into.
void FrameOfScrolling(benchmark::State& state) {
    ListScene<Rows> scene(10'000'000);
    scene.open();
    CGFloat offset = 0;
    for (auto _ : state) {
        offset += static_cast<CGFloat>(state.range(0));
        scene.table->setContentOffset({0, offset});
        scene.host.advance(0);
    }
    state.counters["cells"] = static_cast<double>(scene.table->visibleCells().size());
}
BENCHMARK(FrameOfScrolling)->Arg(1)->Arg(20)->Arg(60)->Arg(200)->Unit(benchmark::kMillisecond);

double threadSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// Milliseconds of many frames: their middle, and what one in a hundred goes beyond.
class FrameTimes {
public:
    template <class Frame>
    void measure(const Frame& frame) {
        const double start = threadSeconds();
        frame();
        m_times.push_back(1000 * (threadSeconds() - start));
    }
    void report(benchmark::State& state) {
        std::sort(m_times.begin(), m_times.end());
        state.counters["median ms"] = m_times[m_times.size() / 2];
        state.counters["99th percentile ms"] = m_times[m_times.size() * 99 / 100];
    }

private:
    std::vector<double> m_times;
};

/// Flings by a finger, one after the other, up to 60 points a frame.
void FramesOfAFling(benchmark::State& state) {
    ListScene<Rows> scene(10'000'000);
    scene.open();
    FrameTimes frames;
    for (auto _ : state) {
        scene.host.touchDown({200, 600});
        scene.host.touchMove({200, 200}, 0.12);
        scene.host.touchUp();
        for (int frame = 0; frame < 60; ++frame)
            frames.measure([&] { scene.host.advance(1 / 60.0); });
    }
    frames.report(state);
}
BENCHMARK(FramesOfAFling)->Unit(benchmark::kMillisecond);

/// To any row of a long list, all of whose cells are filled anew.
template <class List>
void JumpToARow(benchmark::State& state) {
    ListScene<List> scene(1'000'000);
    scene.open();
    FrameTimes frames;
    NSInteger row = 0;
    for (auto _ : state) {
        row = (row + 618'033) % 1'000'000;
        frames.measure([&] {
            scene.table->scrollToRowAtIndexPath_atScrollPosition_animated(
                NSIndexPath::indexPathForRow_inSection(row, 0), UITableViewScrollPositionTop, false);
            scene.host.advance(0);
        });
    }
    frames.report(state);
}
BENCHMARK_TEMPLATE(JumpToARow, Rows)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(JumpToARow, UnevenRows)->Unit(benchmark::kMillisecond);

/// A row that is deleted from and one that is added to a long list, and the cells' way to their places.
void ChangeOfRows(benchmark::State& state) {
    ListScene<Rows> scene(state.range(0));
    scene.open();
    const NSIndexPath first = NSIndexPath::indexPathForRow_inSection(0, 0);
    for (auto _ : state) {
        scene.list->count -= 1;
        scene.table->deleteRowsAtIndexPaths_withRowAnimation({first}, UITableViewRowAnimationNone);
        scene.list->count += 1;
        scene.table->insertRowsAtIndexPaths_withRowAnimation({first}, UITableViewRowAnimationNone);
        scene.host.advance(0);
    }
}
BENCHMARK(ChangeOfRows)->Arg(1'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

} // namespace
