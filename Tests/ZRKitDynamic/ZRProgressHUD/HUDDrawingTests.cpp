#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <cmath>

using namespace zr;
using namespace zr::testing;

namespace {

using ZRProgressHUDDrawing = HUDTest;

constexpr FramePixel kWhite{255, 255, 255};

/// Grey of this level.
FramePixel gray(int level) {
    const auto byte = static_cast<std::uint8_t>(level);
    return {byte, byte, byte};
}

/// How far two pixels are apart, in the part where they differ most.
int distance(const FramePixel& a, const FramePixel& b) {
    return std::max({std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

} // namespace

TEST_F(ZRProgressHUDDrawing, TheBoxIsBlackOfItsOpacity) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMinSize(CGSizeMake(100, 60));
    hud->show(false);
    // 0.8 of black over white, and nothing around it.
    EXPECT_LE(distance(host.pixel({160, 240}), gray(51)), 1);
    EXPECT_EQ(host.pixel({109.5, 240}), kWhite);
    EXPECT_LE(distance(host.pixel({110, 240}), gray(51)), 1);
    EXPECT_LE(distance(host.pixel({209.5, 240}), gray(51)), 1);
    EXPECT_EQ(host.pixel({210, 240}), kWhite);
    EXPECT_EQ(host.pixel({160, 209.5}), kWhite);
    EXPECT_LE(distance(host.pixel({160, 210}), gray(51)), 1);
    EXPECT_LE(distance(host.pixel({160, 269.5}), gray(51)), 1);
    EXPECT_EQ(host.pixel({160, 270}), kWhite);
    hud->setOpacity(0.3f);
    hud->setNeedsDisplay();
    EXPECT_LE(distance(host.pixel({160, 240}), gray(178)), 1);
}

TEST_F(ZRProgressHUDDrawing, AColourTakesThePlaceOfBlackAndItsOpacity) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setOpacity(0.3f);
    hud->setColor(UIColor::colorWithRed_green_blue_alpha(1, 0, 0.2, 1));
    hud->show(false);
    EXPECT_EQ(host.pixel({160, 240}), (FramePixel{255, 0, 51}));
    hud->setColor(UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 0.5));
    hud->setNeedsDisplay();
    EXPECT_LE(distance(host.pixel({160, 240}), FramePixel{255, 128, 128}), 1);
}

TEST_F(ZRProgressHUDDrawing, AChangeOfTheBoxWaitsForTheNextDrawing) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->show(false);
    const FramePixel before = host.pixel({160, 240});
    hud->setColor(UIColor::redColor());
    EXPECT_EQ(host.pixel({160, 240}), before);
    hud->setLabelText(nullptr); // any observed property draws it anew
    EXPECT_EQ(host.pixel({160, 240}), (FramePixel{255, 0, 0}));
    hud->setColor(UIColor::greenColor());
    hud->show(false); // and so does every show
    EXPECT_EQ(host.pixel({160, 240}), (FramePixel{0, 255, 0}));
}

TEST_F(ZRProgressHUDDrawing, CornersAreArcsOfTheCornerRadius) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMinSize(CGSizeMake(100, 60));
    hud->setColor(UIColor::blackColor());
    hud->show(false);
    for (const CGFloat radius : {0.0, 10.0, 25.0}) {
        hud->setCornerRadius(static_cast<float>(radius));
        hud->setNeedsDisplay();
        host.advance(0);
        const CGPoint corners[] = {{110, 210}, {210, 210}, {210, 270}, {110, 270}};
        for (const CGPoint& corner : corners) {
            const CGFloat inX = corner.x < 160 ? 1 : -1, inY = corner.y < 240 ? 1 : -1;
            // On the diagonal an arc is (1 - 1 / sqrt 2) of its radius away from the corner, in both directions.
            const CGFloat arc = radius * (1 - std::sqrt(0.5));
            const auto at = [&](CGFloat distance) {
                return host.pixel({corner.x + inX * distance, corner.y + inY * distance});
            };
            EXPECT_EQ(at(arc + 1), gray(0)) << radius;
            EXPECT_EQ(at(arc - 1), kWhite) << radius;
            // The straight edges begin where the arcs end.
            EXPECT_EQ(host.pixel({corner.x + inX * (radius + 1), corner.y + inY * 0.25}), gray(0)) << radius;
            EXPECT_EQ(host.pixel({corner.x + inX * 0.25, corner.y + inY * (radius + 1)}), gray(0)) << radius;
        }
    }
}

TEST_F(ZRProgressHUDDrawing, TheBoxIsWhereItsContentsAre) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMinSize(CGSizeMake(99, 61)); // halves: the box begins at round(110.5), round(209.5)
    hud->setColor(UIColor::blackColor());
    hud->show(false);
    EXPECT_EQ(host.pixel({110.5, 240}), kWhite);
    EXPECT_EQ(host.pixel({111, 240}), gray(0));
    EXPECT_EQ(host.pixel({209.5, 240}), gray(0));
    EXPECT_EQ(host.pixel({210, 240}), kWhite);
    EXPECT_EQ(host.pixel({160, 209.5}), kWhite);
    EXPECT_EQ(host.pixel({160, 210}), gray(0));
    EXPECT_EQ(host.pixel({160, 270.5}), gray(0));
    EXPECT_EQ(host.pixel({160, 271}), kWhite);
    hud->setXOffset(-50);
    hud->setYOffset(100);
    hud->setNeedsDisplay();
    EXPECT_EQ(host.pixel({60.5, 340}), kWhite);
    EXPECT_EQ(host.pixel({61, 340}), gray(0));
    EXPECT_EQ(host.pixel({110, 309.5}), kWhite);
    EXPECT_EQ(host.pixel({110, 310}), gray(0));
    EXPECT_EQ(host.pixel({170, 240}), kWhite);
}

TEST_F(ZRProgressHUDDrawing, ABoxWiderThanTheViewBeginsLeftOfIt) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMinSize(CGSizeMake(321, 100)); // round(-0.5) is -1: it ends at 320
    hud->setCornerRadius(25);
    hud->setColor(UIColor::blackColor());
    hud->show(false);
    host.advance(0);
    const CGFloat arc = 25 * (1 - std::sqrt(0.5));
    EXPECT_EQ(host.pixel({320 - arc + 0.6, 190 + arc - 0.6}), kWhite);
    EXPECT_EQ(host.pixel({320 - arc - 0.8, 190 + arc + 0.8}), gray(0));
    EXPECT_EQ(host.pixel({-1 + arc - 0.6 + 0.2, 190 + arc - 0.6}), kWhite);
    EXPECT_EQ(host.pixel({-1 + arc + 0.8, 190 + arc + 0.8}), gray(0));
    EXPECT_EQ(host.pixel({319.5, 240}), gray(0));
}

TEST_F(ZRProgressHUDDrawing, PaintsItselfWholeWhateverRectangleIsAskedFor) {
    const auto hud = addHUD();
    hud->setMinSize(CGSizeMake(100, 60));
    hud->setMode(ZRProgressHUDModeTextOnly);
    host.advance(0);
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(320, 480), false, 1);
    hud->drawRect(CGRectMake(3, 5, 7, 2));
    const Ref<UIImage> picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    const auto alphaAt = [&](int x, int y) {
        const CGImageRef image = picture->CGImage();
        return image->pixels()[std::size_t(y) * image->bytesPerRow() + std::size_t(x) * 4 + 3];
    };
    EXPECT_EQ(alphaAt(112, 240), 204);
    EXPECT_EQ(alphaAt(208, 240), 204);
    EXPECT_EQ(alphaAt(108, 240), 0);
}

TEST_F(ZRProgressHUDDrawing, TheBackgroundIsNotDimmedUnlessAsked) {
    const auto hud = addHUD();
    hud->show(false);
    EXPECT_EQ(host.pixel({1, 1}), kWhite);
    EXPECT_EQ(host.pixel({160, 100}), kWhite);
}

TEST_F(ZRProgressHUDDrawing, DimmingGrowsFromTheMiddleToThreeQuartersOfBlackAndStaysThere) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setOpacity(0);
    hud->setDimBackground(true);
    hud->show(false);
    const auto expectAt = [&](CGPoint point) {
        // The middle of the pixel that holds the point, 320 points from the centre being the gradient's end.
        const CGFloat x = std::floor(point.x * 2) / 2 + 0.25, y = std::floor(point.y * 2) / 2 + 0.25;
        const double alpha = 0.75 * std::min(1.0, std::hypot(x - 160, y - 240) / 320);
        EXPECT_LE(distance(host.pixel(point), gray(int(std::lround(255 * (1 - alpha))))), 2)
            << point.x << ' ' << point.y;
    };
    for (const CGPoint& point :
         {CGPoint{160, 240}, {200, 240}, {160, 140}, {319, 240}, {160, 479}, {260, 340}, {1, 100}})
        expectAt(point);
}

TEST_F(ZRProgressHUDDrawing, DimmingGoesOnBeyondTheEndOfItsCircle) {
    // In a wide view the circle is as wide as the view is high: the sides lie beyond it.
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 60));
    window->addSubview(view);
    const auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithView, view);
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMargin(0);
    hud->setDimBackground(true);
    view->addSubview(hud);
    hud->show(false);
    for (const CGPoint& point : {CGPoint{0.5, 0.5}, {5, 30}, {95, 30}, {225, 30}, {319, 59}})
        EXPECT_LE(distance(host.pixel(point), gray(64)), 1) << point.x;
    EXPECT_LE(distance(host.pixel({130, 30}), gray(int(255 * (1 - 0.75 * 30 / 60)))), 3);
    EXPECT_EQ(host.pixel({160, 61}), kWhite);
}

TEST_F(ZRProgressHUDDrawing, TheBoxLiesOverTheDimming) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMinSize(CGSizeMake(200, 200));
    hud->setDimBackground(true);
    hud->setColor(UIColor::greenColor());
    hud->show(false);
    EXPECT_EQ(host.pixel({70, 240}), (FramePixel{0, 255, 0}));
    EXPECT_LT(host.pixel({50, 240}).red, 200);
}

TEST_F(ZRProgressHUDDrawing, LabelsAndIndicatorLieOverTheBox) {
    const auto hud = addHUD();
    const auto indicator = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 30, 30));
    indicator->setBackgroundColor(UIColor::redColor());
    hud->setCustomView(indicator);
    hud->setMode(ZRProgressHUDModeCustomView);
    hud->setLabelText("MMMM");
    hud->setLabelColor(UIColor::greenColor());
    hud->show(false);
    host.advance(0);
    EXPECT_EQ(host.pixel({160, CGRectGetMidY(indicator->frame())}), (FramePixel{255, 0, 0}));
    const CGRect label = labelOf(hud)->frame();
    int brightest = 0;
    for (CGFloat x = label.origin.x; x < CGRectGetMaxX(label); x += 0.5)
        brightest = std::max<int>(brightest, host.pixel({x, CGRectGetMidY(label)}).green);
    EXPECT_GT(brightest, 240);
}

TEST_F(ZRProgressHUDDrawing, ProgressRepaintsTheIndicatorOnly) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeBar);
    hud->show(false);
    host.advance(0.1);
    hud->setProgress(0.5f);
    host.advance(0.1);
    ASSERT_EQ(host.damage().size(), 1u);
    EXPECT_EQ(host.damage()[0].width, 240);
    EXPECT_EQ(host.damage()[0].height, 40);
}
