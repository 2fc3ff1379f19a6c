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

/// Rows with two lines of text and a chevron.
class Rows : public NSObject, public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return count; }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        auto cell = table->dequeueReusableCellWithIdentifier("row");
        if (!cell) {
            cell = make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleSubtitle,
                                         "row");
            cell->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
        }
        const std::string number = std::to_string(path.row());
        cell->textLabel()->setText("Message number " + number);
        cell->detailTextLabel()->setText("The first words of message " + number + ", which go on for a while");
        return cell;
    }

    NSInteger count = 0;
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

/// Flings by a finger, one after the other; of the frames in which the rows fly, the one in the middle.
void FramesOfAFling(benchmark::State& state) {
    ListScene<Rows> scene(10'000'000);
    scene.open();
    std::vector<double> frames;
    std::vector<CGFloat> steps;
    for (auto _ : state) {
        scene.host.touchDown({200, 600});
        scene.host.touchMove({200, 200}, 0.12);
        scene.host.touchUp();
        for (int frame = 0; frame < 60; ++frame) {
            const double start = threadSeconds();
            const CGFloat offset = scene.table->contentOffset().y;
            scene.host.advance(1 / 60.0);
            frames.push_back(1000 * (threadSeconds() - start));
            steps.push_back(scene.table->contentOffset().y - offset);
        }
    }
    const auto median = [](auto& values) {
        std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
        return values[values.size() / 2];
    };
    state.counters["median frame in ms"] = median(frames);
    state.counters["median step in points"] = median(steps);
}
BENCHMARK(FramesOfAFling)->Unit(benchmark::kMillisecond);

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
