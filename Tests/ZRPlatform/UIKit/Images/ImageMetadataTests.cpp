#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/Internal/ImageMetadata.h>

namespace zr::tests {

namespace {

Bytes bytesWithZeros(const char* text, std::size_t size) { return bytesOf(std::string_view(text, size)); }

/// A directory of two entries, the second of which is the orientation.
Bytes littleMetadata(int orientation) {
    Bytes bytes = bytesWithZeros("II*\0\x08\0\0\0\x02\0"
                                 "\x0F\x01\x03\0\x01\0\0\0\x05\0\0\0"
                                 "\x12\x01\x03\0\x01\0\0\0\0\0\0\0"
                                 "\0\0\0\0",
                                 38);
    bytes[30] = static_cast<std::uint8_t>(orientation);
    return bytes;
}

Bytes bigMetadata(int orientation) {
    Bytes bytes = bytesWithZeros("MM\0*\0\0\0\x08\0\x01"
                                 "\x01\x12\0\x03\0\0\0\x01\0\0\0\0"
                                 "\0\0\0\0",
                                 26);
    bytes[19] = static_cast<std::uint8_t>(orientation);
    return bytes;
}

Bytes withPrefix(const Bytes& metadata) {
    Bytes bytes = bytesWithZeros("Exif\0\0", 6);
    bytes.insert(bytes.end(), metadata.begin(), metadata.end());
    return bytes;
}

Bytes pngWith(const Bytes& metadata) {
    constexpr std::ptrdiff_t kHeaderEnd = 33;
    Bytes file = testFile("quarters.png");
    PNGWriter writer;
    writer.chunk("eXIf", metadata);
    file.insert(file.begin() + kHeaderEnd, writer.bytes().begin() + 8, writer.bytes().end());
    return file;
}

void appendLittle(Bytes& bytes, std::size_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

Bytes webPWith(const Bytes& metadata) {
    const Bytes plain = testFile("quarters.webp");
    constexpr std::size_t kMetadataFlag = 8;
    Bytes content = bytesOf("WEBPVP8X");
    appendLittle(content, 10, 4);
    appendLittle(content, kMetadataFlag, 4);
    appendLittle(content, 64 - 1, 3);
    appendLittle(content, 32 - 1, 3);
    content.insert(content.end(), plain.begin() + 12, plain.end());
    const Bytes type = bytesOf("EXIF");
    content.insert(content.end(), type.begin(), type.end());
    appendLittle(content, metadata.size(), 4);
    content.insert(content.end(), metadata.begin(), metadata.end());
    content.resize(content.size() + content.size() % 2);
    Bytes file = bytesOf("RIFF");
    appendLittle(file, content.size(), 4);
    file.insert(file.end(), content.begin(), content.end());
    return file;
}

using Wrap = Bytes (*)(const Bytes& metadata);
constexpr Wrap kFiles[] = {pngWith, webPWith};

constexpr NSInteger kNoImage = -1;

NSInteger orientationOf(const Bytes& file) {
    const auto image = UIImage::imageWithData(file);
    return image ? image->imageOrientation() : kNoImage;
}

} // namespace

TEST(ImageMetadata, TheOrientationIsKeptInOtherFormatsToo) {
    for (const Wrap file : kFiles) {
        for (int number = 1; number <= 8; ++number) {
            EXPECT_EQ(orientationOf(file(littleMetadata(number))), kOrientations[number - 1]) << number;
            EXPECT_EQ(orientationOf(file(bigMetadata(number))), kOrientations[number - 1]) << number;
            EXPECT_EQ(orientationOf(file(withPrefix(bigMetadata(number)))), kOrientations[number - 1]) << number;
        }
    }
}

TEST(ImageMetadata, ATurnedImageStandsUpright) {
    for (const Wrap file : kFiles) {
        const auto image = UIImage::imageWithData(file(littleMetadata(6)));
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size().width, static_cast<CGFloat>(image->CGImage()->height()));
        const auto upright = image->uprightImage();
        EXPECT_PRED2(isNearly, pixelOf(upright, 0, 0), kBlue);
        EXPECT_PRED2(isNearly, pixelOf(upright, upright->width() - 1, 0), kRed);
    }
}

TEST(ImageMetadata, WhatMakesNoSenseIsUpright) {
    for (const Wrap file : kFiles) {
        Bytes otherType = littleMetadata(6), otherEntry = littleMetadata(6), farAway = littleMetadata(6);
        otherType[24] = 4;
        otherEntry[22] = 0x13;
        farAway[7] = 0x7F;
        for (const Bytes& metadata : {otherType, otherEntry, farAway, littleMetadata(0), littleMetadata(9), Bytes{},
                                      bytesOf("XX"), withPrefix({})})
            EXPECT_EQ(orientationOf(file(metadata)), UIImageOrientationUp);
        // The number itself is cut off, and so on down to nothing.
        for (std::ptrdiff_t length = 0; length < 30; ++length) {
            const Bytes whole = littleMetadata(6);
            EXPECT_EQ(orientationOf(file(Bytes(whole.begin(), whole.begin() + length))), UIImageOrientationUp);
        }
    }
}

// Sizes

namespace {

/// A file of one chunk.
Bytes webPOfChunk(const char* type, const Bytes& content) {
    Bytes file = bytesOf("RIFF");
    appendLittle(file, 12 + content.size(), 4);
    for (const std::uint8_t byte : bytesOf(std::string("WEBP") + type))
        file.push_back(byte);
    appendLittle(file, content.size(), 4);
    file.insert(file.end(), content.begin(), content.end());
    return file;
}

std::pair<std::uint32_t, std::uint32_t> sizeOf(const Bytes& file) {
    const PixelSize size = sizeInWebP(file);
    return {size.width, size.height};
}

} // namespace

TEST(ImageMetadata, EachKindOfWebPStatesItsSize) {
    using Size = std::pair<std::uint32_t, std::uint32_t>;
    EXPECT_EQ(sizeOf(testFile("quarters.webp")), Size(64, 32));
    EXPECT_EQ(sizeOf(webPOfChunk("VP8X", {0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x04, 0x03, 0x02})), Size(1 << 24, 0x020305));
    EXPECT_EQ(sizeOf(webPOfChunk("VP8 ", {0, 0, 0, 0x9D, 0x01, 0x2A, 0xFF, 0xFF, 0x03, 0x42})), Size(0x3FFF, 0x0203));
    EXPECT_EQ(sizeOf(webPOfChunk("VP8L", {0x2F, 0xFF, 0xFF, 0x03, 0x10})), Size(0x4000, 16));
}

TEST(ImageMetadata, OfTheSizesInAWebPTheLargestCounts) {
    Bytes file = webPWith(littleMetadata(1));
    constexpr std::size_t kCanvasWidth = 24, kPictureHeight = 12 + 18 + 8 + 8;
    file[kCanvasWidth + 1] = 1;
    file[kPictureHeight + 1] = 2;
    EXPECT_EQ(sizeOf(file), std::make_pair(64u + 256, 32u + 512));
}

TEST(ImageMetadata, WebPChunksThatAreCutShortStateNothing) {
    using Size = std::pair<std::uint32_t, std::uint32_t>;
    EXPECT_EQ(sizeOf({}), Size(0, 0));
    EXPECT_EQ(sizeOf(webPOfChunk("VP8X", Bytes(9, 1))), Size(0, 0));
    EXPECT_EQ(sizeOf(webPOfChunk("VP8 ", Bytes(9, 1))), Size(0, 0));
    EXPECT_EQ(sizeOf(webPOfChunk("VP8L", Bytes(4, 1))), Size(0, 0));
    Bytes beyondTheEnd = webPOfChunk("VP8X", Bytes(10, 1));
    beyondTheEnd[16] = 11;
    EXPECT_EQ(sizeOf(beyondTheEnd), Size(0, 0));
}

TEST(ImageMetadata, AWebPWhoseCanvasIsTooLargeIsRefused) {
    Bytes file = webPWith(littleMetadata(1));
    ASSERT_TRUE(UIImage::imageWithData(file));
    file[26] = 1;
    EXPECT_FALSE(UIImage::imageWithData(file));
}

} // namespace zr::tests
