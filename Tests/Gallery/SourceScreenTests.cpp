#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/List/SearchField.h>
#include <Gallery/Source/PageSource.h>
#include <Gallery/Source/SourceRow.h>
#include <Gallery/Source/SourceView.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>
#include <gmock/gmock.h>

namespace zr::test {

namespace {

using gallery::SourceRow;
using gallery::SourceSection;
using gallery::SourceView;

ZRTNavigationBar* bar(const GalleryScreen& screen) { return screen.all<ZRTNavigationBar>().back(); }

/// A page as the list opens it, on a small screen, and then its source.
class SourceOf {
public:
    explicit SourceOf(const std::string& page) : screen("", {.screenSize = {320, 480}, .scale = 1}) {
        screen.host.advance(0.5);
        openPage(page);
        openSource();
    }

    SourceView* view() const {
        const auto views = screen.all<SourceView>();
        return views.empty() ? nullptr : views.back();
    }
    void openPage(const std::string& page) {
        const auto* field = screen.all<gallery::SearchField>().back();
        screen.host.tap(GalleryScreen::middleOf(field));
        screen.host.clipboardKey('a');
        screen.host.typeText(page);
        screen.tapButton(gallery::pageNamed(page)->title);
        screen.host.advance(0.5);
    }
    void openSource() {
        screen.host.tap({290, 44});
        screen.host.advance(0.5);
    }
    void back() {
        screen.tapBack();
        screen.host.advance(0.5);
    }
    /// Of the rows in sight, in their order on the screen.
    std::vector<std::string> texts() const {
        std::map<CGFloat, std::string> texts;
        for (const SourceRow* row : screen.all<SourceRow>())
            texts[row->frame().origin.y] = textOf(row);
        std::vector<std::string> inOrder;
        for (const auto& [y, text] : texts)
            inOrder.push_back(text);
        return inOrder;
    }
    static std::string textOf(const SourceRow* row) {
        return dynamic_cast<UILabel*>(row->subviews().back().get())->text().utf8();
    }

    GalleryScreen screen;
};

} // namespace

TEST(SourceScreen, EveryPageOfTheListHasOneBehindItsButton) {
    SourceOf opened("alert-default");
    for (const gallery::Page& page : gallery::allPages()) {
        opened.back();
        opened.back();
        opened.openPage(page.name);
        ASSERT_EQ(bar(opened.screen)->titleLabel()->text(), NSString(page.title));
        ASSERT_TRUE(bar(opened.screen)->rightButton()) << page.name;
        EXPECT_EQ(bar(opened.screen)->rightButton()->titleForState(UIControlStateNormal), NSString("Source"));
        opened.openSource();
        ASSERT_TRUE(opened.view()) << page.name;
        const SourceSection first = gallery::sourceOfPage(page.name).front();
        const auto texts = opened.texts();
        const std::size_t looked = std::min<std::size_t>(first.text.size(), 20);
        ASSERT_GT(texts.size(), looked) << page.name;
        EXPECT_EQ(texts.front(), std::string(first.path) + ", lines " + std::to_string(first.lines.first) + "–" +
                                     std::to_string(first.lines.last));
        for (std::size_t i = 0; i < looked; ++i)
            EXPECT_EQ(texts[i + 1], first.text[i]) << page.name;
    }
}

TEST(SourceScreen, LeadsBackToThePageAsItWas) {
    SourceOf opened("switch");
    EXPECT_FALSE(opened.screen.shows("Disabled"));
    opened.back();
    EXPECT_TRUE(opened.screen.shows("Disabled"));
    EXPECT_TRUE(opened.screen.all<SourceView>().empty());
}

TEST(SourceScreen, OnlyTheRowsInSightExist) {
    SourceOf opened("list-million");
    SourceView* view = opened.view();
    const std::size_t fitting = static_cast<std::size_t>(view->bounds().size.height / SourceView::rowHeight) + 2;
    EXPECT_GT(view->contentSize().height, 3 * view->bounds().size.height);
    for (int i = 0; i < 40; ++i) {
        EXPECT_LE(opened.screen.all<SourceRow>().size(), fitting);
        EXPECT_GE(opened.screen.all<SourceRow>().size(), fitting - 2);
        opened.screen.host.wheel({160, 300}, {0, 97});
    }
    const CGFloat end = view->contentSize().height - view->bounds().size.height;
    EXPECT_EQ(view->contentOffset().y, end);
    EXPECT_EQ(opened.texts().back(), gallery::sourceOfPage("list-million").back().text.back());
}

TEST(SourceScreen, AFingerScrollsItBothWays) {
    SourceOf opened("switch");
    const auto drag = [&](CGPoint from, CGPoint to) {
        opened.screen.host.touchDown(from);
        opened.screen.host.touchMove(to, 0.2);
        opened.screen.host.touchUp();
        opened.screen.host.advance(3);
    };
    drag({160, 400}, {160, 200});
    EXPECT_GT(opened.view()->contentOffset().y, 150);
    EXPECT_EQ(opened.view()->contentOffset().x, 0);
    drag({300, 300}, {20, 300});
    EXPECT_GT(opened.view()->contentOffset().x, 200);
}

TEST(SourceScreen, HeadingsStayAtTheLeftEdgeAndCodeMovesAway) {
    SourceOf opened("switch");
    opened.view()->setContentOffset({150, 0});
    opened.screen.host.advance(0);
    for (const SourceRow* row : opened.screen.all<SourceRow>()) {
        const bool isHeading = SourceOf::textOf(row).find(".cpp, lines ") != std::string::npos;
        EXPECT_EQ(row->frame().origin.x, isHeading ? 150 : 0) << SourceOf::textOf(row);
    }
}

TEST(SourceScreen, NoLineIsCut) {
    // Latin, Chinese, Arabic and emoji in the sources.
    for (const char* page : {"alert-long-chinese", "alert-long-arabic", "alert-long-emoji", "switch"}) {
        SourceOf opened(page);
        for (const SourceRow* row : opened.screen.all<SourceRow>()) {
            const auto* label = dynamic_cast<UILabel*>(row->subviews().back().get());
            EXPECT_LE(label->sizeThatFits({10000, 100}).width, label->bounds().size.width) << label->text().utf8();
            EXPECT_LE(CGRectGetMaxX(label->frame()), std::max<CGFloat>(320, opened.view()->contentSize().width));
        }
    }
}

} // namespace zr::test
