#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace zr::test {

namespace {

/// A page or the list, and its table.
class ListPage {
public:
    explicit ListPage(const std::string& page) : screen(page) { screen.host.advance(0.5); }

    UITableView* table() const { return screen.all<ZRTableView>().back(); }
    NSString title() const { return screen.all<ZRTNavigationBar>().back()->titleLabel()->text(); }
    ZRTableViewCell* row(NSInteger row, NSInteger section = 0) const {
        return dynamic_cast<ZRTableViewCell*>(
            table()->cellForRowAtIndexPath(NSIndexPath::indexPathForRow_inSection(row, section)));
    }
    NSString told(NSInteger index) const { return row(index)->zrAccessoryLabel()->text(); }
    /// On its title, in the middle of the screen.
    void tapRow(NSInteger index, NSInteger section = 0) {
        scrollTo(index, section);
        screen.host.tap(row(index, section)->convertPoint_toView({40, 20}, nullptr));
        screen.host.advance(0.5);
    }
    void tapAccessory(NSInteger index, NSInteger section = 0) {
        scrollTo(index, section);
        screen.host.tap(GalleryScreen::middleOf(row(index, section)->zrAccessoryView()));
        screen.host.advance(0.5);
    }
    void scrollTo(NSInteger index, NSInteger section = 0) {
        table()->scrollToRowAtIndexPath_atScrollPosition_animated(
            NSIndexPath::indexPathForRow_inSection(index, section), UITableViewScrollPositionMiddle, false);
        screen.host.advance(0);
    }
    /// Calls `look` with every row, scrolling from one to the next.
    void forEachRow(const std::function<void(ZRTableViewCell*, const NSIndexPath&)>& look) {
        for (NSInteger section = 0; section < table()->numberOfSections(); ++section) {
            for (NSInteger index = 0; index < table()->numberOfRowsInSection(section); ++index) {
                scrollTo(index, section);
                look(row(index, section), NSIndexPath::indexPathForRow_inSection(index, section));
            }
        }
    }

    GalleryScreen screen;
};

std::string textOf(const UILabel* label) { return label ? label->text().utf8() : ""; }

} // namespace

// The gallery's own list

TEST(GalleryList, HasARowForEveryPageInItsOrder) {
    ListPage list("");
    std::vector<std::string> titles, details, pageTitles, pageDetails;
    list.forEachRow([&](ZRTableViewCell* cell, const NSIndexPath&) {
        titles.push_back(textOf(cell->zrTextLabel()));
        details.push_back(textOf(cell->zrDetailTextLabel()));
        EXPECT_TRUE(cell->zrImageView()->image()) << titles.back();
        EXPECT_EQ(cell->zrAccessoryType(), ZRAccessoryTypeListIcon);
        EXPECT_TRUE(dynamic_cast<UIImageView*>(cell->zrAccessoryView())->image());
        EXPECT_EQ(cell->zrImageView()->frame().origin.y, 12) << "in the middle of the row";
    });
    for (const gallery::Page& page : gallery::allPages()) {
        pageTitles.emplace_back(page.title);
        pageDetails.emplace_back(page.detail);
    }
    EXPECT_EQ(titles, pageTitles);
    EXPECT_EQ(details, pageDetails);
    EXPECT_LT(list.table()->visibleCells().size(), 14u);
}

TEST(GalleryList, EveryRowOpensItsPage) {
    ListPage list("");
    // The last one of a family, the first of the next, and one that is a screen of its own.
    for (const auto& [row, section] : {std::pair<NSInteger, NSInteger>{6, 0}, {0, 1}}) {
        list.scrollTo(row, section);
        const NSString title = list.row(row, section)->zrTextLabel()->text();
        list.tapRow(row, section);
        EXPECT_EQ(list.title(), title);
        list.screen.tapBack();
        list.screen.host.advance(0.5);
    }
    const NSInteger lists = list.table()->numberOfSections() - 2;
    list.tapRow(3, lists);
    EXPECT_EQ(list.title(), "A million rows");
}

// Accessories

TEST(ListPages, EveryAccessoryTellsWhatWasDoneWithIt) {
    ListPage page("list-accessories");
    ASSERT_EQ(page.table()->numberOfRowsInSection(0), 8);
    page.forEachRow([](ZRTableViewCell* cell, const NSIndexPath& path) {
        EXPECT_EQ(cell->zrAccessoryType(), path.row());
        EXPECT_EQ(cell->zrAccessoryView() != nullptr, path.row() != 0);
    });
    for (const NSInteger index : {0, 1, 2, 3, 5, 7}) {
        page.tapRow(index);
        page.tapRow(index);
        EXPECT_EQ(page.told(index), "tap 2") << index;
    }
    page.tapAccessory(2);
    EXPECT_EQ(page.told(2), "button 1");
    page.tapAccessory(5);
    EXPECT_EQ(page.told(5), "on");
    page.tapAccessory(5);
    EXPECT_EQ(page.told(5), "off");
    page.tapRow(4);
    EXPECT_EQ(page.told(4), "checked");
    page.tapAccessory(4);
    EXPECT_EQ(page.told(4), "unchecked");
    page.tapRow(6);
    EXPECT_EQ(page.told(6), "unchecked");
    EXPECT_TRUE(page.row(6)->zrAccessoryView()->isHidden());
    page.tapRow(6);
    EXPECT_EQ(page.told(6), "checked");
}

TEST(ListPages, AllAccessoriesAreOnTheScreenAtOnce) {
    ListPage page("list-accessories");
    const UITableView* table = page.table();
    EXPECT_LE(CGRectGetMaxY(page.row(7)->frame()), CGRectGetMaxY(table->bounds()));
}

TEST(ListPages, TheLoadingIconTurns) {
    ListPage page("list-accessories");
    const CALayer* icon = page.row(3)->zrAccessoryView()->layer();
    const CATransform3D before = icon->presentationValues().transform;
    page.screen.host.advance(0.3);
    EXPECT_FALSE(icon->presentationValues().transform == before);
}

// Texts

TEST(ListPages, TextsComeInEveryCombination) {
    ListPage page("list-texts");
    std::set<std::tuple<bool, bool, bool>> combinations;
    page.forEachRow([&](ZRTableViewCell* cell, const NSIndexPath& path) {
        EXPECT_EQ(cell->zrMarkTextLabel() != nullptr, path.section() == 0);
        const bool hasIcon = cell->zrImageView()->image();
        const bool hasDetail = !textOf(cell->zrDetailTextLabel()).empty();
        const bool hasMark = !textOf(cell->zrMarkTextLabel()).empty();
        if (path.section() == 0)
            combinations.insert({hasIcon, hasDetail, hasMark});
        const CGFloat height = cell->bounds().size.height;
        for (const UILabel* label :
             {cell->zrTextLabel(), cell->zrDetailTextLabel(), cell->zrMarkTextLabel(), cell->zrAccessoryLabel()}) {
            if (textOf(label).empty())
                continue;
            EXPECT_GE(CGRectGetMidY(label->frame()), 9) << textOf(cell->zrTextLabel());
            EXPECT_LE(CGRectGetMidY(label->frame()), height - 9) << textOf(cell->zrTextLabel());
        }
        EXPECT_EQ(CGRectGetMidY(cell->zrImageView()->frame()), hasIcon ? height / 2 : 0);
    });
    EXPECT_EQ(combinations.size(), 8u);
}

// A million rows

TEST(ListPages, AMillionRowsAreAsManyCellsAsFitTheScreen) {
    ListPage page("list-million");
    EXPECT_EQ(page.table()->numberOfRowsInSection(0), 1'000'000);
    EXPECT_LT(page.table()->visibleCells().size(), 16u);
    std::set<CGFloat> heights;
    for (const auto& cell : page.table()->visibleCells())
        heights.insert(cell->bounds().size.height);
    EXPECT_GT(heights.size(), 4u);
    page.screen.tapButton("End");
    page.screen.host.advance(0.5);
    EXPECT_TRUE(page.screen.shows("1,000,000"));
    EXPECT_FALSE(page.screen.shows("1"));
    EXPECT_LT(page.table()->visibleCells().size(), 16u);
    page.screen.tapButton("Start");
    page.screen.host.advance(0.5);
    EXPECT_TRUE(page.screen.shows("1"));
}

TEST(ListPages, ARowStaysCheckedWhileItIsAway) {
    ListPage page("list-million");
    const auto isChecked = [&](NSInteger index) {
        page.scrollTo(index);
        return !page.row(index)->zrAccessoryView()->isHidden();
    };
    page.tapRow(3);
    page.tapRow(654'320);
    EXPECT_EQ(textOf(page.row(654'320)->zrTextLabel()), "654,321");
    page.tapRow(5);
    page.tapRow(5);
    for (NSInteger index = 0; index < 40; ++index)
        EXPECT_EQ(isChecked(index), index == 3) << index;
    EXPECT_TRUE(isChecked(654'320));
    EXPECT_FALSE(isChecked(654'321));
}

// Settings

TEST(ListPages, SettingsStayAsTheyWereSetWhileCellsAreUsedAgain) {
    ListPage page("list-settings");
    std::vector<bool> before, after;
    const auto note = [](std::vector<bool>& states) {
        return [&states](ZRTableViewCell* cell, const NSIndexPath& path) {
            if (path.section() == 0)
                return;
            if (const auto* control = dynamic_cast<ZRSwitch*>(cell->zrAccessoryView()))
                states.push_back(control->isOn());
            else if (const auto* box = dynamic_cast<UIButton*>(cell->zrAccessoryView()))
                states.push_back(box->isSelected());
            else
                states.push_back(!cell->zrAccessoryView()->isHidden());
        };
    };
    EXPECT_EQ(page.told(0), "11 of 21");
    page.forEachRow(note(before));
    ASSERT_EQ(before.size(), 21u);
    page.tapAccessory(2, 1); // Mail: on
    page.tapRow(0, 1);       // the row of a switch does nothing
    page.tapRow(0, 2);       // Photos: off
    page.tapAccessory(1, 2); // Videos: on
    page.tapRow(3, 3);       // Français: on
    page.scrollTo(0, 1);
    EXPECT_EQ(page.told(0), "13 of 21");
    page.tapAccessory(0, 1); // Messages: off, with the count in sight
    EXPECT_EQ(page.told(0), "12 of 21");
    for (const std::size_t changed : {0, 2, 6, 7, 15})
        before[changed] = !before[changed];
    for (int round = 0; round < 2; ++round) {
        after.clear();
        page.forEachRow(note(after));
        EXPECT_EQ(after, before);
    }
}

} // namespace zr::test
