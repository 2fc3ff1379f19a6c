#include <Tests/ZRKitDynamic/ZRImage/HelpTesting.h>
#include <ZRKitDynamic/ZRImage/ZRImage.h>
#include <ZRPlatform/Foundation/NSBundle.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

namespace zr::testing {

namespace {

/// A folder of images, each of its own colour, that is not the main bundle; the main bundle is an empty one.
class ImageLookup : public ::testing::Test {
protected:
    ImageLookup() : m_profile(UIDevice::currentDevice()->profile()) {
        NSBundle::setMainBundlePath(m_bundle.path());
        DeviceProfile profile = m_profile;
        profile.scale = 3;
        UIDevice::currentDevice()->setProfile(profile);
    }
    ~ImageLookup() override {
        UIDevice::currentDevice()->setProfile(m_profile);
        NSBundle::setMainBundlePath(nullptr);
    }

    static void add(const TemporaryFolder& folder, const char* name, Pixel color) {
        folder.write(name, UIImagePNGRepresentation(plainImage(6, 6, color)));
    }
    void add(const char* name, Pixel color) { add(m_folder, name, color); }
    Ref<UIImage> find(const NSString& name) const {
        return ZRImage::zrImagePNGFileWithFileName_inDirectory(name, m_folder.path());
    }
    Ref<UIImage> findInBundle(const NSString& name) const {
        return ZRImage::zrImagePNGFileWithFileName_inDirectory(name, m_bundle.path());
    }

    TemporaryFolder m_folder;
    TemporaryFolder m_bundle;

private:
    DeviceProfile m_profile;
};

void expectImage(const UIImage* image, Pixel color, CGFloat scale) {
    ASSERT_TRUE(image);
    EXPECT_EQ(pixelOf(image, 0, 0), color);
    EXPECT_EQ(image->scale(), scale);
    EXPECT_EQ(image->size(), (CGSize{6 / scale, 6 / scale}));
}

} // namespace

TEST_F(ImageLookup, ThePlainFileComesBeforeThoseWithASuffix) {
    add("icon.png", kRed);
    add("icon@2x.png", kGreen);
    add("icon@3x.png", kBlue);
    expectImage(find("icon"), kRed, 1);
}

TEST_F(ImageLookup, WithoutAPlainFileTheTwofoldComesBeforeTheThreefoldWhateverTheScreen) {
    add("icon@2x.png", kGreen);
    add("icon@3x.png", kBlue);
    expectImage(find("icon"), kGreen, 2);
}

TEST_F(ImageLookup, TheThreefoldFileIsTheLastWithASuffix) {
    add("icon@3x.png", kBlue);
    expectImage(find("icon"), kBlue, 3);
}

TEST_F(ImageLookup, ADamagedFileIsPassedOver) {
    m_folder.write("icon.png", bytesOf("\x89PNG\r\n\x1a\n"));
    m_folder.write("icon@2x.png", {});
    add("icon@3x.png", kBlue);
    expectImage(find("icon"), kBlue, 3);
}

TEST_F(ImageLookup, AnotherFolderIsNotLookedUpByNameInTheMainBundle) {
    add(m_bundle, "icon.png", kRed);
    EXPECT_FALSE(find("icon"));
}

TEST_F(ImageLookup, TheMainBundlesFolderGivesTheNamedImage) {
    add(m_bundle, "icon.png", kRed);
    add(m_bundle, "icon@2x.png", kGreen);
    add(m_bundle, "icon@3x.png", kBlue);
    const auto image = findInBundle("icon");
    expectImage(image, kBlue, 3); // the screen's, as named images go
    EXPECT_EQ(image.get(), UIImage::imageNamed("icon.png").get());
}

TEST_F(ImageLookup, TheMainBundlesFolderSpelledOtherwiseIsAFolderLikeAnyOther) {
    add(m_bundle, "icon.png", kRed);
    add(m_bundle, "icon@3x.png", kBlue);
    const auto image = ZRImage::zrImagePNGFileWithFileName_inDirectory("icon", m_bundle.path() + "/");
    expectImage(image, kRed, 1);
}

TEST_F(ImageLookup, InTheMainBundleTheFilesFollowTheNamedImage) {
    // A name that begins with a suffix of its own is not found by the named images' rule, but its file is.
    add(m_bundle, "icon.v@2x.png", kGreen);
    add(m_bundle, "icon.v@3x.png", kBlue);
    expectImage(findInBundle("icon.v"), kBlue, 3);
    // What is damaged as a named image is looked for among the files.
    m_bundle.write("sign@3x.png", bytesOf("\x89PNG\r\n\x1a\n"));
    add(m_bundle, "sign@2x.png", kGreen);
    EXPECT_FALSE(UIImage::imageNamed("sign.png"));
    expectImage(findInBundle("sign"), kGreen, 2);
    m_bundle.write("mark@3x.png", bytesOf("\x89PNG\r\n\x1a\n"));
    add(m_bundle, "mark.png", kRed);
    EXPECT_FALSE(UIImage::imageNamed("mark.png"));
    expectImage(findInBundle("mark"), kRed, 1);
}

TEST_F(ImageLookup, AnyExtensionCanBeAskedFor) {
    m_folder.write("photo@2x.jpg", testFile("quarters.jpg"));
    const auto image = ZRImage::zrImageWithFileName_expandedName_inDirectory("photo", "jpg", m_folder.path());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{32, 16}));
    EXPECT_FALSE(ZRImage::zrImageWithFileName_expandedName_inDirectory("photo", "png", m_folder.path()));
    EXPECT_FALSE(find("photo"));
}

TEST_F(ImageLookup, AnyExtensionCanBeAskedForInTheMainBundleToo) {
    m_bundle.write("photo.jpg", testFile("quarters.jpg"));
    m_bundle.write("photo@3x.jpg", testFile("quarters.jpg"));
    const auto image = ZRImage::zrImageWithFileName_expandedName_inDirectory("photo", "jpg", m_bundle.path());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), 3);
    EXPECT_EQ(image.get(), UIImage::imageNamed("photo.jpg").get());
    EXPECT_FALSE(findInBundle("photo"));
    // A named image may be a PNG whatever its name.
    add(m_bundle, "pic.jpg.png", kRed);
    expectImage(ZRImage::zrImageWithFileName_expandedName_inDirectory("pic", "jpg", m_bundle.path()), kRed, 1);
}

TEST_F(ImageLookup, ANilNameOrExtensionIsNotAnEmptyOne) {
    add("@2x.png", kGreen);
    add("icon.", kRed);
    add("icon@2x.", kRed);
    add("icon", kRed);
    EXPECT_FALSE(find(nullptr));
    EXPECT_FALSE(ZRImage::zrImageWithFileName_expandedName_inDirectory("icon", nullptr, m_folder.path()));
    expectImage(find(""), kGreen, 2);
}

TEST_F(ImageLookup, ANameWithAZeroByteIsNotThePartBeforeIt) {
    add("icon.png", kRed);
    add(m_bundle, "icon.png", kRed);
    const NSString name(std::string("icon.png\0x", 10));
    ASSERT_EQ(name.utf8().size(), 10u);
    EXPECT_FALSE(find(name));
    EXPECT_FALSE(findInBundle(name));
}

TEST_F(ImageLookup, TheExtensionIsJoinedByOneDotAndTheFolderByOneSlash) {
    add("icon.v2.png", kRed);
    add("icons/back@2x.png", kGreen);
    expectImage(find("icon.v2"), kRed, 1);
    expectImage(ZRImage::zrImagePNGFileWithFileName_inDirectory("icon.v2", m_folder.path() + "//"), kRed, 1);
    expectImage(find("icons/back"), kGreen, 2);
    expectImage(find("/icons/back"), kGreen, 2);
}

TEST_F(ImageLookup, WhatIsNotThereIsNil) {
    add("icon.png", kRed);
    EXPECT_FALSE(find("other"));
    EXPECT_FALSE(find(""));
    EXPECT_FALSE(find(nullptr));
    EXPECT_FALSE(findInBundle("icon"));
    EXPECT_FALSE(findInBundle(nullptr));
    EXPECT_FALSE(ZRImage::zrImageWithFileName_expandedName_inDirectory("icon", nullptr, m_folder.path()));
    EXPECT_FALSE(ZRImage::zrImageWithFileName_expandedName_inDirectory("icon", "", m_folder.path()));
    EXPECT_FALSE(ZRImage::zrImagePNGFileWithFileName_inDirectory("icon", m_folder.path() + "/none"));
    EXPECT_FALSE(ZRImage::zrImagePNGFileWithFileName_inDirectory("icon", ""));
}

TEST_F(ImageLookup, ANilFolderIsNoFolderNotEvenTheMainBundles) {
    add(m_bundle, "icon.png", kRed);
    EXPECT_FALSE(ZRImage::zrImagePNGFileWithFileName_inDirectory("icon", nullptr));
}

TEST_F(ImageLookup, NamedImagesAreThoseOfTheMainBundle) {
    add(m_bundle, "icon@2x.png", kGreen);
    const auto image = ZRImage::zrImageNamed("icon");
    expectImage(image, kGreen, 2);
    EXPECT_EQ(ZRImage::zrImageNamed("icon").get(), image.get());
    EXPECT_FALSE(ZRImage::zrImageNamed("none"));
    EXPECT_FALSE(ZRImage::zrImageNamed(nullptr));
}

} // namespace zr::testing
