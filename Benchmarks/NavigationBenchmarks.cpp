#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <benchmark/benchmark.h>

#include <string>

using namespace zr;

namespace {

constexpr double kFrame = 1 / 60.0;

/// A thumbnail of 60 x 60 pixels that is opaque, each of another colour than its neighbours.
Ref<UIImage> thumbnail() {
    constexpr NSUInteger kSide = 60;
    const std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[kSide * kSide * 4]);
    std::uint32_t noise = 1;
    for (NSUInteger i = 0; i < kSide * kSide * 4; ++i) {
        noise = noise * 1664525 + 1013904223;
        pixels[i] = i % 4 == 3 ? 255 : static_cast<std::uint8_t>(noise >> 24);
    }
    const auto image = Ref<CGImage>::adopt(new CGImage(kSide, kSide, kSide * 4, pixels, true));
    return UIImage::imageWithCGImage_scale_orientation(image, 2, UIImageOrientationUp);
}

/// A full screen as an application has them: the kit's bar, and twelve lines of a picture and two texts each.
class ListScreen : public ZRTViewController {
public:
    void viewDidLoad() override {
        setTitle("Pictures");
        ZRTViewController::viewDidLoad();
        const Ref<UIImage> picture = thumbnail();
        for (int row = 0; row < 12; ++row) {
            const CGFloat top = 74 + row * 48;
            auto image = make<UIImageView>(&UIImageView::initWithImage, picture);
            image->setFrame(CGRectMake(15, top + 5, 30, 30));
            view()->addSubview(image);
            addLabel(CGRectMake(60, top, 300, 24), 17, "Picture number " + std::to_string(row));
            addLabel(CGRectMake(60, top + 24, 300, 18), 13, "Taken in the afternoon, not yet shared");
        }
    }

private:
    void addLabel(CGRect frame, CGFloat size, const std::string& text) {
        view()->addSubview(ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            frame, 1, UIFont::systemFontOfSize(size), text, NSTextAlignmentLeft));
    }
};

/// A phone of 750 x 1334 pixels whose window shows a stack of two such screens.
struct NavigationScene {
    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<ListScreen> lower = make<ListScreen>();
    Ref<ListScreen> upper = make<ListScreen>();
    Ref<UINavigationController> navigation =
        make<UINavigationController>(&UINavigationController::initWithRootViewController, lower);
    Ref<UINavigationController> presented =
        make<UINavigationController>(&UINavigationController::initWithRootViewController, make<ListScreen>());

    NavigationScene() {
        navigation->pushViewController_animated(upper, false);
        window->setRootViewController(navigation);
        window->makeKeyAndVisible();
        host.advance(0);
    }
};

/// A frame in which `begin`'s movement is under way, from the turn of the run loop to the finished picture. Untimed:
/// the first frame, in which new screens are drawn, and `back`, which undoes the movement when it is over.
template <class Begin, class Back>
void movementFrames(benchmark::State& state, int frames, Begin begin, Back back) {
    NavigationScene scene;
    std::int64_t pixels = 0;
    int frame = frames;
    for (auto _ : state) {
        if (frame == frames) {
            state.PauseTiming();
            back(scene);
            scene.host.advance(1);
            begin(scene);
            scene.host.advance(0);
            frame = 0;
            state.ResumeTiming();
        }
        scene.host.advance(kFrame);
        ++frame;
        for (const PixelRect& rect : scene.host.damage())
            pixels += std::int64_t(rect.width) * rect.height;
    }
    state.counters["pixels"] = static_cast<double>(pixels) / static_cast<double>(state.iterations());
}

void FrameOfAPush(benchmark::State& state) {
    movementFrames(
        state, 20, [](auto& scene) { scene.navigation->pushViewController_animated(scene.upper, true); },
        [](auto& scene) { scene.navigation->setViewControllers({scene.lower}); });
}
BENCHMARK(FrameOfAPush)->Unit(benchmark::kMicrosecond);

void FrameOfAPop(benchmark::State& state) {
    movementFrames(
        state, 20, [](auto& scene) { scene.navigation->popViewControllerAnimated(true); },
        [](auto& scene) {
            scene.navigation->setViewControllers({scene.lower, scene.upper});
        });
}
BENCHMARK(FrameOfAPop)->Unit(benchmark::kMicrosecond);

void FrameOfAPresentation(benchmark::State& state) {
    movementFrames(
        state, 17,
        [](auto& scene) {
            scene.navigation->presentViewController_animated_completion(scene.presented, true, nullptr);
        },
        [](auto& scene) { scene.navigation->dismissViewControllerAnimated_completion(false, nullptr); });
}
BENCHMARK(FrameOfAPresentation)->Unit(benchmark::kMicrosecond);

/// The frame that follows a movement of the finger that carries the upper screen, five points further each time.
void FrameOfAPopHeldByAFinger(benchmark::State& state) {
    NavigationScene scene;
    scene.host.touchDown({5, 300});
    scene.host.touchMove({40, 300}, 0.1);
    CGFloat x = 40;
    for (auto _ : state) {
        x = x > 330 ? 40 : x + 5;
        scene.host.touchMove({x, 300}, kFrame);
    }
    if (scene.navigation->viewControllers().size() != 1)
        state.SkipWithError("the finger carries nothing");
    scene.host.touchCancel();
}
BENCHMARK(FrameOfAPopHeldByAFinger)->Unit(benchmark::kMicrosecond);

} // namespace
