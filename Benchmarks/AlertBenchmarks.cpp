#include <Benchmarks/AlertScene.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

using namespace zr;

namespace {

/// The yardstick: as many bytes as a frame has, copied.
void CopyOneFrame(benchmark::State& state) {
    std::vector<std::uint32_t> from(750 * 1334, 1), to(750 * 1334);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size() * 4);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyOneFrame)->Unit(benchmark::kMicrosecond);

void ComposeWholeAlertScene(benchmark::State& state) {
    AlertScene scene;
    scene.show(false);
    Compositor& compositor = scene.host.application()->compositor();
    for (auto _ : state) {
        compositor.invalidate();
        scene.host.application()->commitFrame();
    }
    state.counters["pixels"] = static_cast<double>(compositor.paintedPixels());
}
BENCHMARK(ComposeWholeAlertScene)->Unit(benchmark::kMicrosecond);

/// A frame of the alert growing, or shrinking and fading: from the turn of the run loop to the finished picture. A new
/// scene is made, untimed, whenever the animation is over.
void animationFrames(benchmark::State& state, bool dismissal) {
    constexpr int kFrames = 17;
    std::unique_ptr<AlertScene> scene;
    std::int64_t pixels = 0;
    int frame = kFrames;
    for (auto _ : state) {
        if (frame == kFrames) {
            state.PauseTiming();
            scene.reset();
            scene = std::make_unique<AlertScene>();
            scene->show(!dismissal);
            if (dismissal)
                scene->alert->dismissAlertView();
            scene->host.advance(0);
            frame = 0;
            state.ResumeTiming();
        }
        scene->host.advance(1 / 60.0);
        ++frame;
        for (const PixelRect& rect : scene->host.damage())
            pixels += std::int64_t(rect.width) * rect.height;
    }
    state.counters["pixels"] = static_cast<double>(pixels) / static_cast<double>(state.iterations());
}

void FrameOfTheShowAnimation(benchmark::State& state) { animationFrames(state, false); }
BENCHMARK(FrameOfTheShowAnimation)->Unit(benchmark::kMicrosecond);

void FrameOfTheDismissal(benchmark::State& state) { animationFrames(state, true); }
BENCHMARK(FrameOfTheDismissal)->Unit(benchmark::kMicrosecond);

/// A minute in which nothing happens, with the alert up.
void IdleMinute(benchmark::State& state) {
    AlertScene scene;
    scene.show(false);
    const auto before = scene.host.framesComposed();
    for (auto _ : state)
        scene.host.advance(60);
    state.counters["frames"] = static_cast<double>(scene.host.framesComposed() - before);
}
BENCHMARK(IdleMinute);

} // namespace
