#include <Tests/ZRKitDynamic/ZRTAlertView/AlertViewTesting.h>
#include <ZRKitDynamic/ZRTAlertView/ZRToastView.h>
#include <ZRPlatform/Foundation/NSBundle.h>

#include <cstdio>
#include <filesystem>
#include <numbers>

namespace zr::testing {

namespace {

Ref<ZRToastView> makeToast(const NSString& message, AlertDelegate* delegate = nullptr) {
    return make<ZRToastView>(&ZRToastView::initWithDelegate_message, Delegate<ZRTAlertViewDelegate>(delegate), message);
}

/// A toast with an icon.
Ref<ZRToastView> makeToastWithIcon(const NSString& message) {
    const auto toast = makeToast(message);
    toast->rotationImageView()->setImage(imageOfSize(30, 20));
    return toast;
}

double seenAngle(const ZRToastView* toast) {
    const CATransform3D seen = toast->rotationImageView()->layer()->presentationValues().transform;
    return std::atan2(seen.m12, seen.m11);
}

constexpr double kPi = std::numbers::pi;

} // namespace

TEST(ZRToastView, IsADarkPanelWithAnIconBelowAMessage) {
    const HeadlessHost host;
    const auto toast = makeToast("Exporting");
    const UIView* panel = toast->backgroundAlert();
    EXPECT_EQ(rgba(panel->backgroundColor()), (RGBAColor{0.1, 0.1, 0.1, 0.9}));
    EXPECT_EQ(panel->layer()->cornerRadius(), 6);
    EXPECT_NEAR(panel->alpha(), 0.93, 1e-6);
    ASSERT_EQ(panel->subviews().size(), 2u); // no buttons
    EXPECT_EQ(panel->subviews()[0], toast->rotationImageView());
    EXPECT_EQ(panel->subviews()[1], toast->messageLabel());
    EXPECT_EQ(toast->cancelButton(), nullptr);
    EXPECT_EQ(toast->okButton(), nullptr);
}

TEST(ZRToastView, ItsPartsAreSetUp) {
    const HeadlessHost host;
    const auto toast = makeToast("Exporting");
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectZero);
    EXPECT_EQ(toast->rotationImageView()->backgroundColor(), UIColor::clearColor());
    const UILabel* label = toast->messageLabel();
    EXPECT_EQ(label->frame(), CGRectZero);
    EXPECT_EQ(label->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(rgba(label->textColor()), rgb(255, 255, 255));
    EXPECT_EQ(label->numberOfLines(), 2);
    EXPECT_EQ(label->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(label->text(), "Exporting");
    EXPECT_TRUE(label->font()->isEqual(make<UILabel>()->font()));
}

TEST(ZRToastView, TheIconIsAnImageOfTheApplication) {
    const std::string folder = ZR_TEST_OUTPUT "/toast-images";
    std::filesystem::create_directories(folder);
    const auto bytes = UIImagePNGRepresentation(imageOfSize(12, 34));
    std::FILE* file = std::fopen((folder + "/toast_icon_daorudaochu.png").c_str(), "wb");
    ASSERT_TRUE(file);
    EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
    NSBundle::setMainBundlePath(folder);
    const HeadlessHost host(device(375, 667, 1));
    const auto toast = makeToast("Exporting");
    ASSERT_TRUE(toast->rotationImageView()->image());
    EXPECT_EQ(toast->rotationImageView()->image()->size(), CGSizeMake(12, 34));
}

TEST(ZRToastView, TheFirstLayoutIsTheDefaultOne) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    EXPECT_EQ(toast->getAlertViewSize(), CGSizeMake(168, 200));
    toast->showWithAnimation(false);
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(50.5, 43, 67, 67));
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(10, 120, 148, 50));
    EXPECT_EQ(toast->backgroundAlert()->frame(), CGRectMake(103.5, 213.5, 168, 200)); // 20 above the middle
    endAlert(host, toast);
}

TEST(ZRToastView, LaterLayoutsKeepTheIconsWidthAndTop) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->rotationImageView()->setFrame(CGRectMake(1, 20, 40, 10));
    toast->reLayoutSubviews();
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(64, 20, 40, 40)); // square
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(10, 70, 148, 50));
    toast->reLayoutSubviews();
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(64, 20, 40, 40));
    toast->rotationImageView()->setFrame(CGRectMake(1, -20, 40, 10));
    EXPECT_EQ(toast->calculateRotationImageViewFrame(), CGRectMake(64, 43, 40, 40));
    toast->rotationImageView()->setFrame(CGRectMake(1, 20, 0, 10));
    EXPECT_EQ(toast->calculateRotationImageViewFrame(), CGRectMake(50.5, 20, 67, 67));
}

TEST(ZRToastView, TheMessageIsBelowWhereTheIconIs) {
    const HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->reLayoutSubviews();
    toast->rotationImageView()->setFrame(CGRectMake(1, 20, 40, 10));
    EXPECT_EQ(toast->calculateMessageLabelFrame(), CGRectMake(10, 40, 148, 50));
}

TEST(ZRToastView, ASubclassCanReplaceEachStepOfTheLayout) {
    class OwnToast : public ZRToastView {
    public:
        void reLayoutSubviews() override {
            ++layouts;
            ZRToastView::reLayoutSubviews();
        }
        CGRect calculateRotationImageViewFrame() override { return CGRectMake(1, 2, 3, 4); }
        CGRect calculateMessageLabelFrame() override { return CGRectMake(5, 6, 7, 8); }
        CGSize getAlertViewSize() override { return CGSizeMake(100, 90); }
        int layouts = 0;
    };
    HeadlessHost host;
    const auto toast = make<OwnToast>(&ZRToastView::initWithDelegate_message, nullptr, "Exporting");
    toast->showWithAnimation(false);
    EXPECT_EQ(toast->layouts, 2); // one more for the view it is shown in
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(5, 6, 7, 8));
    EXPECT_EQ(toast->backgroundAlert()->bounds().size, CGSizeMake(100, 90));
    endAlert(host, toast);
}

TEST(ZRToastView, CalculatingPlacesNothing) {
    const HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->calculateRotationImageViewFrame();
    toast->calculateMessageLabelFrame();
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectZero);
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectZero);
}

TEST(ZRToastView, ASizeSetBeforeShowingCounts) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->setAlertViewSize(CGSizeMake(200, 240));
    toast->showWithAnimation(false);
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(66.5, 43, 67, 67));
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(10, 120, 180, 50));
    EXPECT_EQ(toast->backgroundAlert()->frame().size, CGSizeMake(200, 240));
    endAlert(host, toast);
}

TEST(ZRToastView, ASizeIsTheDefaultOnlyWhenBothPartsAreZero) {
    const HeadlessHost host;
    const auto toast = makeToast("Exporting");
    toast->setAlertViewSize(CGSizeMake(100, 0));
    EXPECT_EQ(toast->getAlertViewSize(), CGSizeMake(100, 0));
    toast->setAlertViewSize(CGSizeMake(0, 100));
    EXPECT_EQ(toast->getAlertViewSize(), CGSizeMake(0, 100));
}

TEST(ZRToastView, WithoutAMessageOnlyTheIconShows) {
    HeadlessHost host;
    for (const NSString& message : {NSString(), NSString("")}) {
        const auto toast = makeToastWithIcon(message);
        toast->showWithAnimation(false);
        EXPECT_EQ(toast->messageLabel()->frame(), CGRectZero);
        EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(50.5, 43, 67, 67));
        endAlert(host, toast);
    }
}

TEST(ZRToastView, WithoutAnImageTheMessageIsAtTheTop) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->reLayoutSubviews();
    toast->rotationImageView()->setImage(nullptr);
    toast->reLayoutSubviews();
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectZero);
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(10, 10, 148, 50));
}

TEST(ZRToastView, ShowsInAViewOrAWindowOfItsOwn) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto toast = makeToastWithIcon("Exporting");
    toast->showInView_animation(window, false);
    EXPECT_EQ(toast->superview(), window);
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(10, 120, 148, 50));
    endAlert(host, toast);
    EXPECT_EQ(toast->superview(), nullptr);
    toast->showWithAnimation(true);
    EXPECT_NE(toast->superview(), window);
    EXPECT_NE(toast->window(), nullptr);
    EXPECT_NEAR(seenScale(toast), 0.9, 1e-9);
    endAlert(host, toast);
}

TEST(ZRToastView, StaysUntilItIsDismissed) {
    HeadlessHost host;
    AlertDelegate delegate;
    const auto toast = makeToast("Exporting", &delegate);
    toast->showWithAnimation(true);
    host.advance(3600);
    host.tap({187, 333});
    host.tap({5, 5});
    EXPECT_NE(toast->superview(), nullptr);
    EXPECT_TRUE(delegate.messages.empty());
    toast->dismissAlertView();
    EXPECT_EQ(delegate.messages, (Messages{"cancel", "clicked 0"}));
    host.advance(0.3);
    EXPECT_EQ(toast->superview(), nullptr);
}

// Spinning

TEST(ZRToastView, SpinsATurnEach800Milliseconds) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->showWithAnimation(false);
    toast->startRotation();
    host.advance(0);
    EXPECT_NEAR(std::fabs(seenAngle(toast)), kPi, 1e-6);
    host.advance(0.2);
    EXPECT_NEAR(seenAngle(toast), -kPi / 2, 1e-6);
    host.advance(0.2);
    EXPECT_NEAR(seenAngle(toast), 0, 1e-6);
    host.advance(0.2);
    EXPECT_NEAR(seenAngle(toast), kPi / 2, 1e-6);
    host.advance(0.4 + 800);
    EXPECT_NEAR(seenAngle(toast), -kPi / 2, 1e-4);
    endAlert(host, toast);
}

TEST(ZRToastView, TheSpinIsEndlessAndKeptUnderItsKey) {
    const HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->startRotation();
    const CALayer* layer = toast->rotationImageView()->layer();
    const auto* spin = dynamic_cast<const CAKeyframeAnimation*>(layer->animationForKey("transform"));
    ASSERT_TRUE(spin);
    EXPECT_EQ(spin->keyPath(), "transform.rotation.z");
    ASSERT_EQ(spin->values().size(), 2u);
    EXPECT_EQ(spin->values()[0].floatValue(), -3.1415927f);
    EXPECT_EQ(spin->values()[1].floatValue(), 3.1415927f);
    EXPECT_EQ(spin->duration(), 0.8);
    EXPECT_EQ(spin->repeatCount(), 3.4028235e38f);
    EXPECT_FALSE(spin->isRemovedOnCompletion());
    toast->rotationImageView()->layer()->addAnimation_forKey(CABasicAnimation::animationWithKeyPath("opacity"),
                                                             "other");
    toast->stopRotation();
    EXPECT_FALSE(layer->animationForKey("transform"));
    EXPECT_TRUE(layer->animationForKey("other"));
    toast->stopRotation();
}

TEST(ZRToastView, MayBeSpunBeforeItShowsAndDismissalDoesNotStopIt) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->startRotation();
    toast->showWithAnimation(false);
    host.advance(0.2);
    EXPECT_NEAR(std::fabs(seenAngle(toast)), kPi / 2, 1e-6);
    endAlert(host, toast);
    EXPECT_TRUE(toast->rotationImageView()->layer()->animationForKey("transform"));
    const auto frames = host.framesComposed();
    host.advance(10);
    EXPECT_EQ(host.framesComposed(), frames); // and costs nothing
}

TEST(ZRToastView, WithoutPartsDoesNothing) {
    HeadlessHost host;
    const auto toast = makeToastWithIcon("Exporting");
    toast->setRotationImageView(nullptr);
    toast->startRotation();
    toast->stopRotation();
    toast->reLayoutSubviews();
    EXPECT_EQ(toast->messageLabel()->frame(), CGRectMake(10, 10, 148, 50));
    toast->setMessageLabel(nullptr);
    toast->showWithAnimation(false);
    EXPECT_EQ(toast->calculateMessageLabelFrame(), CGRectZero);
    EXPECT_EQ(toast->backgroundAlert()->bounds().size, CGSizeMake(168, 200));
    endAlert(host, toast);
}

TEST(ZRToastView, AnImageWithoutASizeIsNoHarm) {
    HeadlessHost host;
    const auto toast = makeToast("Exporting");
    toast->rotationImageView()->setImage(make<UIImage>());
    toast->showWithAnimation(true);
    host.advance(1);
    host.snapshot();
    EXPECT_EQ(toast->rotationImageView()->frame(), CGRectMake(50.5, 43, 67, 67)); // it is an image all the same
    endAlert(host, toast);
}

} // namespace zr::testing
