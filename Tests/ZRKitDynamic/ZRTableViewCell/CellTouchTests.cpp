#include <Tests/ZRKitDynamic/ZRTableViewCell/CellTesting.h>

#include <ZRKitDynamic/ZRControl/ZRSwitch.h>

namespace zr::testing {

namespace {

using CellTouchTest = CellsOnScreen;

/// The fade as far as it has gone, 0..1: eased in and out, a quarter of the time is 0.129 of the way.
RGBAColor faded(double progress) {
    const auto part = [progress](int component) { return (component + (255 - component) * progress) / 255; };
    return {part(215), part(217), part(215), 1};
}

void expectNear(const RGBAColor& seen, const RGBAColor& expected) {
    EXPECT_NEAR(seen.red, expected.red, 1e-3);
    EXPECT_NEAR(seen.green, expected.green, 1e-3);
    EXPECT_NEAR(seen.blue, expected.blue, 1e-3);
    EXPECT_NEAR(seen.alpha, expected.alpha, 1e-3);
}

} // namespace

// The highlight

TEST_F(CellTouchTest, ATouchDarkensTheRowAtOnce) {
    show(nullptr);
    EXPECT_EQ(host.pixel(inRow(2)), (FramePixel{255, 255, 255}));
    press(2);
    EXPECT_EQ(seen(cellAt(2)), kLine);
    EXPECT_EQ(host.pixel(inRow(2)), (FramePixel{215, 217, 215}));
    EXPECT_EQ(host.pixel(inRow(1)), (FramePixel{255, 255, 255}));
    EXPECT_TRUE(cellAt(2)->layer()->animationKeys().empty());
}

TEST_F(CellTouchTest, ItFadesBackWithin200MillisecondsOnceTheFingerIsLifted) {
    show(nullptr);
    press(2);
    host.touchUp();
    EXPECT_EQ(rgba(cellAt(2)->backgroundColor()), kWhite);
    expectNear(seen(cellAt(2)), faded(0));
    host.advance(0.05);
    expectNear(seen(cellAt(2)), faded(0.12916));
    host.advance(0.05);
    expectNear(seen(cellAt(2)), faded(0.5));
    EXPECT_EQ(host.pixel(inRow(2)), (FramePixel{235, 236, 235}));
    host.advance(0.09);
    EXPECT_FALSE(seen(cellAt(2)) == kWhite);
    host.advance(0.01);
    EXPECT_EQ(seen(cellAt(2)), kWhite);
    EXPECT_EQ(host.pixel(inRow(2)), (FramePixel{255, 255, 255}));
}

TEST_F(CellTouchTest, AQuickTapIsSeenToFadeToo) {
    show(nullptr);
    host.tap(inRow(2));
    expectNear(seen(cellAt(2)), faded(0));
    host.advance(0.1);
    expectNear(seen(cellAt(2)), faded(0.5));
    host.advance(0.1);
    EXPECT_EQ(seen(cellAt(2)), kWhite);
}

TEST_F(CellTouchTest, ACancelledTouchFadesAndSelectsNothing) {
    int selections = 0;
    show([&](ZRTableViewCell* cell, NSInteger) { cell->setCellSelectedBlock([&] { ++selections; }); });
    press(2);
    host.touchCancel();
    EXPECT_EQ(rgba(cellAt(2)->backgroundColor()), kWhite);
    host.advance(0.1);
    expectNear(seen(cellAt(2)), faded(0.5));
    host.advance(0.1);
    EXPECT_EQ(seen(cellAt(2)), kWhite);
    EXPECT_EQ(selections, 0);
    EXPECT_FALSE(cellAt(2)->checkBoxSelected());
    EXPECT_TRUE(list->selected.empty());
}

TEST_F(CellTouchTest, ADragTakesTheHighlightAway) {
    show(nullptr);
    press(2);
    const Ref<ZRTableViewCell> cell = cellAt(2);
    host.touchMove({100, 120}, 0.1);
    EXPECT_GT(table->contentOffset().y, 0);
    EXPECT_EQ(rgba(cell->backgroundColor()), kWhite);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(seen(cell), kWhite);
    EXPECT_FALSE(cell->checkBoxSelected());
}

TEST_F(CellTouchTest, ABackgroundViewIsPaintedToo) {
    show([](ZRTableViewCell* cell, NSInteger row) {
        if (row == 2)
            cell->setBackgroundView(make<UIView>());
    });
    press(2);
    const UIView* background = cellAt(2)->backgroundView();
    EXPECT_EQ(seen(background), kLine);
    host.touchUp();
    EXPECT_EQ(rgba(background->backgroundColor()), kWhite);
    host.advance(0.1);
    expectNear(seen(background), faded(0.5));
    host.advance(0.1);
    EXPECT_EQ(seen(background), kWhite);
    press(2);
    host.touchCancel();
    host.advance(0.1);
    expectNear(seen(background), faded(0.5));
}

TEST_F(CellTouchTest, ARowWithASwitchIsNotDarkenedUnlessItIsTold) {
    show([](ZRTableViewCell* cell, NSInteger row) {
        cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
        cell->setShowSelectedStyle(row == 3);
    });
    press(2);
    EXPECT_EQ(seen(cellAt(2)), kWhite);
    host.touchUp();
    host.advance(0.05);
    EXPECT_EQ(seen(cellAt(2)), kWhite);
    press(2);
    host.touchCancel();
    EXPECT_TRUE(cellAt(2)->layer()->animationKeys().empty());
    press(3);
    EXPECT_EQ(seen(cellAt(3)), kLine);
    host.touchUp();
    host.advance(0.1);
    expectNear(seen(cellAt(3)), faded(0.5));
    host.advance(0.1);
    press(3);
    host.touchCancel();
    host.advance(0.1);
    expectNear(seen(cellAt(3)), faded(0.5));
}

TEST_F(CellTouchTest, ASwitchRowKeepsTheBackgroundThatItWasGiven) {
    show([](ZRTableViewCell* cell, NSInteger) {
        cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
        cell->setBackgroundColor(UIColor::yellowColor());
    });
    press(2);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(rgba(cellAt(2)->backgroundColor()), rgb(255, 255, 0));
}

TEST_F(CellTouchTest, EveryOtherTypeIsDarkened) {
    show([](ZRTableViewCell* cell, NSInteger row) { cell->setZrAccessoryType(row); });
    for (const NSInteger row : {0, 1, 2, 3, 4, 6, 7}) {
        press(row);
        EXPECT_EQ(seen(cellAt(row)), kLine) << row;
        host.touchUp();
        host.advance(0.2);
        EXPECT_EQ(seen(cellAt(row)), kWhite) << row;
    }
}

TEST_F(CellTouchTest, TheRowTurnsWhiteWhateverItWas) {
    show([](ZRTableViewCell* cell, NSInteger) { cell->setBackgroundColor(UIColor::yellowColor()); });
    press(2);
    host.touchUp();
    host.advance(0.2);
    EXPECT_EQ(rgba(cellAt(2)->backgroundColor()), kWhite);
}

// Taps

TEST_F(CellTouchTest, ATapTogglesThenTellsThenSelects) {
    std::vector<std::string> log;
    show([&](ZRTableViewCell* cell, NSInteger row) {
        if (row != 2)
            return;
        cell->setCellMultSelectBlock([&log, cell](bool selected) {
            log.push_back(selected ? "checked" : "unchecked");
            EXPECT_EQ(cell->checkBoxSelected(), selected);
        });
        cell->setCellSelectedBlock([&log] { log.push_back("tapped"); });
    });
    list->onSelect = [&] { log.push_back("selected by the table"); };
    host.tap(inRow(2));
    EXPECT_EQ(log, (std::vector<std::string>{"selected by the table", "checked", "tapped"}));
    host.tap(inRow(2));
    EXPECT_EQ(log.size(), 6u);
    EXPECT_EQ(log[4], "unchecked");
    EXPECT_EQ(list->selected, (std::vector<NSInteger>{2, 2}));
}

TEST_F(CellTouchTest, TheTouchReachesTheTableBeforeTheRowChangesItsColour) {
    class Watcher : public CellList {
    public:
        void tableView_didHighlightRowAtIndexPath(UITableView*, const NSIndexPath&) override { onChange(); }
        void tableView_didUnhighlightRowAtIndexPath(UITableView*, const NSIndexPath&) override { onChange(); }
        std::function<void()> onChange;
    };
    const auto watcher = make<Watcher>();
    list = watcher;
    show(nullptr);
    std::vector<RGBAColor> colors;
    watcher->onChange = [&] { colors.push_back(rgba(cellAt(2)->backgroundColor())); };
    press(2);
    host.touchUp();
    press(2);
    host.touchCancel();
    EXPECT_EQ(colors, (std::vector<RGBAColor>{kWhite, kLine, kWhite, kLine}));
    press(2);
    EXPECT_TRUE(cellAt(2)->isHighlighted());
    EXPECT_EQ(host.pixel(inRow(2)), (FramePixel{215, 217, 215})) << "and no other background shows";
}

TEST_F(CellTouchTest, RowsOfEveryTypeToggle) {
    int calls = 0;
    show([&](ZRTableViewCell* cell, NSInteger row) {
        cell->setZrAccessoryType(row);
        cell->setCellMultSelectBlock([&](bool) { ++calls; });
        cell->setCellSelectedBlock([&] { ++calls; });
    });
    for (NSInteger row = 0; row < 8; ++row) {
        const bool before = cellAt(row)->checkBoxSelected();
        EXPECT_EQ(before, row == 6);
        host.tap(inRow(row));
        EXPECT_EQ(cellAt(row)->checkBoxSelected(), !before) << row;
        EXPECT_EQ(calls, 2 * (row + 1)) << row;
    }
}

TEST_F(CellTouchTest, ATapOfARowChecksItsBox) {
    show([](ZRTableViewCell* cell, NSInteger) { cell->setZrAccessoryType(ZRAccessoryTypeCheckBox); });
    const auto* box = dynamic_cast<UIControl*>(cellAt(2)->zrAccessoryView());
    host.tap(inRow(2));
    EXPECT_TRUE(box->isSelected());
    host.tap(inRow(2));
    EXPECT_FALSE(box->isSelected());
    EXPECT_FALSE(dynamic_cast<UIControl*>(cellAt(1)->zrAccessoryView())->isSelected());
}

TEST_F(CellTouchTest, ATapOfTheBoxItselfTogglesOnceAndLeavesTheRowAlone) {
    int selections = 0;
    show([&](ZRTableViewCell* cell, NSInteger) {
        cell->setZrAccessoryType(ZRAccessoryTypeCheckBox);
        cell->setCellSelectedBlock([&] { ++selections; });
    });
    host.touchDown({294, 150});
    host.advance(0.2);
    EXPECT_EQ(seen(cellAt(2)), kWhite);
    host.touchUp();
    EXPECT_TRUE(cellAt(2)->checkBoxSelected());
    EXPECT_EQ(selections, 0);
    EXPECT_TRUE(list->selected.empty());
}

TEST_F(CellTouchTest, ATapOfACheckMarkHidesItOnlyWithABlock) {
    show([](ZRTableViewCell* cell, NSInteger row) {
        cell->setZrAccessoryType(ZRAccessoryTypeCheckMark);
        if (row == 2)
            cell->setCellMultSelectBlock([](bool) {});
    });
    host.tap(inRow(2));
    EXPECT_FALSE(cellAt(2)->checkBoxSelected());
    EXPECT_TRUE(cellAt(2)->zrAccessoryView()->isHidden());
    host.tap(inRow(2));
    EXPECT_FALSE(cellAt(2)->zrAccessoryView()->isHidden());
    host.tap(inRow(3));
    EXPECT_FALSE(cellAt(3)->checkBoxSelected());
    EXPECT_FALSE(cellAt(3)->zrAccessoryView()->isHidden());
}

TEST_F(CellTouchTest, ASwitchIsMovedWithoutItsRow) {
    std::vector<bool> told;
    show([&](ZRTableViewCell* cell, NSInteger) {
        cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
        cell->setSwitchValueChangedBlock([&](bool on) { told.push_back(on); });
    });
    host.tap({285, 150});
    EXPECT_EQ(told, std::vector<bool>{true});
    EXPECT_FALSE(cellAt(2)->checkBoxSelected());
}

TEST_F(CellTouchTest, ATouchThatHasLeftTheRowCountsAllTheSame) {
    int selections = 0;
    show([&](ZRTableViewCell* cell, NSInteger) { cell->setCellSelectedBlock([&] { ++selections; }); });
    table->setScrollEnabled(false);
    press(2);
    host.touchMove({100, 400});
    host.touchUp();
    EXPECT_EQ(selections, 1) << "a cell tells of the end of its touch, wherever that is";
    EXPECT_TRUE(list->selected.empty());
}

TEST_F(CellTouchTest, AnAccessoryIsTouchedAlone) {
    show([](ZRTableViewCell* cell, NSInteger) { cell->setZrAccessoryType(ZRAccessoryTypeButton); });
    host.touchDown({294, 150});
    host.advance(0.2);
    host.touchDown(inRow(4), 1);
    host.advance(0.2);
    EXPECT_EQ(seen(cellAt(4)), kWhite);
    host.touchUp(1);
    EXPECT_TRUE(list->selected.empty());
    host.touchUp(0);
    host.tap(inRow(4));
    EXPECT_EQ(list->selected, std::vector<NSInteger>{4});
}

// What the blocks may do

TEST_F(CellTouchTest, TheTablesDelegateMayTakeTheTableAway) {
    int selections = 0;
    show([&](ZRTableViewCell* cell, NSInteger) { cell->setCellSelectedBlock([&] { ++selections; }); });
    const Weak<UITableView> watched = table;
    list->onSelect = [&] {
        table->removeFromSuperview();
        table = nullptr;
    };
    host.tap(inRow(2));
    EXPECT_EQ(selections, 1);
    host.advance(1);
    EXPECT_FALSE(watched.get());
}

TEST_F(CellTouchTest, TheDelegateMayTakeTheTableAwayAsARowIsHighlighted) {
    class Remover : public CellList {
    public:
        void tableView_didHighlightRowAtIndexPath(UITableView*, const NSIndexPath&) override { onHighlight(); }
        std::function<void()> onHighlight;
    };
    const auto remover = make<Remover>();
    list = remover;
    show(nullptr);
    const Weak<UITableView> watched = table;
    remover->onHighlight = [&] {
        table->removeFromSuperview();
        table = nullptr;
    };
    press(2);
    host.touchUp();
    host.advance(1);
    EXPECT_FALSE(watched.get());
}

TEST_F(CellTouchTest, ABlockMayTakeTheCellsTableAway) {
    int selections = 0;
    show([&](ZRTableViewCell* cell, NSInteger) {
        cell->setCellMultSelectBlock([&](bool) {
            table->removeFromSuperview();
            table = nullptr;
        });
        cell->setCellSelectedBlock([&] { ++selections; });
    });
    host.tap(inRow(2));
    EXPECT_FALSE(table);
    EXPECT_EQ(selections, 1);
    host.advance(1);
}

TEST_F(CellTouchTest, ABlockMayEmptyTheListAndReload) {
    int selections = 0;
    show([&](ZRTableViewCell* cell, NSInteger) {
        cell->setCellSelectedBlock([&] {
            ++selections;
            list->rows = 0;
            table->reloadData();
        });
    });
    host.tap(inRow(2));
    host.advance(1);
    EXPECT_EQ(selections, 1);
    EXPECT_TRUE(table->visibleCells().empty());
}

// Reuse

TEST_F(CellTouchTest, NoOtherRowFadesWhenATapReloadsTheList) {
    show([](ZRTableViewCell* cell, NSInteger) {
        if (!cell->backgroundView())
            cell->setBackgroundView(make<UIView>());
        cell->backgroundView()->setBackgroundColor(UIColor::whiteColor());
    });
    for (const NSInteger row : {0, 3, 6}) {
        host.tap(inRow(row));
        table->reloadData();
        host.advance(0.05);
        for (const Ref<UITableViewCell>& cell : table->visibleCells()) {
            EXPECT_EQ(seen(cell), kWhite);
            EXPECT_EQ(seen(cell->backgroundView()), kWhite);
        }
    }
}

TEST_F(CellTouchTest, ACellUsedAgainShowsItsNewRowAndNoHighlight) {
    show([](ZRTableViewCell* cell, NSInteger row) {
        cell->zrTextLabel()->setText(NSString::stringWithFormat("Row %d", static_cast<int>(row)));
        cell->zrImageView()->setImage(row % 2 ? squareImage() : nullptr);
        cell->setZrAccessoryType(row % 3 ? ZRAccessoryTypeListIcon : ZRAccessoryTypeNone);
    });
    host.tap(inRow(0));
    table->setContentOffset({0, 600});
    host.advance(0.5);
    for (NSInteger row = 10; row < 18; ++row) {
        const ZRTableViewCell* cell = cellAt(row);
        ASSERT_TRUE(cell);
        EXPECT_EQ(seen(cell), kWhite);
        EXPECT_EQ(cell->zrTextLabel()->text(), NSString::stringWithFormat("Row %d", static_cast<int>(row)));
        const CGFloat accessory = row % 3 ? 32 : 0;
        const CGFloat icon = row % 2 ? 32 : 0;
        EXPECT_EQ(cell->zrTextLabel()->frame(), CGRectMake(row % 2 ? 62 : 15, 15, 320 - 30 - icon - accessory - 5, 30));
    }
}

} // namespace zr::testing
