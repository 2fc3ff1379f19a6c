#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/Internal/ImageDecoder.h>

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

Bytes gif() {
    return bytesOf(std::string_view("GIF89a\x02\0\x02\0\x91\0\0"
                                    "\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF"
                                    ",\0\0\0\0\x02\0\x02\0\0\x02\x03\x44\xA8\x15\0;",
                                    42));
}

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
    for (const std::size_t place : {6, 7, 8, 9})
        hugeGIF[place] = 0xFF;
    for (std::size_t place = 0; place + 8 < hugeJPEG.size(); ++place) {
        if (hugeJPEG[place] == 0xFF && hugeJPEG[place + 1] == 0xC0) {
            for (std::size_t side = 5; side < 9; ++side)
                hugeJPEG[place + side] = 0x9C;
        }
    }
    const std::int64_t before = peakMemory();
    EXPECT_FALSE(UIImage::imageWithData(hugeGIF));
    EXPECT_FALSE(UIImage::imageWithData(hugeJPEG));
    EXPECT_LT(peakMemory() - before, 64 << 20);
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
    const UIImageOrientation wanted[] = {UIImageOrientationUp,
                                         UIImageOrientationUpMirrored,
                                         UIImageOrientationDown,
                                         UIImageOrientationDownMirrored,
                                         UIImageOrientationLeftMirrored,
                                         UIImageOrientationRight,
                                         UIImageOrientationRightMirrored,
                                         UIImageOrientationLeft};
    for (int number = 1; number <= 8; ++number) {
        const auto image = UIImage::imageWithData(withOrientation(testFile("quarters.jpg"), number));
        ASSERT_TRUE(image) << number;
        EXPECT_EQ(image->imageOrientation(), wanted[number - 1]);
        EXPECT_EQ(image->size(), number < 5 ? (CGSize{64, 32}) : (CGSize{32, 64}));
        expectQuarters(image); // as stored
    }
    const auto unknown = UIImage::imageWithData(withOrientation(testFile("quarters.jpg"), 9));
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->imageOrientation(), UIImageOrientationUp);
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
}

} // namespace zr::tests
