#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/Internal/ImageDecoder.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <algorithm>
#include <ctime>
#include <sys/resource.h>

namespace zr::tests {

namespace {

/// The most memory that the process ever used, in bytes.
std::int64_t peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return std::int64_t{usage.ru_maxrss} * 1024;
}

/// The file with the metadata that says how it is turned.
Bytes withOrientation(Bytes jpeg, int orientation) {
    Bytes segment = bytesOf(std::string_view("\xFF\xE1\x00\x22"
                                             "Exif\0\0"
                                             "II*\0\x08\0\0\0"
                                             "\x01\0\x12\x01\x03\0\x01\0\0\0\x01\0\0\0"
                                             "\0\0\0\0",
                                             36));
    segment[28] = static_cast<std::uint8_t>(orientation);
    jpeg.insert(jpeg.begin() + 2, segment.begin(), segment.end());
    return jpeg;
}

Bytes gif() { return testFile("quarters.gif"); }

void expectQuarters(const UIImage* image) {
    ASSERT_TRUE(image);
    const NSUInteger right = image->CGImage()->width() - 1, bottom = image->CGImage()->height() - 1;
    EXPECT_PRED2(isNearly, pixelOf(image, 0, 0), kRed);
    EXPECT_PRED2(isNearly, pixelOf(image, right, 0), kGreen);
    EXPECT_PRED2(isNearly, pixelOf(image, 0, bottom), kBlue);
    EXPECT_PRED2(isNearly, pixelOf(image, right, bottom), kWhite);
}

} // namespace

TEST(ImageFile, PNGKeepsEveryPixelAndItsTransparency) {
    const Pixel half{128, 0, 0, 128};
    const auto original = UIImage::imageWithCGImage(bitmap(3, {kRed, half, kNothing, kBlue, kWhite, kBlack}));
    const auto image = UIImage::imageWithData(UIImagePNGRepresentation(original));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{3, 2}));
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 1, 0), half);
    EXPECT_EQ(pixelOf(image, 2, 0), kNothing);
    EXPECT_EQ(pixelOf(image, 0, 1), kBlue);
    EXPECT_EQ(pixelOf(image, 1, 1), kWhite);
    EXPECT_EQ(pixelOf(image, 2, 1), kBlack);
    EXPECT_FALSE(image->CGImage()->isOpaque());
}

TEST(ImageFile, PNGWithoutTransparencyIsOpaque) {
    const auto image = UIImage::imageWithData(UIImagePNGRepresentation(UIImage::imageWithCGImage(quarters())));
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->CGImage()->isOpaque());
    expectQuarters(image);
}

TEST(ImageFile, InterlacedPNGsOfEverySizeAreRead) {
    struct Pass {
        std::uint32_t x, y, xStep, yStep;
    };
    constexpr Pass kPasses[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
    for (std::uint32_t height = 1; height <= 17; ++height) {
        for (std::uint32_t width = 1; width <= 17; ++width) {
            std::uint64_t bytes = 0;
            for (const Pass& pass : kPasses) {
                const std::uint32_t columns = (width + pass.xStep - 1 - pass.x) / pass.xStep;
                const std::uint32_t rows = (height + pass.yStep - 1 - pass.y) / pass.yStep;
                bytes += width > pass.x && height > pass.y ? std::uint64_t{rows} * (1 + columns) : 0;
            }
            Bytes header;
            PNGWriter::append(header, width);
            PNGWriter::append(header, height);
            const Bytes eightBitGrayInterlaced{8, 0, 0, 0, 1};
            header.insert(header.end(), eightBitGrayInterlaced.begin(), eightBitGrayInterlaced.end());
            PNGWriter png;
            png.chunk("IHDR", header);
            png.chunk("IDAT", compressedZeros(bytes));
            png.chunk("IEND", {});
            const auto image = UIImage::imageWithData(png.bytes());
            ASSERT_TRUE(image) << width << " x " << height;
            EXPECT_EQ(pixelOf(image, width - 1, height - 1), kBlack);
        }
    }
}

TEST(ImageFile, PNGRepresentationOfATurnedImageIsUpright) {
    const auto turned =
        UIImage::imageWithCGImage_scale_orientation(bitmap(2, {kRed, kGreen}), 1, UIImageOrientationRight);
    const auto image = UIImage::imageWithData(UIImagePNGRepresentation(turned));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{1, 2}));
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 0, 1), kGreen);
}

TEST(ImageFile, PNGRepresentationOfNilIsEmpty) { EXPECT_TRUE(UIImagePNGRepresentation(nullptr).empty()); }

TEST(ImageFile, OtherFormatsAreReadToo) {
    expectQuarters(UIImage::imageWithData(testFile("quarters.png")));
    expectQuarters(UIImage::imageWithData(testFile("quarters.jpg")));
    expectQuarters(UIImage::imageWithData(testFile("quarters.webp")));
    expectQuarters(UIImage::imageWithData(gif()));
}

TEST(ImageFile, CutShortAnywhereIsNil) {
    const Bytes files[] = {UIImagePNGRepresentation(plainImage(40, 40, kRed)), testFile("quarters.jpg"),
                           testFile("quarters.webp"), gif()};
    for (const Bytes& file : files) {
        ASSERT_TRUE(UIImage::imageWithData(file));
        // The very last bytes hold nothing of the picture in some formats.
        for (std::size_t length = 0; length + 3 < file.size(); ++length)
            EXPECT_FALSE(
                UIImage::imageWithData(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length))))
                << "first bytes " << file[0] << file[1] << file[2] << ", " << length << " of " << file.size();
    }
}

TEST(ImageFile, DamagedPNGIsNil) {
    const Bytes file = UIImagePNGRepresentation(plainImage(40, 40, kRed));
    for (const std::size_t place : {std::size_t{0}, std::size_t{18}, file.size() / 2}) {
        Bytes damaged = file;
        damaged[place] ^= 0xFF;
        EXPECT_FALSE(UIImage::imageWithData(damaged)) << "byte " << place;
    }
}

TEST(ImageFile, PNGWithAWrongChecksumIsNil) {
    const Bytes file = UIImagePNGRepresentation(plainImage(40, 40, kRed));
    const auto chunk = [&](std::string_view type) {
        return std::search(file.begin(), file.end(), type.begin(), type.end()) - file.begin();
    };
    // The checksum of the header, and of the pixels: the last bytes before the next chunk's length.
    constexpr std::ptrdiff_t kHeaderEnd = 33;
    for (const std::ptrdiff_t end : {kHeaderEnd, chunk("IEND") - 4}) {
        Bytes damaged = file;
        damaged[static_cast<std::size_t>(end - 1)] ^= 1;
        EXPECT_FALSE(UIImage::imageWithData(damaged)) << "before byte " << end;
    }
}

TEST(ImageFile, AHeaderThatLiesAboutTheSizeIsRefusedWithoutTheMemoryForIt) {
    Bytes header;
    PNGWriter::append(header, 60'000);
    PNGWriter::append(header, 60'000);
    const Bytes eightBitRGBA{8, 6, 0, 0, 0};
    header.insert(header.end(), eightBitRGBA.begin(), eightBitRGBA.end());
    PNGWriter png;
    png.chunk("IHDR", header);
    png.chunk("IDAT", compressedZeros(1000));
    png.chunk("IEND", {});
    const std::int64_t before = peakMemory();
    EXPECT_FALSE(UIImage::imageWithData(png.bytes()));
    EXPECT_LT(peakMemory() - before, 64 << 20);
}

TEST(ImageFile, AHeaderThatPromisesMoreThanTheFileHoldsIsNil) {
    Bytes header;
    PNGWriter::append(header, 100);
    PNGWriter::append(header, 100);
    const Bytes eightBitRGBA{8, 6, 0, 0, 0};
    header.insert(header.end(), eightBitRGBA.begin(), eightBitRGBA.end());
    PNGWriter png;
    png.chunk("IHDR", header);
    png.chunk("IDAT", compressedZeros(50 * 401));
    png.chunk("IEND", {});
    EXPECT_FALSE(UIImage::imageWithData(png.bytes()));
}

TEST(ImageFile, OtherBytesAreNil) {
    EXPECT_FALSE(UIImage::imageWithData({}));
    EXPECT_FALSE(UIImage::imageWithData(bytesOf("no picture at all")));
    EXPECT_FALSE(UIImage::imageWithData(Bytes(1000, 0)));
}

TEST(ImageFile, DamagedBytesNeverBringTheProgramDown) {
    const Bytes files[] = {testFile("quarters.jpg"), testFile("quarters.webp"), gif(),
                           UIImagePNGRepresentation(plainImage(9, 9, kRed))};
    for (const Bytes& file : files) {
        for (std::size_t place = 0; place < file.size(); ++place) {
            Bytes damaged = file;
            damaged[place] ^= 0x55;
            const auto image = UIImage::imageWithData(damaged);
            if (image) { // what is left may still be a picture, then a whole one
                EXPECT_TRUE(imageSizeIsAllowed(image->CGImage()->width(), image->CGImage()->height()));
            }
        }
    }
}

TEST(ImageFile, AGiganticFileIsRefusedWithoutTheMemoryOrTheTimeForIt) {
    const Bytes file = blackPNG(40'000, 40'000);
    ASSERT_LT(file.size(), 4u << 20);
    const std::int64_t memory = peakMemory();
    const std::clock_t work = std::clock();
    EXPECT_FALSE(UIImage::imageWithData(file));
    // To decode it takes seconds of the processor's time.
    EXPECT_LT(std::clock() - work, CLOCKS_PER_SEC / 4);
    EXPECT_LT(peakMemory() - memory, 64 << 20);
}

TEST(ImageFile, GiganticFilesOfOtherFormatsAreRefused) {
    Bytes hugeGIF = gif();
    Bytes hugeJPEG = testFile("quarters.jpg");
    Bytes hugeWebP = testFile("quarters.webp");
    for (const std::size_t place : {6, 7, 8, 9})
        hugeGIF[place] = 0xFF;
    for (std::size_t place = 0; place + 8 < hugeJPEG.size(); ++place) {
        if (hugeJPEG[place] == 0xFF && hugeJPEG[place + 1] == 0xC0) {
            for (std::size_t side = 5; side < 9; ++side)
                hugeJPEG[place + side] = 0x9C;
        }
    }
    for (const std::size_t place : {0x1A, 0x1C}) {
        hugeWebP[place] = 0xFF; // 16383 a side is as much as it can say
        hugeWebP[place + 1] = 0x3F;
    }
    const std::int64_t before = peakMemory();
    EXPECT_FALSE(UIImage::imageWithData(hugeWebP));
    EXPECT_FALSE(UIImage::imageWithData(hugeGIF));
    EXPECT_FALSE(UIImage::imageWithData(hugeJPEG));
    // The smallest of the three would take a gigabyte.
    EXPECT_LT(peakMemory() - before, 256 << 20);
}

TEST(ImageFile, MoreThan64MillionPixelsAreTooMany) {
    EXPECT_TRUE(imageSizeIsAllowed(8000, 8000));
    EXPECT_FALSE(imageSizeIsAllowed(8001, 8000));
    EXPECT_FALSE(UIImage::imageWithData(blackPNG(8001, 8000)));
}

TEST(ImageFile, ASideOfMoreThan32767PixelsIsTooLong) {
    EXPECT_FALSE(UIImage::imageWithData(blackPNG(32768, 1)));
    EXPECT_FALSE(UIImage::imageWithData(blackPNG(1, 32768)));
    const auto longest = UIImage::imageWithData(blackPNG(32767, 2));
    ASSERT_TRUE(longest);
    EXPECT_EQ(longest->size(), (CGSize{32767, 2}));
    EXPECT_EQ(pixelOf(longest, 32766, 1), kBlack);
}

TEST(ImageFile, ThePhotographsOrientationIsKept) {
    for (int number = 1; number <= 8; ++number) {
        const auto image = UIImage::imageWithData(withOrientation(testFile("quarters.jpg"), number));
        ASSERT_TRUE(image) << number;
        EXPECT_EQ(image->imageOrientation(), kOrientations[number - 1]);
        EXPECT_EQ(image->size(), number < 5 ? (CGSize{64, 32}) : (CGSize{32, 64}));
        expectQuarters(image); // as stored
    }
    const auto unknown = UIImage::imageWithData(withOrientation(testFile("quarters.jpg"), 9));
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->imageOrientation(), UIImageOrientationUp);
}

TEST(ImageFile, PhotographsStandUprightHoweverTheCameraWasHeld) {
    // Top left, top right, bottom left, bottom right.
    const Pixel wanted[8][4] = {
        {kRed, kGreen, kBlue, kWhite}, {kGreen, kRed, kWhite, kBlue}, {kWhite, kBlue, kGreen, kRed},
        {kBlue, kWhite, kRed, kGreen}, {kRed, kBlue, kGreen, kWhite}, {kBlue, kRed, kWhite, kGreen},
        {kWhite, kGreen, kBlue, kRed}, {kGreen, kWhite, kRed, kBlue},
    };
    for (int number = 1; number <= 8; ++number) {
        const auto image = UIImage::imageWithData(withOrientation(testFile("quarters.jpg"), number));
        ASSERT_TRUE(image) << number;
        UIGraphicsBeginImageContext(image->size());
        image->drawAtPoint(CGPointZero);
        const auto drawn = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        const auto upright = image->uprightImage();
        for (NSUInteger corner = 0; corner < 4; ++corner) {
            const NSUInteger x = corner % 2 * (upright->width() - 1), y = corner / 2 * (upright->height() - 1);
            EXPECT_PRED2(isNearly, pixelOf(upright, x, y), wanted[number - 1][corner]) << number;
            EXPECT_PRED2(isNearly, pixelOf(drawn, x, y), wanted[number - 1][corner]) << number;
        }
    }
    EXPECT_EQ(UIImage::imageWithData(testFile("quarters-turned.jpg"))->imageOrientation(), UIImageOrientationRight);
}

TEST(ImageFile, TheNameGivesTheScale) {
    const TemporaryFolder folder;
    const Bytes file = UIImagePNGRepresentation(plainImage(12, 6, kRed));
    const auto scaleOf = [&](const char* name) {
        const auto image = UIImage::imageWithContentsOfFile(folder.write(name, file));
        EXPECT_TRUE(image);
        return image ? image->scale() : 0;
    };
    EXPECT_EQ(scaleOf("a.png"), 1);
    EXPECT_EQ(scaleOf("a@2x.png"), 2);
    EXPECT_EQ(scaleOf("a@3x.png"), 3);
    EXPECT_EQ(scaleOf("a@2x"), 2);
    EXPECT_EQ(scaleOf("a@2x~other.png"), 1);
    EXPECT_EQ(UIImage::imageWithContentsOfFile(folder.path() + "/a@3x.png")->size(), (CGSize{4, 2}));
}

TEST(ImageFile, WhatIsNoFileIsNil) {
    const TemporaryFolder folder;
    EXPECT_FALSE(UIImage::imageWithContentsOfFile(folder.path()));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile(folder.path() + "/none.png"));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile(""));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile(nullptr));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile("/dev/zero"));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile(folder.write("empty.png", {})));
    const std::string file = folder.write("red.png", UIImagePNGRepresentation(plainImage(2, 2, kRed)));
    EXPECT_TRUE(UIImage::imageWithContentsOfFile(file));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile(file + std::string("\0x", 2)));
}

} // namespace zr::tests
