#include <Tests/Gallery/GalleryScreen.h>

#include <gtest/gtest.h>

using namespace zr;
using namespace zr::test;

TEST(PageTitles, FitTheSmallestScreenWithoutBeingCut) {
    for (const gallery::Page& page : gallery::allPages()) {
        const GalleryScreen screen(page.name, {.screenSize = {320, 480}});
        const UILabel* title = nullptr;
        for (UILabel* label : screen.all<UILabel>()) {
            if (!title && label->text() == NSString(page.title))
                title = label; // the bar's; an alert's may be the same
        }
        ASSERT_TRUE(title) << page.name;
        const CGFloat needed = title->sizeThatFits(CGSizeMake(1000, 44)).width;
        const CGFloat scale = title->adjustsFontSizeToFitWidth() ? title->minimumScaleFactor() : 1;
        EXPECT_LE(needed * scale, title->frame().size.width) << page.name;
    }
}
