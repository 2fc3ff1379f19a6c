#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>

namespace zr::tests {

namespace {

/// Writes down the titles of the buttons that were pressed.
class PressLog : public NSObject {
public:
    void pressed(NSObject* sender) {
        pressedTitles.push_back(static_cast<UIButton*>(sender)->titleForState(UIControlStateNormal).utf8());
    }
    std::vector<std::string> pressedTitles;
};

/// Controls on a white screen of 375 x 667 points, and a keyboard.
class KeyboardFocusOnScreen : public ::testing::Test {
protected:
    KeyboardFocusOnScreen() {
        window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        window->setBackgroundColor(UIColor::whiteColor());
        window->makeKeyAndVisible();
    }

    Ref<UIButton> addButton(const char* title, CGRect frame, UIView* parent = nullptr) {
        auto button = make<UIButton>(&UIButton::initWithFrame, frame);
        button->setTitle_forState(title, UIControlStateNormal);
        button->addTarget_action_forControlEvents(log, selector<&PressLog::pressed>, UIControlEventTouchUpInside);
        (parent ? parent : window.get())->addSubview(button);
        return button;
    }
    Ref<UITextField> addField(CGRect frame) {
        auto field = make<UITextField>(&UITextField::initWithFrame, frame);
        window->addSubview(field);
        return field;
    }
    static UIView* focused() { return UIApplication::sharedApplication()->focusedView(); }

    HeadlessHost host;
    Ref<UIWindow> window;
    Ref<PressLog> log = make<PressLog>();
};

constexpr FramePixel kRing{0, 122, 255};
constexpr FramePixel kBare{255, 255, 255};

} // namespace

TEST_F(KeyboardFocusOnScreen, TabGoesFromTopToBottomAndFromLeftToRightAndAround) {
    const auto last = addButton("last", {{20, 200}, {80, 40}});
    const auto right = addButton("right", {{200, 100}, {80, 40}});
    const auto left = addButton("left", {{20, 90}, {80, 60}});
    for (const auto& button : {left, right, last, left}) {
        EXPECT_TRUE(host.pressKey(UIKey::Tab));
        EXPECT_EQ(focused(), button);
        EXPECT_TRUE(button->isFocused());
    }
    EXPECT_FALSE(right->isFocused());
    for (const auto& button : {last, right, left}) {
        EXPECT_TRUE(host.pressKey(UIKey::Tab, UIKeyModifierShift));
        EXPECT_EQ(focused(), button);
    }
}

TEST_F(KeyboardFocusOnScreen, BackwardsItBeginsAtTheEnd) {
    addButton("first", {{20, 100}, {80, 40}});
    const auto last = addButton("last", {{20, 200}, {80, 40}});
    host.pressKey(UIKey::Tab, UIKeyModifierShift);
    EXPECT_EQ(focused(), last);
}

TEST_F(KeyboardFocusOnScreen, ArrowsGoWhereTabGoesOutsideOfLists) {
    const auto first = addButton("first", {{20, 100}, {80, 40}});
    const auto second = addButton("second", {{20, 200}, {80, 40}});
    for (const UIKey key : {UIKey::Down, UIKey::Right}) {
        first->removeFromSuperview();
        window->addSubview(first);
        host.touchDown({350, 650});
        host.touchUp();
        host.pressKey(UIKey::Tab);
        EXPECT_TRUE(host.pressKey(key));
        EXPECT_EQ(focused(), second);
        EXPECT_TRUE(host.pressKey(key == UIKey::Down ? UIKey::Up : UIKey::Left));
        EXPECT_EQ(focused(), first);
    }
    EXPECT_FALSE(host.pressKey(UIKey::Home));
    EXPECT_FALSE(host.pressKey(UIKey::End));
    EXPECT_FALSE(host.pressKey(UIKey::Delete));
}

TEST_F(KeyboardFocusOnScreen, WhatAFingerCannotTouchIsNoStop) {
    const auto seen = addButton("seen", {{20, 100}, {80, 40}});
    addButton("disabled", {{20, 150}, {80, 40}})->setEnabled(false);
    addButton("hidden", {{20, 200}, {80, 40}})->setHidden(true);
    addButton("faint", {{20, 250}, {80, 40}})->setAlpha(0.005);
    addButton("deaf", {{20, 300}, {80, 40}})->setUserInteractionEnabled(false);
    addButton("beside the screen", {{-100, 350}, {80, 40}});
    addButton("covered", {{20, 400}, {80, 40}});
    const auto cover = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 390, 375, 100));
    window->addSubview(cover);
    EXPECT_TRUE(host.pressKey(UIKey::Tab));
    EXPECT_EQ(focused(), seen);
    EXPECT_TRUE(host.pressKey(UIKey::Tab));
    EXPECT_EQ(focused(), seen);
    seen->setEnabled(false);
    EXPECT_FALSE(host.pressKey(UIKey::Tab));
}

TEST_F(KeyboardFocusOnScreen, AnOverlayKeepsTheKeyboardToItself) {
    const auto below = addButton("below", {{20, 100}, {80, 40}});
    host.pressKey(UIKey::Tab);
    EXPECT_EQ(focused(), below);
    auto overlay = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    overlay->setWindowLevel(UIWindowLevelAlert);
    const auto above = addButton("above", {{20, 300}, {80, 40}}, overlay);
    overlay->makeKeyAndVisible();
    EXPECT_FALSE(host.pressKey(UIKey::Return)) << "it is covered";
    for (int i = 0; i < 2; ++i) {
        host.pressKey(UIKey::Tab);
        EXPECT_EQ(focused(), above);
    }
    host.pressKey(UIKey::Return);
    EXPECT_EQ(log->pressedTitles, (std::vector<std::string>{"above"}));
}

TEST_F(KeyboardFocusOnScreen, ReturnTouchesTheView) {
    addButton("first", {{20, 100}, {80, 40}});
    addButton("second", {{20, 200}, {80, 40}});
    EXPECT_FALSE(host.pressKey(UIKey::Return)) << "the keyboard is nowhere yet";
    host.pressKey(UIKey::Tab);
    EXPECT_TRUE(host.pressKey(UIKey::Return));
    host.pressKey(UIKey::Tab);
    EXPECT_TRUE(host.pressKey(UIKey::Return));
    EXPECT_EQ(log->pressedTitles, (std::vector<std::string>{"first", "second"}));
}

TEST_F(KeyboardFocusOnScreen, ReturnTouchesBesideAPartThatIsAStopItself) {
    const auto outer = addButton("outer", {{20, 100}, {200, 40}});
    addButton("inner", {{60, 0}, {80, 40}}, outer);
    host.pressKey(UIKey::Tab);
    ASSERT_EQ(focused(), outer);
    host.pressKey(UIKey::Return);
    EXPECT_EQ(log->pressedTitles, (std::vector<std::string>{"outer"}));
}

TEST_F(KeyboardFocusOnScreen, WhileInteractionIsIgnoredSoAreKeys) {
    addButton("button", {{20, 100}, {80, 40}});
    host.pressKey(UIKey::Tab);
    UIApplication::sharedApplication()->beginIgnoringInteractionEvents();
    EXPECT_FALSE(host.pressKey(UIKey::Return));
    UIApplication::sharedApplication()->endIgnoringInteractionEvents();
    EXPECT_EQ(log->pressedTitles, std::vector<std::string>{});
}

TEST_F(KeyboardFocusOnScreen, ARingShowsWhereItIsUntilAFingerComes) {
    const auto button = addButton("", {{20, 100}, {80, 40}});
    host.advance(0);
    EXPECT_EQ(host.pixel({18.5, 120}), kBare);
    host.pressKey(UIKey::Tab);
    host.advance(0);
    EXPECT_EQ(host.pixel({18.5, 120}), kRing);
    EXPECT_EQ(host.pixel({60, 98.5}), kRing);
    EXPECT_EQ(host.pixel({101.5, 120}), kRing);
    EXPECT_EQ(host.pixel({60, 141.5}), kRing);
    EXPECT_EQ(host.pixel({60, 120}), kBare);
    EXPECT_EQ(host.pixel({16, 120}), kBare);
    host.touchDown({300, 600});
    host.touchUp();
    host.advance(0);
    EXPECT_EQ(focused(), nullptr);
    EXPECT_EQ(host.pixel({18.5, 120}), kBare);
}

TEST_F(KeyboardFocusOnScreen, TheRingFollowsTheViewAndGoesWithIt) {
    const auto button = addButton("", {{20, 100}, {80, 40}});
    host.pressKey(UIKey::Tab);
    host.advance(0);
    button->setFrame({{20, 300}, {80, 40}});
    host.advance(0);
    EXPECT_EQ(host.pixel({18.5, 120}), kBare);
    EXPECT_EQ(host.pixel({18.5, 320}), kRing);
    button->setHidden(true);
    host.advance(0);
    EXPECT_EQ(host.pixel({18.5, 320}), kBare);
    button->setHidden(false);
    host.advance(0);
    EXPECT_EQ(host.pixel({18.5, 320}), kRing);
    button->removeFromSuperview();
    host.advance(0);
    EXPECT_EQ(host.pixel({18.5, 320}), kBare);
    EXPECT_FALSE(host.pressKey(UIKey::Return));
}

TEST_F(KeyboardFocusOnScreen, TheRingStaysOnTheScreen) {
    addButton("", {{0, 100}, {375, 40}});
    host.pressKey(UIKey::Tab);
    host.advance(0);
    EXPECT_EQ(host.pixel({1, 120}), kRing);
    EXPECT_EQ(host.pixel({374, 120}), kRing);
}

TEST_F(KeyboardFocusOnScreen, TheRingIsNoViewAndCostsNothingWhileNothingMoves) {
    addButton("", {{20, 100}, {80, 40}});
    host.advance(0);
    const std::string before = host.dump();
    host.pressKey(UIKey::Tab);
    host.advance(0);
    EXPECT_EQ(host.dump(), before);
    const auto frames = host.framesComposed();
    host.advance(10);
    EXPECT_EQ(host.framesComposed(), frames);
}

TEST_F(KeyboardFocusOnScreen, WhatIsScrolledAwayIsScrolledTo) {
    auto scroller = make<UIScrollView>(&UIScrollView::initWithFrame, CGRectMake(0, 100, 375, 200));
    scroller->setContentSize({375, 1000});
    window->addSubview(scroller);
    addButton("near", {{20, 20}, {80, 40}}, scroller);
    const auto far = addButton("far", {{20, 900}, {80, 40}}, scroller);
    host.pressKey(UIKey::Tab);
    host.pressKey(UIKey::Tab);
    EXPECT_EQ(focused(), far);
    EXPECT_EQ(scroller->contentOffset(), CGPointMake(0, 740));
    host.pressKey(UIKey::Return);
    host.advance(1);
    EXPECT_EQ(log->pressedTitles, (std::vector<std::string>{"far"}));
    scroller->setScrollEnabled(false);
    host.pressKey(UIKey::Tab);
    EXPECT_EQ(focused(), far) << "the near one cannot be scrolled to";
}

TEST_F(KeyboardFocusOnScreen, ATextFieldHasTheCaretInsteadOfARing) {
    const auto button = addButton("button", {{20, 100}, {80, 40}});
    const auto field = addField({{20, 200}, {80, 40}});
    host.pressKey(UIKey::Tab);
    EXPECT_FALSE(field->isFirstResponder());
    host.pressKey(UIKey::Tab);
    EXPECT_TRUE(field->isFirstResponder());
    host.typeText("text");
    EXPECT_EQ(field->text(), "text");
    EXPECT_EQ(host.pixel({18.5, 220}), kBare);
    host.pressKey(UIKey::Tab);
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(focused(), button);
}

TEST_F(KeyboardFocusOnScreen, TabLeavesAFieldThatAFingerChose) {
    addButton("above", {{20, 100}, {80, 40}});
    const auto field = addField({{20, 200}, {80, 40}});
    const auto below = addButton("below", {{20, 300}, {80, 40}});
    host.tap({60, 220});
    ASSERT_TRUE(field->isFirstResponder());
    host.pressKey(UIKey::Tab);
    EXPECT_EQ(focused(), below);
    EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(KeyboardFocusOnScreen, EscapeEndsEditingFirst) {
    const auto root = make<UIViewController>();
    const auto top = make<UIViewController>();
    const auto navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, root);
    window->setRootViewController(navigation);
    navigation->pushViewController_animated(top, false);
    host.advance(0);
    auto field = make<UITextField>(&UITextField::initWithFrame, CGRectMake(20, 200, 80, 40));
    top->view()->addSubview(field);
    field->becomeFirstResponder();
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(navigation->topViewController(), top);
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_EQ(navigation->topViewController(), root);
    host.advance(1);
    EXPECT_FALSE(host.pressKey(UIKey::Escape)) << "there is nothing to leave";
}

namespace {

/// Three sections of two, none and thirty rows of 44 points.
class KeyboardInAList : public TableOnScreen<NumberList> {
protected:
    KeyboardInAList() {
        list->sections = {NumberList::numbers(2), {}, NumberList::numbers(30, 2)};
        showTable(CGRectMake(0, 0, 320, 300));
    }
    int focusedItem() {
        const auto* cell = dynamic_cast<RowCell*>(UIApplication::sharedApplication()->focusedView());
        return cell ? cell->item : -1;
    }
    std::vector<int> selectedItems() {
        std::vector<int> items;
        for (const NSIndexPath& path : table->indexPathsForSelectedRows())
            items.push_back(list->itemAt(path));
        return items;
    }
};

} // namespace

TEST_F(KeyboardInAList, UpAndDownGoFromRowToRowOverSections) {
    for (const int item : {0, 1, 2, 3}) {
        EXPECT_TRUE(host.pressKey(UIKey::Down));
        EXPECT_EQ(focusedItem(), item);
    }
    for (const int item : {2, 1, 0, 0}) {
        EXPECT_TRUE(host.pressKey(UIKey::Up));
        EXPECT_EQ(focusedItem(), item);
    }
}

TEST_F(KeyboardInAList, TheRowIsScrolledIntoSight) {
    for (int i = 0; i < 10; ++i)
        host.pressKey(UIKey::Down);
    EXPECT_EQ(focusedItem(), 9);
    EXPECT_EQ(table->contentOffset().y, 10 * 44 - 300);
    EXPECT_TRUE(host.pressKey(UIKey::End));
    EXPECT_EQ(focusedItem(), 31);
    EXPECT_EQ(table->contentOffset().y, 32 * 44 - 300);
    EXPECT_TRUE(host.pressKey(UIKey::Down));
    EXPECT_EQ(focusedItem(), 31);
    EXPECT_TRUE(host.pressKey(UIKey::Home));
    EXPECT_EQ(focusedItem(), 0);
    EXPECT_EQ(table->contentOffset().y, 0);
}

TEST_F(KeyboardInAList, ItBeginsWithWhatIsSeen) {
    scrollTo(440);
    host.pressKey(UIKey::Down);
    EXPECT_EQ(focusedItem(), 10);
    host.tap({160, 400});
    host.pressKey(UIKey::Up);
    EXPECT_EQ(focusedItem(), 16);
}

TEST_F(KeyboardInAList, ReturnSelectsTheRow) {
    host.pressKey(UIKey::Down);
    host.pressKey(UIKey::Down);
    host.pressKey(UIKey::Return);
    host.advance(1);
    EXPECT_EQ(selectedItems(), (std::vector<int>{1}));
}

TEST_F(KeyboardInAList, ItStaysWithTheRowWhicheverCellShowsIt) {
    host.pressKey(UIKey::Down);
    host.pressKey(UIKey::Down);
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(focusedItem(), 1);
    scrollTo(440);
    EXPECT_EQ(focusedItem(), -1) << "its cell shows another row";
    EXPECT_TRUE(host.pressKey(UIKey::Down));
    EXPECT_EQ(focusedItem(), 2);
    EXPECT_EQ(table->contentOffset().y, 88);
}

TEST_F(KeyboardInAList, APartOfACellIsLeftWithTheCell) {
    auto button = make<UIButton>(&UIButton::initWithFrame, CGRectMake(200, 0, 100, 44));
    table->visibleCells().front()->addSubview(button);
    host.pressKey(UIKey::Tab);
    host.pressKey(UIKey::Tab);
    ASSERT_TRUE(button->isFocused());
    scrollTo(440);
    scrollTo(0);
    EXPECT_EQ(UIApplication::sharedApplication()->focusedView(), nullptr);
}

TEST_F(KeyboardInAList, TabTakesTheListAsOneStop) {
    auto button = make<UIButton>(&UIButton::initWithFrame, CGRectMake(0, 400, 100, 40));
    window->addSubview(button);
    host.pressKey(UIKey::Tab);
    EXPECT_EQ(focusedItem(), 0);
    host.pressKey(UIKey::Down);
    EXPECT_EQ(focusedItem(), 1);
    host.pressKey(UIKey::Tab);
    EXPECT_TRUE(button->isFocused());
    host.pressKey(UIKey::Tab, UIKeyModifierShift);
    EXPECT_EQ(focusedItem(), 0);
}

TEST_F(KeyboardInAList, AListThatBecomesEmptyIsNoTrouble) {
    host.pressKey(UIKey::End);
    for (const auto& sections : {std::vector<std::vector<int>>{{}, {}}, std::vector<std::vector<int>>{}}) {
        list->sections = sections;
        table->reloadData();
        host.advance(0);
        for (const UIKey key : {UIKey::Down, UIKey::Up, UIKey::Home, UIKey::End, UIKey::Return, UIKey::Tab})
            host.pressKey(key);
        EXPECT_EQ(focusedItem(), -1);
    }
    list->fill(3);
    table->reloadData();
    host.advance(0);
    host.pressKey(UIKey::Home);
    EXPECT_EQ(focusedItem(), 0);
}

} // namespace zr::tests
