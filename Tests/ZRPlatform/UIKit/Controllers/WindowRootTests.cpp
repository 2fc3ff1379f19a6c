#include <Tests/ZRPlatform/UIKit/Controllers/ControllerTesting.h>

namespace zr::tests {

namespace {

class WindowRoot : public Controllers {};

} // namespace

TEST_F(WindowRoot, ItsViewIsLoadedWhenTheWindowShowsAndFillsIt) {
    auto a = makeScreen("A");
    a->logsLoading = true;
    window->setRootViewController(a);
    EXPECT_EQ(window->rootViewController(), a);
    EXPECT_FALSE(a->isViewLoaded());
    EXPECT_EQ(news(), (Log{}));
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"A loaded", "A will appear", "A did appear"}));
    EXPECT_EQ(a->view()->superview(), window);
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 375, 667));
}

TEST_F(WindowRoot, ItAppearsAndDisappearsWithTheWindow) {
    auto a = makeScreen("A");
    show(a);
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{"A will disappear", "A did disappear"}));
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{}));
    window->setHidden(false);
    EXPECT_EQ(news(), (Log{"A will appear", "A did appear"}));
}

TEST_F(WindowRoot, ItIsLaidOutBeforeItHasAppeared) {
    auto a = makeScreen("A");
    a->logsLayout = true;
    window->setRootViewController(a);
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"A will appear", "A will lay out", "A did lay out", "A did appear"}));
}

TEST_F(WindowRoot, AnotherOneTakesItsPlaceBelowTheOtherSubviews) {
    auto a = makeScreen("A"), b = makeScreen("B");
    show(a);
    auto overlay = make<UIView>();
    window->addSubview(overlay);
    window->setRootViewController(b);
    EXPECT_EQ(news(), (Log{"A will disappear", "A did disappear", "B will appear", "B did appear"}));
    EXPECT_EQ(a->view()->superview(), nullptr);
    EXPECT_EQ(window->subviews().front(), b->view());
    EXPECT_EQ(window->subviews().back(), overlay);
    window->setRootViewController(nullptr);
    EXPECT_EQ(news(), (Log{"B will disappear", "B did disappear"}));
    EXPECT_EQ(window->rootViewController(), nullptr);
}

TEST_F(WindowRoot, ItDisappearsWhenTheWindowGoes) {
    auto a = makeScreen("A");
    show(a);
    window = nullptr;
    EXPECT_EQ(news(), (Log{"A will disappear", "A did disappear"}));
    EXPECT_EQ(a->nextResponder(), nullptr);
}

TEST_F(WindowRoot, ItIsReleasedWithTheWindow) {
    auto a = makeScreen("A");
    bool gone = false;
    a->onDestruction = [&] { gone = true; };
    show(a);
    a = nullptr;
    EXPECT_FALSE(gone);
    window = nullptr;
    EXPECT_TRUE(gone);
}

TEST_F(WindowRoot, OneControllerIsTheRootOfOneWindow) {
    auto a = makeScreen("A");
    show(a);
    auto other = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 100, 100));
    other->makeKeyAndVisible();
    other->setRootViewController(a);
    EXPECT_EQ(window->rootViewController(), nullptr);
    EXPECT_EQ(a->view()->superview(), other);
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 100, 100));
    EXPECT_EQ(news(), (Log{"A will disappear", "A did disappear", "A will appear", "A did appear"}));
}

TEST_F(WindowRoot, AChildIsNoRoot) {
    auto a = makeScreen("A"), b = makeScreen("B");
    a->addChildViewController(b);
    show(a);
    window->setRootViewController(b);
    EXPECT_EQ(window->rootViewController(), a);
}

TEST_F(WindowRoot, AnotherRootAskedForInACallbackComesWhenTheFirstHasAppeared) {
    auto a = makeScreen("A"), b = makeScreen("B");
    a->act = [&](const std::string& what) {
        if (what == "will appear")
            window->setRootViewController(b);
    };
    window->setRootViewController(a);
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"A will appear", "A did appear", "A will disappear", "A did disappear", "B will appear",
                           "B did appear"}));
    EXPECT_EQ(window->subviews().size(), 1u);
}

TEST_F(WindowRoot, AScreenDroppedInItsOwnCallbackIsToldToTheEnd) {
    auto a = makeScreen("A");
    bool gone = false;
    a->onDestruction = [&] { gone = true; };
    a->act = [&](const std::string& what) {
        if (what == "will appear")
            window->setRootViewController(nullptr);
    };
    window->setRootViewController(a);
    a = nullptr;
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"A will appear", "A did appear", "A will disappear", "A did disappear"}));
    EXPECT_TRUE(gone);
}

TEST_F(WindowRoot, AControllerWhoseViewIsAddedByHandAppearsToo) {
    auto a = makeScreen("A");
    window->addSubview(a->view());
    EXPECT_EQ(news(), (Log{}));
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"A will appear", "A did appear"}));
    a->view()->removeFromSuperview();
    EXPECT_EQ(news(), (Log{"A will disappear", "A did disappear"}));
    window->addSubview(a->view());
    EXPECT_EQ(news(), (Log{"A will appear", "A did appear"}));
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{"A will disappear", "A did disappear"}));
}

TEST_F(WindowRoot, KeysReachIt) {
    auto a = makeScreen("A");
    window->setValue_forKey(NSValue(a), "rootViewController");
    EXPECT_EQ(window->rootViewController(), a);
}

} // namespace zr::tests
