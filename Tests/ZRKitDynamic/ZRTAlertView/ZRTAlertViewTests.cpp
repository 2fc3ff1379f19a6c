#include <Tests/ZRKitDynamic/ZRTAlertView/AlertViewTesting.h>

#include <cmath>
#include <numbers>

namespace zr::testing {

// Construction

TEST(ZRTAlertView, KeepsWhatItIsMadeWith) {
    const HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeAlert("Delete photo?", kShortMessage, delegate);
    EXPECT_EQ(alert->title(), NSString("Delete photo?"));
    EXPECT_EQ(alert->message(), NSString(kShortMessage));
    EXPECT_EQ(alert->delegate().get(), delegate.get());
    EXPECT_EQ(alert->cancelTitle(), NSString("Cancel"));
    EXPECT_EQ(alert->okTitle(), NSString("OK"));
    EXPECT_EQ(alert->progress(), 0);
    EXPECT_EQ(alert->alertViewStyle(), 0);
    EXPECT_FALSE(alert->checkBoxSelected());
    EXPECT_TRUE(alert->detailMessage().isNil());
    EXPECT_EQ(alert->textField(), nullptr);
    EXPECT_EQ(alert->passwordField(), nullptr);
    EXPECT_EQ(alert->rotationImage(), nullptr);
    EXPECT_EQ(alert->aObject(), nullptr);
}

TEST(ZRTAlertView, MakesTheTitleLabel) {
    const HeadlessHost host;
    const auto alert = makeAlert("Delete photo?", kShortMessage);
    const UILabel* label = alert->titleLabel();
    ASSERT_TRUE(label);
    EXPECT_EQ(label->superview(), alert->backgroundAlert());
    EXPECT_FALSE(label->isKindOfClass<ZRTAlertViewButton>());
    EXPECT_EQ(label->frame(), CGRectMake(5, 7, 260, 45));
    EXPECT_EQ(label->numberOfLines(), 2);
    EXPECT_TRUE(label->font()->isEqual(UIFont::boldSystemFontOfSize(17)));
    EXPECT_EQ(label->text(), NSString("Delete photo?"));
    EXPECT_EQ(label->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(rgba(label->textColor()), rgb(55, 63, 58));
    EXPECT_EQ(rgba(label->backgroundColor()), kClear);
}

TEST(ZRTAlertView, MakesTheMessageLabel) {
    const HeadlessHost host;
    const auto alert = makeAlert("Delete photo?", kShortMessage);
    const UILabel* label = alert->messageLabel();
    ASSERT_TRUE(label);
    EXPECT_EQ(label->superview(), alert->backgroundAlert());
    EXPECT_EQ(label->frame(), CGRectMake(5, 52, 260, measuredHeight(kShortMessage) + 5));
    EXPECT_EQ(label->numberOfLines(), 127);
    EXPECT_TRUE(label->font()->isEqual(UIFont::systemFontOfSize(15)));
    EXPECT_EQ(label->text(), NSString(kShortMessage));
    EXPECT_EQ(label->textAlignment(), NSTextAlignmentCenter);
    EXPECT_TRUE(label->textColor()->isEqual(make<UILabel>()->textColor())) << "the platform's own";
}

TEST(ZRTAlertView, WithoutTitleTheMessageStartsAt10) {
    const HeadlessHost host;
    const auto alert = makeAlert(nullptr, kShortMessage);
    EXPECT_EQ(alert->titleLabel(), nullptr);
    EXPECT_EQ(alert->messageLabel()->frame(), CGRectMake(5, 10, 260, measuredHeight(kShortMessage) + 5));
}

TEST(ZRTAlertView, WithoutMessageHasNoMessageLabel) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", nullptr);
    EXPECT_TRUE(alert->titleLabel());
    EXPECT_EQ(alert->messageLabel(), nullptr);
}

TEST(ZRTAlertView, EmptyTextsMakeLabels) {
    const HeadlessHost host;
    const auto alert = makeAlert("", "");
    EXPECT_TRUE(alert->titleLabel());
    ASSERT_TRUE(alert->messageLabel());
    EXPECT_EQ(alert->messageLabel()->frame(), CGRectMake(5, 52, 260, 5));
}

TEST(ZRTAlertView, PlacesThePanelWhenMade) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", kShortMessage);
    const CGFloat height = 70 + 45 + measuredHeight(kShortMessage) + 5;
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, (667 - height) * 0.5 - 15, 270, height));
    EXPECT_EQ(alert->subviews().back(), alert->backgroundAlert());
    EXPECT_EQ(alert->subviews().size(), 2u);
}

TEST(ZRTAlertView, MakingTheLabelsBringsThePanelToTheFront) {
    const HeadlessHost host;
    const auto alert = makeAlert(nullptr, nullptr);
    const auto view = make<UIView>();
    alert->addSubview(view);
    ASSERT_EQ(alert->subviews().back(), view);
    alert->initViews();
    EXPECT_EQ(alert->subviews().back(), alert->backgroundAlert());
    EXPECT_EQ(alert->subviews().size(), 3u);
}

namespace {

/// Counts the setters it is sent, and the initialiser of its superclass.
class SetterCountingAlert : public ZRTAlertView {
public:
    bool initWithDelegate_cancelButtonTitle_okButtonTitles(Delegate<ZRTAlertViewDelegate> delegate,
                                                           const NSString& cancelTitle,
                                                           const NSString& okTitle) override {
        ++baseInits;
        return ZRTAlertView::initWithDelegate_cancelButtonTitle_okButtonTitles(delegate, cancelTitle, okTitle);
    }
    void setDetailMessage(const NSString& detailMessage) override {
        ++detailMessages;
        ZRTAlertView::setDetailMessage(detailMessage);
    }
    void setAlertViewStyle(std::int32_t style) override {
        ++styles;
        ZRTAlertView::setAlertViewStyle(style);
    }
    void setCheckBoxSelected(bool selected) override {
        ticks.push_back(selected);
        ZRTAlertView::setCheckBoxSelected(selected);
    }
    int baseInits = 0;
    int detailMessages = 0;
    int styles = 0;
    std::vector<bool> ticks;
};

Ref<SetterCountingAlert> makeSetterCountingAlert() {
    return make<SetterCountingAlert>(
        &SetterCountingAlert::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles, "Title", "Message",
        nullptr, "Cancel", "OK");
}

} // namespace

TEST(ZRTAlertView, IsMadeByItsOwnSuperclass) {
    const HeadlessHost host;
    const auto alert = makeSetterCountingAlert();
    EXPECT_EQ(alert->baseInits, 0) << "the other way to make an alert is a subclass's own";
    EXPECT_EQ(alert->okTitle(), NSString("OK"));
}

TEST(ZRTAlertView, ChoosingAStyleSetsTheDetailMessageButStoresTheStyleDirectly) {
    const HeadlessHost host;
    const auto alert = makeSetterCountingAlert();
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    EXPECT_EQ(alert->detailMessages, 1);
    EXPECT_EQ(alert->styles, 0);
    EXPECT_EQ(alert->alertViewStyle(), ZRTAlertViewStyleProgress);
}

TEST(ZRTAlertView, AClickOnTheBoxSetsTheFlagThroughItsSetter) {
    const HeadlessHost host;
    const auto alert = makeSetterCountingAlert();
    alert->checkBoxButtonClicked(nullptr);
    alert->checkBoxButtonClicked(nullptr);
    EXPECT_EQ(alert->ticks, (std::vector<bool>{true, false}));
}

// Properties

TEST(ZRTAlertView, PlainPropertiesOnlyStore) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    const auto field = make<UITextField>();
    const auto label = make<UILabel>();
    const auto object = make<NSObject>();
    alert->setTitle("Other");
    alert->setMessage("Other message");
    EXPECT_EQ(alert->title(), NSString("Other"));
    EXPECT_EQ(alert->message(), NSString("Other message"));
    EXPECT_EQ(alert->titleLabel()->text(), NSString("Title"));
    EXPECT_EQ(alert->messageLabel()->text(), NSString("Message"));
    alert->setPasswordField(field);
    EXPECT_EQ(alert->passwordField(), field.get());
    EXPECT_FALSE(field->superview());
    alert->setAObject(object);
    EXPECT_EQ(alert->aObject(), object.get());
    EXPECT_EQ(object->retainCount(), 2u);
    alert->setAObject(nullptr);
    EXPECT_EQ(object->retainCount(), 1u);
    alert->setTitleLabel(label);
    EXPECT_EQ(alert->titleLabel(), label.get());
    alert->setMessageLabel(nullptr);
    EXPECT_EQ(alert->messageLabel(), nullptr);
    alert->setTextField(field);
    EXPECT_EQ(alert->textField(), field.get());
}

TEST(ZRTAlertView, KeepsItsObjects) {
    const HeadlessHost host;
    const auto alert = makeAlert(nullptr, nullptr);
    const auto title = make<UILabel>();
    const auto message = make<UILabel>();
    const auto field = make<UITextField>();
    const auto password = make<UITextField>();
    const auto image = imageOfSize(30, 30);
    const auto expectCounts = [&](NSUInteger count) {
        EXPECT_EQ(title->retainCount(), count);
        EXPECT_EQ(message->retainCount(), count);
        EXPECT_EQ(field->retainCount(), count);
        EXPECT_EQ(password->retainCount(), count);
        EXPECT_EQ(image->retainCount(), count);
    };
    alert->setTitleLabel(title);
    alert->setMessageLabel(message);
    alert->setTextField(field);
    alert->setPasswordField(password);
    alert->setRotationImage(image);
    expectCounts(2);
    alert->setTitleLabel(nullptr);
    alert->setMessageLabel(nullptr);
    alert->setTextField(nullptr);
    alert->setPasswordField(nullptr);
    alert->setRotationImage(nullptr);
    expectCounts(1);
}

TEST(ZRTAlertView, StyleIsAnyNumberAndMakesNothingByItself) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    const auto views = alert->backgroundAlert()->subviews().size();
    for (const std::int32_t style : {2, 6, 7, -1, 2147483647}) {
        alert->setAlertViewStyle(style);
        EXPECT_EQ(alert->alertViewStyle(), style);
        alert->reLayoutSubviews();
        EXPECT_EQ(alert->backgroundAlert()->subviews().size(), views);
    }
}

TEST(ZRTAlertView, DetailMessageChangesTheCaptionButNoPlaceholder) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->setDetailMessage("before there is a caption");
    EXPECT_EQ(alert->detailMessage(), NSString("before there is a caption"));
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    EXPECT_EQ(captionOf(alert)->text(), NSString("Name"));
    alert->setDetailMessage("20 %");
    EXPECT_EQ(captionOf(alert)->text(), NSString("20 %"));
    EXPECT_EQ(alert->textField()->placeholder(), NSString("Name"));
}

TEST(ZRTAlertView, TheSameDetailMessageIsShownAgain) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    captionOf(alert)->setText("something else");
    alert->setDetailMessage(alert->detailMessage());
    EXPECT_EQ(captionOf(alert)->text(), NSString("10 %"));
}

TEST(ZRTAlertView, ProgressIsStoredFrom0UpAndMovesTheBar) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->setProgress(30);
    EXPECT_EQ(alert->progress(), 30);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, nullptr);
    EXPECT_EQ(barOf(alert)->progress(), 0) << "what was set before there was a bar stays with the alert";
    alert->setProgress(45);
    EXPECT_EQ(alert->progress(), 45);
    EXPECT_EQ(barOf(alert)->progress(), 0.45f);
    alert->setProgress(-5);
    EXPECT_EQ(alert->progress(), 0);
    EXPECT_EQ(barOf(alert)->progress(), 0);
    alert->setProgress(150);
    EXPECT_EQ(alert->progress(), 150);
    EXPECT_EQ(barOf(alert)->progress(), 1) << "the bar's own limit";
}

TEST(ZRTAlertView, ProgressSlides) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeAlert("Title", nullptr);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, nullptr);
    alert->showInView_animation(window, false);
    host.advance(0.1);
    const CGPoint nearEnd = barOf(alert)->convertPoint_toView({220, 1}, nullptr);
    const FramePixel track = host.pixel(nearEnd);
    alert->setProgress(100);
    host.advance(0);
    EXPECT_EQ(host.pixel(nearEnd), track) << "it has only begun to slide";
    host.advance(1);
    const FramePixel filled = host.pixel(nearEnd);
    EXPECT_GT(filled.red, 200);
    EXPECT_LT(filled.green, 30);
    endAlert(host, alert);
}

TEST(ZRTAlertView, CheckBoxFlagGoesToTheBox) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->setCheckBoxSelected(true);
    EXPECT_TRUE(alert->checkBoxSelected());
    alert->setCheckBoxSelected(false);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleCheckBox, "Do not ask again");
    EXPECT_FALSE(checkBoxOf(alert)->isSelected());
    alert->setCheckBoxSelected(true);
    EXPECT_TRUE(checkBoxOf(alert)->isSelected());
    alert->checkBoxButtonClicked(nullptr);
    EXPECT_FALSE(alert->checkBoxSelected());
    EXPECT_FALSE(checkBoxOf(alert)->isSelected());
    alert->checkBoxButtonClicked(checkBoxOf(alert));
    EXPECT_TRUE(alert->checkBoxSelected());
    EXPECT_TRUE(checkBoxOf(alert)->isSelected());
}

TEST(ZRTAlertView, RotationImageIsKeptAndShown) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    const auto first = imageOfSize(30, 30);
    const auto second = imageOfSize(50, 50);
    alert->setRotationImage(first);
    EXPECT_EQ(alert->rotationImage(), first.get());
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleRotation, nullptr);
    EXPECT_EQ(pictureOf(alert)->image(), first.get());
    alert->setRotationImage(second);
    EXPECT_EQ(alert->rotationImage(), second.get());
    EXPECT_EQ(pictureOf(alert)->image(), second.get());
    alert->setRotationImage(nullptr);
    EXPECT_EQ(alert->rotationImage(), nullptr);
    EXPECT_EQ(pictureOf(alert)->image(), nullptr);
    EXPECT_EQ(first->retainCount(), 1u);
    EXPECT_EQ(second->retainCount(), 1u);
}

// The spinning picture

TEST(AlertRotation, IsOneTurnEachHalfSecondWithoutEnd) {
    HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleRotation, nullptr);
    alert->startRotation();
    CALayer* layer = pictureOf(alert)->layer();
    const auto* rotation = dynamic_cast<CAKeyframeAnimation*>(layer->animationForKey("transform"));
    ASSERT_TRUE(rotation);
    EXPECT_EQ(rotation->keyPath(), NSString("transform.rotation.z"));
    ASSERT_EQ(rotation->values().size(), 2u);
    EXPECT_EQ(rotation->values()[0].doubleValue(), static_cast<double>(3.1415927f));
    EXPECT_EQ(rotation->values()[1].doubleValue(), static_cast<double>(-3.1415927f));
    EXPECT_EQ(rotation->duration(), 0.5);
    EXPECT_EQ(rotation->repeatCount(), 3.4028235e38f);
}

TEST(AlertRotation, TurnsCounterClockwiseUntilStopped) {
    HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleRotation, nullptr);
    alert->showWithAnimation(false);
    host.advance(0);
    CALayer* layer = pictureOf(alert)->layer();
    const auto seenAngle = [&] {
        const CATransform3D transform = layer->presentationValues().transform;
        return std::atan2(transform.m12, transform.m11);
    };
    alert->startRotation();
    host.advance(0.125);
    EXPECT_NEAR(seenAngle(), std::numbers::pi / 2, kSeenTolerance);
    host.advance(0.125);
    EXPECT_NEAR(seenAngle(), 0, kSeenTolerance);
    host.advance(0.125);
    EXPECT_NEAR(seenAngle(), -std::numbers::pi / 2, kSeenTolerance);
    host.advance(100);
    EXPECT_NEAR(seenAngle(), -std::numbers::pi / 2, 1e-4) << "200 turns later";
    alert->stopRotation();
    EXPECT_EQ(layer->animationForKey("transform"), nullptr);
    EXPECT_EQ(seenAngle(), 0);
    endAlert(host, alert);
}

TEST(AlertRotation, WithoutAPictureIsIgnored) {
    const HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    alert->startRotation();
    alert->stopRotation();
    EXPECT_EQ(pictureOf(alert), nullptr);
}

// Presentation

namespace {

class CountingAlert : public ZRTAlertView {
public:
    void reLayoutSubviews() override {
        calls.push_back("layout");
        ZRTAlertView::reLayoutSubviews();
    }
    void showInView_animation(UIView* view, bool animated) override {
        calls.push_back("show in view");
        ZRTAlertView::showInView_animation(view, animated);
    }
    void fixAlertViewFrame() override {
        calls.push_back("fix");
        ZRTAlertView::fixAlertViewFrame();
    }
    void dismissWithButtonIndex_animated(NSInteger index, bool animated) override {
        calls.push_back("dismiss " + std::to_string(index) + (animated ? " animated" : ""));
        fieldWasFirstResponder = textField() && textField()->isFirstResponder();
        ZRTAlertView::dismissWithButtonIndex_animated(index, animated);
    }
    Messages calls;
    bool fieldWasFirstResponder = false;
};

class CountingField : public UITextField {
public:
    bool becomeFirstResponder() override {
        ++becameFirstResponder;
        if (calls)
            calls->push_back("focus");
        return UITextField::becomeFirstResponder();
    }
    int becameFirstResponder = 0;
    Messages* calls = nullptr;
};

Ref<CountingAlert> makeCountingAlert() {
    return make<CountingAlert>(&CountingAlert::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles, "Title",
                               "Message", nullptr, "Cancel", "OK");
}

} // namespace

TEST(AlertViewShow, InAViewLaysOutShowsMakesRoomAndFocuses) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeCountingAlert();
    const auto field = make<CountingField>();
    alert->setTextField(field);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    field->calls = &alert->calls;
    alert->calls.clear();
    alert->showInView_animation(window, true);
    EXPECT_EQ(alert->calls, (Messages{"show in view", "layout", "fix", "focus"}));
    EXPECT_EQ(field->becameFirstResponder, 1);
    EXPECT_TRUE(field->isFirstResponder());
    endAlert(host, alert);
}

TEST(AlertViewShow, InItsOwnWindowGoesThroughItTwice) {
    HeadlessHost host;
    const auto alert = makeCountingAlert();
    const auto field = make<CountingField>();
    alert->setTextField(field);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->calls.clear();
    alert->showWithAnimation(true);
    EXPECT_EQ(alert->calls, (Messages{"layout", "show in view", "layout", "fix", "fix"}));
    EXPECT_EQ(field->becameFirstResponder, 2);
    EXPECT_TRUE(field->isFirstResponder());
    EXPECT_TRUE(alert->window()->isKeyWindow());
    host.advance(0.15);
    EXPECT_NEAR(seenScale(alert), 0.95, kSeenTolerance);
    endAlert(host, alert);
}

TEST(AlertViewShow, LaysOutWhatChangedSinceItWasMade) {
    HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    const NSString longer = textOfLines(5);
    alert->setMessage(longer);
    alert->messageLabel()->setText(longer);
    alert->showWithAnimation(false);
    EXPECT_EQ(alert->messageLabel()->frame(), CGRectMake(5, 52, 260, measuredHeight(longer) + 5));
    endAlert(host, alert);
}

TEST(AlertViewShow, AgainInAViewIsLikeTheFirstTime) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleProgress, "10 %");
    const auto show = [&] {
        alert->showInView_animation(window, true);
        host.advance(0.3);
        return std::vector<CGRect>{alert->backgroundAlert()->frame(), alert->backgroundAlert()->bounds(),
                                   alert->okButton()->frame(), alert->cancelButton()->frame(), barOf(alert)->frame()};
    };
    const auto first = show();
    EXPECT_EQ(first[1].size, first[0].size);
    alert->dismissAlertView();
    host.advance(0.3);
    ASSERT_NE(alert->backgroundAlert()->transform(), CGAffineTransformIdentity);
    EXPECT_EQ(show(), first);
    endAlert(host, alert);
}

TEST(AlertViewDismissal, ByCodeGoesThroughTheOneOperation) {
    HeadlessHost host;
    const auto alert = makeCountingAlert();
    alert->setCancelButtonIndex(4);
    alert->showWithAnimation(false);
    alert->calls.clear();
    alert->dismissAlertView();
    EXPECT_EQ(alert->calls, Messages{"dismiss 4 animated"});
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertViewDismissal, ByATapPutsTheKeyboardAway) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeCountingAlert();
    alert->setDelegate(delegate);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    alert->showWithAnimation(true);
    host.advance(0.3);
    EXPECT_TRUE(host.isTextInputActive());
    EXPECT_TRUE(host.typeText("Ada"));
    EXPECT_EQ(alert->textField()->text(), NSString("Ada"));
    bool focusedWhenTold = true;
    delegate->onClick = [&] { focusedWhenTold = alert->textField()->isFirstResponder(); };
    host.tap(middleOnScreen(alert->okButton()));
    EXPECT_TRUE(alert->fieldWasFirstResponder);
    EXPECT_FALSE(focusedWhenTold);
    EXPECT_FALSE(host.isTextInputActive());
    EXPECT_EQ(delegate->messages, Messages{"clicked 1"});
    EXPECT_EQ(alert->textField()->text(), NSString("Ada"));
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertViewLife, EverythingGoesWithIt) {
    HeadlessHost host;
    const auto object = make<NSObject>();
    auto alert = makeAlert("Title", "Message");
    for (std::int32_t style = 2; style <= 6; ++style)
        alert->alertViewStyle_detailMessage(style, "detail");
    alert->setAObject(object);
    const Weak<UITextField> field = alert->textField();
    const Weak<UIButton> box = checkBoxOf(alert);
    const Weak<UIImageView> picture = pictureOf(alert);
    const Weak<ZRTAlertView> weak = alert;
    alert->showWithAnimation(true);
    alert->startRotation();
    alert->dismissAlertView();
    alert = nullptr;
    host.advance(0.3);
    EXPECT_FALSE(weak.get());
    EXPECT_FALSE(field.get());
    EXPECT_FALSE(box.get());
    EXPECT_FALSE(picture.get());
    EXPECT_EQ(object->retainCount(), 1u);
}

TEST(AlertViewLife, PlainInitGivesAnAlertThatDoesNothing) {
    HeadlessHost host;
    const auto alert = make<ZRTAlertView>();
    alert->initViews();
    for (std::int32_t style = 0; style <= 7; ++style) {
        alert->alertViewStyle_detailMessage(style, "detail");
        alert->showWithAnimation(true);
        alert->dismissAlertView();
        host.advance(0.3);
    }
    EXPECT_FALSE(alert->superview());
}

} // namespace zr::testing
