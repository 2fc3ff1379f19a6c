#include <Tests/ZRKitDynamic/ZRTableViewCell/CellTesting.h>

#include <ZRPlatform/UIKit/Controls/UIButton.h>

namespace zr::testing {

namespace {

/// On a device, as cells measure by the screen.
class ZRTableViewCellTest : public ::testing::Test {
protected:
    static void expectFont(const UILabel* label, CGFloat size) {
        EXPECT_TRUE(label->font()->isEqual(UIFont::systemFontOfSize(size)));
    }
    static void expectClear(const UIView* view) { EXPECT_EQ(view->backgroundColor(), UIColor::clearColor()); }

    HeadlessHost host;
};

} // namespace

// Construction

TEST_F(ZRTableViewCellTest, IsAPlatformCellOfTheDefaultStyleWhateverItsOwn) {
    for (const std::int64_t style : {0, 1, 2, 3, 7, -1}) {
        const auto cell = makeCell(style, "name");
        EXPECT_EQ(cell->style(), UITableViewCellStyleDefault);
        EXPECT_EQ(cell->zrTableViewCellStyle(), style);
        EXPECT_EQ(cell->reuseIdentifier(), "name");
        EXPECT_EQ(cell->selectionStyle(), UITableViewCellSelectionStyleNone);
        EXPECT_TRUE(cell->isExclusiveTouch());
    }
    EXPECT_EQ(makeCell(0, nullptr)->reuseIdentifier(), nullptr);
}

TEST_F(ZRTableViewCellTest, OnlyTheMarkStyleHasAMarkLabel) {
    EXPECT_EQ(ZRTableViewCellStyleMark, 2);
    constexpr std::int64_t kFarAway = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t style : {std::int64_t(0), std::int64_t(1), std::int64_t(3), std::int64_t(-2), kFarAway})
        EXPECT_EQ(makeCell(style)->zrMarkTextLabel(), nullptr) << style;
    const auto cell =
        make<ZRTableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, ZRTableViewCellStyleMark, nullptr);
    UILabel* mark = cell->zrMarkTextLabel();
    ASSERT_TRUE(mark);
    EXPECT_EQ(mark->superview(), cell->contentView());
    expectClear(mark);
    expectFont(mark, 14);
    EXPECT_EQ(rgba(mark->textColor()), rgb(0, 0, 0));
    EXPECT_EQ(mark->frame(), CGRectZero);
}

TEST_F(ZRTableViewCellTest, TheStyleIsReadWhenTheCellIsMadeOnly) {
    const auto cell = makeCell(0);
    cell->setZrTableViewCellStyle(ZRTableViewCellStyleMark);
    EXPECT_EQ(cell->zrTableViewCellStyle(), 2);
    cell->layoutSubviews();
    EXPECT_EQ(cell->zrMarkTextLabel(), nullptr);
}

TEST_F(ZRTableViewCellTest, MadeWithAFrameItIsOneWithoutAMark) {
    const auto cell = make<ZRTableViewCell>(&UIView::initWithFrame, CGRectMake(1, 2, 300, 70));
    EXPECT_EQ(cell->frame(), CGRectMake(1, 2, 300, 70));
    EXPECT_TRUE(cell->zrTextLabel());
    EXPECT_EQ(cell->zrMarkTextLabel(), nullptr);
}

TEST_F(ZRTableViewCellTest, HasItsPartsInTheContentViewInOrder) {
    const auto cell = makeCell(2);
    const std::vector<Ref<UIView>> parts{cell->zrImageView(), cell->zrTextLabel(), cell->zrDetailTextLabel(),
                                         cell->zrAccessoryLabel(), cell->zrMarkTextLabel()};
    EXPECT_EQ(cell->contentView()->subviews(), parts);
}

TEST_F(ZRTableViewCellTest, PartsAreDressedAsTheyAre) {
    const auto cell = makeCell();
    EXPECT_EQ(cell->zrImageView()->image(), nullptr);
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectZero);
    expectClear(cell->zrImageView());

    expectClear(cell->zrTextLabel());
    EXPECT_EQ(rgba(cell->zrTextLabel()->textColor()), rgb(55, 63, 58));
    expectFont(cell->zrTextLabel(), 17);
    EXPECT_EQ(cell->zrTextLabel()->numberOfLines(), 1);

    UILabel* detail = cell->zrDetailTextLabel();
    EXPECT_EQ(detail->frame(), CGRectMake(0, 0, 0, 44));
    expectClear(detail);
    EXPECT_EQ(rgba(detail->textColor()), rgb(134, 141, 137));
    expectFont(detail, 15);
    EXPECT_EQ(detail->numberOfLines(), 2);

    UILabel* accessory = cell->zrAccessoryLabel();
    EXPECT_EQ(accessory->frame(), CGRectZero);
    EXPECT_EQ(accessory->textAlignment(), NSTextAlignmentRight);
    expectFont(accessory, 15);
    expectClear(accessory);
    EXPECT_EQ(rgba(accessory->textColor()), rgb(134, 141, 137));
}

TEST_F(ZRTableViewCellTest, TheLineIsInTheCellItself) {
    const auto cell = makeCell();
    UIView* line = lineOf(cell);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->superview(), cell);
    EXPECT_EQ(rgba(line->backgroundColor()), rgb(215, 217, 215));
}

TEST_F(ZRTableViewCellTest, EverythingElseIsNilOrNoAtFirst) {
    const auto cell = makeCell();
    EXPECT_EQ(cell->zrAccessoryView(), nullptr);
    EXPECT_EQ(cell->zrAccessoryType(), ZRAccessoryTypeNone);
    EXPECT_FALSE(cell->checkBoxSelected());
    EXPECT_FALSE(cell->showFullLine());
    EXPECT_FALSE(cell->showSelectedStyle());
    EXPECT_FALSE(cell->switchValueChangedBlock());
    EXPECT_FALSE(cell->cellAccessoryButtonBlock());
    EXPECT_FALSE(cell->cellMultSelectBlock());
    EXPECT_FALSE(cell->cellSelectedBlock());
}

TEST_F(ZRTableViewCellTest, LeavesThePlatformsOwnPartsAlone) {
    const auto cell = makeCell(1);
    EXPECT_EQ(cell->detailTextLabel(), nullptr);
    EXPECT_EQ(cell->accessoryView(), nullptr);
    cell->setFrame(CGRectMake(0, 0, 320, 60));
    cell->zrTextLabel()->setText("Title");
    cell->setZrAccessoryType(ZRAccessoryTypeListIcon);
    EXPECT_EQ(cell->accessoryView(), nullptr);
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 320, 60));
    EXPECT_EQ(cell->textLabel()->text(), nullptr);
}

// Keys

TEST_F(ZRTableViewCellTest, PropertiesAreReachedByKey) {
    const auto cell = makeCell(2);
    cell->setValue_forKey(3, "zrAccessoryType");
    EXPECT_EQ(cell->zrAccessoryType(), ZRAccessoryTypeLoading);
    EXPECT_EQ(cell->valueForKeyPath("zrAccessoryView.contentMode").integerValue(), UIViewContentModeCenter);
    for (const char* flag : {"checkBoxSelected", "showFullLine", "showSelectedStyle"}) {
        EXPECT_FALSE(cell->valueForKey(flag).boolValue()) << flag;
        cell->setValue_forKey(true, flag);
        EXPECT_TRUE(cell->valueForKey(flag).boolValue()) << flag;
    }
    EXPECT_TRUE(cell->checkBoxSelected() && cell->showFullLine() && cell->showSelectedStyle());
    cell->setValue_forKeyPath("by key", "zrTextLabel.text");
    EXPECT_EQ(cell->zrTextLabel()->text(), "by key");
    for (const char* part : {"zrImageView", "zrDetailTextLabel", "zrMarkTextLabel", "zrAccessoryLabel"})
        EXPECT_TRUE(cell->valueForKey(part).as<UIView*>()) << part;
    EXPECT_EQ(cell->valueForKey("zrTableViewCellStyle").integerValue(), 2);
}

// Blocks

TEST_F(ZRTableViewCellTest, BlocksAreCopiedAndGoWithTheCell) {
    const auto token = make<NSObject>();
    const Weak<NSObject> alive = token;
    {
        const auto cell = makeCell();
        Ref<NSObject> held = make<NSObject>();
        const Weak<NSObject> watched = held;
        cell->setCellSelectedBlock([held] {});
        cell->setCellAccessoryButtonBlock([held] {});
        cell->setCellMultSelectBlock([held](bool) {});
        cell->setSwitchValueChangedBlock([held](bool) {});
        held = nullptr;
        EXPECT_TRUE(watched.get());
        cell->setCellSelectedBlock(nullptr);
        cell->setCellAccessoryButtonBlock(nullptr);
        cell->setCellMultSelectBlock(nullptr);
        EXPECT_TRUE(watched.get());
        cell->setSwitchValueChangedBlock(nullptr);
        EXPECT_FALSE(watched.get());
        cell->setSwitchValueChangedBlock([token](bool) {});
    }
    EXPECT_EQ(alive.get(), token);
    EXPECT_EQ(token->retainCount(), 1u) << "the cell has gone, and its block with it";
}

TEST_F(ZRTableViewCellTest, ItsPartsGoWithTheCell) {
    std::vector<Weak<UIView>> parts;
    {
        const auto cell = makeCell(2);
        cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
        parts = {cell->zrImageView(),     cell->zrTextLabel(),     cell->zrDetailTextLabel(), cell->zrAccessoryLabel(),
                 cell->zrMarkTextLabel(), cell->zrAccessoryView(), cell->contentView()};
    }
    for (const auto& part : parts)
        EXPECT_FALSE(part.get());
}

} // namespace zr::testing
