#include <Tests/ZRPlatform/UIKit/Controllers/ControllerTesting.h>

#include <algorithm>
#include <optional>
#include <random>

namespace zr::tests {

namespace {

/// Counts itself, and every message that does not follow from the one before.
class WalkScreen : public UIViewController {
public:
    enum class State { Away, Coming, There, Going };

    WalkScreen() { ++alive; }
    ~WalkScreen() override { --alive; }
    void viewWillAppear(bool animated) override {
        UIViewController::viewWillAppear(animated);
        go(State::Coming, {State::Away, State::Going});
    }
    void viewDidAppear(bool animated) override {
        UIViewController::viewDidAppear(animated);
        go(State::There, {State::Coming});
    }
    void viewWillDisappear(bool animated) override {
        UIViewController::viewWillDisappear(animated);
        go(State::Going, {State::There, State::Coming});
    }
    void viewDidDisappear(bool animated) override {
        UIViewController::viewDidDisappear(animated);
        go(State::Away, {State::Going});
    }

    State state = State::Away;
    static int alive;
    static int mistakes;

private:
    void go(State next, std::initializer_list<State> from) {
        if (std::find(from.begin(), from.end(), state) == from.end())
            ++mistakes;
        state = next;
    }
};

int WalkScreen::alive = 0;
int WalkScreen::mistakes = 0;

/// Tabs with a navigation controller and a plain screen in a window, next to a simple idea of what they should be.
class ControllerWalk : public testing::Test {
protected:
    using Stack = std::vector<Ref<UIViewController>>;

    static DeviceProfile smallPhone() {
        DeviceProfile profile = *DeviceProfile::profileWithDescription("320x480@0.5");
        profile.systemVersion = "8.4";
        return profile;
    }

    HeadlessHost host{smallPhone()};
    std::mt19937 random{20};
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<UITabBarController> tabs = make<UITabBarController>();
    Ref<UINavigationController> navigation = make<UINavigationController>();
    Ref<WalkScreen> plain = make<WalkScreen>();

    // What should be.
    Stack stack;
    Stack presented;
    NSUInteger tab = 0;
    bool visible = true;
    UIInterfaceOrientation orientation = UIInterfaceOrientationPortrait;
    int completions = 0;
    /// The finger holds the top screen of the stack.
    bool held = false;
    /// How many of the presented ones will be left once the dismissal under way has ended, and when that is.
    std::optional<std::size_t> left;
    double leftAt = 0;

    int completionsSeen = 0;

    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    bool toss() { return pick(2) == 0; }
    std::function<void()> counting() {
        return [this] { ++completionsSeen; };
    }
    UIViewController* front() {
        if (!presented.empty())
            return presented.back();
        return tabs;
    }
    /// A change ends what glides: a held screen stays, and what was to go is gone.
    void finishInMind() {
        held = false;
        finishDismissalInMind();
    }
    void finishDismissalInMind() {
        if (left)
            presented.resize(*left);
        left.reset();
    }
    void passInMind() {
        if (left && host.time() >= leftAt)
            finishDismissalInMind();
    }
    void letFingerGo() {
        host.touchCancel();
        held = false;
    }
    void rest() {
        letFingerGo();
        host.advance(1);
        finishInMind();
    }

    // The steps

    void push() {
        held = false;
        stack.emplace_back(make<WalkScreen>());
        navigation->pushViewController_animated(stack.back(), toss());
    }
    void pushAgain() {
        held = false;
        navigation->pushViewController_animated(stack[static_cast<std::size_t>(pick(int(stack.size())))], toss());
    }
    void pop() {
        held = false;
        const bool animated = toss();
        const Ref<UIViewController> popped = navigation->popViewControllerAnimated(animated);
        EXPECT_EQ(popped, stack.size() > 1 ? stack.back() : nullptr);
        if (stack.size() > 1)
            stack.pop_back();
    }
    void popToSome() {
        held = false;
        const auto index = static_cast<std::size_t>(pick(int(stack.size())));
        navigation->popToViewController_animated(stack[index], toss());
        stack.resize(index + 1);
    }
    void shuffle() {
        held = false;
        std::shuffle(stack.begin(), stack.end(), random);
        if (toss())
            stack.emplace_back(make<WalkScreen>());
        else if (stack.size() > 1)
            stack.pop_back();
        navigation->setViewControllers_animated(stack, toss());
    }
    void present() {
        finishInMind();
        auto screen = make<WalkScreen>();
        if (pick(3) == 0)
            screen->setModalTransitionStyle(UIModalTransitionStyleCrossDissolve);
        front()->presentViewController_animated_completion(screen, toss(), counting());
        if (!visible)
            return;
        presented.emplace_back(screen);
        ++completions;
    }
    void presentTwice() {
        if (left.value_or(presented.size()) == 0)
            return;
        finishInMind();
        tabs->presentViewController_animated_completion(make<WalkScreen>(), toss(), counting());
    }
    void dismiss() {
        const bool all = pick(3) == 0;
        const bool animated = toss();
        const bool wasGoing = left.has_value();
        const std::size_t first = presented.empty() ? 0 : all ? 0 : presented.size() - 1;
        // A dismissal of what is going already only ends that; of what lies below it is one of its own.
        const bool isMeantGoing = wasGoing && first >= *left;
        (all ? tabs.get() : front())->dismissViewControllerAnimated_completion(animated, counting());
        ++completions;
        if (presented.empty())
            return;
        held = false;
        finishDismissalInMind();
        if (isMeantGoing)
            return;
        left = std::min(first, presented.size());
        leftAt = host.time() + 0.3;
        if (!animated || !visible)
            finishDismissalInMind();
    }
    void select() {
        const auto next = static_cast<NSUInteger>(pick(2));
        if (next != tab)
            held = false;
        tab = next;
        tabs->setSelectedIndex(next);
    }
    void rotate() {
        const auto next = static_cast<UIInterfaceOrientation>(1 + pick(4));
        // Where no window is visible nobody minds.
        if (next != orientation && (!visible || next != UIInterfaceOrientationPortraitUpsideDown)) {
            finishInMind();
            orientation = next;
        }
        host.application()->setStatusBarOrientation(next);
    }
    void hideOrShow() {
        visible = !visible;
        finishInMind();
        window->setHidden(!visible);
    }
    void takeHold() {
        rest();
        if (!visible || !presented.empty())
            return;
        host.touchDown({5, 200});
        host.touchMove({250, 200}, 0.1);
        held = tab == 0 && stack.size() > 1;
    }
    void letGo() {
        if (!host.isTouching())
            return;
        const bool pops = toss();
        host.touchMove({CGFloat(pops ? 250 : 100), 200});
        host.advance(1);
        finishDismissalInMind();
        host.touchUp();
        if (held && pops)
            stack.pop_back();
        held = false;
    }
    void tapTab() {
        rest();
        if (!visible || !presented.empty())
            return;
        const auto next = static_cast<NSUInteger>(pick(2));
        const CGSize size = window->bounds().size;
        host.tap({size.width * CGFloat(next == 0 ? 0.25 : 0.75), size.height - 20});
        if (next == 0 && tab == 0)
            stack.resize(1);
        tab = next;
    }
    void tapBack() {
        rest();
        if (!visible || !presented.empty())
            return;
        host.tap({20, 40});
        if (tab == 0 && stack.size() > 1)
            stack.pop_back();
    }
    void pass() {
        host.advance(pick(20) / 100.0);
        passInMind();
    }

    void step() {
        static constexpr void (ControllerWalk::*kSteps[])() = {
            &ControllerWalk::push,      &ControllerWalk::push,     &ControllerWalk::pushAgain,
            &ControllerWalk::pop,       &ControllerWalk::pop,      &ControllerWalk::popToSome,
            &ControllerWalk::shuffle,   &ControllerWalk::present,  &ControllerWalk::presentTwice,
            &ControllerWalk::dismiss,   &ControllerWalk::dismiss,  &ControllerWalk::select,
            &ControllerWalk::rotate,    &ControllerWalk::takeHold, &ControllerWalk::letGo,
            &ControllerWalk::tapTab,    &ControllerWalk::tapBack,  &ControllerWalk::pass,
            &ControllerWalk::hideOrShow};
        (this->*kSteps[pick(std::size(kSteps))])();
        host.advance(0);
        passInMind();
    }

    // Whether it is so

    void compare() {
        Stack expected = stack;
        if (held)
            expected.pop_back();
        ASSERT_EQ(navigation->viewControllers(), expected);
        ASSERT_EQ(tabs->selectedIndex(), tab);
        ASSERT_EQ(host.application()->statusBarOrientation(), orientation);
        ASSERT_EQ(WalkScreen::mistakes, 0);
        const UIViewController* each = tabs;
        for (const auto& screen : presented) {
            each = each->presentedViewController();
            ASSERT_EQ(each, screen);
        }
        ASSERT_EQ(each == tabs ? tabs->presentedViewController() : each->presentedViewController(), nullptr);
    }
    void compareAtRest() {
        rest();
        compare();
        ASSERT_EQ(completionsSeen, completions);
        ASSERT_EQ(WalkScreen::alive, int(1 + stack.size() + presented.size())) << "a screen is kept";
        UIViewController* shown = tab == 0 ? stack.back().get() : plain.get();
        if (!presented.empty())
            shown = presented.back();
        Stack all = stack;
        all.insert(all.end(), presented.begin(), presented.end());
        all.emplace_back(plain);
        for (const auto& screen : all) {
            const bool isThere = visible && screen == shown;
            ASSERT_EQ(dynamic_cast<WalkScreen*>(screen.get())->state,
                      isThere ? WalkScreen::State::There : WalkScreen::State::Away);
            const UIView* view = screen->viewIfLoaded();
            ASSERT_EQ(view && view->window(), screen == shown && (visible || view->window()));
        }
        if (!visible)
            return;
        ASSERT_EQ(window->bounds().size, UIScreen::mainScreen()->bounds().size);
        ASSERT_EQ(shown->view()->convertRect_toView(shown->view()->bounds(), nullptr), window->bounds());
        ASSERT_EQ(window->subviews().size(), 1u);
        ASSERT_FALSE(shown->view()->layer()->hasAnimations());
        ASSERT_TRUE(shown->view()->superview()->isUserInteractionEnabled());
    }
};

} // namespace

TEST_F(ControllerWalk, FiveThousandStepsEndWhereASimpleModelDoes) {
    setLogHandler([](std::string_view) {}); // what is refused is logged, thousands of times
    stack.emplace_back(make<WalkScreen>());
    navigation->setViewControllers(stack);
    tabs->setViewControllers({navigation, plain});
    window->setRootViewController(tabs);
    window->makeKeyAndVisible();
    for (int i = 0; i < 5000 && !HasFatalFailure(); ++i) {
        SCOPED_TRACE(i);
        step();
        compare();
        if (i % 10 == 0 && !HasFatalFailure())
            compareAtRest();
        if (stack.size() > 12)
            popToSome();
    }
    setLogHandler(nullptr);
    if (HasFatalFailure())
        return;
    stack.clear();
    presented.clear();
    plain = nullptr;
    tabs = nullptr;
    navigation = nullptr;
    window->setRootViewController(nullptr);
    host.advance(1);
    EXPECT_EQ(WalkScreen::alive, 0);
}

} // namespace zr::tests
