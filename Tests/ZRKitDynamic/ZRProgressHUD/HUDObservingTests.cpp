#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSThread.h>
#include <ZRPlatform/UIKit/Controls/UIActivityIndicatorView.h>

#include <thread>

using namespace zr;
using namespace zr::testing;

namespace {

using ZRProgressHUDModes = HUDTest;

/// Counts what a change makes of it.
class ObservedHUD : public ZRProgressHUD {
public:
    void setNeedsLayout() override {
        ++layouts;
        ZRProgressHUD::setNeedsLayout();
    }
    void setNeedsDisplay() override {
        ++displays;
        ZRProgressHUD::setNeedsDisplay();
    }
    void updateIndicators() override {
        ++indicatorUpdates;
        ZRProgressHUD::updateIndicators();
    }
    void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                        const NSKeyValueChange& change, void* context) override {
        EXPECT_EQ(object, this);
        EXPECT_TRUE(change.newValue.isEqual(valueForKey(keyPath)));
        EXPECT_TRUE(change.oldValue.isNil());
        EXPECT_EQ(context, nullptr);
        ZRProgressHUD::observeValueForKeyPath_ofObject_change_context(keyPath, object, change, context);
    }
    void updateUIForKeypath(const NSString& keyPath) override {
        EXPECT_TRUE(NSThread::isMainThread());
        updated.push_back(keyPath);
        ZRProgressHUD::updateUIForKeypath(keyPath);
    }
    void addObserver(const NSString& keyPath) {
        addObserver_forKeyPath_options_context(this, keyPath, NSKeyValueObservingOptionNew, nullptr);
    }
    void forget() {
        layouts = displays = indicatorUpdates = 0;
        updated.clear();
    }

    int layouts = 0, displays = 0, indicatorUpdates = 0;
    std::vector<NSString> updated;
};

class ZRProgressHUDObserving : public HUDTest {
protected:
    void SetUp() override {
        hud = make<ObservedHUD>(&ZRProgressHUD::initWithView, window);
        window->addSubview(hud);
        host.advance(0);
        hud->forget();
    }

    /// Sets every observed property, each to something that it is not.
    void setAll() {
        hud->setMode(ZRProgressHUDModePie);
        hud->setCustomView(customView);
        hud->setLabelText("Label");
        hud->setLabelFont(UIFont::systemFontOfSize(20));
        hud->setLabelColor(UIColor::redColor());
        hud->setDetailsLabelText("Details");
        hud->setDetailsLabelFont(UIFont::systemFontOfSize(10));
        hud->setDetailsLabelColor(UIColor::greenColor());
        hud->setProgress(0.5f);
        hud->setActivityIndicatorColor(UIColor::blueColor());
    }

    const std::vector<NSString> keyPaths{"mode",
                                         "customView",
                                         "labelText",
                                         "labelFont",
                                         "labelColor",
                                         "detailsLabelText",
                                         "detailsLabelFont",
                                         "detailsLabelColor",
                                         "progress",
                                         "activityIndicatorColor"};
    Ref<ObservedHUD> hud;
    /// Made here, as views belong to the main thread.
    Ref<UIView> customView = make<UIView>();
};

/// An application's own indicator with a progress.
class Gauge : public UIView {
public:
    float progress() const { return m_progress; }
    void setProgress(float progress) {
        onMainThread = NSThread::isMainThread();
        ++settings;
        m_progress = progress;
    }

    int settings = 0;
    bool onMainThread = false;

protected:
    const KeyTable& keyTable() const override {
        static const KeyTable table(UIView::keyTable(), {key<&Gauge::progress, &Gauge::setProgress>("progress")});
        return table;
    }

private:
    float m_progress = -1;
};

} // namespace

// Observing itself

TEST_F(ZRProgressHUDObserving, TenKeysAreObservedInTheirOrder) {
    EXPECT_EQ(hud->observableKeypaths(), keyPaths);
    setAll();
    EXPECT_EQ(hud->updated, keyPaths);
}

TEST_F(ZRProgressHUDObserving, EveryKeyButProgressLaysOutAndDraws) {
    for (const NSString& keyPath : keyPaths) {
        hud->forget();
        hud->setValue_forKey(hud->valueForKey(keyPath), keyPath); // also when the value stays the same
        const bool isProgress = keyPath == "progress";
        EXPECT_EQ(hud->updated, std::vector<NSString>{keyPath});
        EXPECT_EQ(hud->displays, isProgress ? 0 : 1) << keyPath;
        EXPECT_EQ(hud->layouts, isProgress ? 0 : 1) << keyPath;
    }
}

TEST_F(ZRProgressHUDObserving, OtherPropertiesAreNot) {
    hud->setOpacity(0.1f);
    hud->setColor(UIColor::redColor());
    hud->setXOffset(1);
    hud->setYOffset(2);
    hud->setMargin(3);
    hud->setCornerRadius(4);
    hud->setDimBackground(true);
    hud->setMinSize(CGSizeMake(5, 6));
    hud->setSquare(true);
    hud->setGraceTime(7);
    hud->setMinShowTime(8);
    hud->setAnimationType(1);
    hud->setTaskInProgress(true);
    hud->setRemoveFromSuperViewOnHide(true);
    EXPECT_TRUE(hud->updated.empty());
    EXPECT_EQ(hud->layouts + hud->displays, 0);
}

TEST_F(ZRProgressHUDObserving, IndicatorsAreUpdatedForTheirThreeKeys) {
    for (const NSString& keyPath : keyPaths) {
        hud->forget();
        hud->setValue_forKey(hud->valueForKey(keyPath), keyPath);
        const bool updates = keyPath == "mode" || keyPath == "customView" || keyPath == "activityIndicatorColor";
        EXPECT_EQ(hud->indicatorUpdates, updates ? 1 : 0) << keyPath;
    }
}

TEST_F(ZRProgressHUDObserving, TextsFontsAndColoursReachTheirLabels) {
    setAll();
    EXPECT_EQ(labelOf(hud)->text(), "Label");
    EXPECT_TRUE(labelOf(hud)->font()->isEqual(UIFont::systemFontOfSize(20)));
    EXPECT_EQ(labelOf(hud)->textColor(), UIColor::redColor());
    EXPECT_EQ(detailsLabelOf(hud)->text(), "Details");
    EXPECT_TRUE(detailsLabelOf(hud)->font()->isEqual(UIFont::systemFontOfSize(10)));
    EXPECT_EQ(detailsLabelOf(hud)->textColor(), UIColor::greenColor());
    hud->setLabelText(nullptr);
    hud->setDetailsLabelText(nullptr);
    EXPECT_TRUE(labelOf(hud)->text().isNil());
    EXPECT_TRUE(detailsLabelOf(hud)->text().isNil());
}

TEST_F(ZRProgressHUDObserving, AnUnknownKeyLaysOutAndDraws) {
    hud->updateUIForKeypath("somethingElse");
    EXPECT_EQ(hud->layouts, 1);
    EXPECT_EQ(hud->displays, 1);
    EXPECT_EQ(hud->indicatorUpdates, 0);
}

TEST_F(ZRProgressHUDObserving, AChangeFromAnotherThreadIsShownByTheMainThreadLater) {
    std::thread([this] {
        setAll();
        EXPECT_TRUE(hud->updated.empty());
        EXPECT_EQ(hud->mode(), ZRProgressHUDModePie); // what was set is read at once
        EXPECT_EQ(hud->labelText(), "Label");
    }).join();
    EXPECT_TRUE(hud->updated.empty());
    EXPECT_TRUE(labelOf(hud)->text().isNil());
    host.advance(0);
    EXPECT_EQ(hud->updated, keyPaths);
    EXPECT_EQ(labelOf(hud)->text(), "Label");
    EXPECT_TRUE(hud->indicator()->isKindOfClass<ZRRoundProgressView>());
}

TEST_F(ZRProgressHUDObserving, UnregisteringEndsIt) {
    hud->unregisterFromKVO();
    setAll();
    EXPECT_TRUE(hud->updated.empty());
    hud->registerForKVO();
    setAll();
    EXPECT_EQ(hud->updated, keyPaths);
}

// Progress

TEST_F(ZRProgressHUDObserving, ProgressIsHandedToTheIndicator) {
    hud->setMode(ZRProgressHUDModePie);
    hud->setProgress(0.25f);
    EXPECT_EQ(dynamicCast<ZRRoundProgressView>(hud->indicator())->progress(), 0.25f);
    hud->setMode(ZRProgressHUDModeBar);
    hud->setProgress(0.5f);
    EXPECT_EQ(dynamicCast<ZRBarProgressView>(hud->indicator())->progress(), 0.5f);
    hud->setProgress(7); // not limited
    EXPECT_EQ(dynamicCast<ZRBarProgressView>(hud->indicator())->progress(), 7);
}

TEST_F(ZRProgressHUDObserving, ANewIndicatorWaitsForTheNextChangeOfProgress) {
    hud->setProgress(0.5f);
    for (const int mode : {ZRProgressHUDModePie, ZRProgressHUDModeBar}) {
        hud->setMode(mode);
        EXPECT_EQ(hud->indicator()->valueForKey("progress").floatValue(), 0);
        hud->setProgress(0.5f);
        EXPECT_EQ(hud->indicator()->valueForKey("progress").floatValue(), 0.5f);
    }
}

TEST_F(ZRProgressHUDObserving, SpinnerAndTextIgnoreProgress) {
    for (const int mode : {ZRProgressHUDModeSpinner, ZRProgressHUDModeTextOnly}) {
        hud->setMode(mode);
        hud->setProgress(0.5f);
        EXPECT_EQ(hud->progress(), 0.5f);
    }
}

TEST_F(ZRProgressHUDObserving, ACustomViewWithAProgressReceivesItOnTheMainThread) {
    const auto gauge = make<Gauge>();
    hud->setCustomView(gauge);
    hud->setMode(ZRProgressHUDModeCustomView);
    EXPECT_EQ(gauge->settings, 0);
    std::thread([&] { hud->setProgress(0.75f); }).join();
    EXPECT_EQ(gauge->settings, 0);
    host.advance(0);
    EXPECT_EQ(gauge->settings, 1);
    EXPECT_EQ(gauge->progress(), 0.75f);
    EXPECT_TRUE(gauge->onMainThread);
}

TEST_F(ZRProgressHUDObserving, ACustomViewWithoutAProgressIsLeftAlone) {
    const auto view = make<UIView>();
    hud->setCustomView(view);
    hud->setMode(ZRProgressHUDModeCustomView);
    ::testing::internal::CaptureStderr();
    hud->setProgress(0.75f);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), ""); // nor is an unknown key complained of
}

// Indicators of the modes

TEST_F(ZRProgressHUDModes, EachModeHasItsIndicatorOnTop) {
    const auto hud = addHUD();
    const auto custom = make<UIView>();
    hud->setCustomView(custom);
    const auto expectOnTop = [&] {
        ASSERT_EQ(hud->subviews().size(), 3u);
        EXPECT_EQ(hud->subviews().back(), hud->indicator());
    };
    hud->setMode(ZRProgressHUDModePie);
    ASSERT_TRUE(hud->indicator()->isKindOfClass<ZRRoundProgressView>());
    EXPECT_FALSE(dynamicCast<ZRRoundProgressView>(hud->indicator())->isAnnular());
    EXPECT_EQ(hud->indicator()->bounds().size, CGSizeMake(37, 37));
    expectOnTop();
    hud->setMode(ZRProgressHUDModeBar);
    EXPECT_TRUE(hud->indicator()->isKindOfClass<ZRBarProgressView>());
    EXPECT_EQ(hud->indicator()->bounds().size, CGSizeMake(120, 20));
    expectOnTop();
    hud->setMode(ZRProgressHUDModeRing);
    EXPECT_TRUE(dynamicCast<ZRRoundProgressView>(hud->indicator())->isAnnular());
    expectOnTop();
    hud->setMode(ZRProgressHUDModeCustomView);
    EXPECT_EQ(hud->indicator(), custom);
    expectOnTop();
    hud->setMode(ZRProgressHUDModeTextOnly);
    EXPECT_EQ(hud->indicator(), nullptr);
    EXPECT_EQ(hud->subviews().size(), 2u);
    EXPECT_EQ(custom->superview(), nullptr);
    hud->setMode(ZRProgressHUDModeSpinner);
    EXPECT_TRUE(hud->indicator()->isKindOfClass<UIActivityIndicatorView>());
    expectOnTop();
}

TEST_F(ZRProgressHUDModes, TheSpinnerIsLargeTurnsAndHasItsColour) {
    const auto hud = addHUD();
    const auto spinner = dynamicCast<UIActivityIndicatorView>(hud->indicator());
    EXPECT_EQ(spinner->activityIndicatorViewStyle(), UIActivityIndicatorViewStyleWhiteLarge);
    EXPECT_EQ(spinner->bounds().size, CGSizeMake(37, 37));
    EXPECT_TRUE(spinner->isAnimating());
    EXPECT_EQ(rgba(spinner->color()), rgb(255, 255, 255));
    hud->setActivityIndicatorColor(UIColor::orangeColor());
    EXPECT_EQ(hud->indicator(), spinner); // the same one, in another colour
    EXPECT_EQ(spinner->color(), UIColor::orangeColor());
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMode(ZRProgressHUDModeSpinner);
    EXPECT_NE(hud->indicator(), spinner);
    EXPECT_EQ(dynamicCast<UIActivityIndicatorView>(hud->indicator())->color(), UIColor::orangeColor());
}

TEST_F(ZRProgressHUDModes, TheColourOfTheSpinnerIsNotThatOfOtherIndicators) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModePie);
    const Ref<UIView> pie = hud->indicator();
    hud->setActivityIndicatorColor(UIColor::orangeColor());
    EXPECT_EQ(hud->indicator(), pie);
}

TEST_F(ZRProgressHUDModes, ARingStaysARing) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeRing);
    const Ref<UIView> ring = hud->indicator();
    hud->setMode(ZRProgressHUDModePie);
    EXPECT_EQ(hud->indicator(), ring);
    EXPECT_TRUE(dynamicCast<ZRRoundProgressView>(ring)->isAnnular());
    // By way of another indicator it becomes a pie.
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMode(ZRProgressHUDModePie);
    EXPECT_FALSE(dynamicCast<ZRRoundProgressView>(hud->indicator())->isAnnular());
}

TEST_F(ZRProgressHUDModes, APieBecomesARing) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModePie);
    const Ref<UIView> pie = hud->indicator();
    hud->setProgress(0.5f);
    hud->setMode(ZRProgressHUDModeRing);
    EXPECT_EQ(hud->indicator(), pie);
    EXPECT_TRUE(dynamicCast<ZRRoundProgressView>(pie)->isAnnular());
    EXPECT_EQ(dynamicCast<ZRRoundProgressView>(pie)->progress(), 0.5f);
}

TEST_F(ZRProgressHUDModes, TheBarIsAlwaysFresh) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModeBar);
    const Ref<UIView> bar = hud->indicator();
    hud->setProgress(0.5f);
    hud->setMode(ZRProgressHUDModeBar);
    EXPECT_NE(hud->indicator(), bar);
    EXPECT_EQ(bar->superview(), nullptr);
    EXPECT_EQ(dynamicCast<ZRBarProgressView>(hud->indicator())->progress(), 0);
    const Ref<UIView> second = hud->indicator();
    hud->setActivityIndicatorColor(UIColor::redColor()); // which updates the indicators, too
    EXPECT_NE(hud->indicator(), second);
}

TEST_F(ZRProgressHUDModes, ACustomViewIsPutUpOnce) {
    const auto hud = addHUD();
    const auto first = make<UIView>(), second = make<UIView>();
    hud->setMode(ZRProgressHUDModeCustomView);
    EXPECT_EQ(hud->indicator(), nullptr); // none as yet, and the spinner is gone
    EXPECT_EQ(hud->subviews().size(), 2u);
    hud->setCustomView(first);
    EXPECT_EQ(first->superview(), hud);
    const auto onTop = make<UIView>();
    hud->addSubview(onTop);
    hud->setCustomView(first);
    EXPECT_EQ(hud->subviews().back(), onTop); // not put up again
    hud->setCustomView(second);
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(hud->indicator(), second);
    EXPECT_EQ(hud->subviews().back(), second);
    hud->setCustomView(nullptr);
    EXPECT_EQ(hud->indicator(), nullptr);
    EXPECT_EQ(second->superview(), nullptr);
}

TEST_F(ZRProgressHUDModes, ACustomViewWaitsForItsMode) {
    const auto hud = addHUD();
    const Ref<UIView> spinner = hud->indicator();
    hud->setCustomView(make<UIView>());
    EXPECT_EQ(hud->indicator(), spinner);
}

TEST_F(ZRProgressHUDModes, UnknownModesChangeNothing) {
    const auto hud = addHUD();
    hud->setMode(ZRProgressHUDModePie);
    const Ref<UIView> pie = hud->indicator();
    for (const int mode : {6, -1, 1000}) {
        hud->setMode(mode);
        EXPECT_EQ(hud->mode(), mode);
        EXPECT_EQ(hud->indicator(), pie);
        EXPECT_EQ(hud->subviews().size(), 3u);
    }
}
