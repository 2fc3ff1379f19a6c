#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>

namespace zr::testing {

TEST(ZRLabel, MakesAPlainPlatformLabel) {
    const HeadlessHost host;
    const auto label =
        ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRectZero, 1, nullptr, nullptr, NSTextAlignmentLeft);
    ASSERT_TRUE(label);
    EXPECT_TRUE(label->isKindOfClass<UILabel>());
    EXPECT_FALSE(label->isKindOfClass<ZRLabel>());
}

TEST(ZRLabel, TakesEverythingAsGiven) {
    const HeadlessHost host;
    const auto font = UIFont::boldSystemFontOfSize(17);
    const auto label = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRectMake(5, 7, 260, 45), 2, font,
                                                                               "Title", NSTextAlignmentCenter);
    EXPECT_EQ(label->frame(), CGRectMake(5, 7, 260, 45));
    EXPECT_EQ(label->numberOfLines(), 2);
    EXPECT_EQ(label->font(), font.get());
    EXPECT_EQ(label->text(), NSString("Title"));
    EXPECT_EQ(label->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(label->textAlignment(), 1);
}

TEST(ZRLabel, HasAClearBackgroundAndThePlatformsTextColor) {
    const HeadlessHost host;
    const auto label =
        ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRectZero, 1, nullptr, "Text", NSTextAlignmentLeft);
    EXPECT_EQ(label->backgroundColor(), UIColor::clearColor());
    EXPECT_TRUE(label->textColor()->isEqual(make<UILabel>()->textColor()));
}

TEST(ZRLabel, WidensTheLineCountWithItsSign) {
    const HeadlessHost host;
    const auto plain = make<UILabel>();
    plain->setNumberOfLines(-1);
    const auto label =
        ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRectZero, -1, nullptr, "Text", NSTextAlignmentLeft);
    EXPECT_EQ(label->numberOfLines(), plain->numberOfLines());
}

TEST(ZRLabel, NoLineCountShowsAsManyLinesAsFit) {
    const HeadlessHost host;
    const auto font = UIFont::systemFontOfSize(15);
    const auto make = [&](std::int32_t lines) {
        return ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRectZero, lines, font, "one\ntwo\nthree\nfour",
                                                                       NSTextAlignmentLeft);
    };
    const CGSize room = CGSizeMake(200, 1000);
    const CGFloat one = make(1)->sizeThatFits(room).height;
    const CGFloat two = make(2)->sizeThatFits(room).height;
    const CGFloat all = make(0)->sizeThatFits(room).height;
    EXPECT_LT(one, two);
    EXPECT_LT(two, all);
    EXPECT_EQ(all, make(127)->sizeThatFits(room).height);
}

TEST(ZRLabel, KeepsNilTextNil) {
    const HeadlessHost host;
    const auto label =
        ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(CGRectZero, 1, nullptr, nullptr, NSTextAlignmentLeft);
    EXPECT_TRUE(label->text().isNil());
}

} // namespace zr::testing
