#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>

namespace zr::testing {

namespace {

const RGBAColor kNormalTitle = rgb(55, 63, 58);
const RGBAColor kHighlightedTitle = rgb(45, 167, 5);
const RGBAColor kDisabledTitle = rgb(228, 228, 228);
const RGBAColor kHighlightedBackground = rgb(233, 233, 233);
const RGBAColor kDisabledBackground = rgb(193, 198, 195);

Ref<ZRTAlertViewButton> makeButton(CGRect frame = CGRectMake(20, 100, 136, 45)) {
    return make<ZRTAlertViewButton>(&ZRTAlertViewButton::initWithFrame, frame);
}

UILabel* labelOf(const ZRTAlertViewButton* button) { return subviewOfClass<UILabel>(button); }

void expectColors(const ZRTAlertViewButton* button, const RGBAColor& title, const RGBAColor& background) {
    EXPECT_EQ(rgba(labelOf(button)->textColor()), title);
    EXPECT_EQ(rgba(button->backgroundColor()), background);
}

/// Notes what it is told.
class Listener : public NSObject {
public:
    void clicked(NSObject* sender) { senders.push_back(sender); }
    std::vector<NSObject*> senders;
};

} // namespace

TEST(ZRTAlertViewButton, ShowsOneCenteredTitleOverItsBounds) {
    const HeadlessHost host;
    const auto button = makeButton();
    EXPECT_EQ(button->frame(), CGRectMake(20, 100, 136, 45));
    ASSERT_EQ(button->subviews().size(), 1u);
    const UILabel* label = labelOf(button);
    ASSERT_TRUE(label);
    EXPECT_EQ(label->frame(), CGRectMake(0, 0, 136, 45));
    EXPECT_EQ(rgba(label->backgroundColor()), kClear);
    EXPECT_TRUE(label->font()->isEqual(UIFont::systemFontOfSize(17)));
    EXPECT_EQ(label->textAlignment(), NSTextAlignmentCenter);
    EXPECT_TRUE(label->text().isNil());
    expectColors(button, kNormalTitle, kClear);
}

TEST(ZRTAlertViewButton, BorderIsHalfAPointOnScreensOfScale1And2) {
    for (const CGFloat scale : {1.0, 2.0}) {
        const HeadlessHost host(device(375, 667, scale));
        const auto button = makeButton();
        EXPECT_EQ(button->layer()->borderWidth(), 0.5) << scale;
        EXPECT_TRUE(CGColorEqualToColor(button->layer()->borderColor(), UIColor::lightGrayColor()->cgColor()));
    }
}

TEST(ZRTAlertViewButton, BorderIsThinnerOnScreensOfScaleAbove2) {
    for (const CGFloat scale : {2.5, 3.0}) {
        const HeadlessHost host(device(414, 736, scale));
        EXPECT_EQ(makeButton()->layer()->borderWidth(), 0.4) << scale;
    }
}

TEST(ZRTAlertViewButton, TitleIsKeptAndShown) {
    const HeadlessHost host;
    const auto button = makeButton();
    EXPECT_TRUE(button->title().isNil());
    button->setTitle("Cancel");
    EXPECT_EQ(button->title(), NSString("Cancel"));
    EXPECT_EQ(labelOf(button)->text(), NSString("Cancel"));
    button->setTitle(nullptr);
    EXPECT_TRUE(button->title().isNil());
    EXPECT_TRUE(labelOf(button)->text().isNil());
}

TEST(ZRTAlertViewButton, SettingTheSameTitleShowsItAgain) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setTitle("Cancel");
    labelOf(button)->setText("something else");
    button->setTitle(button->title());
    EXPECT_EQ(labelOf(button)->text(), NSString("Cancel"));
}

TEST(ZRTAlertViewButton, ResizingTakesTheTitleAlong) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setFrame(CGRectMake(7, 8, 300, 60));
    EXPECT_EQ(button->frame(), CGRectMake(7, 8, 300, 60));
    EXPECT_EQ(labelOf(button)->frame(), CGRectMake(0, 0, 300, 60));
}

TEST(ZRTAlertViewButton, NewBoundsTakeTheTitleAlong) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setBounds(CGRectMake(0, 0, 300, 60));
    EXPECT_EQ(labelOf(button)->frame(), CGRectMake(0, 0, 300, 60));
    button->setBounds(CGRectMake(10, 20, 90, 30));
    EXPECT_EQ(labelOf(button)->frame(), CGRectMake(10, 20, 90, 30));
}

TEST(ZRTAlertViewButton, DisablingAndEnablingRecolors) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setEnabled(false);
    EXPECT_FALSE(button->isEnabled());
    expectColors(button, kDisabledTitle, kDisabledBackground);
    button->setEnabled(true);
    EXPECT_TRUE(button->isEnabled());
    expectColors(button, kNormalTitle, kClear);
}

TEST(ZRTAlertViewButton, HighlightingRecolors) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setHighlighted(true);
    EXPECT_TRUE(button->isHighlighted());
    expectColors(button, kHighlightedTitle, kHighlightedBackground);
    button->setHighlighted(false);
    EXPECT_FALSE(button->isHighlighted());
    expectColors(button, kNormalTitle, kClear);
}

TEST(ZRTAlertViewButton, ADisabledButtonNoLongerHighlightedLooksEnabled) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setEnabled(false);
    button->setHighlighted(false);
    EXPECT_FALSE(button->isEnabled());
    expectColors(button, kNormalTitle, kClear);
}

TEST(ZRTAlertViewButton, ADisabledButtonHighlightedLooksHighlighted) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setEnabled(false);
    button->setHighlighted(true);
    expectColors(button, kHighlightedTitle, kHighlightedBackground);
}

TEST(ZRTAlertViewButton, AHighlightedButtonEnabledLosesItsHighlight) {
    const HeadlessHost host;
    const auto button = makeButton();
    button->setHighlighted(true);
    button->setEnabled(true);
    EXPECT_TRUE(button->isHighlighted());
    expectColors(button, kNormalTitle, kClear);
}

TEST(ZRTAlertViewButton, FollowsTheFingerAndSendsTouchUpInside) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto button = makeButton();
    const auto listener = make<Listener>();
    button->addTarget_action_forControlEvents(listener, selector<&Listener::clicked>, UIControlEventTouchUpInside);
    window->addSubview(button);

    host.touchDown({88, 122});
    expectColors(button, kHighlightedTitle, kHighlightedBackground);
    host.touchMove({88, 300});
    expectColors(button, kNormalTitle, kClear);
    host.touchMove({88, 150});
    expectColors(button, kHighlightedTitle, kHighlightedBackground);
    EXPECT_TRUE(listener->senders.empty());
    host.touchUp();
    expectColors(button, kNormalTitle, kClear);
    EXPECT_EQ(listener->senders, std::vector<NSObject*>{button});

    host.touchDown({88, 122});
    host.touchMove({88, 300});
    host.touchUp();
    EXPECT_EQ(listener->senders.size(), 1u);
}

TEST(ZRTAlertViewButton, DrawsBorderAndBackground) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto button = makeButton();
    window->addSubview(button);
    const FramePixel border{170, 170, 170};
    EXPECT_EQ(host.pixel({20.25, 120}), border);
    EXPECT_EQ(host.pixel({155.75, 120}), border);
    EXPECT_EQ(host.pixel({80, 100.25}), border);
    EXPECT_EQ(host.pixel({80, 144.75}), border);
    EXPECT_EQ(host.pixel({20.75, 120}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({19.75, 120}), (FramePixel{255, 255, 255}));
    button->setHighlighted(true);
    EXPECT_EQ(host.pixel({30, 110}), (FramePixel{233, 233, 233}));
    button->setEnabled(false);
    EXPECT_EQ(host.pixel({30, 110}), (FramePixel{193, 198, 195}));
    EXPECT_EQ(host.pixel({20.25, 120}), border);
}

TEST(ZRTAlertViewButton, DrawsItsTitleInTheMiddle) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto button = makeButton();
    button->setTitle("IIIIIIII");
    window->addSubview(button);
    const auto darkPixelsIn = [&](CGFloat left, CGFloat right) {
        int count = 0;
        for (CGFloat x = left; x < right; x += 0.5)
            count += host.pixel({x, 122.5}).red < 150;
        return count;
    };
    const CGFloat width = sizeWithFont("IIIIIIII", UIFont::systemFontOfSize(17)).width;
    const CGFloat left = 88 - width / 2;
    EXPECT_GE(darkPixelsIn(left - 1, 88), 4);
    EXPECT_GE(darkPixelsIn(88, 88 + width / 2 + 1), 4);
    EXPECT_EQ(darkPixelsIn(21, left - 1), 0);
    EXPECT_EQ(darkPixelsIn(88 + width / 2 + 1, 155), 0);
}

} // namespace zr::testing
