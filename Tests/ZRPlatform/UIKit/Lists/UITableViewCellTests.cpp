#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

#include <ZRPlatform/UIKit/Lists/Internal/TableViewCellLayout.h>

namespace zr::tests {

namespace {

Ref<UITableViewCell> cellOfStyle(UITableViewCellStyle style) {
    return make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, style, "cell");
}

class Cell : public OnScreen {
protected:
    Ref<UITableViewCell> show(UITableViewCellStyle style) {
        return place(cellOfStyle(style), CGRectMake(0, 0, 320, 44));
    }
};

} // namespace

TEST_F(Cell, BeginsPlain) {
    const auto cell = cellOfStyle(UITableViewCellStyleDefault);
    EXPECT_EQ(cell->frame(), CGRectMake(0, 0, 320, 44));
    EXPECT_EQ(cell->reuseIdentifier(), NSString("cell"));
    EXPECT_EQ(cell->contentView()->superview(), cell.get());
    EXPECT_EQ(cell->accessoryType(), UITableViewCellAccessoryNone);
    EXPECT_EQ(cell->selectionStyle(), UITableViewCellSelectionStyleDefault);
    EXPECT_EQ(cell->backgroundView(), nullptr);
    EXPECT_EQ(cell->indentationWidth(), 10);
    EXPECT_FALSE(cell->isSelected());
    EXPECT_FALSE(cell->isHighlighted());
    EXPECT_EQ(cell->detailTextLabel(), nullptr) << "the default style has none";
    EXPECT_EQ(cell->_tableView(), nullptr);
    EXPECT_TRUE(make<UITableViewCell>()->reuseIdentifier().isNil());
}

TEST_F(Cell, TheDefaultStyleHasOneLineOfText) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->textLabel()->setText("Text");
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 320, 44));
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(15, 0, 290, 44));
}

TEST_F(Cell, AnImageMovesTheTextToTheRight) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->imageView()->setImage(plainImage(30, 20, kRed));
    cell->textLabel()->setText("Text");
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->imageView()->frame(), CGRectMake(15, 12, 30, 20));
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(60, 0, 245, 44));
    cell->imageView()->setImage(plainImage(44, 88, kRed));
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->imageView()->frame(), CGRectMake(15, 0, 22, 44)) << "no taller than the cell";
}

TEST_F(Cell, AnAccessoryMakesTheContentNarrower) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->textLabel()->setText("Text");
    cell->setAccessoryType(UITableViewCellAccessoryDisclosureIndicator);
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 287, 44));
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(15, 0, 272, 44));
    EXPECT_EQ(host.pixel({303, 22}), (FramePixel{199, 199, 204})) << "the tip of the chevron";

    const auto own = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 50, 30));
    own->setBackgroundColor(UIColor::redColor());
    cell->setAccessoryView(own);
    cell->layoutIfNeeded();
    EXPECT_EQ(own->frame(), CGRectMake(255, 7, 50, 30));
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 245, 44));
    cell->setAccessoryView(nullptr);
    cell->setAccessoryType(UITableViewCellAccessoryNone);
    cell->layoutIfNeeded();
    EXPECT_EQ(own->superview(), nullptr);
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 320, 44));
}

TEST_F(Cell, ACheckmarkHasTheTintColour) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->setAccessoryType(UITableViewCellAccessoryCheckmark);
    cell->setTintColor(UIColor::redColor());
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->contentView()->frame().size.width, 281);
    EXPECT_EQ(host.pixel({296, 26}), kRedOnScreen);
}

TEST_F(Cell, TheSubtitleStyleHasTwoLines) {
    const auto cell = show(UITableViewCellStyleSubtitle);
    cell->textLabel()->setText("Text");
    cell->detailTextLabel()->setText("Detail");
    cell->layoutIfNeeded();
    const CGRect text = cell->textLabel()->frame(), detail = cell->detailTextLabel()->frame();
    EXPECT_EQ(cell->detailTextLabel()->font()->pointSize(), 12);
    EXPECT_EQ(text.origin.x, 15);
    EXPECT_EQ(text.size.width, 290);
    EXPECT_EQ(text.size.height, cell->textLabel()->sizeThatFits(CGSizeZero).height);
    EXPECT_EQ(detail.origin.y, CGRectGetMaxY(text));
    EXPECT_NEAR(text.origin.y, 44 - CGRectGetMaxY(detail), 1) << "as a pair in the middle";
    cell->detailTextLabel()->setText(nullptr);
    cell->layoutIfNeeded();
    EXPECT_NEAR(cell->textLabel()->center().y, 22, 0.5) << "alone in the middle";
}

TEST_F(Cell, TheFirstValueStyleHasItsDetailAtTheRight) {
    const auto cell = show(UITableViewCellStyleValue1);
    cell->textLabel()->setText("Text");
    cell->detailTextLabel()->setText("Detail");
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame().origin.x, 15);
    EXPECT_EQ(CGRectGetMaxX(cell->detailTextLabel()->frame()), 305);
    EXPECT_EQ(cell->detailTextLabel()->frame().size.width, cell->detailTextLabel()->sizeThatFits(CGSizeZero).width);
    cell->textLabel()->setText("A text that is very much longer than the whole of the cell is wide");
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame().size.width, 290);
    EXPECT_EQ(cell->detailTextLabel()->frame().size.width, 0) << "the text comes first";
}

TEST_F(Cell, TheSecondValueStyleHasAColumn) {
    const auto cell = show(UITableViewCellStyleValue2);
    cell->textLabel()->setText("Text");
    cell->detailTextLabel()->setText("Detail");
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(15, 0, 91, 44));
    EXPECT_EQ(cell->textLabel()->textAlignment(), NSTextAlignmentRight);
    EXPECT_EQ(cell->detailTextLabel()->frame(), CGRectMake(112, 0, 193, 44));
}

TEST_F(Cell, IndentationMovesTheContent) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->textLabel()->setText("Text");
    cell->setIndentationLevel(2);
    cell->setIndentationWidth(12);
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(39, 0, 266, 44));
    cell->setIndentationLevel(-3);
    EXPECT_EQ(cell->indentationLevel(), 0);
}

TEST(TableViewCellLayout, ACellWithoutRoomGivesNone) {
    TableViewCellParts parts;
    parts.cell = {10, 0};
    parts.accessory = {40, 20};
    parts.text = {100, 20};
    parts.detailText = {100, 20};
    for (const auto style : {UITableViewCellStyleDefault, UITableViewCellStyleValue1, UITableViewCellStyleValue2,
                             UITableViewCellStyleSubtitle}) {
        parts.style = style;
        const TableViewCellLayout layout = layoutOfTableViewCell(parts);
        EXPECT_EQ(layout.content.size, CGSizeMake(0, 0));
        EXPECT_EQ(layout.text.size.width, 0);
        EXPECT_EQ(layout.detailText.size.width, 0);
    }
}

TEST_F(Cell, ATouchedOrSelectedCellIsGrey) {
    const auto cell = show(UITableViewCellStyleDefault);
    const FramePixel grey{217, 217, 217};
    EXPECT_EQ(host.pixel({200, 22}), kWhiteOnScreen);
    cell->setHighlighted(true);
    EXPECT_EQ(host.pixel({200, 22}), grey);
    cell->setSelected(true);
    cell->setHighlighted(false);
    EXPECT_EQ(host.pixel({200, 22}), grey);
    cell->setSelected(false);
    EXPECT_EQ(host.pixel({200, 22}), kWhiteOnScreen);
    cell->setSelectionStyle(UITableViewCellSelectionStyleNone);
    cell->setSelected(true);
    EXPECT_EQ(host.pixel({200, 22}), kWhiteOnScreen);
    cell->setSelectionStyle(UITableViewCellSelectionStyleBlue);
    EXPECT_EQ(host.pixel({200, 22}), grey) << "it was selected all along";
}

TEST_F(Cell, ItsOwnBackgroundsAreShown) {
    const auto cell = show(UITableViewCellStyleDefault);
    const auto background = make<UIView>(), selected = make<UIView>();
    background->setBackgroundColor(UIColor::greenColor());
    selected->setBackgroundColor(UIColor::redColor());
    cell->setBackgroundView(background);
    cell->setSelectedBackgroundView(selected);
    EXPECT_EQ(background->frame(), cell->bounds());
    EXPECT_EQ(host.pixel({200, 22}), kGreenOnScreen);
    cell->setSelected(true);
    EXPECT_EQ(host.pixel({200, 22}), kRedOnScreen);
    cell->setSelected(false);
    EXPECT_EQ(host.pixel({200, 22}), kGreenOnScreen);
    cell->setBackgroundView(nullptr);
    EXPECT_EQ(background->superview(), nullptr);
    cell->setFrame(CGRectMake(0, 0, 200, 80));
    cell->setSelected(true);
    host.advance(0);
    EXPECT_EQ(selected->frame(), CGRectMake(0, 0, 200, 80));
}

TEST_F(Cell, CellsMayShareTheViewOfTheirSelection) {
    const auto first = show(UITableViewCellStyleDefault), second = show(UITableViewCellStyleDefault);
    second->setFrame(CGRectMake(0, 44, 320, 44));
    const auto shared = make<UIView>();
    shared->setBackgroundColor(UIColor::redColor());
    first->setSelectedBackgroundView(shared);
    second->setSelectedBackgroundView(shared);
    const auto expectShown = [&](FramePixel atFirst, FramePixel atSecond) {
        EXPECT_EQ(host.pixel({200, 22}), atFirst);
        EXPECT_EQ(host.pixel({200, 66}), atSecond);
    };
    first->setSelected(true);
    expectShown(kRedOnScreen, kWhiteOnScreen);
    second->setHighlighted(true);
    expectShown(kWhiteOnScreen, kRedOnScreen);
    first->setSelected(false);
    second->setSelected(true);
    second->setHighlighted(false);
    expectShown(kWhiteOnScreen, kRedOnScreen);
    first->setSelected(true);
    expectShown(kRedOnScreen, kWhiteOnScreen);
    second->setSelectedBackgroundView(nullptr);
    expectShown(kRedOnScreen, {217, 217, 217});
    EXPECT_EQ(first->selectedBackgroundView(), shared.get());
}

TEST_F(Cell, AnAnimatedDeselectionFades) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->setSelected(true);
    host.advance(0);
    cell->setSelected_animated(false, true);
    EXPECT_FALSE(cell->isSelected());
    host.advance(0.15);
    const FramePixel half = host.pixel({200, 22});
    EXPECT_GT(half.red, 225);
    EXPECT_LT(half.red, 250);
    host.advance(0.2);
    EXPECT_EQ(host.pixel({200, 22}), kWhiteOnScreen);
    EXPECT_EQ(cell->subviews().size(), 1u) << "only the content is left";
}

TEST_F(Cell, ASelectionInTheMiddleOfTheFadeStays) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->setSelected(true);
    host.advance(0);
    cell->setSelected_animated(false, true);
    host.advance(0.1);
    cell->setSelected_animated(true, true);
    host.advance(1);
    EXPECT_EQ(host.pixel({200, 22}), (FramePixel{217, 217, 217}));
}

TEST_F(Cell, LabelsShowTheirHighlightedColours) {
    const auto cell = show(UITableViewCellStyleSubtitle);
    cell->textLabel();
    cell->detailTextLabel();
    cell->setHighlighted(true);
    EXPECT_TRUE(cell->textLabel()->isHighlighted());
    EXPECT_TRUE(cell->detailTextLabel()->isHighlighted());
    cell->setHighlighted(false);
    EXPECT_FALSE(cell->textLabel()->isHighlighted());
}

TEST_F(Cell, AnImageShowsThatItsCellIsHighlighted) {
    const auto cell = show(UITableViewCellStyleDefault);
    const UIImageView* image = cell->imageView();
    cell->setHighlighted_animated(true, false);
    EXPECT_TRUE(image->isHighlighted());
    cell->setHighlighted_animated(false, false);
    EXPECT_FALSE(image->isHighlighted());
}

TEST_F(Cell, WhoeverMovesTheContentViewHasItToHimself) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->contentView()->setCenter({60, 22});
    cell->addSubview(make<UIView>());
    cell->textLabel()->setText("Text");
    host.advance(0);
    EXPECT_EQ(cell->contentView()->center(), CGPointMake(60, 22)) << "layout leaves it where it is";
    cell->setFrame(CGRectMake(0, 0, 300, 44));
    host.advance(0);
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 300, 44)) << "another size is another place";
    cell->contentView()->setCenter({60, 22});
    cell->prepareForReuse();
    host.advance(0);
    EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 300, 44)) << "another row begins anew";
}

TEST_F(Cell, PreparingForReuseTakesTheSelectionAway) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->setSelected(true);
    cell->setHighlighted(true);
    cell->prepareForReuse();
    EXPECT_FALSE(cell->isSelected());
    EXPECT_FALSE(cell->isHighlighted());
    EXPECT_EQ(host.pixel({200, 22}), kWhiteOnScreen);
}

TEST_F(Cell, NumbersThatAreNotFiniteAreIgnored) {
    const auto cell = show(UITableViewCellStyleDefault);
    cell->setIndentationWidth(std::numeric_limits<CGFloat>::quiet_NaN());
    EXPECT_EQ(cell->indentationWidth(), 10);
}

} // namespace zr::tests
