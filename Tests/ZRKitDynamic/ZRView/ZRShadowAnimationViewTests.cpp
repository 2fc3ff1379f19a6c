#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRView/ZRShadowAnimationView.h>

namespace zr::testing {

namespace {

class ZRShadowAnimationViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        view->setBackgroundColor(red);
        window->addSubview(view);
        host.advance(0);
    }
    CGFloat seenAlpha() const { return view->endView()->layer()->presentationValues().opacity; }
    FramePixel seen() { return host.pixel({150, 120}); }
    void fade(UIColor* from, UIColor* to, double duration = 1) {
        view->beginAnimationFromColor_toColor_duration(from, to, duration);
    }

    HeadlessHost host;
    Ref<UIWindow> window = showWindow(UIColor::whiteColor());
    Ref<ZRShadowAnimationView> view =
        make<ZRShadowAnimationView>(&UIView::initWithFrame, CGRectMake(100, 100, 100, 44));
    Ref<UIColor> red = UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 1);
    Ref<UIColor> green = UIColor::colorWithRed_green_blue_alpha(0, 1, 0, 1);
    Ref<UIColor> blue = UIColor::colorWithRed_green_blue_alpha(0, 0, 1, 1);
};

} // namespace

TEST_F(ZRShadowAnimationViewTest, HasAnOverlayThatIsNotSeen) {
    for (const auto& made : {make<ZRShadowAnimationView>(),
                             make<ZRShadowAnimationView>(&UIView::initWithFrame, CGRectMake(0, 0, 10, 10))}) {
        ASSERT_EQ(made->subviews().size(), 1u);
        EXPECT_EQ(made->subviews()[0], made->endView());
        EXPECT_TRUE(made->endView()->isKindOfClass<UIImageView>());
        EXPECT_EQ(made->endView()->frame(), CGRectZero);
        EXPECT_EQ(made->endView()->alpha(), 0);
    }
    EXPECT_EQ(seen(), (FramePixel{255, 0, 0}));
}

TEST_F(ZRShadowAnimationViewTest, TheOverlayCoversItAfterEachLayout) {
    EXPECT_EQ(view->endView()->frame(), CGRectMake(0, 0, 100, 44));
    view->setFrame(CGRectMake(100, 100, 200, 64));
    view->layoutIfNeeded();
    EXPECT_EQ(view->endView()->frame(), CGRectMake(0, 0, 200, 64));
}

TEST_F(ZRShadowAnimationViewTest, FadesFromOneColourToAnother) {
    fade(blue, green);
    EXPECT_EQ(view->backgroundColor(), green);
    EXPECT_EQ(view->endView()->backgroundColor(), blue);
    EXPECT_EQ(view->endView()->alpha(), 0);
    EXPECT_EQ(seen(), (FramePixel{0, 0, 255}));
    host.advance(0.25);
    EXPECT_NEAR(seenAlpha(), 1 - 0.12916, 1e-5); // eased in and out
    host.advance(0.25);
    EXPECT_NEAR(seenAlpha(), 0.5, 1e-6);
    EXPECT_EQ(seen(), (FramePixel{0, 127, 128}));
    host.advance(0.5);
    EXPECT_EQ(seen(), (FramePixel{0, 255, 0}));
    EXPECT_FALSE(view->endView()->layer()->hasAnimations());
    EXPECT_EQ(view->endView()->backgroundColor(), blue);
}

TEST_F(ZRShadowAnimationViewTest, WithoutAFirstColourItFadesFromTheOneItHas) {
    fade(nullptr, green);
    EXPECT_EQ(view->endView()->backgroundColor(), red);
    EXPECT_EQ(seen(), (FramePixel{255, 0, 0}));
    host.advance(1);
    EXPECT_EQ(seen(), (FramePixel{0, 255, 0}));
}

TEST_F(ZRShadowAnimationViewTest, WithoutALastColourNothingHappens) {
    for (UIColor* from : {static_cast<UIColor*>(nullptr), red.get(), blue.get()}) {
        fade(from, nullptr);
        EXPECT_EQ(view->backgroundColor(), red);
        EXPECT_EQ(view->endView()->backgroundColor(), nullptr);
        EXPECT_FALSE(view->endView()->layer()->hasAnimations());
    }
}

TEST_F(ZRShadowAnimationViewTest, TheSameFadeOnceMorePlaysAgain) {
    fade(red, green);
    host.advance(2);
    fade(red, green);
    EXPECT_EQ(seen(), (FramePixel{255, 0, 0}));
    host.advance(1);
    EXPECT_EQ(seen(), (FramePixel{0, 255, 0}));
}

TEST_F(ZRShadowAnimationViewTest, TheFadeBackIsIgnored) {
    fade(red, green);
    host.advance(1);
    fade(green, red);
    EXPECT_EQ(view->backgroundColor(), green);
    EXPECT_FALSE(view->endView()->layer()->hasAnimations());
    // Colours that are only alike are others.
    fade(UIColor::colorWithRed_green_blue_alpha(0, 1, 0, 1), red);
    EXPECT_EQ(view->backgroundColor(), red);
    fade(red, blue);
    EXPECT_EQ(view->backgroundColor(), blue);
}

TEST_F(ZRShadowAnimationViewTest, BothColoursMustBeThoseOfTheLastFade) {
    fade(red, green);
    fade(green, blue);
    EXPECT_EQ(view->backgroundColor(), blue);
    fade(nullptr, green); // which the overlay carries; but nil is not the view's colour
    EXPECT_EQ(view->backgroundColor(), green);
    EXPECT_EQ(view->endView()->backgroundColor(), blue);
}

TEST_F(ZRShadowAnimationViewTest, AFadeThatComesWhileOneRunsStartsAnew) {
    fade(red, green);
    host.advance(0.5);
    fade(nullptr, blue);
    EXPECT_EQ(seen(), (FramePixel{0, 255, 0})) << "all of the old colour";
    EXPECT_EQ(seenAlpha(), 1);
    host.advance(0.5);
    EXPECT_NEAR(seenAlpha(), 0.5, 1e-6);
    host.advance(0.5);
    EXPECT_EQ(seen(), (FramePixel{0, 0, 255}));
}

TEST_F(ZRShadowAnimationViewTest, LastsAsLongAsIsAskedFor) {
    fade(red, green, 3);
    host.advance(1.5);
    EXPECT_NEAR(seenAlpha(), 0.5, 1e-6);
    host.advance(1.5 - 1e-6);
    EXPECT_TRUE(view->endView()->layer()->hasAnimations());
    host.advance(1e-6);
    EXPECT_FALSE(view->endView()->layer()->hasAnimations());
}

TEST_F(ZRShadowAnimationViewTest, NoColourAtAllIsComparedLikeAnother) {
    view->setBackgroundColor(nullptr);
    view->endView()->setBackgroundColor(green);
    fade(nullptr, green);
    EXPECT_EQ(view->backgroundColor(), nullptr) << "a fade back, from no colour";
    view->endView()->setBackgroundColor(red);
    fade(nullptr, green);
    EXPECT_EQ(view->backgroundColor(), green);
}

TEST_F(ZRShadowAnimationViewTest, InNoTimeItSwitchesAtOnce) {
    fade(red, green, 0);
    EXPECT_EQ(seen(), (FramePixel{0, 255, 0}));
    EXPECT_EQ(seenAlpha(), 0);
}

TEST_F(ZRShadowAnimationViewTest, FadesPatternsToo) {
    const auto pattern = [](UIColor* color) {
        UIGraphicsBeginImageContext(CGSizeMake(4, 4));
        color->setFill();
        UIRectFill(CGRectMake(0, 0, 4, 4));
        auto image = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return UIColor::colorWithPatternImage(image);
    };
    fade(pattern(red), pattern(blue));
    EXPECT_EQ(seen(), (FramePixel{255, 0, 0}));
    host.advance(0.5);
    EXPECT_EQ(seen(), (FramePixel{128, 0, 127}));
    host.advance(0.5);
    EXPECT_EQ(seen(), (FramePixel{0, 0, 255}));
}

TEST_F(ZRShadowAnimationViewTest, ASubclassSeesItsColourChange) {
    class Watched : public ZRShadowAnimationView {
    public:
        void setBackgroundColor(UIColor* color) override {
            colors.push_back(color);
            ZRShadowAnimationView::setBackgroundColor(color);
        }
        std::vector<Ref<UIColor>> colors;
    };
    const auto watched = make<Watched>();
    watched->colors.clear();
    watched->beginAnimationFromColor_toColor_duration(red, green, 1);
    EXPECT_EQ(watched->colors, (std::vector<Ref<UIColor>>{green}));
}

TEST_F(ZRShadowAnimationViewTest, AnotherOverlayTakesOverAndWithoutOneColoursChangeAtOnce) {
    const auto other = make<UIImageView>();
    view->addSubview(other);
    view->setEndView(other);
    view->setNeedsLayout();
    view->layoutIfNeeded();
    EXPECT_EQ(other->frame(), CGRectMake(0, 0, 100, 44));
    fade(red, green);
    EXPECT_EQ(other->backgroundColor(), red);
    view->setEndView(nullptr);
    fade(green, blue);
    EXPECT_EQ(view->backgroundColor(), blue);
    EXPECT_EQ(other->backgroundColor(), red);
    view->setNeedsLayout();
    view->layoutIfNeeded();
}

} // namespace zr::testing
