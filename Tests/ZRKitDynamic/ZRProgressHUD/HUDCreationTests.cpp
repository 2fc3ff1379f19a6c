#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRPlatform/UIKit/Controls/UIActivityIndicatorView.h>

using namespace zr;
using namespace zr::testing;

namespace {

using ZRProgressHUDCreation = HUDTest;
using ZRProgressHUDFinders = HUDTest;

/// Writes down the order of what its initialiser calls.
class RecordingHUD : public ZRProgressHUD {
public:
    void setAnimationType(int type) override { note("animationType"), ZRProgressHUD::setAnimationType(type); }
    void setMode(int mode) override { note("mode"), ZRProgressHUD::setMode(mode); }
    void setLabelText(const NSString& text) override { note("labelText"), ZRProgressHUD::setLabelText(text); }
    void setDetailsLabelText(const NSString& text) override {
        note("detailsLabelText"), ZRProgressHUD::setDetailsLabelText(text);
    }
    void setOpacity(float opacity) override { note("opacity"), ZRProgressHUD::setOpacity(opacity); }
    void setColor(UIColor* color) override { note("color"), ZRProgressHUD::setColor(color); }
    void setLabelFont(UIFont* font) override { note("labelFont"), ZRProgressHUD::setLabelFont(font); }
    void setLabelColor(UIColor* color) override { note("labelColor"), ZRProgressHUD::setLabelColor(color); }
    void setDetailsLabelFont(UIFont* font) override {
        note("detailsLabelFont"), ZRProgressHUD::setDetailsLabelFont(font);
    }
    void setDetailsLabelColor(UIColor* color) override {
        note("detailsLabelColor"), ZRProgressHUD::setDetailsLabelColor(color);
    }
    void setActivityIndicatorColor(UIColor* color) override {
        note("activityIndicatorColor"), ZRProgressHUD::setActivityIndicatorColor(color);
    }
    void setXOffset(float offset) override { note("xOffset"), ZRProgressHUD::setXOffset(offset); }
    void setYOffset(float offset) override { note("yOffset"), ZRProgressHUD::setYOffset(offset); }
    void setDimBackground(bool dim) override { note("dimBackground"), ZRProgressHUD::setDimBackground(dim); }
    void setMargin(float margin) override { note("margin"), ZRProgressHUD::setMargin(margin); }
    void setCornerRadius(float radius) override { note("cornerRadius"), ZRProgressHUD::setCornerRadius(radius); }
    void setGraceTime(float seconds) override { note("graceTime"), ZRProgressHUD::setGraceTime(seconds); }
    void setMinShowTime(float seconds) override { note("minShowTime"), ZRProgressHUD::setMinShowTime(seconds); }
    void setRemoveFromSuperViewOnHide(bool removes) override {
        note("removeFromSuperViewOnHide"), ZRProgressHUD::setRemoveFromSuperViewOnHide(removes);
    }
    void setMinSize(CGSize size) override { note("minSize"), ZRProgressHUD::setMinSize(size); }
    void setSquare(bool square) override { note("square"), ZRProgressHUD::setSquare(square); }
    void setContentMode(UIViewContentMode mode) override { note("contentMode"), ZRProgressHUD::setContentMode(mode); }
    void setAutoresizingMask(NSUInteger mask) override {
        note("autoresizingMask"), ZRProgressHUD::setAutoresizingMask(mask);
    }
    void setOpaque(bool opaque) override { note("opaque"), ZRProgressHUD::setOpaque(opaque); }
    void setBackgroundColor(UIColor* color) override {
        note("backgroundColor"), ZRProgressHUD::setBackgroundColor(color);
    }
    void setAlpha(CGFloat alpha) override { note("alpha"), ZRProgressHUD::setAlpha(alpha); }
    void setTaskInProgress(bool inProgress) override {
        note("taskInProgress"), ZRProgressHUD::setTaskInProgress(inProgress);
    }
    void setupLabels() override { note("setupLabels"), ZRProgressHUD::setupLabels(); }
    void updateIndicators() override { note("updateIndicators"), ZRProgressHUD::updateIndicators(); }
    void registerForKVO() override { note("registerForKVO"), ZRProgressHUD::registerForKVO(); }
    void registerForNotifications() override {
        note("registerForNotifications"), ZRProgressHUD::registerForNotifications();
    }

    std::vector<std::string> calls;

private:
    void note(const char* call) { calls.push_back(call); }
};

class OtherHUD : public ZRProgressHUD {};

} // namespace

TEST_F(ZRProgressHUDCreation, EveryPropertyHasItsDefault) {
    const auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithFrame, CGRectMake(1, 2, 300, 400));
    EXPECT_EQ(hud->frame(), CGRectMake(1, 2, 300, 400));
    EXPECT_EQ(hud->mode(), ZRProgressHUDModeSpinner);
    EXPECT_EQ(hud->animationType(), ZRProgressHUDAnimationFade);
    EXPECT_EQ(hud->customView(), nullptr);
    EXPECT_EQ(hud->delegate().get(), nullptr);
    EXPECT_TRUE(hud->labelText().isNil());
    EXPECT_TRUE(hud->detailsLabelText().isNil());
    EXPECT_EQ(hud->opacity(), 0.8f);
    EXPECT_EQ(hud->color(), nullptr);
    EXPECT_EQ(hud->xOffset(), 0);
    EXPECT_EQ(hud->yOffset(), 0);
    EXPECT_EQ(hud->margin(), 20);
    EXPECT_EQ(hud->cornerRadius(), 10);
    EXPECT_FALSE(hud->dimBackground());
    EXPECT_EQ(hud->graceTime(), 0);
    EXPECT_EQ(hud->minShowTime(), 0);
    EXPECT_FALSE(hud->taskInProgress());
    EXPECT_FALSE(hud->removeFromSuperViewOnHide());
    EXPECT_TRUE(hud->labelFont()->isEqual(UIFont::boldSystemFontOfSize(16)));
    EXPECT_EQ(rgba(hud->labelColor()), rgb(255, 255, 255));
    EXPECT_TRUE(hud->detailsLabelFont()->isEqual(UIFont::boldSystemFontOfSize(12)));
    EXPECT_EQ(rgba(hud->detailsLabelColor()), rgb(255, 255, 255));
    EXPECT_EQ(rgba(hud->activityIndicatorColor()), rgb(255, 255, 255));
    EXPECT_EQ(hud->progress(), 0);
    EXPECT_EQ(hud->minSize(), CGSizeZero);
    EXPECT_EQ(hud->size(), CGSizeZero);
    EXPECT_FALSE(hud->isSquare());
    EXPECT_TRUE(hud->indicator()->isKindOfClass<UIActivityIndicatorView>());
    EXPECT_EQ(hud->graceTimer(), nullptr);
    EXPECT_EQ(hud->minShowTimer(), nullptr);
    EXPECT_EQ(hud->showStarted(), nullptr);
    EXPECT_FALSE(hud->completionBlock());
    EXPECT_FALSE(hud->isFinished());
}

TEST_F(ZRProgressHUDCreation, TheViewIsInvisibleAndCentresItself) {
    const auto hud = make<ZRProgressHUD>();
    EXPECT_EQ(hud->contentMode(), UIViewContentModeCenter);
    EXPECT_EQ(hud->autoresizingMask(), 45u);
    EXPECT_FALSE(hud->isOpaque());
    EXPECT_EQ(hud->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->transform(), CGAffineTransformIdentity);
}

TEST_F(ZRProgressHUDCreation, DefaultsAreSetInTheirOrderAndObservedAfterwards) {
    const auto hud = make<RecordingHUD>();
    const std::vector<std::string> expected = {"animationType",
                                               "mode",
                                               "labelText",
                                               "detailsLabelText",
                                               "opacity",
                                               "color",
                                               "labelFont",
                                               "labelColor",
                                               "detailsLabelFont",
                                               "detailsLabelColor",
                                               "activityIndicatorColor",
                                               "xOffset",
                                               "yOffset",
                                               "dimBackground",
                                               "margin",
                                               "cornerRadius",
                                               "graceTime",
                                               "minShowTime",
                                               "removeFromSuperViewOnHide",
                                               "minSize",
                                               "square",
                                               "contentMode",
                                               "autoresizingMask",
                                               "opaque",
                                               "backgroundColor",
                                               "alpha",
                                               "taskInProgress",
                                               "setupLabels",
                                               "updateIndicators",
                                               "registerForKVO",
                                               "registerForNotifications"};
    EXPECT_EQ(hud->calls, expected);
}

TEST_F(ZRProgressHUDCreation, HasTheSizeOfItsViewOrWindow) {
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(10, 20, 200, 100));
    view->setBounds(CGRectMake(5, 6, 200, 100));
    EXPECT_EQ(make<ZRProgressHUD>(&ZRProgressHUD::initWithView, view)->frame(), CGRectMake(5, 6, 200, 100));
    EXPECT_EQ(make<ZRProgressHUD>(&ZRProgressHUD::initWithWindow, window)->frame(), CGRectMake(0, 0, 320, 480));
    EXPECT_EQ(make<ZRProgressHUD>(&ZRProgressHUD::initWithView, nullptr)->frame(), CGRectZero);
    EXPECT_EQ(make<ZRProgressHUD>(&ZRProgressHUD::initWithWindow, nullptr)->frame(), CGRectZero);
    EXPECT_EQ(make<ZRProgressHUD>()->frame(), CGRectZero);
}

TEST_F(ZRProgressHUDCreation, LabelsAreSetUpBelowTheIndicator) {
    const auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithFrame, CGRectMake(0, 0, 320, 480));
    ASSERT_EQ(hud->subviews().size(), 3u);
    EXPECT_EQ(hud->subviews()[2], hud->indicator());
    const std::pair<UILabel*, CGFloat> labels[] = {{labelOf(hud), 16}, {detailsLabelOf(hud), 12}};
    for (const auto& [label, fontSize] : labels) {
        EXPECT_EQ(label->frame(), hud->bounds());
        EXPECT_FALSE(label->adjustsFontSizeToFitWidth());
        EXPECT_EQ(label->textAlignment(), NSTextAlignmentCenter);
        EXPECT_FALSE(label->isOpaque());
        EXPECT_EQ(label->backgroundColor(), UIColor::clearColor());
        EXPECT_EQ(rgba(label->textColor()), rgb(255, 255, 255));
        EXPECT_TRUE(label->font()->isEqual(UIFont::boldSystemFontOfSize(fontSize)));
        EXPECT_TRUE(label->text().isNil());
    }
    EXPECT_EQ(labelOf(hud)->numberOfLines(), 1);
    EXPECT_EQ(detailsLabelOf(hud)->numberOfLines(), 0);
}

TEST_F(ZRProgressHUDCreation, LabelsTakeWhatASubclassHasSetBefore) {
    class ReadyHUD : public ZRProgressHUD {
    public:
        void setSquare(bool square) override {
            ZRProgressHUD::setSquare(square);
            setLabelText("Ready");
            setDetailsLabelText("to go");
            setLabelColor(UIColor::redColor());
            setDetailsLabelColor(UIColor::blueColor());
            setLabelFont(UIFont::systemFontOfSize(20));
            setDetailsLabelFont(UIFont::systemFontOfSize(10));
        }
    };
    const auto hud = make<ReadyHUD>();
    EXPECT_EQ(labelOf(hud)->text(), "Ready");
    EXPECT_EQ(detailsLabelOf(hud)->text(), "to go");
    EXPECT_EQ(labelOf(hud)->textColor(), UIColor::redColor());
    EXPECT_EQ(detailsLabelOf(hud)->textColor(), UIColor::blueColor());
    EXPECT_TRUE(labelOf(hud)->font()->isEqual(UIFont::systemFontOfSize(20)));
    EXPECT_TRUE(detailsLabelOf(hud)->font()->isEqual(UIFont::systemFontOfSize(10)));
}

TEST_F(ZRProgressHUDCreation, PropertiesAreKeysToo) {
    const auto hud = make<ZRProgressHUD>();
    hud->setValue_forKey(0.25f, "progress");
    hud->setValue_forKey("Loading", "labelText");
    hud->setValue_forKey(true, "square");
    hud->setValue_forKey(3, "minShowTime");
    EXPECT_EQ(hud->progress(), 0.25f);
    EXPECT_EQ(hud->labelText(), "Loading");
    EXPECT_TRUE(hud->isSquare());
    EXPECT_EQ(hud->minShowTime(), 3);
    EXPECT_FALSE(hud->respondsToSelector("setSize:"));
    EXPECT_TRUE(hud->respondsToSelector("size"));
}

TEST_F(ZRProgressHUDCreation, NothingIsLeftOfAHUDThatIsLetGo) {
    Weak<ZRProgressHUD> hud;
    Weak<UIView> indicator, custom;
    Weak<UILabel> label;
    {
        auto made = make<ZRProgressHUD>();
        const auto view = make<UIView>();
        made->setCustomView(view);
        made->setCompletionBlock([] {});
        hud = made;
        indicator = made->indicator();
        custom = view;
        label = labelOf(made);
    }
    EXPECT_EQ(hud, nullptr);
    EXPECT_EQ(indicator, nullptr);
    EXPECT_EQ(custom, nullptr);
    EXPECT_EQ(label, nullptr);
    host.rotate(UIInterfaceOrientationLandscapeLeft); // which tells the HUDs that are left
}

TEST_F(ZRProgressHUDFinders, AShownHUDIsOnTopAndLeavesTheViewWhenItHides) {
    const auto below = make<UIView>();
    window->addSubview(below);
    const Ref<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(window, false);
    EXPECT_EQ(window->subviews().back(), hud);
    EXPECT_EQ(hud->frame(), window->bounds());
    EXPECT_TRUE(hud->removeFromSuperViewOnHide());
    EXPECT_EQ(hud->alpha(), 1);
    hud->hide(false);
    EXPECT_EQ(hud->superview(), nullptr);
}

TEST_F(ZRProgressHUDFinders, TheShowTakesTheFlagOfItsCaller) {
    const Ref<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(window, true);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(hud), 0.5, 1e-6);
}

TEST_F(ZRProgressHUDFinders, TheTopmostHUDIsFound) {
    EXPECT_EQ(ZRProgressHUD::HUDForView(window), nullptr);
    const auto first = addHUD(), second = addHUD();
    window->addSubview(make<UIView>());
    EXPECT_EQ(ZRProgressHUD::HUDForView(window), second);
    EXPECT_EQ(ZRProgressHUD::allHUDsForView(window), (std::vector<Ref<ZRProgressHUD>>{first, second}));
}

TEST_F(ZRProgressHUDFinders, HUDsOfSubviewsAreNotFound) {
    const auto view = make<UIView>();
    window->addSubview(view);
    view->addSubview(make<ZRProgressHUD>());
    EXPECT_EQ(ZRProgressHUD::HUDForView(window), nullptr);
    EXPECT_TRUE(ZRProgressHUD::allHUDsForView(window).empty());
}

TEST_F(ZRProgressHUDFinders, HidingTheHUDOfAViewHidesTheTopmostOneOnly) {
    EXPECT_FALSE(ZRProgressHUD::hideHUDForView_animated(window, false));
    const auto first = addHUD(), second = addHUD();
    first->show(false);
    second->show(false);
    EXPECT_TRUE(ZRProgressHUD::hideHUDForView_animated(window, false));
    EXPECT_TRUE(second->removeFromSuperViewOnHide());
    EXPECT_EQ(second->superview(), nullptr);
    EXPECT_FALSE(first->removeFromSuperViewOnHide());
    EXPECT_EQ(first->superview(), window);
    EXPECT_EQ(first->alpha(), 1);
}

TEST_F(ZRProgressHUDFinders, HidingTakesTheFlagOfItsCaller) {
    const auto hud = addHUD();
    hud->show(false);
    EXPECT_TRUE(ZRProgressHUD::hideHUDForView_animated(window, true));
    EXPECT_EQ(hud->superview(), window);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(hud), 0.51, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(hud->superview(), nullptr);
}

TEST_F(ZRProgressHUDFinders, HidingAllHidesTheLowestFirst) {
    const auto first = addHUD(), second = addHUD();
    std::vector<int> order;
    first->setCompletionBlock([&] { order.push_back(1); });
    second->setCompletionBlock([&] { order.push_back(2); });
    first->show(false);
    second->show(false);
    EXPECT_EQ(ZRProgressHUD::hideAllHUDsForView_animated(window, false), 2u);
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
    EXPECT_TRUE(window->subviews().empty());
    EXPECT_EQ(ZRProgressHUD::hideAllHUDsForView_animated(window, false), 0u);
}

TEST_F(ZRProgressHUDFinders, HidingAllTakesTheFlagOfItsCaller) {
    const auto first = addHUD(), second = addHUD();
    first->show(false);
    second->show(false);
    ZRProgressHUD::hideAllHUDsForView_animated(window, true);
    EXPECT_EQ(window->subviews().size(), 2u);
    EXPECT_EQ(seenAlpha(second), 1);
    host.advance(0.3);
    EXPECT_TRUE(window->subviews().empty());
}

TEST_F(ZRProgressHUDFinders, ASubclassFindsItsOwnKind) {
    const Ref<OtherHUD> other = ZRProgressHUD::showHUDAddedTo_animated<OtherHUD>(window, false);
    ASSERT_NE(other, nullptr);
    const auto plain = addHUD();
    EXPECT_EQ(ZRProgressHUD::HUDForView(window), plain);
    EXPECT_EQ(ZRProgressHUD::HUDForView<OtherHUD>(window), other);
    EXPECT_EQ(ZRProgressHUD::allHUDsForView(window).size(), 2u);
    EXPECT_EQ(ZRProgressHUD::allHUDsForView<OtherHUD>(window).size(), 1u);
    EXPECT_TRUE(ZRProgressHUD::hideHUDForView_animated<OtherHUD>(window, false));
    EXPECT_FALSE(ZRProgressHUD::hideHUDForView_animated<OtherHUD>(window, false));
    EXPECT_EQ(ZRProgressHUD::hideAllHUDsForView_animated<OtherHUD>(window, false), 0u);
    EXPECT_EQ(plain->superview(), window);
}

TEST_F(ZRProgressHUDFinders, NoViewHasNone) {
    EXPECT_EQ(ZRProgressHUD::HUDForView(nullptr), nullptr);
    EXPECT_TRUE(ZRProgressHUD::allHUDsForView(nullptr).empty());
    EXPECT_FALSE(ZRProgressHUD::hideHUDForView_animated(nullptr, true));
    EXPECT_EQ(ZRProgressHUD::hideAllHUDsForView_animated(nullptr, true), 0u);
    const Ref<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(nullptr, false);
    EXPECT_EQ(hud->frame(), CGRectZero);
    EXPECT_EQ(hud->alpha(), 1);
}
