#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <benchmark/benchmark.h>

#include <string>

using namespace zr;

namespace {

/// A HUD over a screen of 750 x 1334 pixels, with all that it can hold.
struct HUDScene {
    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<ZRProgressHUD> hud;

    explicit HUDScene(int mode, bool dimBackground = false) {
        window->setBackgroundColor(UIColor::whiteColor());
        window->makeKeyAndVisible();
        hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithView, window);
        hud->setMode(mode);
        hud->setDimBackground(dimBackground);
        hud->setLabelText("Loading");
        hud->setDetailsLabelText("12 of 48 pictures");
        window->addSubview(hud);
    }
    void show() {
        hud->show(false);
        host.advance(0);
    }
};

/// A frame of a HUD that comes and goes.
void FrameOfTheHUDFading(benchmark::State& state) {
    HUDScene scene(ZRProgressHUDModeRing);
    bool shows = false;
    for (auto _ : state) {
        if (scene.hud->layer()->hasAnimations()) {
            scene.host.advance(1 / 60.0);
            continue;
        }
        state.PauseTiming();
        shows = !shows;
        shows ? scene.hud->show(true) : scene.hud->hide(true);
        scene.host.advance(0);
        state.ResumeTiming();
        scene.host.advance(1 / 60.0);
    }
}
BENCHMARK(FrameOfTheHUDFading)->Unit(benchmark::kMicrosecond);

/// One step of a determinate task: the indicator is drawn and composed anew.
void FrameOfTheHUDProgressing(benchmark::State& state) {
    HUDScene scene(static_cast<int>(state.range(0)));
    scene.show();
    int step = 0;
    for (auto _ : state) {
        scene.hud->setProgress(static_cast<float>(++step % 100) / 100);
        scene.host.advance(0);
    }
}
BENCHMARK(FrameOfTheHUDProgressing)
    ->Arg(ZRProgressHUDModePie)
    ->Arg(ZRProgressHUDModeBar)
    ->Arg(ZRProgressHUDModeRing)
    ->Unit(benchmark::kMicrosecond);

/// Another text: layout, and the box is drawn anew; with and without the dimmed background, which fills the screen.
void FrameOfTheHUDWithAnotherText(benchmark::State& state) {
    HUDScene scene(ZRProgressHUDModeSpinner, state.range(0) != 0);
    scene.show();
    int step = 0;
    for (auto _ : state) {
        scene.hud->setDetailsLabelText("Step " + std::to_string(++step));
        scene.host.advance(0);
    }
}
BENCHMARK(FrameOfTheHUDWithAnotherText)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// A second of the spinner turning.
void SecondOfTheSpinner(benchmark::State& state) {
    HUDScene scene(ZRProgressHUDModeSpinner);
    scene.show();
    const auto before = scene.host.framesComposed();
    std::int64_t seconds = 0;
    for (auto _ : state) {
        for (int i = 0; i < 60; ++i)
            scene.host.advance(1 / 60.0);
        ++seconds;
    }
    state.counters["frames"] = static_cast<double>(scene.host.framesComposed() - before) / static_cast<double>(seconds);
}
BENCHMARK(SecondOfTheSpinner)->Unit(benchmark::kMicrosecond);

} // namespace
