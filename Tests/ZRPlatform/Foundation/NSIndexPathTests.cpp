#include <ZRPlatform/Foundation/NSIndexPath.h>
#include <ZRPlatform/Foundation/NSValue.h>

#include <gtest/gtest.h>
#include <unordered_set>

namespace zr::tests {

namespace {

NSIndexPath path(NSInteger section, NSInteger row) { return NSIndexPath::indexPathForRow_inSection(row, section); }

} // namespace

TEST(NSIndexPath, TellsItsSectionAndItsRow) {
    const NSIndexPath seventhOfSecond = path(2, 7);
    EXPECT_FALSE(seventhOfSecond.isNil());
    EXPECT_EQ(seventhOfSecond.section(), 2);
    EXPECT_EQ(seventhOfSecond.row(), 7);
    EXPECT_EQ(seventhOfSecond.description(), NSString("{2, 7}"));
}

TEST(NSIndexPath, CanBeNil) {
    const NSIndexPath nothing;
    EXPECT_TRUE(nothing.isNil());
    EXPECT_TRUE(NSIndexPath(nullptr).isNil());
    EXPECT_EQ(nothing.section(), NSNotFound);
    EXPECT_EQ(nothing.row(), NSNotFound);
    EXPECT_EQ(nothing.description(), NSString("nil"));
    EXPECT_EQ(nothing, NSIndexPath(nullptr));
}

TEST(NSIndexPath, IsOrderedBySectionAndThenByRow) {
    EXPECT_EQ(path(0, 9).compare(path(1, 0)), NSOrderedAscending);
    EXPECT_EQ(path(1, 3).compare(path(1, 2)), NSOrderedDescending);
    EXPECT_EQ(path(1, 2).compare(path(1, 2)), NSOrderedSame);
    EXPECT_EQ(path(1, 2).compare(nullptr), NSOrderedAscending);
    EXPECT_LT(path(0, 9), path(1, 0));
    EXPECT_NE(path(0, 1), path(1, 0));
}

TEST(NSIndexPath, GoesIntoHashedContainersAndBoxes) {
    const std::unordered_set<NSIndexPath> paths{path(0, 1), path(1, 0), path(0, 1)};
    EXPECT_EQ(paths.size(), 2u);
    EXPECT_EQ(NSValue::valueWithStructure(path(3, 4)).as<NSIndexPath>(), path(3, 4));
}

} // namespace zr::tests
