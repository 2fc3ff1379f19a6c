// The strip of buttons behind a row.

#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

namespace zr::testing {

namespace {

class SlipStrip : public SwipeTest {
protected:
    UIView* build(NSInteger row, const Actions& given) {
        giveActions(given);
        return cell(row)->zrEditingView();
    }
};

} // namespace

TEST_F(SlipStrip, IsBuiltWhenItIsFirstAskedFor) {
    EXPECT_EQ(cell(1)->strip(), nullptr);
    UIView* strip = cell(1)->zrEditingView();
    EXPECT_EQ(cell(1)->zrEditingView(), strip);
    EXPECT_EQ(list->askedForActions, std::vector<NSIndexPath>{rowPath(1)});
}

TEST_F(SlipStrip, IsBuiltByTheDragThatMovesTheRow) {
    beginDrag(1);
    EXPECT_EQ(cell(1)->strip(), nullptr);
    drag(1);
    EXPECT_NE(cell(1)->strip(), nullptr);
    drag(30);
    EXPECT_EQ(list->askedForActions.size(), 1u);
    letGo();
}

TEST_F(SlipStrip, IsAskedForAnewAfterTheRowHasClosed) {
    swipeOpen(1);
    cell(1)->resetSwipButton();
    giveActions({action(50)});
    swipeOpen(1);
    EXPECT_EQ(cell(1)->strip()->frame().size.width, 50);
    EXPECT_EQ(list->askedForActions.size(), 2u);
}

TEST_F(SlipStrip, RemembersTheActions) {
    const Actions given{action(70, "A"), action(70, "B")};
    EXPECT_TRUE(cell(1)->titleList().empty());
    build(1, given);
    EXPECT_EQ(cell(1)->titleList(), given);
}

TEST_F(SlipStrip, BeginsJustBeyondTheRightEdgeOfTheCell) {
    const UIView* strip = build(1, {action(80), action(80), action(80)});
    EXPECT_EQ(strip->frame(), CGRectMake(320, 0, 240, kRowHeight));
    EXPECT_EQ(strip->superview(), cell(1));
    EXPECT_EQ(strip->backgroundColor(), UIColor::clearColor());
}

TEST_F(SlipStrip, HasAButtonForEachActionInTheirOrder) {
    const UIView* strip = build(1, {action(80, "A"), action(80, "B"), action(80, "C")});
    ASSERT_EQ(strip->subviews().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(cell(1)->button(i)->frame(), CGRectMake(80 * static_cast<CGFloat>(i), 0, 80, kRowHeight));
        EXPECT_EQ(cell(1)->button(i)->tag(), static_cast<NSInteger>(i));
        EXPECT_EQ(cell(1)->button(i)->action(), cell(1)->titleList()[i]);
        EXPECT_EQ(cell(1)->button(i)->titleForState(UIControlStateNormal), cell(1)->titleList()[i]->title());
    }
}

TEST_F(SlipStrip, IsBehindTheCellsEdgeAndOpensToTheContents) {
    // The platform's accessory makes the content narrower than its cell.
    cell(1)->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
    host.advance(0);
    const CGFloat content = cell(1)->contentView()->frame().size.width;
    ASSERT_LT(content, 300);
    EXPECT_EQ(cell(1)->zrEditingView()->frame(), CGRectMake(320, 0, 140, kRowHeight));
    cell(1)->resetSwipButton();
    swipeOpen(1);
    EXPECT_EQ(cell(1)->contentX(), content / 2 - 140);
    EXPECT_EQ(cell(1)->stripX(), content - 70);
}

TEST_F(SlipStrip, ItsActionsAreAKey) {
    const Actions given{action(50), action(60)};
    cell(1)->setValue_forKey(NSValue::valueWithStructure(given), "titleList");
    EXPECT_EQ(cell(1)->titleList(), given);
    EXPECT_EQ(cell(1)->valueForKey("titleList").as<Actions>(), given);
}

TEST_F(SlipStrip, ButtonsLookAsTheirActionsSay) {
    int calls = 0;
    const auto color = UIColor::colorWithRed_green_blue_alpha(0.25, 0.5, 0.75, 1);
    const auto given = ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(
        color, 60, "Flag", [&calls](ZRTableViewRowAction*, const NSIndexPath&) { ++calls; });
    build(1, {given});
    ZRTableViewRowButton* button = cell(1)->button(0);
    EXPECT_EQ(button->buttonType(), UIButtonTypeCustom);
    EXPECT_EQ(button->backgroundColor(), color.get());
    EXPECT_EQ(button->titleForState(UIControlStateNormal), "Flag");
    button->actionBlock()(given, nullptr);
    EXPECT_EQ(calls, 1);
    const auto plain = UIButton::buttonWithType(UIButtonTypeCustom);
    EXPECT_EQ(rgba(button->titleColorForState(UIControlStateNormal)),
              rgba(plain->titleColorForState(UIControlStateNormal)));
    EXPECT_EQ(button->titleLabel()->font()->pointSize(), plain->titleLabel()->font()->pointSize());
}

TEST_F(SlipStrip, ButtonsTellTheTableOfTapsOnly) {
    giveActions({list->noting(70, "A"), list->noting(70, "B")});
    swipeOpen(1);
    const CGPoint middle = middleOnScreen(cell(1)->button(1));
    host.touchDown(middle);
    EXPECT_EQ(news(), News()) << "not as the finger goes down";
    host.touchMove({20, 460}, 0.1);
    host.touchUp();
    EXPECT_EQ(news(), News()) << "nor as it goes up far away";
    host.tap(middle);
    EXPECT_EQ(news(), News{"B {0, 1}"});
}

TEST_F(SlipStrip, ShowsItsButtonsOnTheScreen) {
    giveActions({action(70), ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(
                                 UIColor::blueColor(), 70, nullptr, nullptr)});
    swipeOpen(1);
    EXPECT_EQ(host.pixel({178, 62}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({182, 62}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({248, 118}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({252, 62}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(host.pixel({318, 118}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(host.pixel({318, 122}), (FramePixel{255, 255, 255}));
}

TEST_F(SlipStrip, IsAsWideAsTheLastButtonTimesTheirNumber) {
    const UIView* wide = build(1, {action(50), action(70)});
    EXPECT_EQ(wide->frame().size.width, 140);
    const UIView* narrow = build(2, {action(70), action(50)});
    EXPECT_EQ(narrow->frame().size.width, 100);
}

TEST_F(SlipStrip, ButtonsOfSeveralWidthsOverlapOrLeaveGaps) {
    build(1, {action(50), action(70), action(40)});
    EXPECT_EQ(cell(1)->button(0)->frame(), CGRectMake(0, 0, 50, kRowHeight));
    EXPECT_EQ(cell(1)->button(1)->frame(), CGRectMake(70, 0, 70, kRowHeight)) << "a gap of 20 points";
    EXPECT_EQ(cell(1)->button(2)->frame(), CGRectMake(80, 0, 40, kRowHeight)) << "behind the second one's right edge";
    EXPECT_EQ(cell(1)->zrEditingView()->frame().size.width, 120);
}

TEST_F(SlipStrip, IsEmptyWithoutActions) {
    const UIView* strip = build(1, {});
    EXPECT_EQ(strip->frame(), CGRectMake(320, 0, 0, kRowHeight));
    EXPECT_TRUE(strip->subviews().empty());
}

TEST_F(SlipStrip, IsEmptyOutsideOfATableOfTheKit) {
    const auto loose =
        make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    EXPECT_EQ(loose->zrEditingView()->frame(), CGRectMake(320, 0, 0, 44));
    EXPECT_TRUE(loose->titleList().empty());
}

TEST_F(SlipStrip, LeavesNilActionsOut) {
    const UIView* strip = build(1, {nullptr, action(70, "A"), nullptr});
    EXPECT_EQ(cell(1)->titleList().size(), 1u);
    EXPECT_EQ(strip->frame().size.width, 70);
    EXPECT_EQ(cell(1)->button(0)->frame(), CGRectMake(0, 0, 70, kRowHeight));
}

TEST_F(SlipStrip, LetsGoOfTheActionsWithTheCell) {
    const auto given = action(70);
    const auto before = given->retainCount();
    {
        const auto loose =
            make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
        loose->setTitleList({given});
        EXPECT_EQ(given->retainCount(), before + 1);
    }
    EXPECT_EQ(given->retainCount(), before);
}

} // namespace zr::testing
