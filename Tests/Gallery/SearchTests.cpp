#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/List/PageFilter.h>
#include <Gallery/List/SearchField.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <gmock/gmock.h>

namespace zr::test {

namespace {

using gallery::familiesMatching;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> namesMatching(std::string_view search) {
    std::vector<std::string> names;
    for (const gallery::FamilyPages& family : familiesMatching(search)) {
        for (const gallery::Page* page : family.pages)
            names.emplace_back(page->name);
    }
    return names;
}

/// The gallery's list, and its field.
class SearchedList {
public:
    explicit SearchedList(const DeviceProfile& profile = {}) : screen("", profile) { screen.host.advance(0.5); }

    gallery::SearchField* field() const { return screen.all<gallery::SearchField>().back(); }
    UITableView* table() const { return screen.all<ZRTableView>().back(); }
    void tapField() {
        screen.host.tap(GalleryScreen::middleOf(field()));
        screen.host.advance(0.1);
    }
    void type(const char* text) {
        screen.host.typeText(text);
        screen.host.advance(0.1);
    }
    void search(const char* text) {
        tapField();
        type(text);
    }
    void tapClearButton() {
        const CGRect button = field()->clearButtonRectForBounds(field()->bounds());
        screen.host.tap(field()->convertPoint_toView({CGRectGetMidX(button), CGRectGetMidY(button)}, nullptr));
        screen.host.advance(0.1);
    }
    bool isTyping() const { return screen.host.isTextInputActive(); }
    NSString barTitle() const { return screen.all<ZRTNavigationBar>().back()->titleLabel()->text(); }
    /// Of the rows in sight.
    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const auto& cell : table()->visibleCells())
            titles.push_back(dynamic_cast<ZRTableViewCell*>(cell.get())->zrTextLabel()->text().utf8());
        return titles;
    }

    GalleryScreen screen;
};

constexpr const char* kNothing = "No page is called “xyzzy”.";

} // namespace

// What is found

TEST(PageFilter, FindsPagesByTitleAndByName) {
    EXPECT_THAT(namesMatching("Check box"), ElementsAre("alert-checkbox"));
    EXPECT_THAT(namesMatching("alert-two"), ElementsAre("alert-two-buttons"));
    EXPECT_THAT(namesMatching("vertical"), ElementsAre("vertical-drag"));
}

TEST(PageFilter, WantsEveryWordWhateverItsCapitalsAndPlace) {
    EXPECT_THAT(namesMatching("  TWO   "), ElementsAre("alert-two-buttons", "hud-two"));
    EXPECT_THAT(namesMatching("two BUTTONS"), ElementsAre("alert-two-buttons"));
    EXPECT_THAT(namesMatching("buttons two aLeRt"), ElementsAre("alert-two-buttons"));
    EXPECT_THAT(namesMatching("two nonsense"), IsEmpty());
}

TEST(PageFilter, LeavesOutFamiliesWithoutAPage) {
    const auto families = familiesMatching("two");
    ASSERT_EQ(families.size(), 2u);
    for (const gallery::FamilyPages& family : families) {
        ASSERT_EQ(family.pages.size(), 1u);
        EXPECT_STREQ(family.name, family.pages.front()->family);
    }
}

TEST(PageFilter, WithoutWordsFindsAllInTheirOrder) {
    std::vector<std::string> all;
    for (const gallery::Page& page : gallery::allPages())
        all.emplace_back(page.name);
    EXPECT_EQ(namesMatching(""), all);
    EXPECT_EQ(namesMatching(" \t "), all);
}

// The field

TEST(Search, TypingFiltersTheRowsAndTakesEmptySectionsAway) {
    SearchedList list;
    const NSInteger sections = list.table()->numberOfSections();
    list.search("tw");
    list.type("o");
    EXPECT_EQ(list.table()->numberOfSections(), 2);
    EXPECT_THAT(list.titles(), ElementsAre("Two buttons", "Two at once"));
    EXPECT_TRUE(list.screen.shows("ALERT BUTTONS AND PLACES"));
    EXPECT_FALSE(list.screen.shows("ALERT STYLES"));
    EXPECT_GT(sections, 10);
    list.screen.host.pressKey(UIKey::Backspace);
    list.screen.host.pressKey(UIKey::Backspace);
    list.screen.host.pressKey(UIKey::Backspace);
    EXPECT_EQ(list.table()->numberOfSections(), sections);
    EXPECT_EQ(list.titles().front(), "Default");
}

TEST(Search, BeginsAtTheFirstMatchHoweverFarTheListWasScrolled) {
    SearchedList list;
    list.table()->setContentOffset({0, 2000});
    list.search("e");
    EXPECT_EQ(list.table()->contentOffset(), CGPointZero);
    EXPECT_EQ(list.titles().front(), "Default");
}

TEST(Search, SaysSoWhenNothingMatches) {
    SearchedList list;
    EXPECT_FALSE(list.screen.shows(kNothing));
    list.search("xyzzy");
    EXPECT_TRUE(list.screen.shows(kNothing));
    EXPECT_THAT(list.titles(), IsEmpty());
    list.tapClearButton();
    EXPECT_FALSE(list.screen.shows(kNothing));
}

TEST(Search, ClearingBringsEverythingBack) {
    SearchedList list;
    const NSInteger sections = list.table()->numberOfSections();
    list.search("two");
    list.tapClearButton();
    EXPECT_EQ(list.field()->text(), NSString(""));
    EXPECT_EQ(list.table()->numberOfSections(), sections);
    EXPECT_EQ(list.titles().front(), "Default");
    EXPECT_TRUE(list.isTyping());
}

TEST(Search, TheReturnKeyLeavesTheFieldAndKeepsTheMatches) {
    SearchedList list;
    EXPECT_FALSE(list.isTyping());
    list.search("two");
    EXPECT_TRUE(list.isTyping());
    list.screen.host.pressKey(UIKey::Return);
    EXPECT_FALSE(list.isTyping());
    EXPECT_EQ(list.titles().size(), 2u);
}

TEST(Search, ScrollingLeavesTheFieldEvenWithoutARowToScroll) {
    for (const char* search : {"a", "two", "xyzzy"}) {
        SearchedList list;
        list.search(search);
        list.screen.host.touchDown({180, 500});
        list.screen.host.touchMove({180, 440}, 0.1);
        EXPECT_FALSE(list.isTyping()) << search;
        list.screen.host.touchUp();
    }
}

TEST(Search, ATappedRowLeavesTheFieldAndOpensItsPage) {
    SearchedList list;
    list.search("two at");
    list.screen.tapButton("Two at once");
    EXPECT_FALSE(list.isTyping());
    list.screen.host.advance(0.5);
    EXPECT_EQ(list.barTitle(), NSString("Two at once"));
    list.screen.tapBack();
    list.screen.host.advance(0.5);
    EXPECT_THAT(list.titles(), ElementsAre("Two at once"));
    EXPECT_EQ(list.field()->text(), NSString("two at"));
    EXPECT_FALSE(list.isTyping());
}

TEST(Search, TheFieldStaysInPlaceWhileRowsScrollAndTurnsWithTheScreen) {
    SearchedList list;
    const CGRect frame = list.field()->frame();
    EXPECT_EQ(frame, CGRectMake(15, 73, 345, 34));
    EXPECT_EQ(list.table()->frame(), CGRectMake(0, 116, 375, 551));
    list.table()->setContentOffset({0, 2000});
    list.screen.host.advance(0.1);
    EXPECT_EQ(list.field()->frame(), frame);
    list.screen.host.rotate(UIInterfaceOrientationLandscapeLeft);
    list.screen.host.advance(0.5);
    EXPECT_EQ(list.field()->frame().size.width, 667 - 30);
    EXPECT_EQ(CGRectGetMaxY(list.table()->frame()), 375);
}

} // namespace zr::test
