#include <Tests/ZRPlatform/UIKit/Controllers/ControllerWalkTesting.h>

#include <optional>
#include <random>

namespace zr::tests {

namespace {

using State = WalkScreen::State;

constexpr int kSteps = 10000;
constexpr std::size_t kHighestStack = 12;

class WalkListener : public NSObject, public UINavigationControllerDelegate {
public:
    void navigationController_didShowViewController_animated(UINavigationController*, UIViewController* screen,
                                                             bool) override {
        shown = screen;
    }

    Weak<UIViewController> shown;
};

/// Tabs with a navigation controller and a plain screen in a window, next to a simple idea of what they should be. The
/// parameter is the seed of the steps.
class ControllerWalk : public testing::TestWithParam<unsigned> {
protected:
    using Stack = std::vector<Ref<UIViewController>>;

    static DeviceProfile smallPhone() {
        DeviceProfile profile = *DeviceProfile::profileWithDescription("320x480@0.5");
        profile.systemVersion = "8.4";
        return profile;
    }

    HeadlessHost host{smallPhone()};
    std::mt19937 random{GetParam()};
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<UITabBarController> tabs = make<UITabBarController>();
    Ref<UINavigationController> navigation = make<UINavigationController>();
    Ref<WalkScreen> plain = make<WalkScreen>();
    Ref<WalkListener> listener = make<WalkListener>();

    // What should be.
    Stack stack;
    Stack presented;
    Stack children;
    NSUInteger tab = 0;
    bool isVisible = true;
    bool isRooted = true;
    UIInterfaceOrientation orientation = UIInterfaceOrientationPortrait;
    int completions = 0;
    /// What the finger carries, no longer in the stack, and the screen below it.
    Ref<UIViewController> held;
    Weak<UIViewController> heldOver;
    /// How many of the presented ones will be left once the dismissal under way has ended, and when that is.
    std::optional<std::size_t> left;
    double leftAt = 0;
    /// What wishes asked for at some time, to be done behind what was under way.
    std::vector<std::pair<double, std::function<void()>>> waiting;

    int completionsSeen = 0;
    /// In half of the walks.
    bool hasWishes = GetParam() % 2 == 0;
    int wishesGranted = 0;

    void SetUp() override {
        WalkScreen::alive = 1;
        WalkScreen::mistake.clear();
        WalkScreen::isStrict = true;
        setLogHandler([](std::string_view) {}); // what is refused is logged, thousands of times
        stack.emplace_back(makeScreen());
        navigation->setDelegate(listener);
        navigation->setViewControllers(stack);
        tabs->setViewControllers({navigation, plain});
        window->setRootViewController(tabs);
        window->makeKeyAndVisible();
        settle();
    }
    void TearDown() override { setLogHandler(nullptr); }

    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    bool toss() { return pick(2) == 0; }
    std::size_t pickFromStack() { return static_cast<std::size_t>(pick(static_cast<int>(stack.size()))); }
    std::function<void()> counting() {
        return [this] { ++completionsSeen; };
    }
    bool isOnScreen() const { return isVisible && isRooted; }
    UIViewController* front() { return presented.empty() ? tabs.get() : presented.back().get(); }
    /// The screen that a finger in the middle finds when nothing glides.
    UIViewController* foremost() {
        if (!presented.empty())
            return presented.back();
        return tab == 0 ? stack.back().get() : plain.get();
    }

    // Wishes

    Ref<WalkScreen> makeScreen() {
        auto screen = make<WalkScreen>();
        if (!hasWishes || pick(4) != 0)
            return screen;
        static constexpr void (ControllerWalk::*kWishes[])() = {&ControllerWalk::wishPush, &ControllerWalk::wishPop,
                                                                &ControllerWalk::wishTab, &ControllerWalk::wishPresent,
                                                                &ControllerWalk::wishDismiss};
        const auto wish = kWishes[pick(std::size(kWishes))];
        screen->wishState = static_cast<State>(pick(4));
        screen->wish = [this, wish] {
            ++wishesGranted;
            (this->*wish)();
        };
        return screen;
    }
    void forgetWishes() {
        for (const auto& screen : everybody())
            asWalkScreen(screen)->wish = nullptr;
    }
    void later(std::function<void()> change) { waiting.emplace_back(host.time(), std::move(change)); }
    void wishPush() {
        stack.emplace_back(makeScreen());
        navigation->pushViewController_animated(stack.back(), toss());
    }
    void wishPop() { popAnimated(toss()); }
    void wishTab() {
        tab = 1 - tab;
        tabs->setSelectedIndex(tab);
    }
    void wishPresent() {
        const auto screen = makeScreen();
        tabs->presentViewController_animated_completion(screen, toss(), counting());
        later([this, screen] {
            finishInMind();
            if (presented.empty())
                presentInMind(screen);
        });
    }
    void wishDismiss() {
        const bool animated = toss();
        tabs->dismissViewControllerAnimated_completion(animated, counting());
        later([this, animated, now = host.time()] { dismissInMind(0, animated, now); });
    }

    // What changes make of one another

    void letHeldStay() {
        if (held && heldOver.get() == stack.back())
            stack.push_back(held);
        held = nullptr;
    }
    void finishDismissalInMind() {
        if (left)
            presented.resize(*left);
        left.reset();
    }
    /// A change ends what glides: a held screen stays, and what was to go is gone.
    void finishInMind() {
        letHeldStay();
        finishDismissalInMind();
    }
    void passInMind(double time) {
        if (left && time >= leftAt)
            finishDismissalInMind();
    }
    void presentInMind(UIViewController* screen) {
        if (!isOnScreen())
            return;
        presented.emplace_back(screen);
        ++completions;
    }
    /// Of what is presented, all but the first so many.
    void dismissInMind(std::size_t remaining, bool animated, double time) {
        ++completions;
        if (presented.empty())
            return;
        // A dismissal of what is going already only ends that; of what lies below it is one of its own.
        const bool isMeantGoing = left && remaining >= *left;
        finishInMind();
        if (isMeantGoing)
            return;
        left = std::min(remaining, presented.size());
        leftAt = time + 0.3;
        if (!animated || !isOnScreen())
            finishDismissalInMind();
    }
    void settle() {
        for (const auto& [time, change] : std::exchange(waiting, {})) {
            passInMind(time);
            change();
        }
        passInMind(host.time());
    }
    void letFingerGo() {
        letHeldStay();
        host.touchCancel();
    }
    /// Until nothing glides and no wish comes true any more.
    void rest() {
        int before = 0;
        do {
            before = wishesGranted;
            letFingerGo();
            settle();
            host.advance(1);
            settle();
        } while (wishesGranted != before);
    }

    /// What a slide's end makes true comes before the step's own change of the stack; popping to nobody ends it.
    void beforeStackChanges() {
        letHeldStay();
        for (int before = -1; hasWishes && wishesGranted != before;) {
            before = wishesGranted;
            navigation->popToViewController_animated(nullptr, false);
            settle();
        }
    }

    // The steps

    void push() {
        beforeStackChanges();
        stack.emplace_back(makeScreen());
        navigation->pushViewController_animated(stack.back(), toss());
    }
    void pushAgain() {
        beforeStackChanges();
        const Ref<UIViewController> screen = stack[pickFromStack()];
        navigation->pushViewController_animated(screen, toss());
    }
    void pop() {
        beforeStackChanges();
        popAnimated(toss());
    }
    void popAnimated(bool animated) {
        const Ref<UIViewController> expected = stack.size() > 1 ? stack.back() : nullptr;
        if (expected)
            stack.pop_back();
        EXPECT_EQ(navigation->popViewControllerAnimated(animated), expected);
    }
    void popToSome() {
        beforeStackChanges();
        const auto index = pickFromStack();
        const Ref<UIViewController> target = stack[index];
        const Stack expected(stack.begin() + static_cast<std::ptrdiff_t>(index) + 1, stack.end());
        stack.resize(index + 1);
        EXPECT_EQ(index == 0 ? navigation->popToRootViewControllerAnimated(toss())
                             : navigation->popToViewController_animated(target, toss()),
                  expected);
    }
    void shuffle() {
        beforeStackChanges();
        std::shuffle(stack.begin(), stack.end(), random);
        if (toss())
            stack.emplace_back(makeScreen());
        else if (stack.size() > 1)
            stack.pop_back();
        const Stack wanted = stack;
        navigation->setViewControllers_animated(wanted, toss());
    }
    void present() {
        finishInMind();
        auto screen = makeScreen();
        if (pick(3) == 0)
            screen->setModalTransitionStyle(UIModalTransitionStyleCrossDissolve);
        if (pick(3) == 0)
            screen->setModalPresentationStyle(UIModalPresentationOverFullScreen);
        const Ref<UIViewController> presenter = front();
        presentInMind(screen);
        presenter->presentViewController_animated_completion(screen, toss(), counting());
    }
    void presentTwice() {
        if (left.value_or(presented.size()) == 0)
            return;
        finishInMind();
        tabs->presentViewController_animated_completion(make<WalkScreen>(), toss(), counting());
    }
    void dismiss() {
        const bool all = pick(3) == 0 || presented.empty();
        const bool animated = toss();
        const Ref<UIViewController> asked = all ? tabs.get() : front();
        dismissInMind(all ? 0 : presented.size() - 1, animated, host.time());
        asked->dismissViewControllerAnimated_completion(animated, counting());
    }
    void select() {
        const auto next = static_cast<NSUInteger>(pick(2));
        if (next != tab)
            letHeldStay();
        tab = next;
        tabs->setSelectedIndex(next);
    }
    void rotate() {
        const auto next = static_cast<UIInterfaceOrientation>(1 + pick(4));
        // Where no window is visible nobody minds.
        if (next != orientation && (!isVisible || next != UIInterfaceOrientationPortraitUpsideDown)) {
            finishInMind();
            orientation = next;
        }
        host.application()->setStatusBarOrientation(next);
    }
    void hideOrShow() {
        isVisible = !isVisible;
        finishInMind();
        window->setHidden(!isVisible);
    }
    void takeRootAwayAndBack() {
        finishInMind();
        presented.clear();
        isRooted = false;
        window->setRootViewController(nullptr);
        settle();
        isRooted = true;
        window->setRootViewController(tabs);
    }
    void adopt() {
        if (children.size() < 2 && toss()) {
            children.emplace_back(make<WalkScreen>());
            const Ref<UIViewController> child = children.back();
            plain->addChildViewController(child);
            child->view()->setFrame(CGRectMake(0, 100, 20, 20));
            plain->view()->addSubview(child->view());
            child->didMoveToParentViewController(plain);
        } else if (!children.empty()) {
            const Ref<UIViewController> child = children.back();
            children.pop_back();
            child->willMoveToParentViewController(nullptr);
            child->view()->removeFromSuperview();
            child->removeFromParentViewController();
        }
    }
    /// Without wishes, which would meet a finger half way.
    void takeHold() {
        rest();
        forgetWishes();
        if (!isVisible || !presented.empty())
            return;
        if (tab == 0 && stack.size() > 1) {
            held = stack.back();
            stack.pop_back();
            heldOver = stack.back();
        }
        host.touchDown({5, 200});
        host.touchMove({250, 200}, 0.1);
    }
    void letGo() {
        if (!host.isTouching())
            return;
        const bool pops = toss();
        host.touchMove({CGFloat(pops ? 250 : 100), 200});
        host.advance(1);
        settle();
        if (pops)
            held = nullptr;
        letHeldStay();
        host.touchUp();
    }
    void tapTab() {
        rest();
        if (!isVisible || !presented.empty())
            return;
        const auto next = static_cast<NSUInteger>(pick(2));
        const CGSize size = window->bounds().size;
        if (next == 0 && tab == 0)
            stack.resize(1);
        tab = next;
        host.tap({size.width * CGFloat(next == 0 ? 0.25 : 0.75), size.height - 20});
    }
    void tapBack() {
        rest();
        if (!isVisible || !presented.empty())
            return;
        if (tab == 0 && stack.size() > 1)
            stack.pop_back();
        host.tap({20, 40});
    }
    /// Reaches the screen in front when that is at rest, and nobody while it comes or goes.
    void tapMiddle() {
        const CGSize size = window->bounds().size;
        for (const auto& screen : everybody())
            asWalkScreen(screen)->takeTouch();
        host.touchDown({size.width / 2, size.height / 2}, 1);
        host.touchUp(1);
        for (const auto& screen : everybody()) {
            auto* walker = asWalkScreen(screen);
            const bool reaches = isOnScreen() && screen == foremost() && walker->state == State::There;
            EXPECT_EQ(walker->takeTouch(), reaches);
        }
    }
    void pass() { host.advance(pick(20) / 100.0); }

    struct Step {
        const char* name;
        void (ControllerWalk::*take)();
    };
    void step() {
        static constexpr Step kKinds[] = {{"push", &ControllerWalk::push},
                                          {"push", &ControllerWalk::push},
                                          {"push again", &ControllerWalk::pushAgain},
                                          {"pop", &ControllerWalk::pop},
                                          {"pop", &ControllerWalk::pop},
                                          {"pop to some", &ControllerWalk::popToSome},
                                          {"shuffle", &ControllerWalk::shuffle},
                                          {"present", &ControllerWalk::present},
                                          {"present twice", &ControllerWalk::presentTwice},
                                          {"dismiss", &ControllerWalk::dismiss},
                                          {"dismiss", &ControllerWalk::dismiss},
                                          {"select", &ControllerWalk::select},
                                          {"rotate", &ControllerWalk::rotate},
                                          {"take hold", &ControllerWalk::takeHold},
                                          {"let go", &ControllerWalk::letGo},
                                          {"let go", &ControllerWalk::letGo},
                                          {"tap a tab", &ControllerWalk::tapTab},
                                          {"tap back", &ControllerWalk::tapBack},
                                          {"tap the middle", &ControllerWalk::tapMiddle},
                                          {"pass", &ControllerWalk::pass},
                                          {"pass", &ControllerWalk::pass},
                                          {"adopt", &ControllerWalk::adopt},
                                          {"hide or show", &ControllerWalk::hideOrShow},
                                          {"swap roots", &ControllerWalk::takeRootAwayAndBack}};
        const Step& kind = stack.size() > kHighestStack ? Step{"pop to some", &ControllerWalk::popToSome}
                                                        : kKinds[pick(std::size(kKinds))];
        SCOPED_TRACE(kind.name);
        (this->*kind.take)();
        settle();
        host.advance(0);
        settle();
        compare();
    }

    // Whether it is so

    Stack everybody() const {
        Stack all = stack;
        all.insert(all.end(), presented.begin(), presented.end());
        all.insert(all.end(), children.begin(), children.end());
        all.emplace_back(plain);
        return all;
    }
    static bool staysBelow(const Ref<UIViewController>& screen) {
        return screen->modalPresentationStyle() == UIModalPresentationOverFullScreen;
    }
    static bool isScreen(const Ref<UIView>& view) { return dynamic_cast<UIViewController*>(view->nextResponder()); }
    static int screensIn(const UIView* view) {
        return static_cast<int>(std::count_if(view->subviews().begin(), view->subviews().end(), isScreen));
    }
    static bool isGliding(const UIViewController* screen) {
        const State state = dynamic_cast<const WalkScreen*>(screen)->state;
        return state == State::Coming || state == State::Going;
    }

    void compare() {
        ASSERT_EQ(navigation->viewControllers(), stack);
        ASSERT_EQ(tabs->selectedIndex(), tab);
        ASSERT_EQ(plain->childViewControllers(), children);
        ASSERT_EQ(host.application()->statusBarOrientation(), orientation);
        ASSERT_EQ(WalkScreen::mistake, "");
        const UIViewController* each = tabs;
        for (const auto& screen : presented) {
            each = each->presentedViewController();
            ASSERT_EQ(each, screen);
        }
        ASSERT_EQ(each == tabs ? tabs->presentedViewController() : each->presentedViewController(), nullptr);
        compareTransitions();
    }
    /// One at a time in each container: where two screens are, one comes, one goes, and nothing else glides there.
    void compareTransitions() {
        const UIView* content = navigation->view()->subviews()[0];
        const int screens = screensIn(content);
        const bool isSliding = screens == 2;
        ASSERT_LE(screens, 2);
        ASSERT_EQ(content->subviews().size(), isSliding ? 3u : std::size_t(screens)) << "the shade";
        ASSERT_EQ(navigation->navigationBar()->subviews().size(), isSliding ? 3u : 2u) << "the titles";
        ASSERT_EQ(content->isUserInteractionEnabled(), !isSliding);
        if (isSliding)
            compareSlidingScreens(content);
        ASSERT_EQ(tabs->view()->subviews()[0]->subviews().size(), 1u);
        for (const auto& screen : everybody()) {
            const bool isThere = asWalkScreen(screen)->state == State::There;
            ASSERT_FALSE(isThere && screen->view()->layer()->hasAnimations()) << "it glides on";
        }

        const int shields = static_cast<int>(window->subviews().size()) - screensIn(window);
        ASSERT_LE(shields, 1);
        ASSERT_EQ(shields == 1, isOnScreen() && !presented.empty() && isGliding(presented.back()));
        const auto inPlace = std::count_if(presented.begin(), presented.end(), staysBelow);
        if (shields == 0 && isVisible) {
            ASSERT_EQ(screensIn(window), 1 + inPlace);
        }
    }
    void compareSlidingScreens(const UIView* content) {
        std::vector<State> states;
        for (const auto& view : content->subviews()) {
            if (auto* screen = dynamic_cast<WalkScreen*>(view->nextResponder()))
                states.push_back(screen->state);
        }
        ASSERT_THAT(states, testing::UnorderedElementsAre(State::Coming, State::Going));
    }
    void compareAtRest() {
        rest();
        compare();
        ASSERT_EQ(completionsSeen, completions);
        ASSERT_EQ(WalkScreen::alive, int(everybody().size())) << "a screen is kept";
        const bool tabsAreThere = isOnScreen() && (presented.empty() || staysBelow(presented[0]));
        for (const auto& screen : stack) {
            compareScreen(screen, tabsAreThere && tab == 0 && screen == stack.back());
            ASSERT_EQ(screen->parentViewController(), navigation);
            ASSERT_EQ(asWalkScreen(screen)->move, WalkScreen::Move::In);
        }
        compareScreen(plain, tabsAreThere && tab == 1);
        for (const auto& child : children)
            ASSERT_EQ(asWalkScreen(child)->state, plain->state);
        for (std::size_t i = 0; i < presented.size(); ++i) {
            const bool isCovered = i + 1 < presented.size() && !staysBelow(presented[i + 1]);
            compareScreen(presented[i], isOnScreen() && !isCovered);
        }
        if (tabsAreThere && tab == 0) {
            ASSERT_EQ(listener->shown.get(), stack.back());
        }
        if (!isVisible)
            return;
        const UIView* front = foremost()->view();
        ASSERT_EQ(window->bounds().size, UIScreen::mainScreen()->bounds().size);
        ASSERT_EQ(front->convertRect_toView(front->bounds(), nullptr), window->bounds());
        ASSERT_EQ(front->alpha(), 1);
    }
    void compareScreen(const Ref<UIViewController>& screen, bool isThere) {
        ASSERT_EQ(asWalkScreen(screen)->state, isThere ? State::There : State::Away);
        const UIView* view = screen->viewIfLoaded();
        if (isVisible) {
            ASSERT_EQ(view && view->window(), isThere);
        }
        ASSERT_FALSE(view && view->layer()->hasAnimations());
        ASSERT_FALSE(screen->isBeingPresented() || screen->isBeingDismissed());
        ASSERT_FALSE(screen->isMovingToParentViewController() || screen->isMovingFromParentViewController());
    }
};

} // namespace

TEST_P(ControllerWalk, EndsWhereASimpleModelDoes) {
    for (int i = 0; i < kSteps && !HasFailure(); ++i) {
        SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", step " + std::to_string(i));
        step();
        if (i % 10 == 0 && !HasFailure())
            compareAtRest();
    }
    if (HasFailure())
        return;
    rest();
    EXPECT_EQ(wishesGranted > kSteps / 100, hasWishes) << "nothing was asked for in the middle of a message";
    forgetWishes();
    WalkScreen::isStrict = false;
    stack.clear();
    presented.clear();
    children.clear();
    plain = nullptr;
    tabs = nullptr;
    navigation = nullptr;
    window->setRootViewController(nullptr);
    host.advance(1);
    EXPECT_EQ(WalkScreen::alive, 0);
    EXPECT_EQ(WalkScreen::mistake, "");
}

/// 100,000 steps in all.
INSTANTIATE_TEST_SUITE_P(Seeds, ControllerWalk, testing::Range(1u, 11u));

} // namespace zr::tests
