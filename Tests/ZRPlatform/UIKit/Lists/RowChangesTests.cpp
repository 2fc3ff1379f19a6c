#include <ZRPlatform/UIKit/Lists/Internal/RowChanges.h>

#include <gtest/gtest.h>

namespace zr::tests {

namespace {

NSIndexPath path(NSInteger section, NSInteger row) { return NSIndexPath::indexPathForRow_inSection(row, section); }

constexpr auto kFade = UITableViewRowAnimationFade;
constexpr auto kLeft = UITableViewRowAnimationLeft;
constexpr auto kNone = UITableViewRowAnimationNone;
const NSIndexPath kNil;

} // namespace

TEST(IndexShift, ThoseThatStayCloseUpAndMakeRoom) {
    // 0 1 2 3 4 5 less 1 and 4, with two new ones: 0 N 2 3 N 5
    IndexShift shift;
    shift.takeOut(4);
    shift.takeOut(1);
    shift.putIn(4);
    shift.putIn(1);
    ASSERT_TRUE(shift.sort());
    EXPECT_EQ(shift.newIndex(0), 0);
    EXPECT_EQ(shift.newIndex(1), std::nullopt);
    EXPECT_EQ(shift.newIndex(2), 2);
    EXPECT_EQ(shift.newIndex(3), 3);
    EXPECT_EQ(shift.newIndex(4), std::nullopt);
    EXPECT_EQ(shift.newIndex(5), 5);
    EXPECT_EQ(shift.oldIndex(1), std::nullopt);
    EXPECT_EQ(shift.oldIndex(2), 2);
    EXPECT_TRUE(shift.fits(6, 6));
    EXPECT_FALSE(shift.fits(6, 7));
    EXPECT_FALSE(shift.fits(4, 4)) << "there is no 4 to be taken out";
}

TEST(IndexShift, NeighboursAtTheBeginningAndTheEnd) {
    // 0 1 2 with two in front and one behind: N N 0 1 2 N
    IndexShift shift;
    for (const NSInteger index : {0, 1, 5})
        shift.putIn(index);
    ASSERT_TRUE(shift.sort());
    for (NSInteger index = 0; index < 3; ++index) {
        EXPECT_EQ(shift.newIndex(index), index + 2);
        EXPECT_EQ(shift.oldIndex(index + 2), index);
    }
    EXPECT_EQ(shift.oldIndex(0), std::nullopt);
    EXPECT_EQ(shift.oldIndex(5), std::nullopt);
    EXPECT_EQ(shift.growth(), 3);
}

TEST(IndexShift, OnePlaceIsTakenOutOnce) {
    IndexShift twiceOut, twiceIn;
    twiceOut.takeOut(2);
    twiceOut.takeOut(2);
    twiceIn.putIn(2);
    twiceIn.putIn(2);
    EXPECT_FALSE(twiceOut.sort());
    EXPECT_FALSE(twiceIn.sort());
}

TEST(RowChanges, RowsFollowInsertionsAndDeletionsOfTheirSection) {
    RowChanges changes;
    changes.deleteRow(path(0, 1), kLeft);
    changes.insertRow(path(0, 0), kFade);
    changes.insertRow(path(0, 3), kLeft);
    ASSERT_EQ(changes.settle({4, 2}, {5, 2}), NSString());
    EXPECT_EQ(changes.newPath(path(0, 0)), path(0, 1));
    EXPECT_EQ(changes.newPath(path(0, 1)), kNil);
    EXPECT_EQ(changes.newPath(path(0, 2)), path(0, 2));
    EXPECT_EQ(changes.newPath(path(0, 3)), path(0, 4));
    EXPECT_EQ(changes.newPath(path(1, 1)), path(1, 1));
    EXPECT_EQ(changes.oldPath(path(0, 0)), kNil);
    EXPECT_EQ(changes.oldPath(path(0, 4)), path(0, 3));
    EXPECT_EQ(changes.deletionAnimation(path(0, 1)), kLeft);
    EXPECT_EQ(changes.insertionAnimation(path(0, 3)), kLeft);
    EXPECT_EQ(changes.insertionAnimation(path(0, 0)), kFade);
}

TEST(RowChanges, AMovedRowGoesFromOneSectionToAnother) {
    RowChanges changes;
    changes.moveRow(path(0, 0), path(1, 1));
    ASSERT_EQ(changes.settle({2, 2}, {1, 3}), NSString());
    EXPECT_EQ(changes.newPath(path(0, 0)), path(1, 1));
    EXPECT_EQ(changes.oldPath(path(1, 1)), path(0, 0));
    EXPECT_EQ(changes.newPath(path(0, 1)), path(0, 0));
    EXPECT_EQ(changes.newPath(path(1, 1)), path(1, 2));
    EXPECT_FALSE(changes.isAtOnce());
}

TEST(RowChanges, SectionsTakeTheirRowsAlong) {
    RowChanges changes;
    changes.deleteSection(0, kLeft);
    changes.insertSection(1, kFade);
    changes.insertRow(path(0, 0), kFade);
    ASSERT_EQ(changes.settle({3, 2, 1}, {3, 7, 1}), NSString());
    EXPECT_EQ(changes.newPath(path(0, 2)), kNil);
    EXPECT_EQ(changes.newPath(path(1, 1)), path(0, 2));
    EXPECT_EQ(changes.newPath(path(2, 0)), path(2, 0));
    EXPECT_EQ(changes.oldPath(path(1, 5)), kNil);
    EXPECT_EQ(changes.deletionAnimation(path(0, 2)), kLeft) << "its section's";
    EXPECT_EQ(changes.newSection(1), 0);
    EXPECT_EQ(changes.newSection(0), std::nullopt);
    EXPECT_EQ(changes.oldSection(1), std::nullopt);
}

TEST(RowChanges, AMovedSectionTakesItsRowsAlong) {
    RowChanges changes;
    changes.moveSection(0, 2);
    changes.deleteRow(path(0, 0), kFade);
    ASSERT_EQ(changes.settle({3, 2, 1}, {2, 1, 2}), NSString());
    EXPECT_EQ(changes.newPath(path(0, 1)), path(2, 0));
    EXPECT_EQ(changes.newPath(path(1, 1)), path(0, 1));
    EXPECT_EQ(changes.oldPath(path(2, 1)), path(0, 2));
}

TEST(RowChanges, AReloadedRowHasItsPlaceAndAReloadedSectionNone) {
    RowChanges changes;
    changes.reloadRow(path(0, 2), kLeft);
    changes.deleteRow(path(0, 0), kFade);
    changes.reloadSection(1, kLeft);
    ASSERT_EQ(changes.settle({3, 2}, {2, 9}), NSString());
    EXPECT_EQ(changes.newPath(path(0, 2)), path(0, 1));
    EXPECT_TRUE(changes.isReloaded(path(0, 2)));
    EXPECT_EQ(changes.deletionAnimation(path(0, 2)), kLeft);
    EXPECT_EQ(changes.insertionAnimation(path(0, 1)), kLeft);
    EXPECT_EQ(changes.newPath(path(1, 0)), kNil);
    EXPECT_EQ(changes.oldPath(path(1, 8)), kNil);
    EXPECT_EQ(changes.insertionAnimation(path(1, 8)), kLeft);
    EXPECT_EQ(changes.newSection(1), 1);
}

TEST(RowChanges, ADeletedRowThatIsAlsoReloadedIsDeleted) {
    RowChanges changes;
    changes.reloadRow(path(0, 0), kFade);
    changes.deleteRow(path(0, 0), kFade);
    ASSERT_EQ(changes.settle({2}, {1}), NSString());
    EXPECT_FALSE(changes.isReloaded(path(0, 0)));
    EXPECT_EQ(changes.newPath(path(0, 0)), kNil);
}

TEST(RowChanges, SaysWhatDoesNotAddUp) {
    const auto problem = [](auto note, RowChanges::Counts before, RowChanges::Counts after) {
        RowChanges changes;
        note(changes);
        return changes.settle(before, after);
    };
    EXPECT_EQ(problem([](RowChanges& c) { c.insertRow(path(0, 0), kFade); }, {3}, {3}),
              NSString("section 0 had 3 rows, +1 by what is inserted, deleted and moved, and has 3"));
    EXPECT_EQ(problem([](RowChanges&) {}, {3}, {2}),
              NSString("section 0 had 3 rows, +0 by what is inserted, deleted and moved, and has 2"));
    EXPECT_EQ(problem([](RowChanges& c) { c.deleteSection(0, kFade); }, {3}, {3}),
              NSString("there were 1 sections, -1 by what is inserted and deleted, and there are 1"));
    EXPECT_EQ(problem([](RowChanges& c) { c.deleteRow(path(0, 3), kFade); }, {3}, {2}),
              NSString("there is no row {0, 3} to be deleted or moved"));
    EXPECT_EQ(problem([](RowChanges& c) { c.deleteRow(kNil, kFade); }, {3}, {2}),
              NSString("there is no row nil to be deleted or moved"));
    EXPECT_EQ(problem([](RowChanges& c) { c.insertRow(path(0, 4), kFade); }, {3}, {4}),
              NSString("there is no place {0, 4} for a row"));
    EXPECT_EQ(problem([](RowChanges& c) { c.reloadRow(path(1, 0), kFade); }, {3}, {3}),
              NSString("there is no row {1, 0} to be reloaded"));
    EXPECT_EQ(problem([](RowChanges& c) { c.reloadSection(1, kFade); }, {3}, {3}),
              NSString("there is no section 1 to be reloaded"));
    EXPECT_EQ(problem(
                  [](RowChanges& c) {
                      c.moveRow(path(0, 0), path(0, 1));
                      c.moveRow(path(0, 1), path(0, 1));
                  },
                  {3}, {3}),
              NSString("a row of section 0 is deleted or moved twice, or two come to one place"));
    EXPECT_EQ(problem(
                  [](RowChanges& c) {
                      c.moveSection(0, 1);
                      c.deleteSection(0, kFade);
                  },
                  {3, 3}, {3}),
              NSString("a section is deleted or moved twice, or two come to one place"));
}

TEST(RowChanges, IsAtOnceWhenNothingIsAnimated) {
    RowChanges nothing, atOnce, partly;
    atOnce.insertRow(path(0, 0), kNone);
    atOnce.reloadSection(0, kNone);
    partly.insertRow(path(0, 0), kNone);
    partly.deleteRow(path(0, 1), kFade);
    EXPECT_FALSE(nothing.isAtOnce()) << "heights may have changed";
    EXPECT_TRUE(atOnce.isAtOnce());
    EXPECT_FALSE(partly.isAtOnce());
}

} // namespace zr::tests
