#include <Tests/ZRKitDynamic/ZRTableViewCell/CellTesting.h>

#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>

namespace zr::testing {

namespace {

class CountingCell : public ZRTableViewCell {
public:
    void createAccessoryViewWithType(std::int64_t type) override {
        built.push_back(type);
        ZRTableViewCell::createAccessoryViewWithType(type);
    }
    void setCheckBoxSelected(bool selected) override {
        flags.push_back(selected);
        ZRTableViewCell::setCheckBoxSelected(selected);
    }
    void layoutSubviews() override {
        ++layouts;
        ZRTableViewCell::layoutSubviews();
    }

    std::vector<std::int64_t> built;
    std::vector<bool> flags;
    int layouts = 0;
};

/// A cell of 320 x 80 points in a window, with the application's pictures.
class CellAccessoryTest : public ::testing::Test {
protected:
    void SetUp() override {
        cell->setFrame(CGRectMake(0, 100, 320, 80));
        window->addSubview(cell);
        host.advance(0);
    }

    template <class T>
    T* accessory() const {
        return dynamic_cast<T*>(cell->zrAccessoryView());
    }
    /// Sets the type, and checks what all accessories have in common.
    template <class T>
    T* become(std::int64_t type, CGSize size = {32, 32}) {
        cell->setZrAccessoryType(type);
        T* view = accessory<T>();
        if (!view) {
            ADD_FAILURE() << type << " has no such view";
            return view;
        }
        EXPECT_EQ(view->superview(), cell->contentView());
        EXPECT_TRUE(view->isExclusiveTouch());
        EXPECT_EQ(view->frame(), CGRectMake(310 - size.width, (80 - size.height) / 2, size.width, size.height));
        return view;
    }
    CGFloat widthOf(const UIImage* image) const { return image ? image->size().width : 0; }
    void tap(const UIView* view) { host.tap(middleOnScreen(view)); }

    HeadlessHost host{device(320, 568)};
    AccessoryImages images;
    Ref<UIWindow> window = showWindow(UIColor::whiteColor());
    Ref<CountingCell> cell =
        make<CountingCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, "row");
};

} // namespace

// The table

TEST_F(CellAccessoryTest, TypesHaveTheirNumbers) {
    EXPECT_EQ((std::vector<std::int64_t>{ZRAccessoryTypeNone, ZRAccessoryTypeImage, ZRAccessoryTypeButton,
                                         ZRAccessoryTypeLoading, ZRAccessoryTypeCheckBox, ZRAccessoryTypeSwitch,
                                         ZRAccessoryTypeCheckMark, ZRAccessoryTypeListIcon}),
              (std::vector<std::int64_t>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(CellAccessoryTest, AnImageIsTheCallers) {
    const auto* view = become<UIImageView>(1);
    EXPECT_EQ(view->contentMode(), UIViewContentModeCenter);
    EXPECT_EQ(view->image(), nullptr);
}

TEST_F(CellAccessoryTest, ThreeTypesArePictures) {
    for (const auto& [type, name] : {std::pair<std::int64_t, const char*>{3, "icon_list_loading.png"},
                                     {6, "icon_list_check.png"},
                                     {7, "list_icon_1.png"}}) {
        const auto* view = become<UIImageView>(type);
        EXPECT_EQ(view->contentMode(), UIViewContentModeCenter);
        EXPECT_EQ(widthOf(view->image()), images.widthOf(name)) << name;
    }
}

TEST_F(CellAccessoryTest, APictureThatIsNotThereLeavesItsRoomEmpty) {
    NSBundle::setMainBundlePath("/nowhere");
    EXPECT_EQ(become<UIImageView>(7)->image(), nullptr);
    EXPECT_EQ(become<UIButton>(4)->imageForState(UIControlStateNormal), nullptr);
}

TEST_F(CellAccessoryTest, AButtonIsPlainAndCallsItsBlock) {
    auto* button = become<UIButton>(2);
    EXPECT_EQ(button->buttonType(), UIButtonTypeCustom);
    EXPECT_EQ(button->contentMode(), UIViewContentModeCenter);
    EXPECT_EQ(button->currentTitle(), nullptr);
    EXPECT_EQ(button->currentImage(), nullptr);
    tap(button); // nobody wants to know
    int taps = 0;
    cell->setCellAccessoryButtonBlock([&] { ++taps; });
    tap(button);
    EXPECT_EQ(taps, 1);
    EXPECT_FALSE(cell->checkBoxSelected());
    // Touch-up-inside only.
    host.touchDown(middleOnScreen(button));
    host.touchMove({10, 500});
    host.touchUp();
    EXPECT_EQ(taps, 1);
}

TEST_F(CellAccessoryTest, ACheckBoxShowsTheFlag) {
    auto* box = become<UIButton>(4);
    EXPECT_EQ(box->contentMode(), UIViewContentModeCenter);
    EXPECT_EQ(widthOf(box->imageForState(UIControlStateNormal)), images.widthOf("checkbox_1_normal.png"));
    EXPECT_EQ(box->imageForState(UIControlStateHighlighted), box->imageForState(UIControlStateNormal));
    EXPECT_EQ(widthOf(box->imageForState(UIControlStateSelected)), images.widthOf("checkbox_1_press.png"));
    EXPECT_FALSE(box->isSelected());
    cell->setCheckBoxSelected(true);
    EXPECT_TRUE(box->isSelected());
    cell->setCheckBoxSelected(false);
    EXPECT_FALSE(box->isSelected());
}

TEST_F(CellAccessoryTest, ATapOfACheckBoxTogglesAndTells) {
    auto* box = become<UIButton>(4);
    tap(box);
    EXPECT_TRUE(cell->checkBoxSelected()) << "without a block too";
    std::vector<bool> told;
    int selections = 0;
    cell->setCellMultSelectBlock([&](bool selected) {
        told.push_back(selected);
        EXPECT_EQ(selected, box->isSelected());
        EXPECT_EQ(selected, cell->checkBoxSelected());
    });
    cell->setCellSelectedBlock([&] { ++selections; });
    tap(box);
    tap(box);
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
    EXPECT_EQ(selections, 0) << "the row itself was not tapped";
    EXPECT_EQ(cell->flags, (std::vector<bool>{true, false, true})) << "by the setter";
}

TEST_F(CellAccessoryTest, ANewCheckBoxIsUnchecked) {
    cell->setCheckBoxSelected(true);
    const auto* box = become<UIButton>(4);
    EXPECT_FALSE(box->isSelected());
    EXPECT_TRUE(cell->checkBoxSelected());
}

TEST_F(CellAccessoryTest, ASwitchHasItsOwnSizeAndCallsItsBlock) {
    auto* control = become<ZRSwitch>(5, {50, 31});
    EXPECT_EQ(control->contentMode(), UIViewContentModeScaleToFill);
    tap(control); // nobody wants to know
    EXPECT_TRUE(control->isOn());
    std::vector<bool> told;
    cell->setSwitchValueChangedBlock([&](bool on) { told.push_back(on); });
    tap(control);
    tap(control);
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
    control->setOn(false);
    EXPECT_EQ(told.size(), 2u) << "set by code it tells nobody";
    EXPECT_FALSE(cell->checkBoxSelected());
    EXPECT_EQ(rgba(cell->backgroundColor()), rgb(255, 255, 255));
}

TEST_F(CellAccessoryTest, ACheckMarkIsCheckedAsItIsMade) {
    become<UIImageView>(6);
    EXPECT_TRUE(cell->checkBoxSelected());
    EXPECT_EQ(cell->flags, std::vector<bool>{true});
    EXPECT_FALSE(cell->zrAccessoryView()->isHidden());
}

TEST_F(CellAccessoryTest, ACheckMarkComesAndGoesWithTheFlagOnlyWhileThereIsABlock) {
    auto* mark = become<UIImageView>(6);
    cell->setCheckBoxSelected(false);
    EXPECT_FALSE(mark->isHidden());
    cell->setCellMultSelectBlock([](bool) {});
    EXPECT_FALSE(mark->isHidden());
    cell->setCheckBoxSelected(false);
    EXPECT_TRUE(mark->isHidden());
    cell->setCheckBoxSelected(true);
    EXPECT_FALSE(mark->isHidden());
    cell->setCheckBoxSelected(false);
    cell->setCellMultSelectBlock(nullptr);
    cell->setCheckBoxSelected(true);
    EXPECT_TRUE(mark->isHidden()) << "nothing brings it back without a block";
}

TEST_F(CellAccessoryTest, OtherTypesDoNotShowTheFlag) {
    cell->setCellMultSelectBlock([](bool) {});
    const auto* button = become<UIButton>(2);
    cell->setCheckBoxSelected(true);
    EXPECT_FALSE(button->isSelected());
    for (const std::int64_t type : {1, 3, 5, 7}) {
        cell->setZrAccessoryType(type);
        cell->setCheckBoxSelected(false);
        EXPECT_FALSE(cell->zrAccessoryView()->isHidden()) << type;
    }
    const auto* box = become<UIButton>(4);
    cell->setCheckBoxSelected(false);
    EXPECT_FALSE(box->isHidden());
}

TEST_F(CellAccessoryTest, AFlagWithoutAViewToShowItIsKept) {
    cell->setCellMultSelectBlock([](bool) {});
    for (const std::int64_t type : {4, 6}) {
        cell->setZrAccessoryType(type);
        cell->setZrAccessoryView(nullptr);
        cell->setCheckBoxSelected(true);
        EXPECT_TRUE(cell->checkBoxSelected());
    }
    cell->setZrAccessoryType(4);
    const auto other = make<UIView>();
    cell->setZrAccessoryView(other);
    cell->setCheckBoxSelected(false);
    EXPECT_FALSE(other->isHidden()) << "not a button";
}

TEST_F(CellAccessoryTest, ButtonsOfTheCallersShowACheckBoxesFlagToo) {
    cell->setZrAccessoryType(4);
    const auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    cell->setZrAccessoryView(button);
    cell->setCheckBoxSelected(true);
    EXPECT_TRUE(button->isSelected());
}

// Changing the type

TEST_F(CellAccessoryTest, TheSameTypeAgainBuildsNothing) {
    const Ref<UIView> first = become<UIButton>(2);
    cell->setZrAccessoryType(2);
    EXPECT_EQ(cell->zrAccessoryView(), first);
    EXPECT_EQ(cell->built, std::vector<std::int64_t>{2});
    cell->setZrAccessoryType(0);
    EXPECT_EQ(cell->zrAccessoryView(), nullptr);
    EXPECT_EQ(cell->built, (std::vector<std::int64_t>{2, 0}));
}

TEST_F(CellAccessoryTest, AnotherTypeTakesTheOldViewAway) {
    const Ref<UIView> old = become<UIButton>(4);
    become<UIImageView>(7);
    EXPECT_EQ(old->superview(), nullptr);
    EXPECT_EQ(cell->zrAccessoryType(), 7);
    const Ref<UIView> icon = cell->zrAccessoryView();
    cell->setZrAccessoryType(0);
    EXPECT_EQ(icon->superview(), nullptr);
    EXPECT_EQ(icon->retainCount(), 1u);
}

TEST_F(CellAccessoryTest, ANewAccessoryIsLaidOutAtOnce) {
    cell->layouts = 0;
    cell->zrTextLabel()->setText("Title");
    cell->setZrAccessoryType(5);
    EXPECT_EQ(cell->layouts, 1);
    EXPECT_EQ(cell->zrTextLabel()->frame(), CGRectMake(15, 25, 235, 30));
    cell->setZrAccessoryType(0);
    EXPECT_EQ(cell->layouts, 2);
    EXPECT_EQ(cell->zrTextLabel()->frame(), CGRectMake(15, 25, 285, 30));
}

TEST_F(CellAccessoryTest, NumbersThatAreNoTypeShowNothing) {
    become<UIButton>(2);
    for (const std::int64_t type :
         {std::int64_t(8), std::int64_t(9), std::int64_t(-1), std::int64_t(1) << 40,
          std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
        cell->setZrAccessoryType(type);
        EXPECT_EQ(cell->zrAccessoryType(), type);
        EXPECT_EQ(cell->zrAccessoryView(), nullptr) << type;
        EXPECT_FALSE(cell->checkBoxSelected());
    }
}

TEST_F(CellAccessoryTest, AViewOfATypeCanBeMadeWithoutBecomingOfIt) {
    cell->createAccessoryViewWithType(6);
    EXPECT_EQ(cell->zrAccessoryType(), 0);
    EXPECT_TRUE(accessory<UIImageView>());
    EXPECT_TRUE(cell->checkBoxSelected());
    const Ref<UIView> first = cell->zrAccessoryView();
    cell->createAccessoryViewWithType(6);
    EXPECT_NE(cell->zrAccessoryView(), first);
    EXPECT_EQ(first->superview(), nullptr);
}

// The caller's own view

TEST_F(CellAccessoryTest, AViewOfTheCallersIsKeptAndShown) {
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(1, 2, 30, 40));
    cell->setZrAccessoryView(view);
    EXPECT_EQ(view->superview(), cell->contentView());
    EXPECT_EQ(view->frame(), CGRectMake(1, 2, 30, 40)) << "until the next layout";
    EXPECT_FALSE(view->isExclusiveTouch());
    EXPECT_EQ(cell->zrAccessoryType(), 0);
    const Ref<UIView> second = make<UIView>();
    cell->setZrAccessoryView(second);
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_EQ(view->retainCount(), 1u);
    cell->setZrAccessoryView(nullptr);
    EXPECT_EQ(cell->zrAccessoryView(), nullptr);
    EXPECT_EQ(second->superview(), nullptr);
}

TEST_F(CellAccessoryTest, TheSameViewAgainStaysWhereItIs) {
    const auto view = make<UIView>();
    cell->setZrAccessoryView(view);
    window->addSubview(view);
    cell->setZrAccessoryView(view);
    EXPECT_EQ(view->superview(), window);
}

TEST_F(CellAccessoryTest, ATypesViewTakesThePlaceOfTheCallers) {
    const auto view = make<UIView>();
    cell->setZrAccessoryView(view);
    become<UIButton>(2);
    EXPECT_EQ(view->superview(), nullptr);
}

TEST_F(CellAccessoryTest, AViewThatIsElsewhereMovesHere) {
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 30, 40));
    window->addSubview(view);
    cell->setZrAccessoryView(view);
    EXPECT_EQ(view->superview(), cell->contentView());
    const auto other = makeCell();
    other->setZrAccessoryView(view);
    EXPECT_EQ(view->superview(), other->contentView());
    cell->setZrAccessoryView(nullptr);
    EXPECT_EQ(view->superview(), nullptr) << "both held it, and the first has taken it away";
}

TEST_F(CellAccessoryTest, TheCellAndWhatItIsInAreNoAccessories) {
    const auto view = make<UIView>();
    cell->setZrAccessoryView(view);
    for (UIView* wrong : {static_cast<UIView*>(cell.get()), cell->contentView(), static_cast<UIView*>(window.get())}) {
        cell->setZrAccessoryView(wrong);
        EXPECT_EQ(cell->zrAccessoryView(), view);
    }
    EXPECT_EQ(cell->superview(), window);
    cell->layoutSubviews();
    EXPECT_EQ(cell->frame(), CGRectMake(0, 100, 320, 80));
}

// Blocks that do something to the cell

TEST_F(CellAccessoryTest, ABlockMayReplaceItselfAndTheAccessory) {
    auto* box = become<UIButton>(4);
    int calls = 0;
    cell->setCellMultSelectBlock([this, &calls, token = make<NSObject>()](bool) {
        cell->setCellMultSelectBlock(nullptr);
        cell->setZrAccessoryType(0);
        calls += token->retainCount() > 0;
    });
    tap(box);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(cell->zrAccessoryView(), nullptr);
}

TEST_F(CellAccessoryTest, ABlockMayLetGoOfTheCell) {
    for (const std::int64_t type : {2, 4, 5}) {
        auto doomed = makeCell();
        doomed->setFrame(CGRectMake(0, 300, 320, 80));
        window->addSubview(doomed);
        doomed->setZrAccessoryType(type);
        host.advance(0);
        const Weak<ZRTableViewCell> watched = doomed;
        const auto letGo = [&doomed] {
            if (const Ref<ZRTableViewCell> gone = std::exchange(doomed, nullptr))
                gone->removeFromSuperview();
        };
        doomed->setCellAccessoryButtonBlock(letGo);
        doomed->setCellMultSelectBlock([letGo](bool) { letGo(); });
        doomed->setSwitchValueChangedBlock([letGo](bool) { letGo(); });
        tap(doomed->zrAccessoryView());
        host.advance(1);
        EXPECT_FALSE(doomed) << type;
        EXPECT_FALSE(watched.get()) << type;
    }
}

TEST_F(CellAccessoryTest, ActionsTakeNobodyForASender) {
    std::vector<bool> told;
    cell->setSwitchValueChangedBlock([&](bool on) { told.push_back(on); });
    cell->switchButtonClicked(nullptr);
    EXPECT_EQ(told, std::vector<bool>{false});
    cell->checkBoxButtonClicked(nullptr);
    EXPECT_TRUE(cell->checkBoxSelected());
    cell->accessoryButtonClicked(nullptr);
}

// The order of things

namespace {

/// Writes down what it is when it is told to make a view, and when it was laid out last.
class WatchedCell : public ZRTableViewCell {
public:
    void createAccessoryViewWithType(std::int64_t type) override {
        typeAtCreation = zrAccessoryType();
        ZRTableViewCell::createAccessoryViewWithType(type);
    }
    void layoutSubviews() override {
        ZRTableViewCell::layoutSubviews();
        selectedAtLayout = checkBoxSelected();
    }

    std::int64_t typeAtCreation = -1;
    bool selectedAtLayout = false;
};

/// Whether what a block holds is there after the block has replaced itself.
template <class Setter, class Tap>
bool outlivesItself(const Setter& setBlock, const Tap& tap) {
    bool isThere = false;
    const auto held = std::make_shared<int>(0);
    std::weak_ptr<int> watched = held;
    setBlock([&setBlock, &isThere, &watched, mine = std::shared_ptr<int>(held)] {
        bool& result = isThere;
        const std::weak_ptr<int>& holder = watched;
        setBlock(nullptr);
        result = holder.use_count() == 2;
    });
    tap();
    return isThere;
}

} // namespace

TEST_F(CellAccessoryTest, TheTypeIsStoredBeforeItsViewIsMade) {
    const auto watched =
        make<WatchedCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    watched->setZrAccessoryType(ZRAccessoryTypeListIcon);
    EXPECT_EQ(watched->typeAtCreation, ZRAccessoryTypeListIcon);
}

TEST_F(CellAccessoryTest, ACheckMarkIsSetBeforeItsCellIsLaidOut) {
    const auto watched =
        make<WatchedCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    watched->setZrAccessoryType(ZRAccessoryTypeCheckMark);
    EXPECT_TRUE(watched->selectedAtLayout);
}

TEST_F(CellAccessoryTest, BlocksMayReplaceThemselves) {
    EXPECT_TRUE(outlivesItself([&](const std::function<void()>& block) { cell->setCellAccessoryButtonBlock(block); },
                               [&] { cell->accessoryButtonClicked(nullptr); }));
    EXPECT_TRUE(outlivesItself(
        [&](const std::function<void()>& block) {
            cell->setSwitchValueChangedBlock(block ? [block](bool) { block(); } : std::function<void(bool)>());
        },
        [&] { cell->switchButtonClicked(nullptr); }));
}

} // namespace zr::testing
