#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace zr::tests {

namespace {

NSIndexPath path(NSInteger section, NSInteger row) { return NSIndexPath::indexPathForRow_inSection(row, section); }

RowHeights heights(std::vector<CGFloat> each) {
    return {static_cast<NSInteger>(each.size()), [each](NSInteger row) { return each[row]; }};
}

/// Sections of 3 equal rows, of 4 different ones, and of none, below a view of 30 points.
SectionGeometry list() {
    SectionGeometry geometry(30);
    geometry.append({20, 0, RowHeights(3, 44)});
    geometry.append({0, 10, heights({10, 0, 30, 60})});
    geometry.append({20, 20, RowHeights(0, 44)});
    return geometry;
}

} // namespace

TEST(RowHeights, EqualHeightsAreMultiplied) {
    const RowHeights rows(10'000'000, 44);
    EXPECT_EQ(rows.count(), 10'000'000);
    EXPECT_EQ(rows.total(), 440'000'000);
    EXPECT_EQ(rows.top(9'999'999), 439'999'956);
    EXPECT_EQ(rows.height(9'999'999), 44);
    EXPECT_EQ(rows.firstRowEndingBelow(439'999'955), 9'999'998);
    EXPECT_EQ(rows.firstRowEndingBelow(439'999'956), 9'999'999);
    EXPECT_EQ(rows.firstRowEndingBelow(440'000'000), 10'000'000);
}

TEST(Heights, HaveBounds) {
    constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
    for (const CGFloat none : {std::numeric_limits<CGFloat>::quiet_NaN(), kInfinity, -kInfinity, -0.6}) {
        EXPECT_EQ(boundedHeight(none), 0);
        EXPECT_EQ(boundedRowHeight(none), 0);
    }
    EXPECT_EQ(boundedHeight(1e9), 1'000'000);
    EXPECT_EQ(boundedRowHeight(1e9), 1'000'000);
    EXPECT_EQ(boundedHeight(0.3), 0.3);
    EXPECT_EQ(boundedRowHeight(0.49), 0);
    EXPECT_EQ(boundedRowHeight(0.5), 0.5);
}

TEST(RowHeights, DifferentHeightsAddUp) {
    const RowHeights rows = heights({10, 0, 30, 60});
    EXPECT_EQ(rows.total(), 100);
    EXPECT_EQ(rows.top(2), 10);
    EXPECT_EQ(rows.height(1), 0);
    EXPECT_EQ(rows.height(3), 60);
    EXPECT_EQ(rows.firstRowEndingBelow(-5), 0);
    EXPECT_EQ(rows.firstRowEndingBelow(9.5), 0);
    EXPECT_EQ(rows.firstRowEndingBelow(10), 2) << "the row without height ends where it begins";
    EXPECT_EQ(rows.firstRowEndingBelow(40), 3);
    EXPECT_EQ(rows.firstRowEndingBelow(100), 4);
}

TEST(RowHeights, AHeightThatDiffersLateLeavesTheEarlierOnesAsTheyWere) {
    const RowHeights rows = heights({44, 44, 44, 50, 44});
    EXPECT_EQ(rows.top(1), 44);
    EXPECT_EQ(rows.top(3), 132);
    EXPECT_EQ(rows.top(4), 182);
    EXPECT_EQ(rows.total(), 226);
}

TEST(RowHeights, FindsEveryRowWhateverTheHeight) {
    for (const CGFloat height : {0.7, 1.1, 33.3, 1e6 / 3}) {
        const RowHeights rows(1000, height);
        for (NSInteger row = 0; row < 1000; ++row) {
            EXPECT_EQ(rows.firstRowEndingBelow(rows.top(row)), row) << height;
            EXPECT_EQ(rows.firstRowEndingBelow(std::nextafter(rows.top(row + 1), 0)), row) << height;
        }
    }
}

TEST(RowHeights, WithoutHeightNoneIsEverFound) {
    EXPECT_EQ(RowHeights(5, 0.0).firstRowEndingBelow(-1), 5);
    EXPECT_EQ(RowHeights(5, 0.0).firstRowEndingBelow(0), 5);
    EXPECT_EQ(RowHeights(0, 44).firstRowEndingBelow(0), 0);
}

TEST(SectionGeometry, SectionsFollowOneAnother) {
    const SectionGeometry geometry = list();
    EXPECT_EQ(geometry.all(), (Extent{30, 302}));
    EXPECT_EQ(geometry.section(0), (Extent{30, 152}));
    EXPECT_EQ(geometry.header(0), (Extent{30, 20}));
    EXPECT_EQ(geometry.rows(0), (Extent{50, 132}));
    EXPECT_EQ(geometry.footer(0), (Extent{182, 0}));
    EXPECT_EQ(geometry.section(1), (Extent{182, 110}));
    EXPECT_EQ(geometry.row(path(1, 3)), (Extent{222, 60}));
    EXPECT_EQ(geometry.footer(1), (Extent{282, 10}));
    EXPECT_EQ(geometry.section(2), (Extent{292, 40}));
    EXPECT_EQ(SectionGeometry(7).all(), (Extent{7, 0}));
}

TEST(SectionGeometry, MovesAsAWhole) {
    SectionGeometry geometry = list();
    geometry.moveTo(0);
    EXPECT_EQ(geometry.all(), (Extent{0, 302}));
    EXPECT_EQ(geometry.row(path(1, 3)), (Extent{192, 60}));
    EXPECT_EQ(geometry.rowAt(20), path(0, 0));
}

TEST(SectionGeometry, KnowsWhichRowsThereAre) {
    const SectionGeometry geometry = list();
    EXPECT_TRUE(geometry.hasRow(path(1, 3)));
    EXPECT_FALSE(geometry.hasRow(path(1, 4)));
    EXPECT_FALSE(geometry.hasRow(path(1, -1)));
    EXPECT_FALSE(geometry.hasRow(path(3, 0)));
    EXPECT_FALSE(geometry.hasRow(path(-1, 0)));
    EXPECT_FALSE(geometry.hasRow(nullptr));
    EXPECT_FALSE(geometry.hasRow(path(2, 0)));
}

TEST(SectionGeometry, FindsTheRowAtAPlace) {
    const SectionGeometry geometry = list();
    EXPECT_TRUE(geometry.rowAt(29).isNil()) << "above the list";
    EXPECT_TRUE(geometry.rowAt(40).isNil()) << "in a header";
    EXPECT_EQ(geometry.rowAt(50), path(0, 0));
    EXPECT_EQ(geometry.rowAt(181.9), path(0, 2));
    EXPECT_EQ(geometry.rowAt(182), path(1, 0));
    EXPECT_EQ(geometry.rowAt(192), path(1, 2)) << "not the one without height";
    EXPECT_TRUE(geometry.rowAt(285).isNil()) << "in a footer";
    EXPECT_TRUE(geometry.rowAt(300).isNil()) << "in a section without rows";
    EXPECT_TRUE(geometry.rowAt(400).isNil()) << "below the list";
}

TEST(SectionGeometry, FindsTheRowsOfAStretch) {
    const SectionGeometry geometry = list();
    using Paths = std::vector<NSIndexPath>;
    EXPECT_EQ(geometry.rowsIn({94, 88}), (Paths{path(0, 1), path(0, 2)}));
    EXPECT_EQ(geometry.rowsIn({93.9, 88.2}), (Paths{path(0, 0), path(0, 1), path(0, 2), path(1, 0)}));
    EXPECT_EQ(geometry.rowsIn({182, 1000}), (Paths{path(1, 0), path(1, 2), path(1, 3)}));
    EXPECT_EQ(geometry.rowsIn({0, 40}), Paths{});
    EXPECT_EQ(geometry.rowsIn({300, 40}), Paths{});
    EXPECT_EQ(geometry.sectionsIn({0, 1000}), (std::vector<NSInteger>{0, 1, 2}));
    EXPECT_EQ(geometry.sectionsIn({182, 10}), (std::vector<NSInteger>{1}));
}

TEST(SectionGeometry, PassesOverMillionsOfSectionsAndRowsWithoutHeight) {
    SectionGeometry geometry;
    geometry.append({0, 0, RowHeights(1, 44)});
    geometry.append({0, 0, RowHeights(1'000'000'000'000, 0.0)});
    for (int i = 0; i < 100'000; ++i)
        geometry.append({});
    geometry.append({0, 0, RowHeights(1, 44)});
    EXPECT_EQ(geometry.rowsIn({0, 100}), (std::vector<NSIndexPath>{path(0, 0), path(100'002, 0)}));
    EXPECT_EQ(geometry.rowAt(44), path(100'002, 0));
}

TEST(SectionGeometry, AHeaderSticksForAsLongAsItsRowsLast) {
    const SectionGeometry geometry = list();
    EXPECT_EQ(geometry.stuckHeader(0, 0), (Extent{30, 20}));
    EXPECT_EQ(geometry.stuckHeader(0, 100), (Extent{100, 20}));
    EXPECT_EQ(geometry.stuckHeader(0, 170), (Extent{162, 20})) << "pushed up by the last row's end";
    EXPECT_EQ(geometry.stuckHeader(2, 1000), (Extent{292, 20})) << "no rows to stick to";
}

TEST(SectionGeometry, AFooterSticksForAsLongAsItsRowsLast) {
    const SectionGeometry geometry = list();
    EXPECT_EQ(geometry.stuckFooter(1, 1000), (Extent{282, 10}));
    EXPECT_EQ(geometry.stuckFooter(1, 250), (Extent{240, 10}));
    EXPECT_EQ(geometry.stuckFooter(1, 185), (Extent{182, 10})) << "pushed down by the first row's beginning";
}

TEST(SectionGeometry, AgreesWithAPlainSearch) {
    std::mt19937 random{3};
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    for (int run = 0; run < 50; ++run) {
        SectionGeometry geometry(pick(3) * 10);
        const int sections = pick(6);
        for (int section = 0; section < sections; ++section) {
            std::vector<CGFloat> each(static_cast<std::size_t>(pick(6)));
            const bool equal = pick(2) == 0;
            for (CGFloat& height : each)
                height = equal ? 44 : pick(4) * 10.5;
            geometry.append({pick(3) * 7.0, pick(3) * 5.0, heights(each)});
        }
        for (CGFloat y = -20; y < geometry.all().bottom() + 20; y += 3.5) {
            NSIndexPath wanted;
            std::vector<NSIndexPath> wantedIn;
            for (NSInteger section = 0; section < geometry.numberOfSections(); ++section) {
                for (NSInteger row = 0; row < geometry.numberOfRows(section); ++row) {
                    const Extent place = geometry.row(path(section, row));
                    if (place.top <= y && y < place.bottom())
                        wanted = path(section, row);
                    if (place.height > 0 && place.bottom() > y && place.top < y + 30)
                        wantedIn.push_back(path(section, row));
                }
            }
            EXPECT_EQ(geometry.rowAt(y), wanted) << y;
            EXPECT_EQ(geometry.rowsIn({y, 30}), wantedIn) << y;
        }
    }
}

} // namespace zr::tests
