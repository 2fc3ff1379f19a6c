#include <Tests/ZRKitDynamic/ZRTAlertView/AlertViewTesting.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTipsAlertView.h>

namespace zr::testing {

namespace {

Ref<ZRTipsAlertView> makeTips(const NSString& title, const NSString& message, AlertDelegate* delegate = nullptr) {
    return make<ZRTipsAlertView>(&ZRTipsAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                                 title, message, Delegate<ZRTAlertViewDelegate>(delegate), "Cancel", "OK");
}

/// The header band and the picture, in the order they were made.
UIImageView* imageViewOf(const ZRTipsAlertView* tips, int index) {
    for (const Ref<UIView>& view : tips->backgroundAlert()->subviews()) {
        auto* imageView = dynamic_cast<UIImageView*>(view.get());
        if (imageView && index-- == 0)
            return imageView;
    }
    return nullptr;
}
UIImageView* bandOf(const ZRTipsAlertView* tips) { return imageViewOf(tips, 0); }
UIImageView* pictureOf(const ZRTipsAlertView* tips) { return imageViewOf(tips, 1); }

const NSString kTitle = "New version";
const NSString kMessage = "Version 2 is here.";

/// Shows it, and ends it with the test.
class Shown {
public:
    Shown(HeadlessHost& host, ZRTipsAlertView* tips) : m_host(host), m_tips(tips) { tips->showWithAnimation(false); }
    ~Shown() { endAlert(m_host, m_tips); }

private:
    HeadlessHost& m_host;
    Ref<ZRTipsAlertView> m_tips;
};

} // namespace

TEST(ZRTipsAlertView, PartsLieInThePanelInTheirOrder) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    const auto& views = tips->backgroundAlert()->subviews();
    ASSERT_EQ(views.size(), 6u); // the base's two buttons were there before
    EXPECT_EQ(views[2], bandOf(tips));
    EXPECT_EQ(views[3], pictureOf(tips));
    EXPECT_EQ(views[4], tips->titleLabel());
    EXPECT_EQ(views[5], tips->messageLabel());
    EXPECT_EQ(tips->subviews().back(), tips->backgroundAlert());
    EXPECT_EQ(tips->title(), kTitle);
    EXPECT_EQ(tips->message(), kMessage);
}

TEST(ZRTipsAlertView, PartsAreSetUp) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    EXPECT_EQ(bandOf(tips)->frame(), CGRectZero);
    EXPECT_EQ(rgba(bandOf(tips)->backgroundColor()), rgb(45, 167, 5));
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectZero);
    EXPECT_EQ(pictureOf(tips)->backgroundColor(), UIColor::clearColor());
    const UILabel* title = tips->titleLabel();
    EXPECT_EQ(title->frame(), CGRectMake(5, 0, 260, 45));
    EXPECT_EQ(title->numberOfLines(), 2);
    EXPECT_TRUE(title->font()->isEqual(UIFont::boldSystemFontOfSize(17)));
    EXPECT_EQ(title->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(rgba(title->textColor()), rgb(255, 255, 255));
    EXPECT_EQ(title->text(), kTitle);
    const UILabel* message = tips->messageLabel();
    EXPECT_EQ(message->frame(), CGRectMake(5, 55, 260, measuredHeight(kMessage, 270, 70) + 5));
    EXPECT_EQ(message->numberOfLines(), 127);
    EXPECT_TRUE(message->font()->isEqual(UIFont::systemFontOfSize(15)));
    EXPECT_EQ(message->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(rgba(message->textColor()), rgba(make<UILabel>()->textColor()));
    EXPECT_EQ(message->text(), kMessage);
    EXPECT_EQ(tips->tipImage(), nullptr);
    EXPECT_EQ(tips->tipBackgroundColor(), nullptr);
    // The panel has its frame from the start: 45 for the title, and the message.
    const CGFloat height = 70 + 45 + message->frame().size.height;
    EXPECT_EQ(tips->backgroundAlert()->frame(), CGRectMake(52.5, (667 - height) * 0.5 - 15, 270, height));
}

TEST(ZRTipsAlertView, EachPartIsBelowTheOneBefore) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipImage(imageOfSize(60, 60));
    const Shown shown(host, tips);
    const CGFloat message = measuredHeight(kMessage, 270, 70) + 5;
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(105, 20, 60, 60));
    EXPECT_EQ(tips->titleLabel()->frame(), CGRectMake(5, 80, 260, 45));
    EXPECT_EQ(tips->messageLabel()->frame(), CGRectMake(5, 135, 260, message));
    EXPECT_EQ(bandOf(tips)->frame(), CGRectMake(0, 0, 270, 125));
    const CGFloat height = 70 + 45 + message + 80;
    EXPECT_EQ(tips->backgroundAlert()->frame(), CGRectMake(52.5, (667 - height) * 0.5 - 15, 270, height));
    EXPECT_EQ(tips->cancelButton()->frame().origin.y, height - 44);
    EXPECT_EQ(tips->okButton()->frame().origin.y, height - 44);
    EXPECT_EQ(tips->okButton()->frame().size.height, 45);
}

TEST(ZRTipsAlertView, OneLayoutPlacesEachPartBelowTheOneBefore) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipImage(imageOfSize(60, 60));
    tips->reLayoutSubviews();
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(105, 20, 60, 60));
    EXPECT_EQ(tips->titleLabel()->frame().origin.y, 80);
    EXPECT_EQ(tips->messageLabel()->frame().origin.y, 135);
    EXPECT_EQ(bandOf(tips)->frame(), CGRectMake(0, 0, 270, 125));
    EXPECT_EQ(tips->backgroundAlert()->frame().size.height, 70 + 45 + tips->messageLabel()->frame().size.height + 80);
    EXPECT_EQ(tips->okButton()->frame().origin.y, tips->backgroundAlert()->frame().size.height - 44);
}

TEST(ZRTipsAlertView, WithoutAnImageTheTitleIsAtTheTop) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    const Shown shown(host, tips);
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(135, 20, 0, 0));
    EXPECT_EQ(tips->titleLabel()->frame(), CGRectMake(5, 20, 260, 45));
    EXPECT_EQ(bandOf(tips)->frame(), CGRectMake(0, 0, 270, 65));
    const CGFloat message = measuredHeight(kMessage, 270, 70) + 5;
    EXPECT_EQ(tips->backgroundAlert()->frame().size.height, 70 + 45 + message + 20);
}

TEST(ZRTipsAlertView, WithoutATitleThereIsNoBand) {
    HeadlessHost host;
    const auto tips = makeTips(nullptr, kMessage);
    tips->setTipImage(imageOfSize(60, 60));
    const Shown shown(host, tips);
    EXPECT_EQ(tips->titleLabel(), nullptr);
    EXPECT_EQ(bandOf(tips)->frame(), CGRectMake(0, 0, 270, 0));
    EXPECT_EQ(tips->messageLabel()->frame().origin, CGPointMake(5, 10));
    const CGFloat message = measuredHeight(kMessage, 270, 70) + 5;
    EXPECT_EQ(tips->backgroundAlert()->frame().size.height, 70 + message + 80);
}

TEST(ZRTipsAlertView, WithoutAMessageThePanelEndsBelowTheTitle) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, nullptr);
    const Shown shown(host, tips);
    EXPECT_EQ(tips->messageLabel(), nullptr);
    EXPECT_EQ(tips->calculateMessageLabelFrame(nullptr), CGRectMake(5, 75, 260, 5));
    EXPECT_EQ(tips->backgroundAlert()->frame().size.height, 70 + 45 + 20);
}

TEST(ZRTipsAlertView, WithoutAnythingItIsTheBaseSize) {
    HeadlessHost host;
    const auto tips =
        make<ZRTipsAlertView>(&ZRTipsAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                              nullptr, nullptr, nullptr, nullptr, nullptr);
    const Shown shown(host, tips);
    EXPECT_EQ(tips->backgroundAlert()->frame().size, CGSizeMake(270, 90)); // and where the picture would end
}

TEST(ZRTipsAlertView, EmptyTextsHaveLabels) {
    const HeadlessHost host;
    const auto tips = makeTips("", "");
    EXPECT_NE(tips->titleLabel(), nullptr);
    ASSERT_NE(tips->messageLabel(), nullptr);
    EXPECT_EQ(tips->messageLabel()->frame().size.height, 5);
}

TEST(ZRTipsAlertView, AMessageIsMeasuredWithinTheAlertsSize) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, textOfLines(30));
    const CGFloat measured = measuredHeight(textOfLines(30), 270, 70);
    EXPECT_LE(measured, 70);
    EXPECT_EQ(tips->messageLabel()->frame().size.height, measured + 5);
    tips->setAlertViewSize(CGSizeMake(200, 400));
    EXPECT_EQ(tips->calculateMessageLabelFrame(textOfLines(30)),
              CGRectMake(5, 55, 190, measuredHeight(textOfLines(30), 200, 400) + 5));
}

TEST(ZRTipsAlertView, AMessageWrapsByWordsTenPointsInsideThePanel) {
    const HeadlessHost host;
    const auto widthOf = [](const std::string& text) {
        return sizeWithFont_constrainedToSize(text, UIFont::systemFontOfSize(15), CGSizeMake(10000, 100)).width;
    };
    // One line on 260 points, two on 250.
    std::string words = "i";
    while (widthOf(words) <= 251)
        words += " i";
    ASSERT_LE(widthOf(words), 259);
    const auto heightOfLines = [](int lines) { return measuredHeight(textOfLines(lines), 270, 70) + 5; };
    EXPECT_EQ(makeTips(kTitle, words)->messageLabel()->frame().size.height, heightOfLines(2));
    // Words of more than half a line: three of them, cut anywhere, would fit on two lines.
    std::string word = "m";
    while (widthOf(word) <= 126)
        word += "m";
    ASSERT_LE(widthOf(word), 150);
    EXPECT_EQ(makeTips(kTitle, word + " " + word + " " + word)->messageLabel()->frame().size.height, heightOfLines(3));
}

TEST(ZRTipsAlertView, AMessageThatIsSetCountsInTheNextLayout) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setMessage(textOfLines(3));
    tips->reLayoutSubviews();
    EXPECT_EQ(tips->messageLabel()->frame().size.height, measuredHeight(textOfLines(3), 270, 70) + 5);
    EXPECT_EQ(tips->messageLabel()->text(), kMessage);
}

TEST(ZRTipsAlertView, APanelTallerThanItsHostViewIs20LowerThanThat) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 300, 120));
    window->addSubview(view);
    const auto tips = makeTips(kTitle, kMessage);
    tips->showInView_animation(view, false);
    EXPECT_EQ(tips->backgroundAlert()->frame(), CGRectMake(15, -5, 270, 100));
    endAlert(host, tips);
}

TEST(ZRTipsAlertView, APanelTallerThanItsHostIs20LowerThanThat) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipImage(imageOfSize(60, 700));
    const Shown shown(host, tips);
    EXPECT_EQ(tips->backgroundAlert()->frame(), CGRectMake(52.5, -5, 270, 647));
    // One that is just as high as its host is not cut.
    const CGFloat message = measuredHeight(kMessage, 270, 70) + 5;
    tips->setTipImage(imageOfSize(60, 667 - 70 - 45 - 20 - message));
    tips->reLayoutSubviews();
    EXPECT_EQ(tips->backgroundAlert()->frame().size.height, 667);
}

TEST(ZRTipsAlertView, ASizeOfItsOwnIsKeptWhateverItHolds) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipImage(imageOfSize(60, 60));
    for (const CGSize& size : {CGSize{270, 71}, {271, 70}, {200, 300}}) {
        tips->setAlertViewSize(size);
        tips->reLayoutSubviews();
        EXPECT_EQ(tips->backgroundAlert()->frame(),
                  CGRectMake((375 - size.width) * 0.5, (667 - size.height) * 0.5 - 15, size.width, size.height));
    }
    tips->setAlertViewSize(CGSizeMake(270, 70)); // as if it were not set
    tips->reLayoutSubviews();
    EXPECT_GT(tips->backgroundAlert()->frame().size.height, 200);
}

TEST(ZRTipsAlertView, OnASmallScreenItIs50Narrower) {
    HeadlessHost host(device(300, 480));
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipImage(imageOfSize(60, 60));
    const Shown shown(host, tips);
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(95, 20, 60, 60));
    const CGRect panel = tips->backgroundAlert()->frame();
    EXPECT_EQ(panel.origin.x, 25);
    EXPECT_EQ(panel.size, CGSizeMake(250, 70 + 45 + measuredHeight(kMessage, 250, 70) + 5 + 80)); // which still grows
}

TEST(ZRTipsAlertView, InAHostViewItIsCentredThere) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 300, 400));
    window->addSubview(view);
    const auto tips = makeTips(kTitle, kMessage);
    tips->showInView_animation(view, false);
    const CGFloat height = 70 + 45 + measuredHeight(kMessage, 270, 70) + 5 + 20;
    EXPECT_EQ(tips->backgroundAlert()->frame(), CGRectMake(15, (400 - height) * 0.5 - 15, 270, height));
    endAlert(host, tips);
}

// Properties

TEST(ZRTipsAlertView, TheTipImageShowsAtOnceAndIsPlacedByTheNextLayout) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    const auto image = imageOfSize(40, 30);
    tips->setTipImage(image);
    EXPECT_EQ(pictureOf(tips)->image(), image);
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectZero);
    tips->reLayoutSubviews();
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(115, 20, 40, 30));
    pictureOf(tips)->setImage(nullptr);
    tips->setTipImage(image); // the same one: nothing happens
    EXPECT_EQ(pictureOf(tips)->image(), nullptr);
    tips->setTipImage(imageOfSize(40, 30));
    tips->setTipImage(nullptr);
    EXPECT_EQ(tips->tipImage(), nullptr);
    EXPECT_EQ(pictureOf(tips)->image(), nullptr);
    tips->reLayoutSubviews();
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(135, 20, 0, 0));
}

TEST(ZRTipsAlertView, WithoutAPanelThereAreNoParts) {
    const HeadlessHost host;
    const auto tips = make<ZRTipsAlertView>();
    tips->setTitle(kTitle);
    tips->initViews();
    tips->reLayoutSubviews();
    EXPECT_EQ(tips->titleLabel(), nullptr);
}

TEST(ZRTipsAlertView, TheTipBackgroundColorIsTheBands) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipBackgroundColor(UIColor::orangeColor());
    EXPECT_EQ(tips->tipBackgroundColor(), UIColor::orangeColor());
    EXPECT_EQ(bandOf(tips)->backgroundColor(), UIColor::orangeColor());
    bandOf(tips)->setBackgroundColor(UIColor::blueColor());
    tips->setTipBackgroundColor(UIColor::orangeColor());
    EXPECT_EQ(bandOf(tips)->backgroundColor(), UIColor::blueColor());
    tips->setTipBackgroundColor(nullptr);
    EXPECT_EQ(bandOf(tips)->backgroundColor(), nullptr);
}

TEST(ZRTipsAlertView, TextsSetLaterAreStoredOnly) {
    const HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTitle("Other");
    tips->setMessage("Other");
    EXPECT_EQ(tips->titleLabel()->text(), kTitle);
    EXPECT_EQ(tips->messageLabel()->text(), kMessage);
    const UIView* former = tips->titleLabel();
    const auto label = make<UILabel>();
    tips->setTitleLabel(label);
    tips->setMessageLabel(label);
    EXPECT_EQ(tips->titleLabel(), label);
    EXPECT_EQ(tips->messageLabel(), label);
    EXPECT_EQ(former->superview(), tips->backgroundAlert());
}

TEST(ZRTipsAlertView, ItsButtonsTellTheDelegate) {
    HeadlessHost host;
    AlertDelegate delegate;
    const auto tips = makeTips(kTitle, kMessage, &delegate);
    tips->showWithAnimation(true);
    host.advance(0.3);
    host.tap(middleOnScreen(tips->okButton()));
    EXPECT_EQ(delegate.messages, (Messages{"clicked 1"}));
    host.advance(0.3);
    EXPECT_EQ(tips->superview(), nullptr);
}

TEST(ZRTipsAlertView, ShowsItsColours) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::blackColor());
    const auto tips = makeTips("", kMessage);
    tips->setTipImage(imageOfSize(60, 60));
    tips->backgroundAlert()->setAlpha(1);
    const Shown shown(host, tips);
    const CGPoint panel = tips->backgroundAlert()->frame().origin;
    EXPECT_EQ(host.pixel({panel.x + 20, panel.y + 10}), (FramePixel{45, 167, 5}));
    EXPECT_EQ(host.pixel({panel.x + 135, panel.y + 50}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({panel.x + 20, panel.y + 124}), (FramePixel{45, 167, 5}));
    EXPECT_EQ(host.pixel({panel.x + 20, panel.y + 126}), (FramePixel{245, 245, 245}));
}

TEST(ZRTipsAlertView, AnImageWithoutASizeIsNoHarm) {
    HeadlessHost host;
    const auto tips = makeTips(kTitle, kMessage);
    tips->setTipImage(make<UIImage>());
    const Shown shown(host, tips);
    host.advance(1);
    host.snapshot();
    EXPECT_EQ(pictureOf(tips)->frame(), CGRectMake(135, 20, 0, 0));
}

} // namespace zr::testing
