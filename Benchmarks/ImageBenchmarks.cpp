#include <ZRKitDynamic/ZRImage/UIImage+Help.h>
#include <ZRPlatform/CoreImage/CoreImage.h>

#include <benchmark/benchmark.h>

namespace zr {

namespace {

/// As many pixels as the default device's screen, each of another colour.
Ref<UIImage> picture(NSUInteger width = 750, NSUInteger height = 1334) {
    const std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[width * height * 4]);
    std::uint32_t noise = 1;
    for (NSUInteger i = 0; i < width * height * 4; ++i) {
        noise = noise * 1664525 + 1013904223;
        pixels[i] = i % 4 == 3 ? 255 : static_cast<std::uint8_t>(noise >> 24);
    }
    return UIImage::imageWithCGImage(Ref<CGImage>::adopt(new CGImage(width, height, width * 4, pixels, true)));
}

/// Pixels of the result a second.
void countPixels(benchmark::State& state, const CGImage* result) {
    if (!result) {
        state.SkipWithError("nothing came of it");
        return;
    }
    const auto pixels = static_cast<std::int64_t>(result->width() * result->height());
    state.SetItemsProcessed(state.iterations() * pixels);
}

/// The radius in tenths of a pixel.
void ImageGaussianBlur(benchmark::State& state) {
    const auto image = CIImage::imageWithCGImage(picture()->CGImage());
    const auto filter = CIFilter::filterWithName_keysAndValues(
        "CIGaussianBlur", {{kCIInputImageKey, image}, {kCIInputRadiusKey, static_cast<double>(state.range(0)) / 10}});
    const auto output = filter->outputImage();
    const auto context = CIContext::contextWithOptions({});
    Ref<CGImage> result;
    for (auto _ : state)
        result = context->createCGImage_fromRect(output, output->extent());
    countPixels(state, result);
}
BENCHMARK(ImageGaussianBlur)
    ->ArgName("tenths")
    ->Arg(3)
    ->Arg(10)
    ->Arg(20)
    ->Arg(50)
    ->Arg(100)
    ->Arg(500)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// The amount in hundredths.
void ImageBoxBlur(benchmark::State& state) {
    const auto image = picture();
    Ref<UIImage> result;
    for (auto _ : state)
        result = zr_boxblurImageWithBlur_withTintColor(image, static_cast<double>(state.range(0)) / 100, nullptr);
    countPixels(state, result ? result->CGImage() : nullptr);
}
BENCHMARK(ImageBoxBlur)->ArgName("hundredths")->Arg(5)->Arg(50)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

void ImageThumbnail(benchmark::State& state) {
    const auto image = picture(4000, 3000);
    Ref<UIImage> result;
    for (auto _ : state)
        result = rectImage(image);
    countPixels(state, result ? result->CGImage() : nullptr);
}
BENCHMARK(ImageThumbnail)->Unit(benchmark::kMillisecond);

void ImageDecodePNG(benchmark::State& state) {
    const auto file = UIImagePNGRepresentation(picture());
    Ref<UIImage> result;
    for (auto _ : state)
        result = UIImage::imageWithData(file);
    countPixels(state, result ? result->CGImage() : nullptr);
}
BENCHMARK(ImageDecodePNG)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace zr
