// The box convolution with any sizes, places, kernels and flags: either it refuses and writes nothing, or it gives what
// a sum of its own for each pixel gives, and touches nothing else.

#include <Tests/ZRPlatform/Accelerate/BoxConvolveTesting.h>

#include <fuzzer/FuzzedDataProvider.h>
#include <hwy/targets.h>

#include <bit>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <vector>

using namespace zr;
using namespace zr::testing;

namespace {

constexpr vImage_Flags kEdgeStyles =
    kvImageCopyInPlace | kvImageBackgroundColorFill | kvImageEdgeExtend | kvImageTruncateKernel;

void expect(bool holds, std::string_view what) {
    if (holds)
        return;
    std::cerr << "BoxConvolveFuzzer: " << what << '\n';
    std::abort();
}

std::uint32_t kernelSide(FuzzedDataProvider& data) {
    switch (data.ConsumeIntegralInRange(0, 4)) {
    case 0:
        return data.ConsumeIntegral<std::uint32_t>();
    case 1:
        return data.ConsumeIntegral<std::uint32_t>() | 1;
    case 2:
        return data.ConsumeIntegral<std::uint16_t>() | 1;
    default:
        return data.ConsumeIntegral<std::uint8_t>() | 1;
    }
}

vImage_Flags flagsOf(FuzzedDataProvider& data) {
    constexpr vImage_Flags kStyles[] = {kvImageEdgeExtend, kvImageBackgroundColorFill, kvImageTruncateKernel,
                                        kvImageCopyInPlace};
    if (data.ConsumeIntegralInRange(0, 15) == 0)
        return data.ConsumeIntegral<std::uint32_t>() & ~kvImageGetTempBufferSize;
    constexpr vImage_Flags kOthers = kvImageLeaveAlphaUnchanged | kvImageDoNotTile | kvImageHighQualityResampling;
    return kStyles[data.ConsumeIntegralInRange(0, 3)] | (data.ConsumeIntegral<std::uint8_t>() & kOthers);
}

void fill(Picture& picture, FuzzedDataProvider& data) {
    const auto seed = data.ConsumeIntegral<std::uint8_t>();
    switch (data.ConsumeIntegralInRange(0, 2)) {
    case 0:
        picture.fillWithNoise(seed);
        break;
    case 1:
        picture.fillWithExtremes(seed);
        break;
    default:
        picture.fillWith(seed);
    }
    for (std::size_t y = 0; y < picture.height(); ++y) {
        const auto bytes = data.ConsumeBytes<std::uint8_t>(4 * picture.width());
        std::copy(bytes.begin(), bytes.end(), picture.pixel(0, y));
    }
}

/// One of the instruction sets of this machine.
void chooseInstructions(FuzzedDataProvider& data) {
    hwy::SetSupportedTargetsForTest(0);
    std::vector<std::int64_t> targets;
    for (std::int64_t rest = hwy::SupportedTargets(); rest != 0; rest &= rest - 1)
        targets.push_back(rest & -rest);
    hwy::SetSupportedTargetsForTest(data.PickValueInArray({0, 1, 2, 3}) == 0
                                        ? targets[data.ConsumeIntegralInRange<std::size_t>(0, targets.size() - 1)]
                                        : 0);
    hwy::GetChosenTarget().DeInit();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    chooseInstructions(data);
    const std::size_t limit = data.ConsumeIntegralInRange(0, 7) == 0 ? 90 : 24;
    const auto side = [&] { return data.ConsumeIntegralInRange<std::size_t>(1, limit); };
    const std::size_t width = side();
    const std::size_t height = side();
    Picture source(width, height, data.ConsumeIntegralInRange<std::size_t>(0, 20));
    const auto offset = [&](std::size_t count) { return data.ConsumeIntegralInRange<std::size_t>(0, count + 1); };
    const Place place = data.ConsumeBool() ? Place{offset(width), offset(height)} : Place{};
    Picture destination(data.ConsumeBool() ? side() : width, data.ConsumeBool() ? side() : height,
                        data.ConsumeIntegralInRange<std::size_t>(0, 20));
    const Kernel kernel = {kernelSide(data), kernelSide(data)};
    const vImage_Flags flags = flagsOf(data);
    const bool bringsBuffer = data.ConsumeBool();
    const std::size_t shift = data.ConsumeIntegralInRange<std::size_t>(0, 64);
    fill(source, data);
    const Picture sourceBefore = source;
    const Picture before = destination;

    const bool isRight = std::popcount(flags & kEdgeStyles) == 1 && (flags & ~vImage_Flags{255}) == 0 &&
                         kernel.width % 2 == 1 && kernel.height % 2 == 1 && place.x + destination.width() <= width &&
                         place.y + destination.height() <= height;
    const vImage_Error needed = convolve(source, destination, kernel, flags | kvImageGetTempBufferSize, place);
    expect(destination == before, "asking for a size has written pixels");
    expect(isRight == (needed >= 0), "a call is right or is not");

    // The memory ends with the buffer, so that the sanitizer sees every byte too much.
    std::vector<std::uint8_t> buffer(bringsBuffer && isRight ? static_cast<std::size_t>(needed) + shift : 0);
    const vImage_Error error =
        convolve(source, destination, kernel, flags, place, buffer.empty() ? nullptr : buffer.data() + shift);
    expect(isRight ? error == kvImageNoError : error == needed, "the error is the same with and without work");
    expect(destination.hasItsGuards(), "bytes around the destination's pixels have changed");
    expect(source == sourceBefore && source.hasItsGuards(), "the source has changed");
    if (isRight)
        expect(destination == expected(source, destination, kernel, flags, place), "a mean is wrong");
    else
        expect(destination == before, "a refused call has written pixels");
    return 0;
}
