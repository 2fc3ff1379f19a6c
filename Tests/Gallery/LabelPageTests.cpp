#include <Tests/Gallery/GalleryScreen.h>

#include <gtest/gtest.h>

namespace zr::test {

namespace {

/// The topmost label with this text; nil when there is none.
UILabel* labelWith(const GalleryScreen& screen, const char* text) {
    UILabel* found = nullptr;
    for (UILabel* label : screen.all<UILabel>()) {
        if (label->text() == NSString(text))
            found = label;
    }
    return found;
}

} // namespace

TEST(LabelPage, EachLabelIsWhatItsCaptionSays) {
    const GalleryScreen screen("label");
    const auto sampleBelow = [&](const char* caption) {
        const auto labels = screen.all<UILabel>();
        for (std::size_t i = 0; i + 1 < labels.size(); ++i) {
            if (labels[i]->text() == NSString(caption))
                return labels[i + 1];
        }
        return static_cast<UILabel*>(nullptr);
    };
    for (const auto& [caption, lines] : {std::pair("1", 1), {"2", 2}, {"0: as many as fit", 0}}) {
        ASSERT_TRUE(sampleBelow(caption)) << caption;
        EXPECT_EQ(sampleBelow(caption)->numberOfLines(), lines) << caption;
    }
    EXPECT_TRUE(sampleBelow("Italic, of 15 points")->font()->isItalic());
    EXPECT_EQ(sampleBelow("Bold, of 20 points")->font()->pointSize(), 20);
    EXPECT_EQ(sampleBelow("Left")->textAlignment(), NSTextAlignmentLeft);
    EXPECT_EQ(sampleBelow("Center")->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(sampleBelow("Right")->textAlignment(), NSTextAlignmentRight);
}

TEST(LabelPage, TheTextsFitTheSmallestScreen) {
    const GalleryScreen screen("label", {.screenSize = {320, 480}});
    for (const UILabel* label : screen.all<UILabel>()) {
        if (label->numberOfLines() == 0) {
            EXPECT_LE(label->sizeThatFits({label->bounds().size.width, 1000}).height, label->bounds().size.height)
                << label->text().utf8();
        }
    }
}

TEST(ColorPartPage, ThePartsAreThoseOnBlack) {
    const GalleryScreen screen("color-parts");
    EXPECT_TRUE(screen.shows("red 0, green 195, blue 64 · #00C340"));
    EXPECT_TRUE(screen.shows("red 255, green 87, blue 48 · #FF5730"));
    EXPECT_TRUE(screen.shows("red 253, green 131, blue 0 · #FD8300"));
    EXPECT_TRUE(screen.shows("red 0, green 0, blue 0 · #000000"));
    const UILabel* half = labelWith(screen, "alpha 0.5");
    ASSERT_TRUE(half);
    const CGRect row = half->convertRect_toView(half->bounds(), nullptr);
    const FramePixel swatch = GalleryScreen("color-parts").host.pixel({28, row.origin.y + 19});
    EXPECT_TRUE(
        screen.shows(NSString::stringWithFormat("red %d, green %d, blue %d · #%02X%02X%02X", swatch.red, swatch.green,
                                                swatch.blue, swatch.red, swatch.green, swatch.blue)
                         .utf8()));
}

} // namespace zr::test
