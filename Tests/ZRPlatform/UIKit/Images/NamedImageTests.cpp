#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/Foundation/NSBundle.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

#include <thread>

namespace zr::tests {

namespace {

/// A bundle of images, each of its own colour, on a device of some scale.
class NamedImage : public ::testing::Test {
protected:
    NamedImage() : m_profile(UIDevice::currentDevice()->profile()) { NSBundle::setMainBundlePath(m_folder.path()); }
    ~NamedImage() override {
        UIDevice::currentDevice()->setProfile(m_profile);
        NSBundle::setMainBundlePath(nullptr);
    }

    void add(const char* name, Pixel color = kRed) {
        m_folder.write(name, UIImagePNGRepresentation(plainImage(6, 6, color)));
    }
    void setScreenScale(CGFloat scale) {
        DeviceProfile profile = m_profile;
        profile.scale = scale;
        UIDevice::currentDevice()->setProfile(profile);
    }
    Pixel colorOf(const char* name) { return pixelOf(UIImage::imageNamed(name), 0, 0); }

    TemporaryFolder m_folder;

private:
    DeviceProfile m_profile;
};

} // namespace

TEST_F(NamedImage, TheScreensVariantIsTaken) {
    add("icon.png", kRed);
    add("icon@2x.png", kGreen);
    add("icon@3x.png", kBlue);
    const std::pair<CGFloat, Pixel> wanted[] = {{1, kRed}, {1.5, kGreen}, {2, kGreen}, {3, kBlue}, {4, kBlue}};
    for (const auto& [scale, color] : wanted) {
        setScreenScale(scale);
        EXPECT_EQ(colorOf("icon"), color) << scale;
        EXPECT_EQ(colorOf("icon.png"), color) << scale;
    }
}

TEST_F(NamedImage, WithoutAFileOfItsExtensionItIsAPNG) {
    add("icon.v2.png", kRed);
    EXPECT_EQ(colorOf("icon.v2"), kRed);
    add("photo.jpg.png", kGreen);
    EXPECT_EQ(colorOf("photo.jpg"), kGreen);
}

TEST_F(NamedImage, WithoutItTheNearestLargerOneElseTheNearestSmaller) {
    add("a.png", kRed);
    add("a@3x.png", kBlue);
    setScreenScale(2);
    EXPECT_EQ(colorOf("a"), kBlue);
    EXPECT_EQ(UIImage::imageNamed("a")->scale(), 3);
    add("b.png", kRed);
    add("b@2x.png", kGreen);
    setScreenScale(3);
    EXPECT_EQ(colorOf("b"), kGreen);
    EXPECT_EQ(UIImage::imageNamed("b")->scale(), 2);
    add("c@2x.png", kGreen);
    add("c@3x.png", kBlue);
    setScreenScale(1);
    EXPECT_EQ(colorOf("c"), kGreen);
    EXPECT_EQ(UIImage::imageNamed("c")->size(), (CGSize{3, 3}));
}

TEST_F(NamedImage, FoldersExtensionsAndDotsInNames) {
    add("icons/back.png");
    add("icon.v2.png", kGreen);
    m_folder.write("photo.jpg", testFile("quarters.jpg"));
    EXPECT_EQ(colorOf("icons/back"), kRed);
    EXPECT_EQ(colorOf("icons/back.png"), kRed);
    EXPECT_EQ(colorOf("icon.v2"), kGreen);
    EXPECT_TRUE(UIImage::imageNamed("photo.jpg"));
    EXPECT_FALSE(UIImage::imageNamed("photo"));
}

TEST_F(NamedImage, WhatIsNotThereOrDamagedIsNil) {
    m_folder.write("damaged.png", bytesOf("\x89PNG\r\n\x1a\n"));
    EXPECT_FALSE(UIImage::imageNamed("none"));
    EXPECT_FALSE(UIImage::imageNamed("damaged"));
    EXPECT_FALSE(UIImage::imageNamed(""));
    EXPECT_FALSE(UIImage::imageNamed(nullptr));
}

TEST_F(NamedImage, IsDecodedOnceUntilAMemoryWarning) {
    add("icon.png", kRed);
    const auto first = UIImage::imageNamed("icon");
    add("icon.png", kBlue);
    EXPECT_EQ(UIImage::imageNamed("icon.png").get(), first.get());
    NSNotificationCenter::defaultCenter()->postNotificationName_object(UIApplicationDidReceiveMemoryWarningNotification,
                                                                       nullptr);
    EXPECT_EQ(colorOf("icon"), kBlue);
    EXPECT_EQ(pixelOf(first, 0, 0), kRed);
}

TEST_F(NamedImage, ThreadsGetTheSameObject) {
    add("icon.png");
    std::vector<Ref<UIImage>> images(8);
    std::vector<std::thread> threads;
    for (Ref<UIImage>& image : images)
        threads.emplace_back([&image] { image = UIImage::imageNamed("icon"); });
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_TRUE(images[0]);
    for (const auto& image : images)
        EXPECT_EQ(image.get(), images[0].get());
}

} // namespace zr::tests
