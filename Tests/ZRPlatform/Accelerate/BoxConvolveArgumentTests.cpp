#include <Tests/ZRPlatform/Accelerate/BoxConvolveTesting.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <thread>
#include <vector>

using namespace zr;
using namespace zr::testing;

namespace {

std::atomic<int> s_allocations = 0;

void* counted(std::size_t size) {
    ++s_allocations;
    return std::malloc(size == 0 ? 1 : size);
}

void* countedOrThrow(std::size_t size) {
    if (void* memory = counted(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) { return countedOrThrow(size); }
void* operator new[](std::size_t size) { return countedOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return counted(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return counted(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

// The sanitizers would end the program where memory is refused.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }
extern "C" const char* __tsan_default_options();
extern "C" const char* __tsan_default_options() { return "allocator_may_return_null=1"; }

namespace {

/// A call that is right, to be made wrong in one way.
struct Call {
    Picture source = Picture(20, 10).fillWithNoise(1);
    Picture destination = Picture(12, 6).fillWith(99);
    vImage_Buffer from = source.buffer();
    vImage_Buffer to = destination.buffer();
    const vImage_Buffer* src = &from;
    const vImage_Buffer* dest = &to;
    Place place = {8, 4};
    Kernel kernel = {3, 5};
    const std::uint8_t* colour = nullptr;
    vImage_Flags flags = kvImageEdgeExtend;

    vImage_Error make(void* tempBuffer = nullptr) const {
        return vImageBoxConvolve_ARGB8888(src, dest, tempBuffer, place.x, place.y, kernel.height, kernel.width, colour,
                                          flags);
    }
};

template <class Change>
void expectError(vImage_Error error, const Change& change) {
    Call call;
    change(call);
    EXPECT_EQ(call.make(), error);
    EXPECT_EQ(call.destination, Picture(12, 6).fillWith(99)) << "something was written";
    EXPECT_TRUE(call.destination.hasItsGuards());
    call.flags |= kvImageGetTempBufferSize;
    EXPECT_EQ(call.make(), error) << "when asked for the size of the temporary buffer";
}

} // namespace

TEST(BoxConvolveArguments, TheCallThatIsMadeWrongBelowIsRight) {
    const Call call;
    EXPECT_EQ(call.make(), kvImageNoError);
    EXPECT_EQ(call.destination, expected(call.source, call.destination, call.kernel, call.flags, call.place));
}

TEST(BoxConvolveArguments, NilIsAnError) {
    expectError(kvImageNullPointerArgument, [](Call& call) { call.src = nullptr; });
    expectError(kvImageNullPointerArgument, [](Call& call) { call.dest = nullptr; });
    expectError(kvImageNullPointerArgument, [](Call& call) { call.flags = kvImageBackgroundColorFill; });
    Call call;
    call.from.data = nullptr;
    EXPECT_EQ(call.make(), kvImageNullPointerArgument);
    EXPECT_EQ(call.destination, Picture(12, 6).fillWith(99));
    Call other;
    other.to.data = nullptr;
    EXPECT_EQ(other.make(), kvImageNullPointerArgument);
}

TEST(BoxConvolveArguments, EvenAndZeroKernelsAreErrors) {
    for (const std::uint32_t side : {0u, 2u, 100u, 4294967294u}) {
        expectError(kvImageInvalidKernelSize, [=](Call& call) { call.kernel.width = side; });
        expectError(kvImageInvalidKernelSize, [=](Call& call) { call.kernel.height = side; });
    }
}

TEST(BoxConvolveArguments, OneEdgeStyleIsNeededAndNoMore) {
    expectError(kvImageInvalidEdgeStyle, [](Call& call) { call.flags = kvImageNoFlags; });
    expectError(kvImageInvalidEdgeStyle, [](Call& call) { call.flags = kvImageDoNotTile; });
    expectError(kvImageInvalidEdgeStyle, [](Call& call) { call.flags = kvImageEdgeExtend | kvImageTruncateKernel; });
    expectError(kvImageInvalidEdgeStyle, [](Call& call) { call.flags = kvImageEdgeExtend | kvImageCopyInPlace; });
    expectError(kvImageInvalidEdgeStyle, [](Call& call) {
        call.flags = kvImageEdgeExtend | kvImageBackgroundColorFill;
        call.colour = kColour;
    });
}

TEST(BoxConvolveArguments, UnknownFlagsAreErrors) {
    for (int bit = 8; bit < 32; ++bit)
        expectError(kvImageUnknownFlagsBit, [=](Call& call) { call.flags |= vImage_Flags{1} << bit; });
}

TEST(BoxConvolveArguments, FlagsWithoutAMeaningHereChangeNothing) {
    Call call;
    call.flags |= kvImageHighQualityResampling;
    EXPECT_EQ(call.make(), kvImageNoError);
    EXPECT_EQ(call.destination, expected(call.source, call.destination, call.kernel, kvImageEdgeExtend, call.place));
}

TEST(BoxConvolveArguments, PartsThatAreNotOnTheSourceAreErrors) {
    expectError(kvImageInvalidOffset_X, [](Call& call) { call.place.x = 20; });
    expectError(kvImageInvalidOffset_X, [](Call& call) { call.place.x = SIZE_MAX; });
    expectError(kvImageInvalidOffset_Y, [](Call& call) { call.place.y = 10; });
    expectError(kvImageInvalidOffset_Y, [](Call& call) { call.place.y = SIZE_MAX - 3; });
    expectError(kvImageRoiLargerThanInputBuffer, [](Call& call) { call.place.x = 9; });
    expectError(kvImageRoiLargerThanInputBuffer, [](Call& call) { call.place.y = 5; });
}

TEST(BoxConvolveArguments, RowsThatDoNotHoldTheirPixelsAreErrors) {
    expectError(kvImageInvalidParameter, [](Call& call) { call.from.rowBytes = 79; });
    expectError(kvImageInvalidParameter, [](Call& call) { call.to.rowBytes = 47; });
    expectError(kvImageInvalidParameter, [](Call& call) { call.from.width = SIZE_MAX / 4 + 2; });
    expectError(kvImageInvalidParameter, [](Call& call) { call.from.height = SIZE_MAX; });
}

TEST(BoxConvolveArguments, EmptyPicturesAreErrors) {
    expectError(kvImageInvalidParameter, [](Call& call) { call.from.width = 0; });
    expectError(kvImageInvalidParameter, [](Call& call) { call.from.height = 0; });
    expectError(kvImageInvalidParameter, [](Call& call) { call.to.width = 0; });
    expectError(kvImageInvalidParameter, [](Call& call) { call.to.height = 0; });
}

TEST(BoxConvolveArguments, ATemporaryBufferThatCannotBeHadIsAnError) {
    Call call;
    // A row as long as half the memory that a process can address, of which nothing is read.
    call.from.width = call.to.width = std::size_t{1} << (sizeof(void*) == 8 ? 44 : 27);
    call.from.rowBytes = call.to.rowBytes = 4 * call.from.width;
    call.from.height = call.to.height = 1;
    call.place = {0, 0};
    EXPECT_EQ(call.make(), kvImageMemoryAllocationError);
    EXPECT_EQ(call.destination, Picture(12, 6).fillWith(99));
    EXPECT_TRUE(call.destination.hasItsGuards());
}

TEST(BoxConvolveTempBuffer, ItsSizeIsToldAndNothingDone) {
    Call call;
    call.flags |= kvImageGetTempBufferSize;
    EXPECT_GT(call.make(), 0);
    EXPECT_EQ(call.destination, Picture(12, 6).fillWith(99));
    const vImage_Error size = call.make();
    call.from.data = call.to.data = nullptr;
    EXPECT_EQ(call.make(), size) << "the size depends on no pixel";
}

TEST(BoxConvolveTempBuffer, IsUsedUpToItsSizeAndNoFurther) {
    constexpr std::size_t kGuard = 64;
    for (const std::uint32_t side : {1u, 3u, 99u, 129u, 2897u, 65537u, 4294967295u}) {
        for (const vImage_Flags style : {kvImageEdgeExtend, kvImageTruncateKernel, kvImageBackgroundColorFill}) {
            for (const std::size_t shift : {0u, 1u, 31u}) {
                Picture source(37, 9);
                source.fillWithNoise(side);
                Picture destination(37, 9);
                const Kernel kernel = {side, side};
                const auto size =
                    static_cast<std::size_t>(convolve(source, destination, kernel, style | kvImageGetTempBufferSize));
                std::vector<std::uint8_t> memory(size + 2 * kGuard + shift, 0xC3);
                std::uint8_t* const buffer = memory.data() + kGuard + shift;
                ASSERT_EQ(convolve(source, destination, kernel, style, {}, buffer), kvImageNoError);
                ASSERT_EQ(destination, expected(source, destination, kernel, style)) << side << ", style " << style;
                for (std::size_t i = 0; i < kGuard; ++i)
                    ASSERT_TRUE(buffer[-1 - static_cast<std::ptrdiff_t>(i)] == 0xC3 && buffer[size + i] == 0xC3)
                        << side << ", style " << style;
            }
        }
    }
}

TEST(BoxConvolveTempBuffer, WithTheCallersNothingIsAllocated) {
    for (const std::uint32_t side : {3u, 99u, 501u, 5001u, 100001u}) {
        Picture source(400, 400);
        source.fillWithNoise(2);
        Picture destination(400, 400);
        const vImage_Flags flags = kvImageEdgeExtend | kvImageDoNotTile;
        const auto size =
            static_cast<std::size_t>(convolve(source, destination, {side, side}, flags | kvImageGetTempBufferSize));
        std::vector<std::uint8_t> buffer(size);
        int before = s_allocations;
        ASSERT_EQ(convolve(source, destination, {side, side}, flags, {}, buffer.data()), kvImageNoError);
        EXPECT_EQ(s_allocations, before) << side;
        before = s_allocations;
        ASSERT_EQ(convolve(source, destination, {side, side}, flags), kvImageNoError);
        EXPECT_EQ(s_allocations, before + 1) << side << ": only the temporary buffer";
    }
}

TEST(BoxConvolveThreads, SeveralGiveTheSameBytesAsOne) {
    Picture source(701, 523);
    source.fillWithNoise(12);
    for (const std::uint32_t side : {1u, 3u, 21u, 99u, 301u, 1401u, 3001u, 65537u}) {
        for (const vImage_Flags style : {kvImageEdgeExtend, kvImageCopyInPlace, kvImageBackgroundColorFill}) {
            Picture one(701, 523);
            Picture several(701, 523);
            ASSERT_EQ(convolve(source, one, {side, side}, style | kvImageDoNotTile), kvImageNoError);
            ASSERT_EQ(convolve(source, several, {side, side}, style), kvImageNoError);
            ASSERT_EQ(one, several) << side << ", style " << style;
            ASSERT_TRUE(several.hasItsGuards());
        }
    }
}

TEST(BoxConvolveThreads, LargePicturesAreSharedOutUnlessForbidden) {
    Call call;
    call.from.width = call.to.width = call.from.height = call.to.height = 2000;
    call.from.rowBytes = call.to.rowBytes = 8000;
    call.place = {0, 0};
    call.flags = kvImageEdgeExtend | kvImageGetTempBufferSize;
    const vImage_Error shared = call.make();
    call.flags |= kvImageDoNotTile;
    const vImage_Error alone = call.make();
    // A workspace for each thread.
    const auto threads = static_cast<vImage_Error>(std::max(1u, std::thread::hardware_concurrency()));
    EXPECT_EQ((shared - alone) % std::max<vImage_Error>(threads - 1, 1), 0);
    EXPECT_EQ(shared > alone, threads > 1);
}

TEST(BoxConvolveThreads, CallsFromSeveralAtOnceDoNotMeet) {
    Picture source(450, 400);
    source.fillWithNoise(13);
    Picture reference(450, 400);
    ASSERT_EQ(convolve(source, reference, {31, 31}, kvImageEdgeExtend | kvImageDoNotTile), kvImageNoError);
    std::vector<Picture> results(4, Picture(450, 400));
    std::vector<std::thread> threads;
    for (Picture& result : results)
        threads.emplace_back([&] {
            for (int i = 0; i < 5; ++i)
                convolve(source, result, {31, 31}, kvImageEdgeExtend);
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const Picture& result : results)
        EXPECT_EQ(result, reference);
}
