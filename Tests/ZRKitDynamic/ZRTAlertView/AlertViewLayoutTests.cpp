#include <Tests/ZRKitDynamic/ZRTAlertView/AlertViewTesting.h>

#include <cmath>
#include <limits>

// Where everything on an alert's panel lies.

namespace zr::testing {

namespace {

/// The default panel on a 375 x 667 screen with contents of this height.
CGRect grownPanel(CGFloat contents) {
    const CGFloat height = 70 + contents;
    return CGRectMake(52.5, (667 - height) * 0.5 - 15, 270, height);
}

Ref<ZRTAlertView> laidOutAlert(const NSString& title, const NSString& message, std::int32_t style,
                               const NSString& detailMessage, UIImage* image = nullptr) {
    auto alert = makeAlert(title, message);
    alert->setRotationImage(image);
    alert->alertViewStyle_detailMessage(style, detailMessage);
    alert->reLayoutSubviews();
    return alert;
}

/// Where a message label that starts at `top` ends.
CGFloat messageBottom(CGFloat top) { return top + measuredHeight(kShortMessage) + 5; }

} // namespace

// Labels

TEST(AlertViewLayout, TitleFrameDependsOnThePanelOnly) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    EXPECT_EQ(alert->calculateTitleLabelFrame("Title"), CGRectMake(5, 7, 260, 45));
    EXPECT_EQ(alert->calculateTitleLabelFrame(nullptr), CGRectMake(5, 7, 260, 45));
    alert->setAlertViewSize(CGSizeMake(200, 300));
    EXPECT_EQ(alert->calculateTitleLabelFrame("Title"), CGRectMake(5, 7, 190, 45));
}

TEST(AlertViewLayout, LayingOutPlacesTheTitle) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->setAlertViewSize(CGSizeMake(200, 300));
    alert->reLayoutSubviews();
    EXPECT_EQ(alert->titleLabel()->frame(), CGRectMake(5, 7, 190, 45));
}

TEST(AlertViewLayout, MessageFrameFollowsItsText) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    const NSString lines = textOfLines(4);
    EXPECT_EQ(alert->calculateMessageLabelFrame(lines), CGRectMake(5, 52, 260, measuredHeight(lines) + 5));
    EXPECT_EQ(alert->calculateMessageLabelFrame(nullptr), CGRectMake(5, 52, 260, 5));
    EXPECT_GT(measuredHeight(lines), 3 * measuredHeight("line"));
}

TEST(AlertViewLayout, MessageIsMeasuredWithinThePanelLess20) {
    const HeadlessHost host(device(300, 568));
    const auto alert = makeAlert("Title", "Message");
    const NSString text = "A message that is long enough to need another line on a narrow panel than on a wide one, "
                          "as it has so many words in it.";
    EXPECT_NE(measuredHeight(text, 250), measuredHeight(text, 350));
    EXPECT_EQ(alert->calculateMessageLabelFrame(text), CGRectMake(5, 52, 240, measuredHeight(text, 250) + 5));
}

TEST(AlertViewLayout, MessageStartsAt10WhenTheTitleEndsAt0) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->titleLabel()->setFrame(CGRectMake(0, -20, 100, 20));
    EXPECT_EQ(alert->calculateMessageLabelFrame("Message").origin, CGPointMake(5, 10));
    alert->titleLabel()->setFrame(CGRectMake(0, -20, 100, 20.5));
    EXPECT_EQ(alert->calculateMessageLabelFrame("Message").origin, CGPointMake(5, 0.5)) << "only exactly 0 counts";
}

TEST(AlertViewLayout, MessageIsAtMost300HighOnTheDefaultPanel) {
    const HeadlessHost host;
    const NSString text = textOfLines(60);
    const auto alert = makeAlert("Title", text);
    const CGFloat height = alert->messageLabel()->frame().size.height;
    EXPECT_EQ(height, measuredHeight(text) + 5);
    EXPECT_LE(height, 305);
    EXPECT_GT(height, 280);
}

TEST(AlertViewLayout, MessageOfACallersSizeLeavesRoomForTheStyle) {
    const HeadlessHost host;
    const NSString text = textOfLines(60);
    const auto image = imageOfSize(50, 50);
    const struct {
        std::int32_t style;
        NSString detail;
        CGFloat firstRoom, nextRoom;
    } cases[] = {
        {0, "detail", 300, 300},
        {1, "detail", 300, 300},
        {7, "detail", 300, 300},
        // The caption's height is 0 until it was placed once. A text field has no caption.
        {2, "detail", 290, 260},
        {3, "detail", 290, 260},
        {5, "detail", 290, 290},
        {6, "detail", 290, 290},
        {2, "", 300, 300},
        {3, "", 300, 300},
        {5, "", 300, 300},
        {6, nullptr, 300, 300},
        {4, "detail", 220, 220},
        {4, "", 220, 220},
    };
    for (const auto& [style, detail, firstRoom, nextRoom] : cases) {
        const auto alert = makeAlert("Title", text);
        alert->setAlertViewSize(CGSizeMake(270, 400));
        alert->setRotationImage(image);
        alert->alertViewStyle_detailMessage(style, detail);
        alert->reLayoutSubviews();
        EXPECT_EQ(alert->messageLabel()->frame(), CGRectMake(5, 52, 260, measuredHeight(text, 270, firstRoom) + 5))
            << style;
        alert->reLayoutSubviews();
        EXPECT_EQ(alert->messageLabel()->frame(), CGRectMake(5, 52, 260, measuredHeight(text, 270, nextRoom) + 5))
            << style;
    }
    EXPECT_NE(measuredHeight(text, 270, 300), measuredHeight(text, 270, 260));
    EXPECT_NE(measuredHeight(text, 270, 260), measuredHeight(text, 270, 220));
}

TEST(AlertViewLayout, RotationWithoutImageLeavesRoomFor30) {
    const HeadlessHost host;
    const NSString text = textOfLines(60);
    const auto alert = makeAlert("Title", text);
    alert->setAlertViewSize(CGSizeMake(270, 400));
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleRotation, "detail");
    EXPECT_EQ(alert->calculateMessageLabelFrame(text).size.height, measuredHeight(text, 270, 270) + 5);
}

TEST(AlertViewLayout, NoRoomForTheMessageShowsNone) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", kShortMessage);
    alert->setAlertViewSize(CGSizeMake(270, 60));
    alert->reLayoutSubviews();
    EXPECT_EQ(alert->messageLabel()->frame(), CGRectMake(5, 52, 260, 5));
}

// The panel

TEST(AlertViewLayout, PanelIs15PointsAboveTheMiddle) {
    const HeadlessHost host;
    const auto alert = makeAlert(nullptr, nullptr);
    EXPECT_EQ(alert->calculateAlertViewFrame(), CGRectMake(52.5, 283.5, 270, 70));
}

TEST(AlertViewLayout, DefaultPanelGrowsWithItsContents) {
    const HeadlessHost host;
    const CGFloat message = measuredHeight(kShortMessage) + 5;
    const auto alert = makeAlert("Title", kShortMessage);
    EXPECT_EQ(alert->calculateAlertViewFrame(), grownPanel(45 + message));

    const auto field = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleTextField, "Name");
    EXPECT_EQ(field->backgroundAlert()->frame(), grownPanel(45 + message + 30));
    const auto box = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleCheckBox, "Again");
    EXPECT_EQ(box->backgroundAlert()->frame(), grownPanel(45 + message + 30)) << "the box adds nothing to its caption";
    const auto picture =
        laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleRotation, "Importing", imageOfSize(60, 60));
    EXPECT_EQ(picture->backgroundAlert()->frame(), grownPanel(45 + message + 60 + 30));
    const auto bar = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleProgress, "10 %");
    EXPECT_EQ(bar->backgroundAlert()->frame(), grownPanel(45 + message + barOf(bar)->frame().size.height + 30));
}

TEST(AlertViewLayout, ButtonsAreAtTheBottomOfTheGrownPanel) {
    const HeadlessHost host;
    const auto alert = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleTextField, "Name");
    const CGFloat height = 70 + 45 + measuredHeight(kShortMessage) + 5 + 30;
    EXPECT_EQ(alert->cancelButton()->frame(), CGRectMake(-0.5, height - 44, 136, 45));
    EXPECT_EQ(alert->okButton()->frame(), CGRectMake(135, height - 44, 136, 45));
}

TEST(AlertViewLayout, DefaultPanelIsNeverHigherThanItsHost) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 200));
    window->addSubview(view);
    const auto alert = makeAlert("Title", textOfLines(20));
    alert->showInView_animation(view, false);
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(25, -5, 270, 180));
    endAlert(host, alert);
}

TEST(AlertViewLayout, APanelExactlyAsHighAsItsHostIsNotCut) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 115));
    window->addSubview(view);
    const auto alert = makeAlert("Title", nullptr);
    alert->showInView_animation(view, false);
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(25, -15, 270, 115));
    endAlert(host, alert);
}

TEST(AlertViewLayout, ACallersSizeIsNeverGrown) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", textOfLines(20));
    for (const CGSize size : {CGSizeMake(280, 70), CGSizeMake(270, 71), CGSizeMake(200, 900)}) {
        alert->setAlertViewSize(size);
        alert->reLayoutSubviews();
        EXPECT_EQ(alert->backgroundAlert()->frame(),
                  CGRectMake((375 - size.width) * 0.5, (667 - size.height) * 0.5 - 15, size.width, size.height));
    }
}

TEST(AlertViewLayout, ACallersSizeThatIsTheDefaultOneIsGrown) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", nullptr);
    alert->setAlertViewSize(CGSizeMake(270, 70));
    EXPECT_EQ(alert->calculateAlertViewFrame(), grownPanel(45));
}

TEST(AlertViewLayout, DefaultSizeFollowsTheScreensWidth) {
    const struct { CGFloat screen, panel; } cases[] = {{300, 250}, {320, 270}, {375, 270}, {414, 270}};
    for (const auto& [screen, panel] : cases) {
        const HeadlessHost host(device(screen, 600));
        const auto alert = makeAlert("Title", nullptr);
        EXPECT_EQ(alert->backgroundAlert()->frame(),
                  CGRectMake((screen - panel) * 0.5, (600 - 115) * 0.5 - 15, panel, 115));
        EXPECT_EQ(alert->titleLabel()->frame(), CGRectMake(5, 7, panel - 10, 45));
    }
}

TEST(AlertViewLayout, CalculatingPlacesNothing) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", kShortMessage);
    const CGRect panel = alert->backgroundAlert()->frame();
    const CGRect message = alert->messageLabel()->frame();
    alert->setAlertViewSize(CGSizeMake(111, 222));
    alert->calculateAlertViewFrame();
    alert->calculateMessageLabelFrame(textOfLines(9));
    alert->calculateTitleLabelFrame("Title");
    EXPECT_EQ(alert->backgroundAlert()->frame(), panel);
    EXPECT_EQ(alert->messageLabel()->frame(), message);
    EXPECT_EQ(alert->titleLabel()->frame(), CGRectMake(5, 7, 260, 45));
}

// The check box

TEST(AlertViewLayout, CheckBoxIs2PointsLeftOfItsCaption) {
    const HeadlessHost host;
    const auto alert = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleCheckBox, "Do not ask again");
    const CGFloat width = measuredWidth("Do not ask again");
    const CGFloat x = (270 - width) * 0.5 + 15;
    const CGFloat y = messageBottom(52) + 10;
    EXPECT_EQ(captionOf(alert)->frame(), CGRectMake(x, y, width, 30));
    EXPECT_EQ(checkBoxOf(alert)->frame(), CGRectMake(x - 32, y, 30, 30));
}

TEST(AlertViewLayout, LongCaptionsAreCutToThePanelLess40) {
    const HeadlessHost host;
    const NSString caption = "A caption that is far too long for one line of a panel that is no wider than this";
    const auto alert = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleCheckBox, caption);
    EXPECT_EQ(captionOf(alert)->frame().size, CGSizeMake(measuredWidth(caption), 30));
    EXPECT_LE(captionOf(alert)->frame().size.width, 230);
}

TEST(AlertViewLayout, CheckBoxGoesBelowTheTitleWithoutAMessage) {
    const HeadlessHost host;
    const auto alert = laidOutAlert("Title", nullptr, ZRTAlertViewStyleCheckBox, "Again");
    EXPECT_EQ(captionOf(alert)->frame().origin.y, 62);
}

TEST(AlertViewLayout, CheckBoxWithoutLabelsStartsAt10) {
    const HeadlessHost host;
    const auto alert = laidOutAlert(nullptr, nullptr, ZRTAlertViewStyleCheckBox, "Again");
    EXPECT_EQ(captionOf(alert)->frame().origin.y, 10);
    EXPECT_EQ(checkBoxOf(alert)->frame().origin.y, 10);
}

// The progress bar

TEST(AlertViewLayout, ProgressBarIsAboveItsCaption) {
    for (const char* version : {"6.1", "8.4"}) {
        const HeadlessHost host(deviceOfVersion(version));
        const auto alert = laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleProgress, "10 %");
        const CGRect bar = barOf(alert)->frame();
        EXPECT_EQ(bar.origin, CGPointMake(20, messageBottom(52) + 10)) << version;
        EXPECT_EQ(bar.size.width, 230) << version;
        EXPECT_EQ(captionOf(alert)->frame(), CGRectMake(20, bar.origin.y + bar.size.height, 230, 30)) << version;
    }
}

TEST(AlertViewLayout, ProgressBarWithoutLabelsStartsAt20) {
    const HeadlessHost host;
    const auto alert = laidOutAlert(nullptr, nullptr, ZRTAlertViewStyleProgress, "10 %");
    EXPECT_EQ(barOf(alert)->frame().origin, CGPointMake(20, 20));
}

namespace {

/// Its message ends where the test says.
class ShortMessageAlert : public ZRTAlertView {
public:
    CGRect calculateMessageLabelFrame(const NSString&) override { return CGRectMake(0, 0, 100, messageEnd); }
    CGFloat messageEnd = 5;
};

Ref<ShortMessageAlert> alertWithMessageEnd(CGFloat end, std::int32_t style) {
    auto alert =
        make<ShortMessageAlert>(&ShortMessageAlert::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                                nullptr, "Message", nullptr, "Cancel", "OK");
    alert->messageEnd = end;
    alert->alertViewStyle_detailMessage(style, "detail");
    alert->reLayoutSubviews();
    return alert;
}

} // namespace

TEST(AlertViewLayout, BarAndPictureKeepOffTheEdgeWhenTheTextEndsAbove5) {
    const HeadlessHost host;
    EXPECT_EQ(barOf(alertWithMessageEnd(4.5, ZRTAlertViewStyleProgress))->frame().origin.y, 20);
    EXPECT_EQ(barOf(alertWithMessageEnd(5, ZRTAlertViewStyleProgress))->frame().origin.y, 15);
    EXPECT_EQ(pictureOf(alertWithMessageEnd(4.5, ZRTAlertViewStyleRotation))->frame().origin.y, 20);
    EXPECT_EQ(pictureOf(alertWithMessageEnd(5, ZRTAlertViewStyleRotation))->frame().origin.y, 15);
}

TEST(AlertViewLayout, BoxAndFieldDoNotKeepOffTheEdge) {
    const HeadlessHost host;
    EXPECT_EQ(checkBoxOf(alertWithMessageEnd(4.5, ZRTAlertViewStyleCheckBox))->frame().origin.y, 14.5);
    EXPECT_EQ(alertWithMessageEnd(4.5, ZRTAlertViewStyleTextField)->textField()->frame().origin.y, 9.5);
}

// The rotating picture

TEST(AlertViewLayout, PictureIsSquareAndAboveItsCaption) {
    const HeadlessHost host;
    const CGFloat y = messageBottom(52) + 10;
    const auto alert =
        laidOutAlert("Title", kShortMessage, ZRTAlertViewStyleRotation, "Importing", imageOfSize(90, 60));
    EXPECT_EQ(pictureOf(alert)->frame(), CGRectMake(105, y, 60, 60));
    EXPECT_EQ(captionOf(alert)->frame(), CGRectMake(20, y + 60, 230, 30));
}

TEST(AlertViewLayout, PicturesFrom20To100HighKeepTheirHeight) {
    const HeadlessHost host;
    const struct {
        CGFloat image, side;
    } cases[] = {{10, 40}, {19, 40}, {20, 20}, {21, 21}, {99, 99}, {100, 100}, {101, 40}, {500, 40}};
    for (const auto& [height, side] : cases) {
        const auto alert =
            laidOutAlert("Title", nullptr, ZRTAlertViewStyleRotation, "Importing", imageOfSize(33, height));
        EXPECT_EQ(pictureOf(alert)->frame(), CGRectMake((270 - side) * 0.5, 62, side, side)) << height;
    }
    const auto none = laidOutAlert("Title", nullptr, ZRTAlertViewStyleRotation, "Importing");
    EXPECT_EQ(pictureOf(none)->frame(), CGRectMake(115, 62, 40, 40));
}

TEST(AlertViewLayout, PictureWithoutLabelsStartsAt20) {
    const HeadlessHost host;
    const auto alert = laidOutAlert(nullptr, nullptr, ZRTAlertViewStyleRotation, "Importing");
    EXPECT_EQ(pictureOf(alert)->frame(), CGRectMake(115, 20, 40, 40));
}

// The text field

TEST(AlertViewLayout, TextFieldIsBelowTheMessage) {
    const HeadlessHost host;
    for (const std::int32_t style : {5, 6}) {
        const auto alert = laidOutAlert("Title", kShortMessage, style, "Name");
        EXPECT_EQ(alert->textField()->frame(), CGRectMake(20, messageBottom(52) + 5, 230, 30));
    }
}

TEST(AlertViewLayout, TextFieldWithoutLabelsStartsAt5) {
    const HeadlessHost host;
    const auto alert = laidOutAlert(nullptr, nullptr, ZRTAlertViewStyleTextField, "Name");
    EXPECT_EQ(alert->textField()->frame(), CGRectMake(20, 5, 230, 30));
}

// A panel that is not as wide as usual

TEST(AlertViewLayout, StylesFollowThePanelsWidth) {
    const HeadlessHost host;
    const auto narrowAlert = [](std::int32_t style) {
        auto alert = makeAlert("Title", nullptr);
        alert->setAlertViewSize(CGSizeMake(200, 300));
        alert->setRotationImage(imageOfSize(50, 50));
        alert->alertViewStyle_detailMessage(style, "A caption too long for 160 points");
        alert->reLayoutSubviews();
        return alert;
    };
    const auto box = narrowAlert(ZRTAlertViewStyleCheckBox);
    const CGFloat textWidth = measuredWidth("A caption too long for 160 points", 200);
    ASSERT_LE(textWidth, 160);
    ASSERT_NE(textWidth, measuredWidth("A caption too long for 160 points"));
    const CGFloat x = (200 - textWidth) * 0.5 + 15;
    EXPECT_EQ(captionOf(box)->frame(), CGRectMake(x, 62, textWidth, 30));
    EXPECT_EQ(checkBoxOf(box)->frame(), CGRectMake(x - 32, 62, 30, 30));

    const auto bar = narrowAlert(ZRTAlertViewStyleProgress);
    EXPECT_EQ(barOf(bar)->frame().origin, CGPointMake(20, 62));
    EXPECT_EQ(barOf(bar)->frame().size.width, 160);
    EXPECT_EQ(captionOf(bar)->frame(), CGRectMake(20, CGRectGetMaxY(barOf(bar)->frame()), 160, 30));

    const auto picture = narrowAlert(ZRTAlertViewStyleRotation);
    EXPECT_EQ(pictureOf(picture)->frame(), CGRectMake(75, 62, 50, 50));
    EXPECT_EQ(captionOf(picture)->frame(), CGRectMake(20, 112, 160, 30));

    for (const std::int32_t style : {ZRTAlertViewStyleTextField, ZRTAlertViewStyleSecureTextField})
        EXPECT_EQ(narrowAlert(style)->textField()->frame(), CGRectMake(20, 57, 160, 30)) << style;
}

// Room for the keyboard

TEST(AlertViewKeyboard, PanelMovesUpByWhatIsMissing) {
    HeadlessHost host(device(320, 480));
    const auto alert = makeAlert("Title", kShortMessage);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->showWithAnimation(true);
    const CGFloat height = 70 + 45 + measuredHeight(kShortMessage) + 5 + 30;
    const CGFloat top = (480 - height) * 0.5 - 15;
    ASSERT_GT(top + height + 250, 480);
    const CGRect panel = alert->backgroundAlert()->frame();
    EXPECT_EQ(panel.size, CGSizeMake(270, height));
    EXPECT_EQ(panel.origin.x, 25);
    EXPECT_DOUBLE_EQ(CGRectGetMaxY(panel), 230);
    endAlert(host, alert);
}

TEST(AlertViewKeyboard, PanelSlidesUp) {
    HeadlessHost host(device(320, 480));
    const auto alert = makeAlert("Title", kShortMessage);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->showWithAnimation(true);
    host.advance(0);
    const CGFloat height = alert->backgroundAlert()->frame().size.height;
    const CGFloat from = 240 - 15;
    const CGFloat to = 230 - height / 2;
    const auto seenMiddle = [&] { return alert->backgroundAlert()->layer()->presentationValues().position.y; };
    EXPECT_NEAR(seenMiddle(), from, kSeenTolerance);
    host.advance(0.15);
    EXPECT_NEAR(seenMiddle(), (from + to) / 2, kSeenTolerance);
    host.advance(0.15);
    EXPECT_NEAR(seenMiddle(), to, kSeenTolerance);
    EXPECT_FALSE(alert->backgroundAlert()->layer()->hasAnimations());
    endAlert(host, alert);
}

TEST(AlertViewKeyboard, NotAnimatedThePanelIsUpAtOnce) {
    HeadlessHost host(device(320, 480));
    const auto alert = makeAlert("Title", kShortMessage);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->showWithAnimation(false);
    host.advance(0);
    EXPECT_FALSE(alert->backgroundAlert()->layer()->hasAnimations());
    EXPECT_DOUBLE_EQ(CGRectGetMaxY(alert->backgroundAlert()->frame()), 230);
    endAlert(host, alert);
}

TEST(AlertViewKeyboard, PanelStaysWhereThereIsRoom) {
    HeadlessHost host(device(375, 900));
    const auto alert = makeAlert("Title", nullptr);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->showWithAnimation(false);
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 362.5, 270, 145));
    endAlert(host, alert);
}

TEST(AlertViewKeyboard, ExactlyEnoughRoomIsEnough) {
    HeadlessHost host(device(375, 667));
    const auto alert = makeAlert("Title", nullptr);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->backgroundAlert()->setFrame(CGRectMake(52, 300, 270, 117));
    alert->fixAlertViewFrame();
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52, 300, 270, 117));
    alert->backgroundAlert()->setFrame(CGRectMake(52, 301, 270, 117));
    alert->fixAlertViewFrame();
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52, 300, 270, 117));
}

TEST(AlertViewKeyboard, APanelWhoseEndIsNoNumberStays) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", nullptr);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    UIView* panel = alert->backgroundAlert();
    panel->setCenter(CGPointMake(187, 300));
    panel->setBounds(CGRectMake(0, 0, 270, std::numeric_limits<CGFloat>::quiet_NaN()));
    ASSERT_TRUE(std::isnan(CGRectGetMaxY(panel->frame())));
    alert->fixAlertViewFrame();
    EXPECT_EQ(panel->center(), CGPointMake(187, 300));
}

TEST(AlertViewKeyboard, WithoutTextFieldNothingMoves) {
    HeadlessHost host(device(320, 480));
    const auto alert = makeAlert("Title", textOfLines(8));
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    alert->reLayoutSubviews();
    const CGRect before = alert->backgroundAlert()->frame();
    ASSERT_GT(CGRectGetMaxY(before) + 250, 480);
    alert->fixAlertViewFrame();
    EXPECT_EQ(alert->backgroundAlert()->frame(), before);
}

} // namespace zr::testing
