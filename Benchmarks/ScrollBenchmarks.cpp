#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <benchmark/benchmark.h>

using namespace zr;

namespace {

constexpr CGFloat kRowHeight = 44;
constexpr int kRows = 400;

/// A scroll view that fills the screen of 750 x 1334 pixels, with rows of text and lines between them.
struct ScrollScene {
    ScrollScene() {
        const CGRect screen = UIScreen::mainScreen()->bounds();
        window = make<UIWindow>(&UIWindow::initWithFrame, screen);
        view = make<UIScrollView>(&UIScrollView::initWithFrame, screen);
        view->setBackgroundColor(UIColor::whiteColor());
        view->setContentSize({screen.size.width, kRows * kRowHeight});
        for (int i = 0; i < kRows; ++i)
            addRow(i, screen.size.width);
        window->addSubview(view);
        window->makeKeyAndVisible();
        host.advance(0);
    }

    void addRow(int index, CGFloat width) {
        const CGFloat y = index * kRowHeight;
        const auto label = make<UILabel>(&UILabel::initWithFrame, CGRectMake(15, y, width - 15, kRowHeight - 1));
        label->setText(("Row " + std::to_string(index)).c_str());
        label->setBackgroundColor(UIColor::whiteColor());
        view->addSubview(label);
        const auto line = make<UIView>(&UIView::initWithFrame, CGRectMake(15, y + kRowHeight - 0.5, width, 0.5));
        line->setBackgroundColor(UIColor::lightGrayColor());
        view->addSubview(line);
    }

    HeadlessHost host;
    Ref<UIWindow> window;
    Ref<UIScrollView> view;
};

/// From the tick of a deceleration to the finished picture, in the first second of a throw.
void DecelerationFrame(benchmark::State& state) {
    ScrollScene scene;
    int frame = 60;
    for (auto _ : state) {
        if (frame == 60) {
            state.PauseTiming();
            scene.view->setContentOffset_animated(CGPointZero, false);
            scene.host.touchDown({200, 600});
            scene.host.touchMove({200, 300}, 0.1);
            scene.host.touchUp();
            frame = 0;
            state.ResumeTiming();
        }
        scene.host.advance(1 / 60.0);
        ++frame;
    }
}
BENCHMARK(DecelerationFrame)->Unit(benchmark::kMicrosecond);

} // namespace
