#include <ZRKitDynamic/ZRImage/UIImage+Help.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

// Any bytes as an image file, and what comes of it through everything that makes images of images.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

namespace zr {

namespace {

/// Of larger images nothing is made: a run should not take long.
constexpr NSUInteger kSmall = 64;
constexpr double kLargestLevel = 12;

void require(bool condition) {
    if (!condition)
        __builtin_trap();
}

/// Takes numbers from the end of the input, where files have least to say.
class Numbers {
public:
    explicit Numbers(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    /// Any double at all now and then, otherwise one of -512..512.
    double any() {
        const std::uint64_t bits = take(8);
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return bits % 8 == 0 ? value : static_cast<double>(bits % 16384) / 16 - 512;
    }
    /// 0..`count` - 1.
    unsigned oneOf(unsigned count) { return static_cast<unsigned>(take(1) % count); }
    /// 0..1.
    double share() { return static_cast<double>(take(2)) / 65535; }

private:
    std::uint64_t take(std::size_t count) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count && !m_bytes.empty(); ++i) {
            value = value << 8 | m_bytes.back();
            m_bytes = m_bytes.first(m_bytes.size() - 1);
        }
        return value;
    }

    std::span<const std::uint8_t> m_bytes;
};

/// Reads every pixel, so that a sanitizer sees whether they are there.
std::uint32_t sumOf(const UIImage* image) {
    std::uint32_t sum = 0;
    for (NSUInteger y = 0; image && y < image->CGImage()->height(); ++y) {
        const std::uint32_t* row = image->CGImage()->row(y);
        for (NSUInteger x = 0; x < image->CGImage()->width(); ++x)
            sum += row[x];
    }
    return sum;
}

bool hasSize(const UIImage* image, NSUInteger width, NSUInteger height) {
    return image && image->CGImage()->width() == width && image->CGImage()->height() == height;
}

void blur(const UIImage* image, Numbers& numbers) {
    const double level = std::min(numbers.any(), kLargestLevel);
    const auto blurred = blurryImageWithBlurLevel_size(image, level, CGSizeZero);
    const NSUInteger margin = level > 0 ? static_cast<NSUInteger>(std::ceil(3 * level)) : 0;
    require(hasSize(blurred, image->CGImage()->width() + 2 * margin, image->CGImage()->height() + 2 * margin));
    sumOf(blurred);
}

void blurWithBox(const UIImage* image, Numbers& numbers) {
    const double amount = numbers.oneOf(4) == 0 ? numbers.any() : numbers.share();
    const auto tint = UIColor::colorWithRed_green_blue_alpha(numbers.share(), amount, 0.5, numbers.any());
    const auto blurred = zr_boxblurImageWithBlur_withTintColor(image, amount, numbers.oneOf(2) == 0 ? nullptr : tint);
    require(hasSize(blurred, image->CGImage()->width(), image->CGImage()->height()));
    require(blurred->CGImage()->isOpaque());
    sumOf(blurred);
}

Ref<UIImage> part(const UIImage* image, Numbers& numbers) {
    const double x = numbers.any(), y = numbers.any(), width = numbers.any(), height = numbers.any();
    auto cut = subImageWithRect(image, CGRectMake(x, y, width, height));
    require(!cut || (cut->CGImage()->width() <= image->CGImage()->width() &&
                     cut->CGImage()->height() <= image->CGImage()->height()));
    sumOf(cut);
    return cut;
}

CGSize smallSize(Numbers& numbers) {
    const double width = std::min(numbers.any(), 100.0), height = std::min(numbers.any(), 100.0);
    return {width, height};
}

void makeImageOf(const UIImage* image, Numbers numbers) {
    switch (numbers.oneOf(8)) {
    case 0:
        return void(sumOf(rectImage(image)));
    case 1:
        return void(sumOf(scaleToSize(image, smallSize(numbers))));
    case 2:
        return void(sumOf(setFuzzyPhoto(image)));
    case 3:
        return void(sumOf(blurryImageWithBlurLevel_size(image, numbers.share() * 5, smallSize(numbers))));
    case 4:
        return blur(image, numbers);
    case 5:
        return blurWithBox(image, numbers);
    default:
        if (const auto cut = part(image, numbers))
            blurWithBox(cut, numbers);
    }
}

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes)
        value = value << 8 | byte;
    return value;
}

std::uint32_t littleEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        value = value << 8 | bytes[i];
    return value;
}

/// Pixels that the header speaks of; 0 when it is none.
std::uint64_t claimedPixels(std::span<const std::uint8_t> file) {
    if (file.size() < 32)
        return 0;
    const auto startsWith = [&](const char* text, std::size_t offset) {
        return std::memcmp(file.data() + offset, text, std::strlen(text)) == 0;
    };
    const auto product = [](std::uint64_t width, std::uint64_t height) { return width * height; };
    if (startsWith("PNG", 1))
        return product(bigEndian(file.subspan(16, 4)), bigEndian(file.subspan(20, 4)));
    if (startsWith("GIF", 0))
        return product(littleEndian(file.subspan(6, 2)), littleEndian(file.subspan(8, 2)));
    if (startsWith("VP8 ", 12))
        return product(littleEndian(file.subspan(26, 2)) & 0x3FFF, littleEndian(file.subspan(28, 2)) & 0x3FFF);
    if (startsWith("VP8L", 12))
        return product((littleEndian(file.subspan(21, 4)) & 0x3FFF) + 1,
                       (littleEndian(file.subspan(21, 4)) >> 14 & 0x3FFF) + 1);
    if (startsWith("VP8X", 12))
        return product(littleEndian(file.subspan(24, 3)) + 1, littleEndian(file.subspan(27, 3)) + 1);
    std::uint64_t most = 0;
    for (std::size_t at = 0; startsWith("\xFF\xD8", 0) && at + 9 <= file.size(); ++at) {
        if (file[at] == 0xFF && file[at + 1] >= 0xC0 && file[at + 1] <= 0xC2)
            most = std::max(most, product(bigEndian(file.subspan(at + 5, 2)), bigEndian(file.subspan(at + 7, 2))));
    }
    return most;
}

std::uint32_t checksum(const std::uint8_t* bytes, std::size_t count) {
    std::uint32_t sum = 0xFFFFFFFFu;
    for (std::size_t i = 0; i < count; ++i) {
        sum ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1) != 0 ? 0xEDB88320u ^ (sum >> 1) : sum >> 1;
    }
    return ~sum;
}

/// Makes the checksums of a PNG right, without which nothing else in it is looked at.
void repairChecksums(std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kSignature = 8, kAroundData = 12;
    if (size < kSignature || std::memcmp(data + 1, "PNG", 3) != 0)
        return;
    for (std::size_t at = kSignature; size - at >= kAroundData;) {
        const std::size_t length = bigEndian({data + at, 4});
        if (length > size - at - kAroundData)
            return;
        const std::uint32_t sum = checksum(data + at + 4, length + 4);
        for (std::size_t i = 0; i < 4; ++i)
            data[at + 8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += kAroundData + length;
    }
}

} // namespace

} // namespace zr

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned seed) {
    const std::size_t newSize = LLVMFuzzerMutate(data, size, maximumSize);
    if (seed % 8 != 0)
        zr::repairChecksums(data, newSize);
    return newSize;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // What is allowed, but so large that it takes a second, would take up all of the time.
    const std::uint64_t pixels = zr::claimedPixels({data, size});
    if (pixels > 1'000'000 && pixels <= 64'000'000)
        return 0;
    const auto image = zr::UIImage::imageWithData(std::vector<std::uint8_t>(data, data + size));
    if (!image)
        return 0;
    const zr::NSUInteger width = image->CGImage()->width(), height = image->CGImage()->height();
    zr::require(width > 0 && height > 0 && width <= 32767 && height <= 32767 && width * height <= 64'000'000);
    if (width <= zr::kSmall && height <= zr::kSmall)
        zr::makeImageOf(image, zr::Numbers({data, size}));
    return 0;
}
