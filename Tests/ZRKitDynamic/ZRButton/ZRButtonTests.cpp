#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRButton/ZRButton.h>

#include <array>
#include <limits>

namespace zr::testing {

namespace {

const RGBAColor kOpaqueWhite{1, 1, 1, 1};
constexpr CGRect kFrame{{20, 100}, {200, 44}};

RGBAColor white(double alpha) { return {1, 1, 1, alpha}; }

/// A style's colours: background, border and title; normal, highlighted and disabled each.
struct Style {
    std::array<RGBAColor, 3> background, border, title;
};

const RGBAColor kGreen = rgb(0, 195, 64), kDarkGreen = rgb(0, 173, 56), kText = rgb(0, 187, 61);
const RGBAColor kGrayText = rgb(193, 198, 195), kOutline = rgb(179, 189, 182), kOutlineText = rgb(134, 141, 137);
const RGBAColor kBlue{0.337, 0.753, 0.894, 1}, kDarkBlue{0.317, 0.723, 0.854, 1}, kFaintBlue{0.337, 0.753, 0.894, 0.3};

const std::array<Style, 8> kStyles{{
    {{kClear, kClear, kClear}, {kClear, kClear, kClear}, {kText, kGrayText, kGrayText}},
    {{kClear, kClear, kClear}, {kClear, kClear, kClear}, {kGrayText, kText, kText}},
    {{kGreen, kDarkGreen, rgb(0, 195, 64, 0.3)},
     {kGreen, kDarkGreen, kClear},
     {kOpaqueWhite, kOpaqueWhite, kOpaqueWhite}},
    {{kClear, kGreen, kClear}, {kGreen, kGreen, rgb(0, 195, 64, 0.3)}, {kText, kOpaqueWhite, rgb(0, 187, 61, 0.3)}},
    {{kOpaqueWhite, rgb(229, 238, 232), white(0.3)}, {kOpaqueWhite, rgb(229, 238, 232), kClear}, {kText, kText, kText}},
    {{kClear, kOpaqueWhite, kClear}, {kOpaqueWhite, kOpaqueWhite, white(0.3)}, {kOpaqueWhite, kText, white(0.4)}},
    {{kClear, kOutline, kClear}, {kOutline, kOutline, kOutline}, {kOutlineText, kOpaqueWhite, kOutlineText}},
    {{kBlue, kDarkBlue, kFaintBlue}, {kBlue, kDarkBlue, kClear}, {kOpaqueWhite, kOpaqueWhite, kOpaqueWhite}},
}};

constexpr std::array<NSUInteger, 3> kStates{UIControlStateNormal, UIControlStateHighlighted, UIControlStateDisabled};

class ZRButtonTest : public ::testing::Test {
protected:
    Ref<ZRButton> addButton(std::int32_t style, CGRect frame = kFrame) {
        const auto button = ZRButton::bottomButtonWithFrame_style(frame, style);
        button->setTitle_forState("Button", UIControlStateNormal);
        window->addSubview(button);
        host.advance(0);
        return button;
    }

    HeadlessHost host;
    Ref<UIWindow> window = showWindow(UIColor::whiteColor());
};

void expectState(ZRButton* button, const Style& style, int state) {
    EXPECT_EQ(rgba(button->backgroundColor()), style.background[state]) << state;
    const CGColorRef border = button->layer()->borderColor();
    EXPECT_EQ(border ? border->rgba() : RGBAColor{}, style.border[state]) << state;
    EXPECT_EQ(rgba(button->titleColorForState(kStates[state])), style.title[state]) << state;
}

} // namespace

TEST_F(ZRButtonTest, KeysAreTheirOwnNames) {
    EXPECT_STREQ(botton_BG_Color_N, "botton_BG_Color_N");
    EXPECT_STREQ(botton_BG_Color_H, "botton_BG_Color_H");
    EXPECT_STREQ(botton_BG_Color_D, "botton_BG_Color_D");
    EXPECT_STREQ(botton_Border_Color_N, "botton_Border_Color_N");
    EXPECT_STREQ(botton_Border_Color_H, "botton_Border_Color_H");
    EXPECT_STREQ(botton_Border_Color_D, "botton_Border_Color_D");
    EXPECT_STREQ(botton_Title_Color_N, "botton_Title_Color_N");
    EXPECT_STREQ(botton_Title_Color_H, "botton_Title_Color_H");
    EXPECT_STREQ(botton_Title_Color_D, "botton_Title_Color_D");
}

TEST_F(ZRButtonTest, EachStyleHasItsNineColours) {
    constexpr const char* kBackgrounds[] = {botton_BG_Color_N, botton_BG_Color_H, botton_BG_Color_D};
    constexpr const char* kBorders[] = {botton_Border_Color_N, botton_Border_Color_H, botton_Border_Color_D};
    constexpr const char* kTitles[] = {botton_Title_Color_N, botton_Title_Color_H, botton_Title_Color_D};
    for (int style = 0; style < 8; ++style) {
        auto colors = ZRButton::colorsWithStyle(style);
        EXPECT_EQ(colors.size(), 9u);
        for (int state = 0; state < 3; ++state) {
            EXPECT_EQ(rgba(colors[kBackgrounds[state]]), kStyles[style].background[state]) << style << ' ' << state;
            EXPECT_EQ(rgba(colors[kBorders[state]]), kStyles[style].border[state]) << style << ' ' << state;
            EXPECT_EQ(rgba(colors[kTitles[state]]), kStyles[style].title[state]) << style << ' ' << state;
        }
    }
}

TEST_F(ZRButtonTest, ColoursAreThePlatformsOrMadeAnew) {
    EXPECT_EQ(ZRButton::colorsWithStyle(0)[botton_BG_Color_N], UIColor::clearColor());
    EXPECT_EQ(ZRButton::colorsWithStyle(4)[botton_BG_Color_N], UIColor::whiteColor());
    EXPECT_NE(ZRButton::colorsWithStyle(2)[botton_BG_Color_N], ZRButton::colorsWithStyle(2)[botton_BG_Color_N]);
}

TEST_F(ZRButtonTest, OtherStylesHaveNoColours) {
    for (const std::int32_t style : {8, 9, 1000, -1, INT32_MAX, INT32_MIN})
        EXPECT_TRUE(ZRButton::colorsWithStyle(style).empty()) << style;
}

TEST_F(ZRButtonTest, IsACustomButtonAndAPillWithABorderOfOnePoint) {
    const auto button = ZRButton::bottomButtonWithFrame_style(kFrame, 3);
    EXPECT_EQ(button->buttonType(), UIButtonTypeCustom);
    EXPECT_EQ(button->frame(), kFrame);
    EXPECT_EQ(button->layer()->cornerRadius(), 22);
    EXPECT_EQ(button->layer()->borderWidth(), 1);
    EXPECT_EQ(button->style(), 3);
    expectState(button, kStyles[3], 0);
}

TEST_F(ZRButtonTest, IsOfTheClassThatIsAskedFor) {
    class SpecialButton : public ZRButton {};
    const Ref<SpecialButton> button = ZRButton::bottomButtonWithFrame_style<SpecialButton>(kFrame, 7);
    expectState(button, kStyles[7], 0);
}

TEST_F(ZRButtonTest, PressingShowsTheHighlightedColoursAndReleasingTheNormalOnes) {
    for (int style = 0; style < 8; ++style) {
        const auto button = addButton(style);
        expectState(button, kStyles[style], 0);
        host.touchDown({100, 120});
        expectState(button, kStyles[style], 1);
        host.touchMove({100, 400}); // far outside
        expectState(button, kStyles[style], 0);
        host.touchMove({100, 120});
        expectState(button, kStyles[style], 1);
        host.touchUp();
        expectState(button, kStyles[style], 0);
        button->removeFromSuperview();
    }
}

TEST_F(ZRButtonTest, DisablingShowsTheDisabledColours) {
    for (int style = 0; style < 8; ++style) {
        const auto button = addButton(style);
        button->setEnabled(false);
        expectState(button, kStyles[style], 2);
        button->setEnabled(true);
        expectState(button, kStyles[style], 0);
        button->removeFromSuperview();
    }
}

TEST_F(ZRButtonTest, TheLastSetterWins) {
    const auto button = addButton(3);
    button->setEnabled(false);
    button->setHighlighted(false);
    EXPECT_EQ(rgba(button->backgroundColor()), kClear);
    EXPECT_EQ(button->layer()->borderColor()->rgba(), kGreen); // looks enabled
    EXPECT_FALSE(button->isEnabled());
    button->setEnabled(false);
    EXPECT_EQ(button->layer()->borderColor()->rgba(), rgb(0, 195, 64, 0.3));
    button->setHighlighted(true);
    EXPECT_EQ(rgba(button->backgroundColor()), kGreen);
    button->setEnabled(true);
    EXPECT_EQ(rgba(button->backgroundColor()), kClear); // though it is highlighted
    EXPECT_TRUE(button->isHighlighted());
}

TEST_F(ZRButtonTest, TitleColoursAreSetForTheirStateOnlyAndStay) {
    const auto button = addButton(3);
    // What has no colour of its own has the normal one.
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateHighlighted)), kText);
    button->setHighlighted(true);
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateHighlighted)), kOpaqueWhite);
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateNormal)), kText);
    button->setHighlighted(false);
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateHighlighted)), kOpaqueWhite);
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateDisabled)), kText);
    button->setEnabled(false);
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateDisabled)), rgb(0, 187, 61, 0.3));
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateNormal)), kText);
}

TEST_F(ZRButtonTest, ItIsInItsStateBeforeItColoursItself) {
    class WatchedButton : public ZRButton {
    public:
        void updateBottonColorWithStatus(std::int32_t status) override {
            seen.push_back({status, isHighlighted(), isEnabled()});
            ZRButton::updateBottonColorWithStatus(status);
        }
        void setStyle(std::int32_t style) override {
            ++stylesSet;
            ZRButton::setStyle(style);
        }
        struct Seen {
            std::int32_t status;
            bool highlighted, enabled;
            bool operator==(const Seen&) const = default;
        };
        std::vector<Seen> seen;
        int stylesSet = 0;
    };
    const auto button = ZRButton::bottomButtonWithFrame_style<WatchedButton>(kFrame, 2);
    button->setHighlighted(true);
    button->setHighlighted(false);
    button->setEnabled(false);
    button->setEnabled(true);
    EXPECT_EQ(button->stylesSet, 1);
    using Seen = WatchedButton::Seen;
    EXPECT_EQ(button->seen, (std::vector<Seen>{Seen{0, false, true}, Seen{1, true, true}, Seen{0, false, true},
                                               Seen{2, false, false}, Seen{0, false, true}}));
}

TEST_F(ZRButtonTest, SettingTheStyleAloneRecoloursNothing) {
    const auto button = addButton(2);
    button->setStyle(7);
    EXPECT_EQ(button->style(), 7);
    expectState(button, kStyles[2], 0);
    button->setHighlighted(true);
    expectState(button, kStyles[7], 1);
    button->updateBottomButtonWithStyle(5);
    expectState(button, kStyles[5], 0);
}

TEST_F(ZRButtonTest, StatusesOtherThanTheThreeAreIgnored) {
    const auto button = addButton(2);
    for (const std::int32_t status : {3, -1, 100}) {
        button->setStyle(7);
        button->updateBottonColorWithStatus(status);
        expectState(button, kStyles[2], 0);
    }
    button->updateBottonColorWithStatus(2);
    expectState(button, kStyles[7], 2);
}

TEST_F(ZRButtonTest, AStyleWithoutColoursLeavesNone) {
    for (const std::int32_t style : {8, -1}) {
        const auto button = ZRButton::bottomButtonWithFrame_style(kFrame, style);
        EXPECT_EQ(button->style(), style);
        EXPECT_EQ(button->backgroundColor(), nullptr);
        EXPECT_EQ(button->layer()->borderColor(), nullptr);
        EXPECT_EQ(rgba(button->titleColorForState(UIControlStateNormal)), kOpaqueWhite); // the platform's own
        EXPECT_EQ(button->layer()->cornerRadius(), 22);
        window->addSubview(button);
        host.tap({100, 120});
        EXPECT_EQ(host.pixel({30, 122}), (FramePixel{255, 255, 255})); // nothing but the title shows
        EXPECT_EQ(host.pixel({120, 100}), (FramePixel{255, 255, 255}));
        button->updateBottomButtonWithStyle(2);
        expectState(button, kStyles[2], 0);
        button->updateBottomButtonWithStyle(style);
        EXPECT_EQ(button->backgroundColor(), nullptr);
        button->removeFromSuperview();
    }
}

TEST_F(ZRButtonTest, StaysAPillWhenItIsResized) {
    const auto button = addButton(2);
    button->setFrame(CGRectMake(20, 100, 300, 30));
    EXPECT_EQ(button->layer()->cornerRadius(), 22);
    button->layoutIfNeeded();
    EXPECT_EQ(button->layer()->cornerRadius(), 15);
    button->setFrame(CGRectMake(20, 100, 0, 0));
    button->layoutIfNeeded();
    EXPECT_EQ(button->layer()->cornerRadius(), 0);
    host.snapshot();
}

TEST_F(ZRButtonTest, ItsTitleIsLaidOutInTheMiddle) {
    const auto button = addButton(2);
    const CGRect title = button->titleLabel()->frame();
    EXPECT_GT(title.size.width, 40);
    EXPECT_NEAR(CGRectGetMidX(title), 100, 0.5);
    EXPECT_NEAR(CGRectGetMidY(title), 22, 0.5);
}

TEST_F(ZRButtonTest, TheRadiusIsHalfTheHeightOfTheFrame) {
    const auto button = addButton(2);
    button->setTransform(CGAffineTransformMakeScale(2, 2));
    button->setNeedsLayout();
    button->layoutIfNeeded();
    EXPECT_EQ(button->layer()->cornerRadius(), 44);
}

TEST_F(ZRButtonTest, FramesThatMakeNoSenseAreNoHarm) {
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    for (const CGRect frame :
         {CGRectMake(20, 100, 0, 0), CGRectMake(nan, nan, nan, nan), CGRectMake(20, 100, 1e30, 1e30)}) {
        const auto button = addButton(2, frame);
        host.tap({100, 120});
        host.snapshot();
        EXPECT_FALSE(button->isHighlighted());
        button->removeFromSuperview();
    }
}

TEST_F(ZRButtonTest, ResizedToNothingWhilePressedItIsReleased) {
    const auto button = addButton(2);
    host.touchDown({100, 120});
    button->setFrame(CGRectMake(20, 100, 0, 0));
    host.touchUp();
    host.snapshot();
    EXPECT_FALSE(button->isHighlighted());
    EXPECT_EQ(button->layer()->cornerRadius(), 0);
    expectState(button, kStyles[2], 0);
}

TEST_F(ZRButtonTest, IsPaintedAsAPillInItsColours) {
    addButton(2);
    EXPECT_EQ(host.pixel({120, 105}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({20, 100}), (FramePixel{255, 255, 255})); // outside the round end
    EXPECT_EQ(host.pixel({21, 122}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({219, 122}), (FramePixel{0, 195, 64}));
    // A circle of 22 points: on its diagonal, 22 * (1 - 1 / sqrt 2) = 6.4 points from the corner.
    EXPECT_EQ(host.pixel({25.5, 105.5}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({27.5, 107.5}), (FramePixel{0, 195, 64}));
}

TEST_F(ZRButtonTest, AnOutlineIsOnePointWide) {
    addButton(3);
    EXPECT_EQ(host.pixel({120, 100}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({120, 100.5}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({120, 101}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({120, 142.5}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({120, 143}), (FramePixel{0, 195, 64}));
}

TEST_F(ZRButtonTest, RemovedOrDisabledWhilePressed) {
    const auto button = addButton(2);
    host.touchDown({100, 120});
    button->setEnabled(false);
    // Disabling ends the press, which shows the normal colours; the disabled ones come last.
    expectState(button, kStyles[2], 2);
    host.touchUp();
    EXPECT_FALSE(button->isHighlighted());
    button->setEnabled(true);
    host.touchDown({100, 120});
    button->removeFromSuperview();
    host.touchUp();
    EXPECT_FALSE(button->isHighlighted());
    expectState(button, kStyles[2], 0);
}

} // namespace zr::testing
