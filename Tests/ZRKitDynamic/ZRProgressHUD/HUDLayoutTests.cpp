#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <cmath>

using namespace zr;
using namespace zr::testing;

namespace {

/// A HUD in a view of any size, whose indicator is a plain view of any size.
class ZRProgressHUDLayout : public HUDTest {
protected:
    void makeHUD(CGSize room, CGSize indicatorSize) {
        view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, room.width, room.height));
        window->addSubview(view);
        hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithView, view);
        view->addSubview(hud);
        indicator = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, indicatorSize.width, indicatorSize.height));
        hud->setCustomView(indicator);
        hud->setMode(ZRProgressHUDModeCustomView);
        host.advance(0);
    }
    void layOut() {
        hud->setNeedsLayout();
        hud->layoutIfNeeded();
    }
    CGSize measured(const NSString& text) { return sizeWithFont(text, UIFont::boldSystemFontOfSize(16)); }
    CGSize measuredDetails(const NSString& text, CGFloat width, CGFloat height) {
        return sizeWithFont_constrainedToSize_lineBreakMode(text, UIFont::boldSystemFontOfSize(12),
                                                            CGSizeMake(width, height), NSLineBreakByTruncatingTail);
    }

    Ref<UIView> view;
    Ref<ZRProgressHUD> hud;
    Ref<UIView> indicator;
};

const NSString kLongText = "A text that goes on and on, far beyond the width of a phone that is held upright";
const NSString kDetails = "Details that need a little more than a single line, and so are wrapped inside the box "
                          "as often as it takes to show them all";

} // namespace

TEST_F(ZRProgressHUDLayout, NothingAtAllLeavesTheMargins) {
    makeHUD({320, 480}, {0, 0});
    hud->setMode(ZRProgressHUDModeTextOnly);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(40, 40));
    hud->setMargin(7);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(14, 14));
}

TEST_F(ZRProgressHUDLayout, TheSpinnerIsInTheMiddle) {
    makeHUD({320, 480}, {0, 0});
    hud->setMode(ZRProgressHUDModeSpinner);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(77, 77));
    // round(141.5) and round(201.5) + 20: halves go up.
    EXPECT_EQ(hud->indicator()->frame(), CGRectMake(142, 222, 37, 37));
}

TEST_F(ZRProgressHUDLayout, CoversItsSuperview) {
    makeHUD({320, 480}, {10, 10});
    hud->setFrame(CGRectMake(5, 5, 50, 50));
    layOut();
    EXPECT_EQ(hud->frame(), CGRectMake(0, 0, 320, 480));
    view->setFrame(CGRectMake(0, 0, 200, 100));
    layOut();
    EXPECT_EQ(hud->frame(), CGRectMake(0, 0, 200, 100));
    EXPECT_EQ(indicator->frame(), CGRectMake(95, 45, 10, 10));
    view->setBounds(CGRectMake(5, 6, 200, 100));
    layOut();
    EXPECT_EQ(hud->frame(), CGRectMake(5, 6, 200, 100));
}

TEST_F(ZRProgressHUDLayout, WithoutASuperviewKeepsItsFrame) {
    const auto alone = make<ZRProgressHUD>(&ZRProgressHUD::initWithFrame, CGRectMake(5, 6, 200, 100));
    alone->layoutIfNeeded();
    EXPECT_EQ(alone->frame(), CGRectMake(5, 6, 200, 100));
    EXPECT_EQ(alone->size(), CGSizeMake(77, 77));
}

TEST_F(ZRProgressHUDLayout, IndicatorAndLabelsAreStackedWithAPaddingOfFour) {
    makeHUD({320, 480}, {50, 30});
    hud->setLabelText("Loading");
    hud->setDetailsLabelText("3 of 7");
    layOut();
    const CGSize label = measured("Loading"), details = measuredDetails("3 of 7", 240, 1000);
    const CGFloat height = 30 + 4 + label.height + 4 + details.height + 40;
    EXPECT_EQ(hud->size(), CGSizeMake(std::max({50.0, label.width, details.width}) + 40, height));
    CGFloat y = std::round((480 - height) / 2) + 20;
    EXPECT_EQ(indicator->frame(), CGRectMake(135, y, 50, 30));
    y += 30 + 4;
    EXPECT_EQ(labelOf(hud)->frame(), CGRectMake(std::round((320 - label.width) / 2), y, label.width, label.height));
    y += label.height + 4;
    EXPECT_EQ(detailsLabelOf(hud)->frame(),
              CGRectMake(std::round((320 - details.width) / 2), y, details.width, details.height));
}

TEST_F(ZRProgressHUDLayout, TextsAreMeasuredInTheFontsOfTheirLabels) {
    makeHUD({320, 480}, {10, 10});
    const auto large = UIFont::systemFontOfSize(30), medium = UIFont::systemFontOfSize(20);
    hud->setLabelText("Loading");
    hud->setLabelFont(large);
    hud->setDetailsLabelText("3 of 7");
    hud->setDetailsLabelFont(medium);
    layOut();
    EXPECT_EQ(labelOf(hud)->frame().size, sizeWithFont("Loading", large));
    EXPECT_EQ(detailsLabelOf(hud)->frame().size,
              sizeWithFont_constrainedToSize_lineBreakMode("3 of 7", medium, CGSizeMake(240, 300),
                                                           NSLineBreakByTruncatingTail));
}

TEST_F(ZRProgressHUDLayout, TheIndicatorsOwnSizeCountsNotItsTransform) {
    makeHUD({320, 480}, {50, 30});
    indicator->setTransform(CGAffineTransformMakeScale(2, 2));
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(90, 70));
}

TEST_F(ZRProgressHUDLayout, AnEmptyLabelHasNoPadding) {
    makeHUD({320, 480}, {50, 30});
    for (const NSString& empty : {NSString(), NSString("")}) {
        hud->setLabelText(empty);
        hud->setDetailsLabelText("Details");
        layOut();
        const CGSize details = measuredDetails("Details", 240, 1000);
        EXPECT_EQ(hud->size().height, 30 + 4 + details.height + 40);
        const CGFloat y = CGRectGetMaxY(indicator->frame());
        EXPECT_EQ(labelOf(hud)->frame(), CGRectMake(160, y, 0, 0));
        EXPECT_EQ(detailsLabelOf(hud)->frame().origin.y, y + 4);
    }
}

TEST_F(ZRProgressHUDLayout, AnIndicatorWithoutHeightHasNoPadding) {
    makeHUD({320, 480}, {90, 0});
    hud->setLabelText("Label");
    layOut();
    const CGSize label = measured("Label");
    EXPECT_EQ(hud->size(), CGSizeMake(130, label.height + 40)); // as wide as the indicator all the same
    EXPECT_EQ(labelOf(hud)->frame().origin.y, indicator->frame().origin.y);
    hud->setLabelText(nullptr);
    hud->setDetailsLabelText("Details");
    layOut();
    EXPECT_EQ(hud->size().height, measuredDetails("Details", 240, 1000).height + 40);
    EXPECT_EQ(detailsLabelOf(hud)->frame().origin.y, indicator->frame().origin.y);
}

TEST_F(ZRProgressHUDLayout, LabelAndDetailsAloneHaveTheirPadding) {
    makeHUD({320, 480}, {0, 0});
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setLabelText("Label");
    hud->setDetailsLabelText("Details");
    layOut();
    EXPECT_EQ(hud->size().height, measured("Label").height + 4 + measuredDetails("Details", 240, 1000).height + 40);
    EXPECT_EQ(detailsLabelOf(hud)->frame().origin.y, CGRectGetMaxY(labelOf(hud)->frame()) + 4);
}

TEST_F(ZRProgressHUDLayout, NothingIsWiderThanTheViewLessFourMargins) {
    makeHUD({320, 480}, {300, 10});
    hud->setLabelText(kLongText);
    ASSERT_GT(measured(kLongText).width, 240);
    layOut();
    EXPECT_EQ(indicator->frame().origin.x, 40);
    EXPECT_EQ(indicator->frame().size, CGSizeMake(240, 10));
    EXPECT_EQ(labelOf(hud)->frame().origin.x, 40);
    EXPECT_EQ(labelOf(hud)->frame().size, CGSizeMake(240, measured(kLongText).height));
    EXPECT_EQ(hud->size().width, 280);
    hud->setMargin(10);
    layOut();
    EXPECT_EQ(labelOf(hud)->frame().size.width, 280);
}

TEST_F(ZRProgressHUDLayout, DetailsAreWrapped) {
    makeHUD({320, 480}, {10, 10});
    hud->setDetailsLabelText(kDetails);
    layOut();
    const CGSize details = measuredDetails(kDetails, 240, 480 - 10 - 4 - 80);
    EXPECT_GT(details.height, 2 * measuredDetails("Details", 240, 1000).height);
    EXPECT_EQ(detailsLabelOf(hud)->frame().size, details);
    EXPECT_LE(details.width, 240);
    EXPECT_EQ(hud->size().height, 10 + 4 + details.height + 40);
}

TEST_F(ZRProgressHUDLayout, DetailsAreCutAtTheHeightThatIsLeft) {
    const CGFloat line = 15, room = 10 + 4 + 80 + 2 * line;
    makeHUD({320, room}, {10, 10});
    hud->setDetailsLabelText(kDetails);
    layOut();
    const CGFloat whole = measuredDetails(kDetails, 240, 1000).height;
    const CGSize details = measuredDetails(kDetails, 240, 2 * line);
    ASSERT_LT(details.height, whole);
    EXPECT_EQ(detailsLabelOf(hud)->frame().size, details);
    // The label counts, too.
    hud->setLabelText("Label");
    layOut();
    const CGFloat left = room - 10 - measured("Label").height - 4 - 4 - 80;
    EXPECT_EQ(detailsLabelOf(hud)->frame().size, measuredDetails(kDetails, 240, left));
}

TEST_F(ZRProgressHUDLayout, OffsetsMoveEverythingInTheBox) {
    makeHUD({320, 480}, {50, 30});
    hud->setLabelText("Label");
    hud->setDetailsLabelText("Details");
    layOut();
    const CGRect before[] = {indicator->frame(), labelOf(hud)->frame(), detailsLabelOf(hud)->frame()};
    const CGSize size = hud->size();
    hud->setXOffset(12.5f);
    hud->setYOffset(-30.25f);
    layOut();
    EXPECT_EQ(indicator->frame(), CGRectOffset(before[0], 12.5, -30.25));
    EXPECT_EQ(labelOf(hud)->frame(), CGRectOffset(before[1], 12.5, -30.25));
    EXPECT_EQ(detailsLabelOf(hud)->frame(), CGRectOffset(before[2], 12.5, -30.25));
    EXPECT_EQ(hud->size(), size);
}

TEST_F(ZRProgressHUDLayout, HalvesAreRoundedAwayFromZero) {
    makeHUD({101, 101}, {10, 10});
    layOut();
    EXPECT_EQ(indicator->frame(), CGRectMake(46, 46, 10, 10)); // 45.5, and 25.5 + 20
    makeHUD({40, 40}, {10, 101});                              // higher than the view
    layOut();
    // (40 - 141) / 2 is -50.5; there is no width left: 40 - 80 is less than the indicator's.
    EXPECT_EQ(indicator->frame().origin.y, -51 + 20);
    EXPECT_EQ(hud->size(), CGSizeMake(40, 141));
}

TEST_F(ZRProgressHUDLayout, ASquareBoxIsAsWideAsHigh) {
    makeHUD({320, 480}, {60, 20});
    layOut();
    ASSERT_EQ(hud->size(), CGSizeMake(100, 60));
    const CGRect before = indicator->frame();
    hud->setSquare(true);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(100, 100));
    EXPECT_EQ(indicator->frame(), before); // the box grows around its contents
}

TEST_F(ZRProgressHUDLayout, ASquareBoxGrowsOnlyWhereItFits) {
    makeHUD({320, 90}, {60, 20});
    hud->setSquare(true);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(100, 60)); // 100 is more than 90 - 40
    makeHUD({320, 140}, {60, 20});
    hud->setSquare(true);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(100, 100)); // 100 is just 140 - 40
    makeHUD({120, 480}, {20, 80});
    hud->setSquare(true);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(60, 120)); // 120 is more than 120 - 40
}

TEST_F(ZRProgressHUDLayout, TheMinimumSizeEnlargesTheBox) {
    makeHUD({320, 480}, {60, 20});
    layOut();
    const CGRect before = indicator->frame();
    hud->setMinSize(CGSizeMake(135, 50));
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(135, 60));
    hud->setMinSize(CGSizeMake(50, 135));
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(100, 135));
    EXPECT_EQ(indicator->frame(), before);
    // It comes after the square, and may undo it.
    hud->setSquare(true);
    layOut();
    EXPECT_EQ(hud->size(), CGSizeMake(100, 135));
}

TEST_F(ZRProgressHUDLayout, AFractionalIndicatorKeepsItsSize) {
    makeHUD({320, 480}, {50.5, 30.25});
    layOut();
    EXPECT_EQ(indicator->frame(), CGRectMake(135, std::round((480 - 70.25) / 2) + 20, 50.5, 30.25));
    EXPECT_EQ(hud->size(), CGSizeMake(90.5, 70.25));
}

TEST_F(ZRProgressHUDLayout, StrangeNumbersDoNoHarm) {
    makeHUD({320, 480}, {50, 30});
    hud->setLabelText("Label");
    hud->setDetailsLabelText(kDetails);
    for (const float number : {NAN, INFINITY, -INFINITY, 1e30f, -1e30f, 200.0f}) {
        hud->setMargin(number);
        hud->setXOffset(number);
        hud->setYOffset(number);
        hud->setCornerRadius(number);
        hud->setOpacity(number);
        hud->setMinSize(CGSizeMake(number, number));
        hud->setProgress(number);
        hud->setSquare(true);
        hud->setDimBackground(true);
        hud->show(false);
        host.advance(1);
        hud->setMode(ZRProgressHUDModePie);
        host.snapshot();
        hud->setMode(ZRProgressHUDModeBar);
        host.snapshot();
        hud->hide(false);
    }
    hud->setMargin(20);
    hud->setXOffset(0);
    hud->setYOffset(0);
    hud->setMinSize(CGSizeZero);
    hud->setMode(ZRProgressHUDModeCustomView);
    layOut();
    EXPECT_EQ(hud->frame(), CGRectMake(0, 0, 320, 480));
    EXPECT_EQ(indicator->bounds().size.height, 30);
}
