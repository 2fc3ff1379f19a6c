#include <Tests/ZRPlatform/UIKit/Controllers/ControllerTesting.h>

#include <thread>

namespace zr::tests {

namespace {

class UIViewControllerTest : public Controllers {};

class OwnView : public UIViewController {
public:
    void loadView() override {
        if (asksTooEarly)
            early = view();
        if (sets)
            setView(made);
    }

    Ref<UIView> made = make<UIView>();
    UIView* early = nullptr;
    bool sets = true;
    bool asksTooEarly = false;
};

} // namespace

// View

TEST_F(UIViewControllerTest, TheViewIsLoadedOnFirstUseAndOnlyThen) {
    auto screen = makeScreen("A");
    screen->logsLoading = true;
    EXPECT_FALSE(screen->isViewLoaded());
    EXPECT_EQ(screen->viewIfLoaded(), nullptr);
    UIView* view = screen->view();
    EXPECT_TRUE(screen->isViewLoaded());
    EXPECT_EQ(screen->view(), view);
    EXPECT_EQ(news(), (Log{"A loaded"}));
    EXPECT_EQ(view->frame(), UIScreen::mainScreen()->bounds());
    EXPECT_EQ(view->autoresizingMask(), 18u);
}

TEST_F(UIViewControllerTest, AnOverrideOfLoadViewChoosesTheView) {
    auto controller = make<OwnView>();
    EXPECT_EQ(controller->view(), controller->made);
    auto forgetful = make<OwnView>();
    forgetful->sets = false;
    EXPECT_NE(forgetful->view(), nullptr);
    auto hasty = make<OwnView>();
    hasty->asksTooEarly = true;
    EXPECT_EQ(hasty->view(), hasty->made);
    EXPECT_NE(hasty->early, nullptr);
}

TEST_F(UIViewControllerTest, AViewOfAnotherControllerIsTakenFromIt) {
    auto a = makeScreen("A"), b = makeScreen("B");
    const Ref<UIView> view = a->view();
    b->setView(view);
    EXPECT_FALSE(a->isViewLoaded());
    EXPECT_EQ(view->nextResponder(), b);
    b->setView(nullptr);
    EXPECT_EQ(view->nextResponder(), nullptr);
    EXPECT_NE(b->view(), view);
}

TEST_F(UIViewControllerTest, AViewOutlivesItsController) {
    Ref<UIView> view;
    {
        auto screen = makeScreen("A");
        view = screen->view();
        window->addSubview(view);
        window->makeKeyAndVisible();
    }
    EXPECT_EQ(view->nextResponder(), window);
    view->setNeedsLayout();
    host.advance(0);
    view->removeFromSuperview();
    EXPECT_EQ(news(), (Log{"A will appear", "A did appear"}));
}

TEST_F(UIViewControllerTest, ItIsToldAroundTheLayoutOfItsView) {
    class Box : public UIView {
    public:
        void layoutSubviews() override { log->push_back("view lays out"); }
        Log* log = nullptr;
    };
    auto screen = makeScreen("A");
    auto box = make<Box>();
    box->log = &log;
    screen->setView(box);
    screen->logsLayout = true;
    show(screen);
    box->setNeedsLayout();
    host.advance(0);
    EXPECT_EQ(news(), (Log{"A will lay out", "view lays out", "A did lay out"}));
}

TEST_F(UIViewControllerTest, TheLastReleaseMayComeOnAnyThread) {
    auto screen = makeScreen("A");
    screen->view();
    std::thread::id destroyedOn;
    screen->onDestruction = [&] { destroyedOn = std::this_thread::get_id(); };
    std::thread([kept = std::exchange(screen, nullptr)]() mutable { kept = nullptr; }).join();
    host.advance(0);
    EXPECT_EQ(destroyedOn, std::this_thread::get_id());
}

// Responders

TEST_F(UIViewControllerTest, TheResponderChainGoesFromTheViewThroughItsControllerUpwards) {
    auto parent = makeScreen("P"), child = makeScreen("C");
    show(parent);
    auto label = make<UIView>();
    parent->addChildViewController(child);
    parent->view()->addSubview(child->view());
    child->view()->addSubview(label);
    EXPECT_EQ(label->nextResponder(), child->view());
    EXPECT_EQ(child->view()->nextResponder(), child);
    EXPECT_EQ(child->nextResponder(), parent->view());
    EXPECT_EQ(parent->nextResponder(), window);
    EXPECT_EQ(window->nextResponder(), host.application());
}

TEST_F(UIViewControllerTest, TheNextResponderOfAnUnloadedOneLoadsNothing) {
    auto screen = makeScreen("A");
    EXPECT_EQ(screen->nextResponder(), nullptr);
    EXPECT_FALSE(screen->isViewLoaded());
}

TEST_F(UIViewControllerTest, AControllerCanBeFirstResponderInItsWindow) {
    class Typist : public Screen {
    public:
        bool canBecomeFirstResponder() const override { return true; }
    };
    auto typist = make<Typist>();
    EXPECT_FALSE(typist->becomeFirstResponder());
    show(typist);
    EXPECT_TRUE(typist->becomeFirstResponder());
    EXPECT_EQ(window->firstResponder(), typist);
    window->setRootViewController(nullptr);
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UIViewControllerTest, AnActionWithoutTargetReachesTheControllerOfTheButton) {
    class Taker : public Screen {
    public:
        void taken() { ++times; }
        int times = 0;
    };
    auto taker = make<Taker>();
    show(taker);
    auto button = make<UIButton>(&UIButton::initWithFrame, CGRectMake(0, 0, 100, 100));
    button->addTarget_action_forControlEvents(nullptr, selector<&Taker::taken>, UIControlEventTouchUpInside);
    taker->view()->addSubview(button);
    host.tap({50, 50});
    EXPECT_EQ(taker->times, 1);
}

// Names and keys

TEST_F(UIViewControllerTest, TheTitleIsAlsoThatOfItsItems) {
    auto before = make<UIViewController>();
    before->setTitle("one");
    EXPECT_EQ(before->navigationItem()->title(), "one");
    EXPECT_EQ(before->tabBarItem()->title(), "one");
    before->setTitle("two");
    EXPECT_EQ(before->navigationItem()->title(), "two");
    EXPECT_EQ(before->tabBarItem()->title(), "two");
}

TEST_F(UIViewControllerTest, KeysReadAndWriteIt) {
    auto screen = make<UIViewController>();
    screen->setValue_forKey("hello", "title");
    EXPECT_EQ(screen->title(), "hello");
    EXPECT_FALSE(screen->valueForKey("viewLoaded").boolValue());
    EXPECT_EQ(screen->valueForKeyPath("view.alpha").doubleValue(), 1);
    EXPECT_TRUE(screen->isViewLoaded());
    EXPECT_TRUE(screen->respondsToSelector("setTitle:"));
    EXPECT_TRUE(screen->valueForKey("parentViewController").isNil());
    EXPECT_EQ(screen->valueForKey("edgesForExtendedLayout").integerValue(), 15);
    const auto other = make<UIView>();
    screen->setValue_forKey(other, "view");
    EXPECT_EQ(screen->view(), other.get());
    EXPECT_EQ(other->nextResponder(), screen.get());
}

TEST_F(UIViewControllerTest, BothInitialisersMakeTheSameController) {
    auto screen = make<Screen>(&Screen::initWithNibName_bundle, "NoSuchNib", nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_FALSE(screen->isViewLoaded());
    EXPECT_TRUE(screen->automaticallyAdjustsScrollViewInsets());
    EXPECT_EQ(screen->edgesForExtendedLayout(), UIRectEdgeAll);
    EXPECT_EQ(screen->modalTransitionStyle(), UIModalTransitionStyleCoverVertical);
}

TEST_F(UIViewControllerTest, EveryControllerIsToldOfAMemoryWarningOnce) {
    auto a = makeScreen("A"), b = makeScreen("B");
    a->init(); // as an initialiser that calls another would
    b = nullptr;
    NSNotificationCenter::defaultCenter()->postNotificationName_object(UIApplicationDidReceiveMemoryWarningNotification,
                                                                       host.application());
    EXPECT_EQ(news(), (Log{"A memory warning"}));
}

} // namespace zr::tests
