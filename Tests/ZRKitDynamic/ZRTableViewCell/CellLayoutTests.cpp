#include <Tests/ZRKitDynamic/ZRTableViewCell/CellTesting.h>

#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

namespace zr::testing {

namespace {

/// A cell of 320 x 80 points, laid out when told to.
class CellLayoutTest : public ::testing::Test {
protected:
    explicit CellLayoutTest(CGFloat scale = 2) : host(device(320, 568, scale)) { resize(320, 80); }

    void resize(CGFloat width, CGFloat height) {
        cell->setFrame(CGRectMake(0, 0, width, height));
        cell->layoutSubviews();
    }
    void setTexts(const NSString& detail, const NSString& mark) {
        cell->zrDetailTextLabel()->setText(detail);
        cell->zrMarkTextLabel()->setText(mark);
        cell->layoutSubviews();
    }
    void setIcon() {
        cell->zrImageView()->setImage(squareImage());
        cell->layoutSubviews();
    }
    static CGFloat textWidth(const NSString& text, CGFloat fontSize = 15) {
        return sizeWithFont_constrainedToSize_lineBreakMode(text, UIFont::systemFontOfSize(fontSize), {140, 30},
                                                            NSLineBreakByWordWrapping)
            .width;
    }
    CGRect title() const { return cell->zrTextLabel()->frame(); }
    CGRect detail() const { return cell->zrDetailTextLabel()->frame(); }
    CGRect mark() const { return cell->zrMarkTextLabel()->frame(); }
    /// In the middle of the cell.
    int inkedPixels() {
        int count = 0;
        for (CGFloat y = 20; y < 60; y += 0.5) {
            for (CGFloat x = 20; x < 300; x += 5)
                count += host.pixel({x, y}) == FramePixel{255, 255, 255} ? 0 : 1;
        }
        return count;
    }
    CGRect line() const { return lineOf(cell)->frame(); }

    HeadlessHost host;
    Ref<ZRTableViewCell> cell = makeCell(2);
};

class CellLayoutTestAtThree : public CellLayoutTest {
protected:
    CellLayoutTestAtThree() : CellLayoutTest(3) {}
};

} // namespace

// Icon

TEST_F(CellLayoutTest, AnIconWithoutAPlaceIsCentredAtTheLeft) {
    setIcon();
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(15, 24, 32, 32));
}

TEST_F(CellLayoutTest, AnIconKeepsThePlaceThatItHas) {
    cell->zrImageView()->setFrame(CGRectMake(20, 5, 50, 60));
    setIcon();
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(20, 5, 50, 60));
    resize(320, 200);
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(20, 5, 50, 60));
}

TEST_F(CellLayoutTest, AnIconThatTheCellHasPlacedStaysWhereItIsToo) {
    setIcon();
    resize(320, 100);
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(15, 24, 32, 32));
}

TEST_F(CellLayoutTest, WithoutAnImageTheIconHasNoPlace) {
    cell->zrImageView()->setFrame(CGRectMake(20, 5, 50, 60));
    cell->layoutSubviews();
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectZero);
    setIcon();
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(15, 24, 32, 32));
    cell->zrImageView()->setImage(nullptr);
    cell->layoutSubviews();
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectZero);
    EXPECT_EQ(title().origin.x, 15);
}

TEST_F(CellLayoutTest, AnEmptyPlaceThatIsNotAtTheOriginIsTheCallersToo) {
    cell->zrImageView()->setFrame(CGRectMake(40, 0, 0, 0));
    setIcon();
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(40, 0, 0, 0));
    EXPECT_EQ(title(), CGRectMake(55, 25, 285, 30));
    EXPECT_EQ(line(), CGRectMake(40, 79.5, 320, 0.5)) << "with the icon's image, however narrow";
}

// Accessories

TEST_F(CellLayoutTest, AnAccessoryViewIsTenPointsFromTheRight) {
    cell->setZrAccessoryView(make<UIView>(&UIView::initWithFrame, CGRectMake(7, 7, 50, 20)));
    cell->layoutSubviews();
    EXPECT_EQ(cell->zrAccessoryView()->frame(), CGRectMake(260, 30, 50, 20));
    EXPECT_EQ(title(), CGRectMake(15, 25, 320 - 30 - 50 - 5, 30));
    resize(200, 40);
    EXPECT_EQ(cell->zrAccessoryView()->frame(), CGRectMake(140, 10, 50, 20));
}

TEST_F(CellLayoutTest, AnAccessoryTextIsFifteenPointsFromTheRight) {
    cell->zrAccessoryLabel()->setText("12 MB");
    cell->layoutSubviews();
    const CGFloat width = textWidth("12 MB");
    EXPECT_GT(width, 30);
    EXPECT_EQ(cell->zrAccessoryLabel()->frame(), CGRectMake(305 - width, 25, width, 30));
    EXPECT_EQ(title(), CGRectMake(15, 25, 285 - width, 30));
}

TEST_F(CellLayoutTest, AnAccessoryTextIsLeftOfTheViewByFive) {
    cell->zrAccessoryLabel()->setText("12 MB");
    cell->setZrAccessoryView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 50, 20)));
    cell->layoutSubviews();
    const CGFloat width = textWidth("12 MB");
    EXPECT_EQ(cell->zrAccessoryLabel()->frame(), CGRectMake(320 - 65 - width, 25, width, 30));
    EXPECT_EQ(title(), CGRectMake(15, 25, 285 - width - 50, 30));
}

TEST_F(CellLayoutTest, WithoutATextTheAccessoryLabelHasNoWidth) {
    cell->zrAccessoryLabel()->setText("12 MB");
    cell->layoutSubviews();
    for (const NSString& none : {NSString(), NSString("")}) {
        cell->zrAccessoryLabel()->setText(none);
        cell->layoutSubviews();
        EXPECT_EQ(cell->zrAccessoryLabel()->frame(), CGRectMake(305, 25, 0, 30));
        EXPECT_EQ(title(), CGRectMake(15, 25, 285, 30));
    }
}

TEST_F(CellLayoutTest, AnAccessoryTextIsMeasuredWithin140Points) {
    cell->zrAccessoryLabel()->setText("WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    cell->layoutSubviews();
    const CGFloat width = cell->zrAccessoryLabel()->frame().size.width;
    EXPECT_LE(width, 140);
    EXPECT_GT(width, 120);
    EXPECT_EQ(title().size.width, 285 - width);
    // By words, and one line of them: the next one would be wider.
    cell->zrAccessoryLabel()->setText("Hi Wwwwwwwwwwwwwwwwwwwwwwwwww");
    cell->layoutSubviews();
    EXPECT_EQ(cell->zrAccessoryLabel()->frame().size.width, textWidth("Hi"));
}

TEST_F(CellLayoutTest, AnAccessoryTextIsMeasuredInItsOwnFont) {
    cell->zrAccessoryLabel()->setText("12 MB");
    cell->zrAccessoryLabel()->setFont(UIFont::systemFontOfSize(22));
    cell->layoutSubviews();
    EXPECT_EQ(cell->zrAccessoryLabel()->frame().size.width, textWidth("12 MB", 22));
}

// Texts

TEST_F(CellLayoutTest, ATitleAloneIsInTheMiddle) {
    EXPECT_EQ(title(), CGRectMake(15, 25, 285, 30));
    EXPECT_EQ(detail(), CGRectMake(0, 0, 0, 44)) << "what has no text is not moved";
    EXPECT_EQ(mark(), CGRectZero);
}

TEST_F(CellLayoutTest, TextsBeginFifteenPointsRightOfTheIcon) {
    cell->zrImageView()->setFrame(CGRectMake(20, 5, 50, 60));
    setIcon();
    setTexts("detail", "mark");
    EXPECT_EQ(title().origin.x, 85);
    EXPECT_EQ(detail().origin.x, 85);
    EXPECT_EQ(mark().origin.x, 85);
    EXPECT_EQ(title().size.width, 320 - 30 - 50 - 5);
}

TEST_F(CellLayoutTest, ADetailMovesTheTitleUpBySeventeen) {
    setTexts("detail", nullptr);
    EXPECT_EQ(detail(), CGRectMake(15, 35, 285, 44));
    EXPECT_EQ(title(), CGRectMake(15, 8, 285, 30));
    EXPECT_EQ(mark(), CGRectZero);
}

TEST_F(CellLayoutTest, DetailAndMarkStandBelowTheTitle) {
    setTexts("detail", "mark");
    EXPECT_EQ(detail(), CGRectMake(15, 18, 285, 44));
    EXPECT_EQ(mark(), CGRectMake(15, 58, 285, 30));
    EXPECT_EQ(title(), CGRectMake(15, -9, 285, 30));
}

TEST_F(CellLayoutTest, AMarkAloneIsAsHighAsADetail) {
    setTexts(nullptr, "mark");
    EXPECT_EQ(title(), CGRectMake(15, -2, 285, 30));
    EXPECT_EQ(mark(), CGRectMake(15, 25, 285, 44));
    EXPECT_EQ(detail(), CGRectMake(0, 0, 0, 44));
}

TEST_F(CellLayoutTest, TheDetailKeepsTheHeightThatItWasGiven) {
    cell->zrDetailTextLabel()->setFrame(CGRectMake(9, 9, 9, 20));
    setTexts("detail", nullptr);
    EXPECT_EQ(detail(), CGRectMake(15, 35, 285, 20));
    EXPECT_EQ(title(), CGRectMake(15, 8, 285, 30));
    setTexts("detail", "mark");
    EXPECT_EQ(detail(), CGRectMake(15, 30, 285, 20));
    EXPECT_EQ(mark(), CGRectMake(15, 46, 285, 30));
    EXPECT_EQ(title(), CGRectMake(15, 3, 285, 30));
    setTexts("", "mark");
    EXPECT_EQ(title(), CGRectMake(15, 10, 285, 30));
    EXPECT_EQ(mark(), CGRectMake(15, 37, 285, 20));
    EXPECT_EQ(detail(), CGRectMake(15, 30, 285, 20)) << "where it was last";
}

TEST_F(CellLayoutTest, AnEmptyTextIsNone) {
    setTexts("", "");
    EXPECT_EQ(title(), CGRectMake(15, 25, 285, 30));
    EXPECT_EQ(detail(), CGRectMake(0, 0, 0, 44));
    EXPECT_EQ(mark(), CGRectZero);
}

TEST_F(CellLayoutTest, TextsAreAsWideAsTheCellLeavesThemWhateverTheContentView) {
    setTexts("detail", nullptr);
    // The platform's accessory makes the content view narrower, which moves the kit's accessory but no text.
    cell->setAccessoryView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 60, 20)));
    cell->setZrAccessoryView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 50, 20)));
    cell->layoutSubviews();
    const CGFloat content = cell->contentView()->frame().size.width;
    ASSERT_LT(content, 260);
    EXPECT_EQ(cell->zrAccessoryView()->frame(), CGRectMake(content - 60, 30, 50, 20));
    EXPECT_EQ(title(), CGRectMake(15, 8, 235, 30));
    EXPECT_EQ(detail(), CGRectMake(15, 35, 235, 44));
    EXPECT_EQ(line(), CGRectMake(15, 79.5, 320, 0.5));
}

// Line

TEST_F(CellLayoutTest, TheLineBeginsWithTheTitleOrTheIconOrTheCell) {
    EXPECT_EQ(line(), CGRectMake(15, 79.5, 320, 0.5));
    cell->setShowFullLine(true);
    cell->layoutSubviews();
    EXPECT_EQ(line(), CGRectMake(0, 79.5, 320, 0.5));
    cell->setShowFullLine(false);
    cell->zrImageView()->setFrame(CGRectMake(21, 5, 50, 60));
    setIcon();
    EXPECT_EQ(line(), CGRectMake(21, 79.5, 320, 0.5));
    cell->setShowFullLine(true);
    cell->layoutSubviews();
    EXPECT_EQ(line(), CGRectMake(0, 79.5, 320, 0.5));
}

TEST_F(CellLayoutTest, TheLineFollowsTheCellsSize) {
    resize(200, 40);
    EXPECT_EQ(line(), CGRectMake(15, 39.5, 200, 0.5));
}

TEST_F(CellLayoutTestAtThree, TheLineIsThinnerAtThreePixelsAPoint) {
    EXPECT_EQ(line(), CGRectMake(15, 80 - 0.4, 320, 0.4));
}

TEST_F(CellLayoutTestAtThree, TheLineIsSeenThere) {
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    EXPECT_EQ(host.pixel({100, 79.9}), (FramePixel{215, 217, 215}));
    EXPECT_EQ(host.pixel({100, 79.5}), (FramePixel{255, 255, 255}));
}

TEST_F(CellLayoutTest, TheLineIsOnePixelHighAtTwo) {
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    EXPECT_EQ(host.pixel({100, 79.9}), (FramePixel{215, 217, 215}));
    EXPECT_EQ(host.pixel({100, 79.4}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({14.9, 79.9}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({319.9, 79.9}), (FramePixel{215, 217, 215}));
}

TEST(CellLayoutScales, TheLineIsHalfAPointUpToTwoPixelsAPoint) {
    for (const auto& [scale, height] : {std::pair<CGFloat, CGFloat>{1, 0.5}, {2, 0.5}, {2.5, 0.4}, {3, 0.4}}) {
        HeadlessHost host(device(320, 568, scale));
        const auto cell = makeCell();
        cell->layoutSubviews();
        EXPECT_EQ(lineOf(cell)->frame().size.height, height) << scale;
    }
}

// When

TEST_F(CellLayoutTest, HappensWhenTheSizeChangesOrWhenAskedFor) {
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    cell->zrDetailTextLabel()->setText("detail");
    host.advance(0);
    cell->setNeedsLayout();
    host.advance(0);
    EXPECT_EQ(detail(), CGRectMake(15, 35, 285, 44));
    cell->setFrame(CGRectMake(0, 0, 300, 100));
    host.advance(0);
    EXPECT_EQ(detail(), CGRectMake(15, 45, 265, 44));
}

// Bad sizes and texts

TEST_F(CellLayoutTest, ACellOfNoSizePlacesItsPartsByTheSameRules) {
    setIcon();
    setTexts("detail", "mark");
    cell->zrImageView()->setFrame(CGRectZero);
    resize(0, 0);
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(15, -16, 32, 32));
    EXPECT_EQ(detail(), CGRectMake(62, -22, 0, 44));
    EXPECT_EQ(title(), CGRectMake(62, -49, 0, 30));
    EXPECT_EQ(line().size.width, 0);
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    EXPECT_EQ(host.pixel({200, 100}), (FramePixel{255, 255, 255}));
}

TEST_F(CellLayoutTest, ACellWhoseSizeIsNoNumberShowsNothingAndComesBack) {
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    setIcon();
    setTexts("detail", "mark");
    cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
    for (const CGSize& size : {CGSize{kNaN, 80}, {320, kNaN}, {kNaN, kNaN}}) {
        resize(size.width, size.height);
        host.advance(0.1);
        EXPECT_EQ(host.pixel({100, 40}), (FramePixel{255, 255, 255}));
    }
    cell->zrImageView()->setFrame(CGRectZero);
    resize(320, 80);
    EXPECT_EQ(cell->zrImageView()->frame(), CGRectMake(15, 24, 32, 32));
    EXPECT_EQ(cell->zrAccessoryView()->frame(), CGRectMake(260, 24.5, 50, 31));
    EXPECT_EQ(title(), CGRectMake(62, -9, 320 - 30 - 32 - 50 - 5, 30));
    EXPECT_EQ(line(), CGRectMake(15, 79.5, 320, 0.5));
}

TEST_F(CellLayoutTest, AnAccessoryWhoseSizeIsNoNumberHarmsNoOtherCell) {
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    cell->setZrAccessoryView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, kNaN, kNaN)));
    cell->layoutSubviews();
    host.advance(0.1);
    cell->setZrAccessoryView(nullptr);
    cell->layoutSubviews();
    EXPECT_EQ(title(), CGRectMake(15, 25, 285, 30));
}

TEST_F(CellLayoutTest, NilAndEndlessTextsAreShownAsFarAsTheyGo) {
    const auto window = showWindow(UIColor::whiteColor());
    window->addSubview(cell);
    const NSString endless(std::string(1 << 20, 'x'));
    for (UILabel* label :
         {cell->zrTextLabel(), cell->zrDetailTextLabel(), cell->zrMarkTextLabel(), cell->zrAccessoryLabel()})
        label->setText(endless);
    cell->layoutSubviews();
    host.advance(0.1);
    EXPECT_LE(cell->zrAccessoryLabel()->frame().size.width, 140);
    EXPECT_EQ(title().origin, CGPointMake(15, -9));
    EXPECT_GT(inkedPixels(), 100);
    for (UILabel* label :
         {cell->zrTextLabel(), cell->zrDetailTextLabel(), cell->zrMarkTextLabel(), cell->zrAccessoryLabel()})
        label->setText(nullptr);
    cell->layoutSubviews();
    EXPECT_EQ(title(), CGRectMake(15, 25, 285, 30));
    EXPECT_EQ(inkedPixels(), 0);
}

} // namespace zr::testing
