#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>

namespace zr::testing {

namespace {

/// Counts what the bar's making and the screen's leaving call.
class Screen : public ZRTViewController {
public:
    void createNavigationBarIfNeed() override {
        ++timesBarWanted;
        ZRTViewController::createNavigationBarIfNeed();
    }
    void hiddenNavigationBar() override {
        ++timesBarHidden;
        ZRTViewController::hiddenNavigationBar();
    }
    void dismissViewControllerAnimated_completion(bool animated, std::function<void()> completion) override {
        dismissals.push_back(animated);
        hasCompletion = completion != nullptr;
        ZRTViewController::dismissViewControllerAnimated_completion(animated, std::move(completion));
    }

    int timesBarWanted = 0;
    int timesBarHidden = 0;
    std::vector<bool> dismissals;
    bool hasCompletion = false;
};

/// A phone whose window shows a navigation controller with one screen.
class Phone {
public:
    explicit Phone(const NSString& version = "8.4", CGFloat width = 375, CGFloat height = 667) :
        host(device(width, height, 2, version)) {
        window->setRootViewController(navigation);
        window->makeKeyAndVisible();
        host.advance(0);
    }
    Ref<Screen> push(bool animated = false) {
        auto screen = make<Screen>();
        navigation->pushViewController_animated(screen, animated);
        host.advance(animated ? 0.35 : 0);
        return screen;
    }

    HeadlessHost host;
    Ref<Screen> root = make<Screen>();
    Ref<UINavigationController> navigation =
        make<UINavigationController>(&UINavigationController::initWithRootViewController, root);
    Ref<UIWindow> window = showWindow(UIColor::blackColor());
};

} // namespace

// Making the bar

TEST(ZRTViewController, HasABarOnceItsViewIsLoadedInANavigationController) {
    HeadlessHost host;
    auto screen = make<Screen>();
    EXPECT_EQ(screen->tNavigationBar(), nullptr);
    EXPECT_FALSE(screen->isViewLoaded());
    auto navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, screen);
    EXPECT_EQ(screen->tNavigationBar(), nullptr);
    UIView* view = screen->view();
    ASSERT_NE(screen->tNavigationBar(), nullptr);
    EXPECT_EQ(screen->tNavigationBar()->superview(), view);
    EXPECT_EQ(screen->tNavigationBar()->delegate(), screen.get());
    EXPECT_EQ(screen->tNavigationBar()->autoresizingMask(), 2u);
    EXPECT_EQ(view->subviews().size(), 1u);
}

TEST(ZRTViewController, WantsItsBarInBothInitialisersAndWhenTheViewLoads) {
    HeadlessHost host;
    auto screen = make<Screen>(&UIViewController::initWithNibName_bundle, "Screen", nullptr);
    EXPECT_EQ(screen->timesBarWanted, 1);
    EXPECT_EQ(screen->timesBarHidden, 1);
    EXPECT_EQ(make<Screen>()->timesBarWanted, 2) << "by the one initialiser in the other too";
    screen->view();
    EXPECT_EQ(screen->timesBarWanted, 2);
    EXPECT_EQ(screen->timesBarHidden, 2);
}

TEST(ZRTViewController, TheBarReachesUnderTheStatusBarOnVersionsThatSortFrom7) {
    const std::vector<std::pair<NSString, CGFloat>> heights{{"6.1", 44},  {"6.1.9", 44}, {"7.0", 64},
                                                            {"7.1", 64},  {"8.4", 64},   {"9.3", 64},
                                                            {"10.0", 44}, {"10.3", 44},  {"7", 44}};
    for (const auto& [version, height] : heights) {
        const Phone phone(version, 320, 568);
        ASSERT_NE(phone.root->tNavigationBar(), nullptr);
        EXPECT_EQ(phone.root->tNavigationBar()->frame(), CGRectMake(0, 0, 320, height)) << version.UTF8String();
        EXPECT_EQ(phone.root->navigationBarMaxY(), height) << version.UTF8String();
    }
}

TEST(ZRTViewController, TheBarIsMadeBeforeTheViewWhenItIsWantedFirst) {
    HeadlessHost host;
    auto screen = make<Screen>();
    auto navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, screen);
    screen->createNavigationBarIfNeed();
    EXPECT_TRUE(screen->isViewLoaded());
    EXPECT_EQ(screen->view()->subviews().size(), 1u);
    EXPECT_EQ(screen->view()->subviews()[0], screen->tNavigationBar());
}

TEST(ZRTViewController, WantingTheBarAgainGivesItItsPlaceBackAndMakesNoOther) {
    Phone phone;
    const Ref<ZRTNavigationBar> bar = phone.root->tNavigationBar();
    bar->setFrame(CGRectMake(5, 6, 70, 80));
    phone.navigation->navigationBar()->setHidden(false);
    phone.root->createNavigationBarIfNeed();
    EXPECT_EQ(phone.root->tNavigationBar(), bar);
    EXPECT_EQ(bar->frame(), CGRectMake(0, 0, 375, 64));
    EXPECT_EQ(phone.root->view()->subviews().size(), 1u);
    EXPECT_TRUE(phone.navigation->navigationBar()->isHidden());
}

TEST(ZRTViewController, TheBarIsAsWideAsTheScreenIsNow) {
    Phone phone;
    phone.host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(phone.root->tNavigationBar()->frame(), CGRectMake(0, 0, 667, 64));
    phone.root->tNavigationBar()->setFrame(CGRectZero);
    phone.root->createNavigationBarIfNeed();
    EXPECT_EQ(phone.root->tNavigationBar()->frame(), CGRectMake(0, 0, 667, 64));
    phone.host.rotate(UIInterfaceOrientationPortrait);
    EXPECT_EQ(phone.root->tNavigationBar()->frame(), CGRectMake(0, 0, 375, 64));
}

TEST(ZRTViewController, AScreenOutsideOfANavigationControllerHasNoBar) {
    HeadlessHost host;
    auto window = showWindow(UIColor::blackColor());
    auto screen = make<Screen>();
    window->setRootViewController(screen);
    host.advance(0);
    ASSERT_TRUE(screen->isViewLoaded());
    EXPECT_EQ(screen->tNavigationBar(), nullptr);
    EXPECT_EQ(screen->navigationBarMaxY(), 0);
    screen->setTitle("Title");
    screen->hiddenNavigationBarWithAnimated(true);
    screen->showNavigationBarWithAnimated(false);
    screen->hiddenNavigationBar();
    screen->createNavigationBarIfNeed();
    EXPECT_EQ(screen->tNavigationBar(), nullptr);
    EXPECT_TRUE(screen->view()->subviews().empty());
}

TEST(ZRTViewController, AScreenWhoseViewWasLoadedBeforeItsPushHasNoBarUntilItAsks) {
    Phone phone;
    auto screen = make<Screen>();
    screen->view();
    phone.navigation->pushViewController_animated(screen, false);
    phone.host.advance(0);
    EXPECT_EQ(screen->tNavigationBar(), nullptr);
    screen->createNavigationBarIfNeed();
    EXPECT_EQ(screen->tNavigationBar()->superview(), screen->view());
}

TEST(ZRTViewController, AScreenWithoutABarHidesTheNavigationControllersAllTheSame) {
    Phone phone;
    auto screen = make<Screen>();
    screen->view();
    phone.navigation->navigationBar()->setHidden(false);
    phone.navigation->pushViewController_animated(screen, false);
    phone.host.advance(0);
    EXPECT_EQ(screen->tNavigationBar(), nullptr);
    EXPECT_TRUE(phone.navigation->navigationBar()->isHidden());
}

TEST(ZRTViewController, EachScreenHasABarOfItsOwn) {
    Phone phone;
    const auto second = phone.push();
    ASSERT_NE(second->tNavigationBar(), nullptr);
    EXPECT_NE(second->tNavigationBar(), phone.root->tNavigationBar());
}

// Look

TEST(ZRTViewController, IsVeryLightGrey) {
    Phone phone;
    EXPECT_EQ(rgba(phone.root->view()->backgroundColor()), rgb(248, 248, 248));
    const Ref<CGImage> image = phone.host.snapshot();
    const std::uint8_t* pixel = image->pixels() + 1000 * image->bytesPerRow() + 100 * 4;
    EXPECT_EQ(std::vector<int>(pixel, pixel + 4), (std::vector<int>{248, 248, 248, 255}));
}

TEST(ZRTViewController, ATitleSetBeforeTheBarIsTakenOver) {
    HeadlessHost host;
    auto screen = make<Screen>();
    screen->setTitle("Early");
    auto navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, screen);
    screen->view();
    EXPECT_EQ(screen->tNavigationBar()->titleLabel()->text(), "Early");
    screen->navigationItem()->setTitle("Item");
    screen->setTNavigationBar(nullptr);
    screen->createNavigationBarIfNeed();
    EXPECT_EQ(screen->tNavigationBar()->titleLabel()->text(), "Early") << "the screen's title, not the item's";
    screen->setTitle("Late");
    EXPECT_EQ(screen->tNavigationBar()->titleLabel()->text(), "Late");
    EXPECT_EQ(screen->title(), "Late");
    screen->setTitle(nullptr);
    EXPECT_EQ(screen->tNavigationBar()->titleLabel()->text(), nullptr);
}

TEST(ZRTViewController, FadesItsBarOutAndIn) {
    Phone phone;
    UIView* bar = phone.root->tNavigationBar();
    phone.root->hiddenNavigationBarWithAnimated(true);
    phone.host.advance(0.25);
    EXPECT_NEAR(bar->layer()->presentationValues().opacity, 0.5, 1e-6);
    phone.host.advance(0.25);
    EXPECT_EQ(bar->layer()->presentationValues().opacity, 0);
    EXPECT_EQ(phone.root->navigationBarMaxY(), 64);
    phone.root->showNavigationBarWithAnimated(true);
    phone.host.advance(0.25);
    EXPECT_NEAR(bar->layer()->presentationValues().opacity, 0.5, 1e-6);
    phone.host.advance(0.25);
    phone.root->hiddenNavigationBarWithAnimated(false);
    EXPECT_EQ(bar->layer()->presentationValues().opacity, 0);
    phone.root->showNavigationBarWithAnimated(false);
    EXPECT_EQ(bar->layer()->presentationValues().opacity, 1);
}

TEST(ZRTViewController, ContentStaysJustBelowTheBar) {
    Phone phone;
    phone.root->tNavigationBar()->setFrame(CGRectMake(0, 3, 375, 70));
    EXPECT_EQ(phone.root->navigationBarMaxY(), 73);
}

// The navigation controller's bar

TEST(ZRTViewController, TheNavigationControllersBarIsHiddenButKeepsItsPlace) {
    Phone phone;
    EXPECT_FALSE(phone.navigation->isNavigationBarHidden());
    EXPECT_TRUE(phone.navigation->navigationBar()->isHidden());
    EXPECT_EQ(phone.navigation->navigationBar()->frame(), CGRectMake(0, 20, 375, 44));
}

TEST(ZRTViewController, HidesTheNavigationControllersBarAgainWheneverItAppears) {
    Phone phone;
    phone.push();
    phone.navigation->setNavigationBarHidden(true);
    phone.navigation->navigationBar()->setHidden(false);
    phone.navigation->popViewControllerAnimated(false);
    phone.host.advance(0);
    EXPECT_FALSE(phone.navigation->isNavigationBarHidden());
    EXPECT_TRUE(phone.navigation->navigationBar()->isHidden());
}

TEST(ZRTViewController, ItsBarComesToTheFrontWheneverItAppears) {
    Phone phone;
    UIView* view = phone.root->view();
    auto cover = make<UIView>(&UIView::initWithFrame, view->bounds());
    view->addSubview(cover);
    EXPECT_EQ(view->subviews().back(), cover);
    phone.push();
    phone.navigation->popViewControllerAnimated(false);
    phone.host.advance(0);
    EXPECT_EQ(view->subviews().back(), phone.root->tNavigationBar());
    view->bringSubviewToFront(cover);
    phone.push();
    phone.navigation->popViewControllerAnimated(true);
    EXPECT_EQ(view->subviews().back(), phone.root->tNavigationBar()) << "from the first frame of the slide on";
}

// Leaving

TEST(ZRTViewController, TheBackButtonPopsWithASlide) {
    Phone phone;
    const auto second = phone.push();
    phone.host.tap(middleOnScreen(second->tNavigationBar()->backButton()));
    EXPECT_EQ(phone.navigation->topViewController(), phone.root);
    EXPECT_EQ(second->view()->window(), phone.window);
    phone.host.advance(0.34);
    EXPECT_EQ(second->view()->window(), phone.window);
    phone.host.advance(0.02);
    EXPECT_EQ(second->view()->window(), nullptr);
    EXPECT_TRUE(second->dismissals.empty());
}

TEST(ZRTViewController, APopWithoutAnimationIsOne) {
    Phone phone;
    const auto second = phone.push();
    second->popViewControllerWithAnimated(false);
    phone.host.advance(0);
    EXPECT_EQ(phone.navigation->topViewController(), phone.root);
    EXPECT_EQ(second->view()->window(), nullptr);
}

TEST(ZRTViewController, AnyScreenOfTheStackPopsTheTopOne) {
    Phone phone;
    const auto second = phone.push();
    phone.push();
    phone.root->popViewControllerWithAnimated(false);
    EXPECT_EQ(phone.navigation->topViewController(), second);
}

TEST(ZRTViewController, TheOnlyScreenOfAPresentedStackDismissesItAnimatedAnyway) {
    Phone phone;
    auto inner = make<Screen>();
    auto presented = make<UINavigationController>(&UINavigationController::initWithRootViewController, inner);
    phone.root->presentViewController_animated_completion(presented, false, nullptr);
    phone.host.advance(0);
    ASSERT_EQ(inner->view()->window(), phone.window);
    inner->popViewControllerWithAnimated(false);
    EXPECT_EQ(inner->dismissals, std::vector<bool>{true});
    EXPECT_TRUE(inner->hasCompletion);
    phone.host.advance(0.2);
    EXPECT_EQ(inner->view()->window(), phone.window);
    phone.host.advance(0.2);
    EXPECT_EQ(inner->view()->window(), nullptr);
    EXPECT_EQ(presented->viewControllers().size(), 1u);
}

TEST(ZRTViewController, AScreenPresentedByItselfDismissesItselfAnimatedAnyway) {
    Phone phone;
    auto presented = make<Screen>();
    phone.root->presentViewController_animated_completion(presented, false, nullptr);
    phone.host.advance(0);
    EXPECT_EQ(presented->tNavigationBar(), nullptr);
    presented->popViewControllerWithAnimated(false);
    EXPECT_EQ(presented->dismissals, std::vector<bool>{true});
    phone.host.advance(0.2);
    EXPECT_EQ(presented->view()->window(), phone.window);
    phone.host.advance(0.2);
    EXPECT_EQ(presented->view()->window(), nullptr);
    EXPECT_EQ(phone.root->presentedViewController(), nullptr);
}

TEST(ZRTViewController, ASecondPopDuringTheSlideOfTheFirstDismissesNothing) {
    Phone phone;
    auto inner = make<Screen>();
    auto presented = make<UINavigationController>(&UINavigationController::initWithRootViewController, inner);
    phone.root->presentViewController_animated_completion(presented, false, nullptr);
    phone.host.advance(0);
    auto second = make<Screen>();
    presented->pushViewController_animated(second, false);
    phone.host.advance(0);
    second->popViewControllerWithAnimated(true);
    phone.host.advance(0.1);
    second->popViewControllerWithAnimated(true);
    phone.host.advance(1);
    EXPECT_EQ(phone.root->presentedViewController(), presented) << "the one that slides away is a child still";
    EXPECT_TRUE(second->dismissals.empty());
}

TEST(ZRTViewController, TheLastScreenOfAnApplicationStays) {
    Phone phone;
    phone.host.tap(middleOnScreen(phone.root->tNavigationBar()->backButton()));
    phone.host.advance(1);
    EXPECT_EQ(phone.navigation->topViewController(), phone.root);
    EXPECT_EQ(phone.root->view()->window(), phone.window);
    EXPECT_EQ(phone.root->dismissals, std::vector<bool>{true});
}

// Lifetime

TEST(ZRTViewController, GoesWithItsBarWhenItIsPopped) {
    Phone phone;
    Weak<ZRTNavigationBar> bar;
    Weak<Screen> screen;
    {
        const auto second = phone.push();
        screen = second;
        bar = second->tNavigationBar();
    }
    phone.navigation->popViewControllerAnimated(true);
    phone.host.advance(1);
    EXPECT_FALSE(screen.get());
    EXPECT_FALSE(bar.get());
}

TEST(ZRTViewController, ABarThatOutlivesItsScreenHasNobodyToTell) {
    Phone phone;
    Ref<ZRTNavigationBar> bar;
    {
        const auto second = phone.push();
        bar = second->tNavigationBar();
    }
    phone.navigation->popViewControllerAnimated(false);
    phone.host.advance(0);
    EXPECT_EQ(bar->delegate(), nullptr);
    bar->backButtonClicked(bar->backButton());
}

TEST(ZRTViewController, ATitleOfAMegabyteIsShownAsFarAsItGoes) {
    Phone phone;
    phone.host.advance(0);
    const FramePixel green = phone.host.pixel({187, 45});
    phone.root->setTitle(NSString(std::string(1 << 20, 'x')));
    phone.host.advance(0.1);
    const UILabel* label = phone.root->tNavigationBar()->titleLabel();
    EXPECT_EQ(label->text().length(), 1u << 20);
    EXPECT_EQ(label->frame(), CGRectMake(93.75, 30, 187.5, 30));
    int inked = 0;
    for (CGFloat x = 100; x < 270; x += 0.5) {
        for (CGFloat y = 45; y < 55; y += 0.5)
            inked += !(phone.host.pixel({x, y}) == green);
    }
    EXPECT_GT(inked, 100) << "tiny letters all the way";
}

} // namespace zr::testing
