#include <Tests/ZRKitDynamic/ZRTAlertView/AlertViewTesting.h>
#include <ZRPlatform/Foundation/NSBundle.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

// What each style adds to an alert.

namespace zr::testing {

namespace {

std::size_t viewsAddedBy(std::int32_t style, const NSString& detailMessage) {
    const auto alert = makeAlert("Title", "Message");
    const std::size_t before = alert->backgroundAlert()->subviews().size();
    alert->alertViewStyle_detailMessage(style, detailMessage);
    EXPECT_EQ(alert->alertViewStyle(), style);
    EXPECT_EQ(alert->detailMessage(), detailMessage);
    return alert->backgroundAlert()->subviews().size() - before;
}

void expectCaption(const ZRTAlertView* alert, const NSString& text) {
    const UILabel* caption = captionOf(alert);
    ASSERT_TRUE(caption);
    EXPECT_EQ(caption->frame(), CGRectZero);
    EXPECT_EQ(caption->numberOfLines(), 1);
    EXPECT_TRUE(caption->font()->isEqual(UIFont::systemFontOfSize(15)));
    EXPECT_EQ(caption->text(), text);
    EXPECT_EQ(caption->textAlignment(), NSTextAlignmentCenter);
}

} // namespace

TEST(AlertStyle, NumbersAreFixed) {
    EXPECT_EQ(ZRTAlertViewStyleDefault, 0);
    EXPECT_EQ(ZRTAlertViewStylePlain, 1);
    EXPECT_EQ(ZRTAlertViewStyleCheckBox, 2);
    EXPECT_EQ(ZRTAlertViewStyleProgress, 3);
    EXPECT_EQ(ZRTAlertViewStyleRotation, 4);
    EXPECT_EQ(ZRTAlertViewStyleTextField, 5);
    EXPECT_EQ(ZRTAlertViewStyleSecureTextField, 6);
    EXPECT_EQ(sizeof(ZRTAlertViewStyle), 4u);
}

TEST(AlertStyle, AddsTheViewsOfItsStyle) {
    const HeadlessHost host;
    const struct {
        std::int32_t style;
        std::size_t added, addedWithoutDetail;
    } table[] = {{0, 0, 0},
                 {1, 0, 0},
                 {2, 2, 0},
                 {3, 2, 2},
                 {4, 2, 2},
                 {5, 1, 1},
                 {6, 1, 1},
                 {7, 0, 0},
                 {-1, 0, 0},
                 {100, 0, 0},
                 {-6, 0, 0},
                 {2147483647, 0, 0},
                 {-2147483647 - 1, 0, 0}};
    for (const auto& row : table) {
        EXPECT_EQ(viewsAddedBy(row.style, "detail"), row.added) << row.style;
        EXPECT_EQ(viewsAddedBy(row.style, ""), row.addedWithoutDetail) << row.style;
        EXPECT_EQ(viewsAddedBy(row.style, nullptr), row.addedWithoutDetail) << row.style;
    }
}

TEST(AlertStyle, CheckBoxIsACaptionAndABoxOfTwoImages) {
    const std::string folder = ZR_TEST_OUTPUT "/alert-images";
    NSBundle::setMainBundlePath(folder);
    const auto write = [&](const char* name, const UIImage* image) {
        const auto bytes = UIImagePNGRepresentation(image);
        std::FILE* file = std::fopen((folder + "/" + name).c_str(), "wb");
        ASSERT_TRUE(file);
        EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
        std::fclose(file);
    };
    std::filesystem::create_directories(folder);
    write("checkbox_1_normal.png", imageOfSize(11, 12));
    write("checkbox_1_press.png", imageOfSize(13, 14));

    const HeadlessHost host(device(375, 667, 1));
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, "Do not ask again");
    expectCaption(alert, "Do not ask again");
    const UIButton* box = checkBoxOf(alert);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->buttonType(), UIButtonTypeCustom);
    ASSERT_TRUE(box->imageForState(UIControlStateNormal));
    EXPECT_EQ(box->imageForState(UIControlStateNormal)->size(), CGSizeMake(11, 12));
    ASSERT_TRUE(box->imageForState(UIControlStateSelected));
    EXPECT_EQ(box->imageForState(UIControlStateSelected)->size(), CGSizeMake(13, 14));
    EXPECT_EQ(box->actionsForTarget_forControlEvent(alert, UIControlEventTouchUpInside),
              std::vector<SEL>{selector<&ZRTAlertView::checkBoxButtonClicked>});
    EXPECT_EQ(box->allControlEvents(), UIControlEventTouchUpInside);
}

TEST(AlertStyle, CheckBoxIsTickedByTaps) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeAlert("Title", "Message", delegate);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, "Do not ask again");
    alert->showWithAnimation(true);
    host.advance(0.3);
    host.tap(middleOnScreen(checkBoxOf(alert)));
    EXPECT_TRUE(alert->checkBoxSelected());
    EXPECT_TRUE(checkBoxOf(alert)->isSelected());
    host.tap(middleOnScreen(checkBoxOf(alert)));
    EXPECT_FALSE(alert->checkBoxSelected());
    EXPECT_FALSE(checkBoxOf(alert)->isSelected());
    EXPECT_TRUE(delegate->messages.empty());
    EXPECT_TRUE(alert->superview());
    endAlert(host, alert);
}

TEST(AlertStyle, ANewCheckBoxIsNotTickedWhateverTheFlag) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->setCheckBoxSelected(true);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, "Do not ask again");
    EXPECT_FALSE(checkBoxOf(alert)->isSelected());
    EXPECT_TRUE(alert->checkBoxSelected());
}

TEST(AlertStyle, CheckBoxWithoutCaptionLeavesEvenAnOldCaptionAlone) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, "");
    EXPECT_EQ(checkBoxOf(alert), nullptr);
    EXPECT_EQ(captionOf(alert), nullptr);
    alert->reLayoutSubviews();
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    const UIView* last = alert->backgroundAlert()->subviews().back();
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, nullptr);
    EXPECT_EQ(checkBoxOf(alert), nullptr);
    EXPECT_EQ(alert->backgroundAlert()->subviews().back(), last);
    EXPECT_TRUE(captionOf(alert)->text().isNil());
}

TEST(AlertStyle, ProgressIsARedBarAndACaption) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    ASSERT_TRUE(barOf(alert));
    EXPECT_EQ(barOf(alert)->progressTintColor(), UIColor::redColor());
    EXPECT_EQ(barOf(alert)->progress(), 0);
    expectCaption(alert, "10 %");
}

TEST(AlertStyle, RotationIsThePictureAndACaption) {
    const HeadlessHost host;
    const auto image = imageOfSize(30, 30);
    const auto alert = makeAlert("Title", "Message");
    alert->setRotationImage(image);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleRotation, "Importing");
    ASSERT_TRUE(pictureOf(alert));
    EXPECT_EQ(pictureOf(alert)->frame(), CGRectZero);
    EXPECT_EQ(pictureOf(alert)->image(), image.get());
    EXPECT_FALSE(pictureOf(alert)->layer()->hasAnimations()) << "it spins only when told";
    expectCaption(alert, "Importing");
}

TEST(AlertStyle, TextFieldIsRoundedAndPlain) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    const UITextField* field = alert->textField();
    ASSERT_TRUE(field);
    EXPECT_EQ(field->superview(), alert->backgroundAlert());
    EXPECT_EQ(field->frame(), CGRectZero);
    EXPECT_EQ(field->borderStyle(), 3);
    EXPECT_EQ(rgba(field->textColor()), rgb(55, 63, 58));
    EXPECT_EQ(field->clearButtonMode(), 1);
    EXPECT_TRUE(field->font()->isEqual(UIFont::systemFontOfSize(17)));
    EXPECT_EQ(field->autocorrectionType(), 1);
    EXPECT_FALSE(field->isSecureTextEntry());
    EXPECT_EQ(field->placeholder(), NSString("Name"));
    EXPECT_EQ(captionOf(alert), nullptr);
    EXPECT_EQ(alert->passwordField(), nullptr);
}

TEST(AlertStyle, SecureTextFieldIsTheSameOneHidingItsText) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleSecureTextField, "Password");
    ASSERT_TRUE(alert->textField());
    EXPECT_TRUE(alert->textField()->isSecureTextEntry());
    EXPECT_EQ(alert->textField()->borderStyle(), 3);
    EXPECT_EQ(alert->textField()->placeholder(), NSString("Password"));
    EXPECT_EQ(alert->passwordField(), nullptr);
}

TEST(AlertStyle, AFieldMadePlainStaysPlain) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    const UITextField* field = alert->textField();
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleSecureTextField, "Password");
    EXPECT_EQ(alert->textField(), field);
    EXPECT_FALSE(field->isSecureTextEntry());
    EXPECT_EQ(field->placeholder(), NSString("Password"));
}

TEST(AlertStyle, AFieldMadeSecureStaysSecure) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleSecureTextField, "Password");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    EXPECT_TRUE(alert->textField()->isSecureTextEntry());
    EXPECT_EQ(alert->textField()->placeholder(), NSString("Name"));
}

TEST(AlertStyle, ChosenAgainBringsTheSameViewsToTheFront) {
    const HeadlessHost host;
    for (const std::int32_t style : {2, 3, 4, 5}) {
        const auto alert = makeAlert("Title", "Message");
        const UIView* panel = alert->backgroundAlert();
        const std::size_t before = panel->subviews().size();
        alert->alertViewStyle_detailMessage(style, "one");
        const std::vector<Ref<UIView>> made(panel->subviews().begin() + static_cast<std::ptrdiff_t>(before),
                                            panel->subviews().end());
        const auto front = make<UIView>();
        alert->backgroundAlert()->addSubview(front);
        alert->alertViewStyle_detailMessage(style, "two");
        ASSERT_EQ(panel->subviews().size(), before + made.size() + 1) << style;
        EXPECT_EQ(panel->subviews()[before], front) << style;
        for (const Ref<UIView>& view : made)
            EXPECT_NE(std::find(panel->subviews().begin(), panel->subviews().end(), view), panel->subviews().end());
    }
}

TEST(AlertStyle, ChosenAgainShowsTheNewCaption) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, "one");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "two");
    EXPECT_EQ(captionOf(alert)->text(), NSString("two"));
    EXPECT_TRUE(checkBoxOf(alert)) << "what another style made stays";
}

} // namespace zr::testing
