#include <ZRPlatform/UIKit/UIKit.h>

#include <benchmark/benchmark.h>

#include <string>

using namespace zr;

namespace {

constexpr const char* kHundredCharacters =
    "The photo will be removed from this telephone and from all your other devices; this cannot be undone";
static_assert(std::char_traits<char>::length(kHundredCharacters) == 100);

/// A text that was never measured before: each differs in its last characters.
void MeasureNewWrappedText(benchmark::State& state) {
    const Ref<UIFont> font = UIFont::systemFontOfSize(15);
    int number = 0;
    for (auto _ : state) {
        const std::string text = std::string(kHundredCharacters).substr(0, 92) + std::to_string(10000000 + number++);
        benchmark::DoNotOptimize(sizeWithFont_constrainedToSize(text, font, {250, 300}));
    }
}
BENCHMARK(MeasureNewWrappedText)->Unit(benchmark::kMicrosecond);

void MeasureSameWrappedText(benchmark::State& state) {
    const Ref<UIFont> font = UIFont::systemFontOfSize(15);
    const NSString text = kHundredCharacters;
    for (auto _ : state)
        benchmark::DoNotOptimize(sizeWithFont_constrainedToSize(text, font, {250, 300}));
}
BENCHMARK(MeasureSameWrappedText)->Unit(benchmark::kMicrosecond);

} // namespace
