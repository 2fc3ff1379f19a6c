#include <ZRPlatform/Foundation/NSBundle.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace zr {

namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, gone afterwards.
class NSBundleTest : public testing::Test {
protected:
    void SetUp() override {
        folder = fs::path(ZR_TEST_OUTPUT) / ("bundle-" + std::to_string(getpid()));
        fs::create_directories(folder / "icons");
        for (const char* name : {"a.png", "plain", "icons/b.png"})
            std::ofstream(folder / name) << "content";
    }
    void TearDown() override {
        NSBundle::setMainBundlePath(nullptr);
        fs::remove_all(folder);
    }

    NSString path(const char* name) const { return (folder / name).string(); }

    fs::path folder;
};

} // namespace

TEST_F(NSBundleTest, FindsFilesByNameAndType) {
    const auto bundle = make<NSBundle>(&NSBundle::initWithPath, folder.string());
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->bundlePath(), folder.string());
    EXPECT_EQ(bundle->pathForResource_ofType("a", "png"), path("a.png"));
    EXPECT_EQ(bundle->pathForResource_ofType("a.png", nullptr), path("a.png"));
    EXPECT_EQ(bundle->pathForResource_ofType("a.png", ""), path("a.png"));
    EXPECT_EQ(bundle->pathForResource_ofType("plain", nullptr), path("plain"));
    EXPECT_EQ(bundle->pathForResource_ofType("icons/b", "png"), path("icons/b.png"));
}

TEST_F(NSBundleTest, WhatIsNotAFileIsNil) {
    const auto bundle = make<NSBundle>(&NSBundle::initWithPath, folder.string());
    EXPECT_TRUE(bundle->pathForResource_ofType("b", "png").isNil());
    EXPECT_TRUE(bundle->pathForResource_ofType("a", nullptr).isNil());
    EXPECT_TRUE(bundle->pathForResource_ofType("icons", nullptr).isNil());
    EXPECT_TRUE(bundle->pathForResource_ofType(nullptr, "png").isNil());
    EXPECT_TRUE(bundle->pathForResource_ofType("", nullptr).isNil());
    EXPECT_TRUE(bundle->pathForResource_ofType(std::string_view("plain\0x", 7), nullptr).isNil());
}

TEST_F(NSBundleTest, ThereIsNoBundleWithoutAFolder) {
    EXPECT_FALSE(make<NSBundle>(&NSBundle::initWithPath, path("nowhere")));
    EXPECT_FALSE(make<NSBundle>(&NSBundle::initWithPath, path("plain")));
    EXPECT_FALSE(make<NSBundle>(&NSBundle::initWithPath, nullptr));
}

TEST_F(NSBundleTest, TheMainBundleIsTheProgramsUnlessSetOtherwise) {
    NSBundle* bundle = NSBundle::mainBundle();
    ASSERT_NE(bundle, nullptr);
    const NSString byDefault = bundle->bundlePath();
    EXPECT_EQ(byDefault, fs::read_symlink("/proc/self/exe").parent_path().string());
    NSBundle::setMainBundlePath(folder.string());
    EXPECT_EQ(NSBundle::mainBundle()->pathForResource_ofType("a", "png"), path("a.png"));
    NSBundle::setMainBundlePath(nullptr);
    EXPECT_EQ(NSBundle::mainBundle()->bundlePath(), byDefault);
}

} // namespace zr
