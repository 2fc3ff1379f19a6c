#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

class NavigationBar : public Navigation {
protected:
    /// The first view of a class in the bar that can be seen, other than in what glides away.
    template <class T>
    T* find(UIView* view) {
        if (view->isHidden())
            return nullptr;
        if (auto* found = dynamic_cast<T*>(view))
            return found;
        for (auto subview = view->subviews().rbegin(); subview != view->subviews().rend(); ++subview) {
            if (T* found = find<T>(*subview))
                return found;
        }
        return nullptr;
    }
    UINavigationBar* bar() { return navigation->navigationBar(); }
};

} // namespace

TEST_F(NavigationBar, ItIsFortyFourPointsHighUnderTheStatusBar) {
    show(navigation);
    EXPECT_EQ(bar()->frame(), CGRectMake(0, 20, 375, 44));
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 375, 667));
    EXPECT_EQ(host.pixel({187, 10}), (FramePixel{247, 247, 247})) << "its colour reaches up under the status bar";
    EXPECT_EQ(host.pixel({187, 66}), (FramePixel{255, 0, 0}));
}

TEST_F(NavigationBar, AScreenThatDoesNotExtendBelowItBeginsUnderIt) {
    a->setEdgesForExtendedLayout(UIRectEdgeNone);
    show(navigation);
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 64, 375, 603));
    navigation->setNavigationBarHidden(true);
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 375, 667));
}

TEST_F(NavigationBar, AScreenMayChooseItsEdgesAsItsViewIsLoaded) {
    const CGRect below = CGRectMake(0, 64, 375, 603);
    const auto root = makeScreen<CarefulScreen>("root"), pushed = makeScreen<CarefulScreen>("pushed");
    navigation->view(); // loaded before anything shows
    navigation->setViewControllers({root});
    EXPECT_EQ(root->view()->frame(), below);
    show(navigation);
    EXPECT_EQ(root->view()->frame(), below);
    pushAtOnce(pushed);
    EXPECT_EQ(pushed->view()->frame(), below);
}

TEST_F(NavigationBar, OtherEdgesOfTheScreenThatShowsCountAtOnce) {
    show(navigation);
    a->setEdgesForExtendedLayout(UIRectEdgeNone);
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 64, 375, 603));
    a->setEdgesForExtendedLayout(UIRectEdgeTop);
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 375, 667));
    navigation->pushViewController_animated(b, true);
    host.advance(0.1);
    b->setEdgesForExtendedLayout(UIRectEdgeNone);
    host.advance(1);
    EXPECT_EQ(b->view()->frame(), CGRectMake(0, 64, 375, 603)) << "also while it slides in";
}

TEST_F(NavigationBar, HidingItsViewChangesNoLayout) {
    a->setEdgesForExtendedLayout(UIRectEdgeNone);
    show(navigation);
    navigation->setNavigationBarHidden(false);
    bar()->setHidden(true);
    host.advance(0);
    EXPECT_FALSE(navigation->isNavigationBarHidden());
    EXPECT_EQ(bar()->frame(), CGRectMake(0, 20, 375, 44));
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 64, 375, 603));
    navigation->setNavigationBarHidden(false);
    EXPECT_TRUE(bar()->isHidden());
}

TEST_F(NavigationBar, ItSlidesOverTheUpperEdge) {
    show(navigation);
    navigation->setNavigationBarHidden_animated(true, true);
    EXPECT_TRUE(navigation->isNavigationBarHidden());
    host.advance(0.1);
    EXPECT_NEAR(seenOrigin(bar()).y, -12, 1e-4);
    host.advance(0.1);
    EXPECT_EQ(seenOrigin(bar()).y, -44);
    EXPECT_EQ(host.pixel({187, 10}), (FramePixel{255, 0, 0}));
    navigation->setNavigationBarHidden_animated(false, true);
    host.advance(0.1);
    EXPECT_NEAR(seenOrigin(bar()).y, -12, 1e-4);
    host.advance(0.1);
    EXPECT_EQ(seenOrigin(bar()).y, 20);
}

TEST_F(NavigationBar, TheTitleStandsInTheMiddleAndFollowsTheScreens) {
    a->setTitle("First");
    show(navigation);
    auto* label = find<UILabel>(bar());
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "First");
    EXPECT_NEAR(label->convertPoint_toView({label->bounds().size.width / 2, 0}, bar()).x, 187.5, 0.51);
    a->setTitle("Second");
    EXPECT_EQ(find<UILabel>(bar())->text(), "Second");
    auto box = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 30, 20));
    a->navigationItem()->setTitleView(box);
    host.advance(0);
    EXPECT_EQ(box->convertPoint_toView({0, 0}, bar()), CGPointMake(172.5, 12));
}

TEST_F(NavigationBar, TheBackButtonNamesTheScreenBelowAndPops) {
    a->setTitle("First");
    show(navigation);
    EXPECT_EQ(find<UIButton>(bar()), nullptr);
    pushAtOnce(b);
    auto* button = find<UIButton>(bar());
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->currentTitle(), "‹ First");
    EXPECT_EQ(bar()->topItem(), b->navigationItem());
    EXPECT_EQ(bar()->backItem(), a->navigationItem());
    host.tap({20, 42});
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    host.advance(1);
    EXPECT_EQ(find<UIButton>(bar()), nullptr);
}

TEST_F(NavigationBar, TheBackButtonMayBeNamedHiddenOrReplaced) {
    class Taker : public NSObject {
    public:
        void taken(NSObject* item) { sender = item; }
        NSObject* sender = nullptr;
    };
    show(navigation);
    pushAtOnce(b);
    EXPECT_EQ(find<UIButton>(bar())->currentTitle(), "‹ Back");
    auto name = make<UIBarButtonItem>(&UIBarButtonItem::initWithTitle_style_target_action, "Home",
                                      UIBarButtonItemStylePlain, nullptr, nullptr);
    a->navigationItem()->setBackBarButtonItem(name);
    EXPECT_EQ(find<UIButton>(bar())->currentTitle(), "‹ Home");
    b->navigationItem()->setHidesBackButton(true);
    EXPECT_EQ(find<UIButton>(bar()), nullptr);
    auto taker = make<Taker>();
    auto left = make<UIBarButtonItem>(&UIBarButtonItem::initWithTitle_style_target_action, "Menu",
                                      UIBarButtonItemStyleDone, taker, selector<&Taker::taken>);
    b->navigationItem()->setLeftBarButtonItem(left);
    host.advance(0);
    EXPECT_EQ(find<UIButton>(bar())->currentTitle(), "Menu");
    host.tap({20, 42});
    EXPECT_EQ(taker->sender, left);
    EXPECT_EQ(navigation->topViewController(), b);
    taker->sender = nullptr;
    left->setEnabled(false);
    host.tap({20, 42});
    EXPECT_EQ(taker->sender, nullptr);
    taker = nullptr;
    left->setEnabled(true);
    host.tap({20, 42}); // nobody is there any more
}

TEST_F(NavigationBar, ARightItemMayBeAnyView) {
    auto box = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 30, 20));
    a->navigationItem()->setRightBarButtonItem(make<UIBarButtonItem>(&UIBarButtonItem::initWithCustomView, box));
    show(navigation);
    EXPECT_EQ(box->convertPoint_toView({0, 0}, bar()), CGPointMake(337, 12));
    a->navigationItem()->setRightBarButtonItem(make<UIBarButtonItem>(&UIBarButtonItem::initWithCustomView, nullptr));
    EXPECT_EQ(box->superview(), nullptr);
}

TEST_F(NavigationBar, TitlesFadeIntoOneAnother) {
    a->setTitle("First");
    b->setTitle("Second");
    show(navigation);
    const Ref<UIView> first = find<UILabel>(bar())->superview();
    navigation->pushViewController_animated(b, true);
    host.advance(0.175);
    const Ref<UIView> second = bar()->subviews().back();
    ASSERT_NE(first, second);
    EXPECT_NEAR(first->layer()->presentationValues().opacity, 0.5, 1e-4);
    EXPECT_NEAR(second->layer()->presentationValues().opacity, 0.5, 1e-4);
    EXPECT_LT(seenOrigin(first).x, 0);
    EXPECT_GT(seenOrigin(second).x, 0);
    host.advance(0.175);
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(seenOrigin(second), CGPointMake(0, 0));
}

TEST_F(NavigationBar, ItFollowsTheStatusBar) {
    show(navigation);
    host.application()->setStatusBarHidden(true);
    EXPECT_EQ(bar()->frame(), CGRectMake(0, 0, 375, 44));
    host.application()->setStatusBarHidden_withAnimation(false, UIStatusBarAnimationSlide);
    EXPECT_EQ(bar()->frame(), CGRectMake(0, 20, 375, 44));
    host.advance(0.175);
    EXPECT_NEAR(seenOrigin(bar()).y, 10, 1e-4);
}

TEST_F(NavigationBar, ItsColourReachesUpUnderAStatusBarThatComesLater) {
    host.application()->setStatusBarHidden(true);
    show(navigation);
    host.application()->setStatusBarHidden_withAnimation(false, UIStatusBarAnimationSlide);
    host.advance(0.35);
    EXPECT_EQ(host.pixel({187, 10}), (FramePixel{247, 247, 247}));
}

TEST_F(NavigationBar, ItTakesItsColours) {
    a->setTitle("First");
    show(navigation);
    bar()->setBarTintColor(UIColor::blueColor());
    bar()->setTitleColor(UIColor::yellowColor());
    EXPECT_EQ(host.pixel({10, 40}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(find<UILabel>(bar())->textColor(), UIColor::yellowColor());
    bar()->setBarTintColor(nullptr);
    EXPECT_EQ(host.pixel({10, 40}), (FramePixel{247, 247, 247}));
}

} // namespace zr::tests
