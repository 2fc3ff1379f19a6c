#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

/// The messages of two changes of a stack are the same, and in the same order, whether the second one waits for the end
/// of the first or comes in the middle of it.
class InterruptedChange : public Navigation {
protected:
    struct Change {
        const char* name;
        std::function<void()> begin;
    };

    Ref<Screen> d = makeScreen("D");
    Ref<Screen> m = makeScreen("M");
    Ref<Screen> other = makeScreen("R");

    /// A, B and C in the stack; nothing else anywhere.
    void startAgain() {
        host.touchCancel();
        host.rotate(UIInterfaceOrientationPortrait);
        window->setHidden(false);
        window->setRootViewController(navigation);
        navigation->dismissViewControllerAnimated_completion(false, nullptr);
        navigation->setViewControllers({a, b, c});
        host.advance(1);
        news();
    }
    std::function<void()> noting(const char* line) {
        return [this, line] { log.emplace_back(line); };
    }
    /// Carries the top screen beyond the half or not, and lets go.
    void swipe(CGFloat x) {
        host.touchDown({5, 300});
        host.touchMove({x, 300});
        host.advance(1); // no speed left
        host.touchUp();
    }
    std::vector<Change> stackChanges(bool animated) {
        return {{"push", [=, this] { navigation->pushViewController_animated(d, animated); }},
                {"pop", [=, this] { navigation->popViewControllerAnimated(animated); }},
                {"pop to B", [=, this] { navigation->popToViewController_animated(b, animated); }},
                {"pop to root", [=, this] { navigation->popToRootViewControllerAnimated(animated); }},
                {"set as a push",
                 [=, this] {
                     navigation->setViewControllers_animated({a, d}, animated);
                 }},
                {"set as a pop",
                 [=, this] {
                     navigation->setViewControllers_animated({b, a}, animated);
                 }},
                {"set none", [=, this] { navigation->setViewControllers_animated({}, animated); }}};
    }
    Change present(bool animated) {
        return {"present",
                [=, this] { navigation->presentViewController_animated_completion(m, animated, noting("done")); }};
    }
    Change dismiss(bool animated) {
        return {"dismiss",
                [=, this] { navigation->dismissViewControllerAnimated_completion(animated, noting("gone")); }};
    }
    std::vector<Change> windowChanges() {
        return {{"hide", [this] { window->setHidden(true); }},
                {"another root", [this] { window->setRootViewController(other); }},
                {"turn", [this] { host.rotate(UIInterfaceOrientationLandscapeLeft); }}};
    }
    static std::vector<Change> both(std::vector<Change> first, const std::vector<Change>& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }
    Log messages(const Change& first, const Change& second, NSTimeInterval between) {
        startAgain();
        first.begin();
        host.advance(between);
        second.begin();
        host.advance(1);
        return news();
    }
    void compareAll(const std::vector<Change>& firsts, const std::vector<Change>& seconds) {
        for (const Change& first : firsts) {
            for (const Change& second : seconds) {
                SCOPED_TRACE(std::string(second.name) + " in the middle of " + first.name);
                const Log interrupted = messages(first, second, 0.1);
                const std::size_t children = navigation->childViewControllers().size();
                EXPECT_EQ(children, navigation->viewControllers().size());
                EXPECT_EQ(interrupted, messages(first, second, 1));
                EXPECT_FALSE(interrupted.empty());
            }
        }
    }
    void SetUp() override {
        Navigation::SetUp();
        show(navigation);
        logEverything();
        d->logsMoves = true;
    }
};

} // namespace

TEST_F(InterruptedChange, AnyChangeInTheMiddleOfASlide) {
    for (const bool animated : {true, false})
        compareAll(stackChanges(true), both(stackChanges(animated), both({present(animated)}, windowChanges())));
}

TEST_F(InterruptedChange, AnyChangeWhileAScreenThatWasLetGoGlidesOn) {
    const std::vector<Change> swipes{{"a swipe that pops", [this] { swipe(205); }},
                                     {"a swipe that does not", [this] { swipe(155); }}};
    for (const bool animated : {true, false})
        compareAll(swipes, both(stackChanges(animated), both({present(animated)}, windowChanges())));
}

TEST_F(InterruptedChange, AnyChangeOfTheWindowInTheMiddleOfAPresentation) {
    for (const bool animated : {true, false})
        compareAll({present(true)}, both({dismiss(animated)}, windowChanges()));
}

TEST_F(InterruptedChange, AnyChangeOfTheWindowInTheMiddleOfADismissal) {
    const Change dismissal{"dismiss", [this] {
                               present(false).begin();
                               news();
                               dismiss(true).begin();
                           }};
    for (const bool animated : {true, false})
        compareAll({dismissal}, both({present(animated)}, windowChanges()));
}

} // namespace zr::tests
