#include <Tests/ZRPlatform/UIKit/Controllers/ControllerTesting.h>

namespace zr::tests {

namespace {

class Containment : public Controllers {
protected:
    Ref<Screen> parent = makeScreen("P");
    Ref<Screen> child = makeScreen("C");
};

/// Tells its children of their appearance by itself.
class Manual : public Screen {
public:
    bool shouldAutomaticallyForwardAppearanceMethods() const override { return false; }
};

} // namespace

TEST_F(Containment, AChildIsKeptAndKnowsItsParentFromAddingToRemoval) {
    child->logsMoves = true;
    parent->addChildViewController(child);
    EXPECT_EQ(child->parentViewController(), parent);
    ASSERT_EQ(parent->childViewControllers().size(), 1u);
    EXPECT_EQ(news(), (Log{"C will move in"}));
    EXPECT_TRUE(child->isMovingToParentViewController());
    child->didMoveToParentViewController(parent);
    EXPECT_FALSE(child->isMovingToParentViewController());
    child->willMoveToParentViewController(nullptr);
    EXPECT_TRUE(child->isMovingFromParentViewController());
    child->removeFromParentViewController();
    EXPECT_EQ(news(), (Log{"C did move in", "C will move out", "C did move out"}));
    EXPECT_FALSE(child->isMovingFromParentViewController());
    EXPECT_EQ(child->parentViewController(), nullptr);
    EXPECT_TRUE(parent->childViewControllers().empty());
    child->removeFromParentViewController();
    EXPECT_EQ(news(), (Log{}));
}

TEST_F(Containment, NilRingsRootsAndPresentedOnesBecomeNoChildren) {
    parent->addChildViewController(nullptr);
    parent->addChildViewController(parent);
    parent->addChildViewController(child);
    parent->addChildViewController(child);
    child->addChildViewController(parent);
    EXPECT_EQ(parent->childViewControllers().size(), 1u);
    EXPECT_TRUE(child->childViewControllers().empty());
    auto root = makeScreen("R"), presented = makeScreen("M");
    show(root);
    root->presentViewController_animated_completion(presented, false, nullptr);
    parent->addChildViewController(root);
    parent->addChildViewController(presented);
    EXPECT_EQ(parent->childViewControllers().size(), 1u);
}

TEST_F(Containment, AChildOfAnotherIsRemovedFromItFirst) {
    auto other = makeScreen("O");
    parent->addChildViewController(child);
    child->logsMoves = true;
    other->addChildViewController(child);
    EXPECT_EQ(news(), (Log{"C did move out", "C will move in"}));
    EXPECT_TRUE(parent->childViewControllers().empty());
    EXPECT_EQ(child->parentViewController(), other);
}

TEST_F(Containment, AChildOutlivesItsParentAlone) {
    parent->addChildViewController(child);
    parent = nullptr;
    EXPECT_EQ(child->parentViewController(), nullptr);
}

TEST_F(Containment, ChildrenAppearWithTheirParentAfterIt) {
    parent->addChildViewController(child);
    parent->view()->addSubview(child->view());
    child->didMoveToParentViewController(parent);
    window->setRootViewController(parent);
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"P will appear", "C will appear", "P did appear", "C did appear"}));
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{"P will disappear", "C will disappear", "P did disappear", "C did disappear"}));
}

TEST_F(Containment, AChildWhoseViewIsElsewhereDoesNotAppear) {
    parent->addChildViewController(child);
    show(parent);
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{"P will disappear", "P did disappear"}));
    EXPECT_FALSE(child->isViewLoaded());
}

TEST_F(Containment, AChildAppearsWhenItsViewComesIntoAnAppearedParent) {
    show(parent);
    parent->addChildViewController(child);
    parent->view()->addSubview(child->view());
    EXPECT_EQ(news(), (Log{"C will appear", "C did appear"}));
    child->view()->removeFromSuperview();
    EXPECT_EQ(news(), (Log{"C will disappear", "C did disappear"}));
}

TEST_F(Containment, AChildAddedWhileItsParentAppearsAppearsWithIt) {
    parent->act = [&](const std::string& what) {
        if (what != "will appear")
            return;
        parent->addChildViewController(child);
        parent->view()->addSubview(child->view());
    };
    window->setRootViewController(parent);
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"P will appear", "C will appear", "P did appear", "C did appear"}));
}

TEST_F(Containment, AChildTakenOutWhileItsParentDisappearsIsToldOnce) {
    parent->addChildViewController(child);
    parent->view()->addSubview(child->view());
    show(parent);
    parent->act = [&](const std::string& what) {
        if (what == "will disappear")
            child->view()->removeFromSuperview();
    };
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{"P will disappear", "C will disappear", "P did disappear", "C did disappear"}));
}

TEST_F(Containment, AChildRemovedWhileItsParentGoesIsToldToTheEnd) {
    child->logsMoves = true;
    parent->addChildViewController(child);
    parent->view()->addSubview(child->view());
    child->didMoveToParentViewController(parent);
    show(parent);
    parent->presentViewController_animated_completion(makeScreen("M"), true, nullptr);
    host.advance(0.1);
    EXPECT_EQ(news(), (Log{"P will disappear animated", "C will disappear animated", "M will appear animated"}));
    child->willMoveToParentViewController(nullptr);
    child->view()->removeFromSuperview();
    child->removeFromParentViewController();
    EXPECT_EQ(news(), (Log{"C will move out", "C did disappear animated", "C did move out"}));
    host.advance(1);
    EXPECT_EQ(news(), (Log{"M did appear animated", "P did disappear animated"}));
}

TEST_F(Containment, AChildWhoseParentIsTakenFromItWhileBothAppearHasAppeared) {
    parent->addChildViewController(child);
    parent->view()->addSubview(child->view());
    parent->act = [&](const std::string& what) {
        if (what == "did appear")
            child->removeFromParentViewController();
    };
    window->setRootViewController(parent);
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"P will appear", "C will appear", "P did appear", "C did appear"}));
    window->setRootViewController(nullptr);
    EXPECT_EQ(news(), (Log{"P will disappear", "C will disappear", "C did disappear", "P did disappear"}));
}

TEST_F(Containment, AContainerMayTellItsChildrenItself) {
    auto manual = makeScreen<Manual>("M");
    show(manual);
    manual->addChildViewController(child);
    manual->view()->addSubview(child->view());
    EXPECT_EQ(news(), (Log{}));
    child->endAppearanceTransition();
    EXPECT_EQ(news(), (Log{}));
    child->beginAppearanceTransition_animated(true, true);
    child->beginAppearanceTransition_animated(true, true);
    EXPECT_EQ(news(), (Log{"C will appear animated"}));
    child->beginAppearanceTransition_animated(false, false);
    child->endAppearanceTransition();
    child->endAppearanceTransition();
    EXPECT_EQ(news(), (Log{"C will disappear", "C did disappear"}));
    window->setHidden(true);
    EXPECT_EQ(news(), (Log{"M will disappear", "M did disappear"}));
}

TEST_F(Containment, OneChildTakesAnothersPlace) {
    auto second = makeScreen("D");
    parent->addChildViewController(child);
    parent->addChildViewController(second);
    parent->view()->addSubview(child->view());
    show(parent);
    bool finished = false;
    second->view()->setAlpha(0);
    parent->transitionFromViewController_toViewController_duration_options_animations_completion(
        child, second, 0.4, 0, [&] { second->view()->setAlpha(1); }, [&](bool done) { finished = done; });
    EXPECT_EQ(news(), (Log{"C will disappear animated", "D will appear animated"}));
    host.advance(0.2);
    EXPECT_NEAR(second->view()->layer()->presentationValues().opacity, 0.5, 1e-6);
    EXPECT_FALSE(finished);
    host.advance(0.2);
    EXPECT_TRUE(finished);
    EXPECT_EQ(news(), (Log{"C did disappear animated", "D did appear animated"}));
    EXPECT_EQ(child->view()->superview(), nullptr);
    parent->transitionFromViewController_toViewController_duration_options_animations_completion(
        child, makeScreen("X"), 0.4, 0, nullptr, [&](bool) { FAIL() << "X is no child"; });
    host.advance(1);
}

} // namespace zr::tests
