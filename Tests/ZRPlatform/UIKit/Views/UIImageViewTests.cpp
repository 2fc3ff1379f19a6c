#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

#include <ZRPlatform/UIKit/Views/UIImageView.h>

namespace zr::tests {

class ImageView : public OnScreen {};

TEST_F(ImageView, TakesTheImagesSizeAtFirstOnly) {
    auto view = make<UIImageView>(&UIImageView::initWithImage, plainImage(20, 10, kRed, 2));
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 10, 5));
    view->setImage(plainImage(50, 50, kRed));
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 10, 5));
    EXPECT_EQ(view->sizeThatFits({1, 1}), (CGSize{50, 50}));
    view->setImage(nullptr);
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 10, 5));
    EXPECT_EQ(view->sizeThatFits({1, 1}), CGSizeZero);
    EXPECT_EQ(make<UIImageView>(&UIImageView::initWithImage, nullptr)->frame(), CGRectZero);
}

TEST_F(ImageView, TakesNoTouches) {
    auto below = place(make<UIControl>(), {{0, 0}, {100, 100}});
    auto view = place(make<UIImageView>(), {{0, 0}, {100, 100}});
    EXPECT_FALSE(view->isUserInteractionEnabled());
    auto listener = make<Listener>();
    listener->listenTo(below);
    host.tap({50, 50});
    EXPECT_EQ(listener->news(), (News{"down", "up inside"}));
}

TEST_F(ImageView, TheImageIsTheLayersContentsUndrawn) {
    const auto image = plainImage(4, 4, kRed, 2);
    auto view = place(make<UIImageView>(&UIImageView::initWithImage, image), {{0, 0}, {40, 40}});
    EXPECT_EQ(view->layer()->contents(), image->CGImage());
    EXPECT_EQ(view->layer()->contentsScale(), 2);
    view->setNeedsDisplay();
    host.advance(0);
    EXPECT_EQ(view->layer()->contents(), image->CGImage());
    EXPECT_EQ(host.pixel({39, 39}), kRedOnScreen);
    view->setImage(nullptr);
    EXPECT_EQ(host.pixel({39, 39}), (FramePixel{0, 0, 0}));
}

TEST_F(ImageView, CentredTheImageKeepsItsSizeInPoints) {
    auto view = place(make<UIImageView>(&UIImageView::initWithImage, plainImage(20, 20, kRed, 2)), {{0, 0}, {40, 40}});
    view->setContentMode(UIViewContentModeCenter);
    EXPECT_EQ(host.pixel({14, 20}), (FramePixel{0, 0, 0}));
    EXPECT_EQ(host.pixel({15, 20}), kRedOnScreen);
    EXPECT_EQ(host.pixel({24.5, 24.5}), kRedOnScreen);
    EXPECT_EQ(host.pixel({25, 20}), (FramePixel{0, 0, 0}));
    view->setContentMode(UIViewContentModeLeft);
    EXPECT_EQ(host.pixel({0, 20}), kRedOnScreen);
    EXPECT_EQ(host.pixel({15, 20}), (FramePixel{0, 0, 0}));
}

TEST_F(ImageView, ATurnedImageStandsUpright) {
    const auto image =
        UIImage::imageWithCGImage_scale_orientation(bitmap(2, {kRed, kGreen}), 1, UIImageOrientationRight);
    auto view = place(make<UIImageView>(&UIImageView::initWithImage, image), {{0, 0}, {20, 40}});
    EXPECT_EQ(view->sizeThatFits({}), (CGSize{1, 2}));
    EXPECT_EQ(host.pixel({10, 2}), kRedOnScreen);
    EXPECT_EQ(host.pixel({10, 38}), kGreenOnScreen);
}

TEST_F(ImageView, OnlyTheMiddleOfACappedImageStretches) {
    std::vector<Pixel> row(3 * 3, kGreen);
    for (const std::size_t left : {0, 3, 6})
        row[left] = kRed;
    for (const std::size_t right : {2, 5, 8})
        row[right] = kBlue;
    const auto image = UIImage::imageWithCGImage(bitmap(3, row))->resizableImageWithCapInsets({0, 1, 0, 1});
    auto view = place(make<UIImageView>(&UIImageView::initWithImage, image), {{0, 0}, {30, 10}});
    EXPECT_EQ(view->layer()->contentsCenter(), (CGRect{{1 / 3.0, 0}, {1 / 3.0, 1}}));
    EXPECT_EQ(host.pixel({0, 5}), kRedOnScreen);
    EXPECT_EQ(host.pixel({3, 5}), kGreenOnScreen);
    EXPECT_EQ(host.pixel({27, 5}), kGreenOnScreen);
    EXPECT_EQ(host.pixel({29.5, 5}), kBlueOnScreen);
    view->setImage(plainImage(3, 3, kRed));
    EXPECT_EQ(view->layer()->contentsCenter(), (CGRect{{0, 0}, {1, 1}}));
}

TEST_F(ImageView, ATemplateShowsTheTintOfItsPlace) {
    const auto image = plainImage(4, 4, kWhite)->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
    window->setTintColor(UIColor::greenColor());
    auto view = make<UIImageView>(&UIImageView::initWithImage, image);
    place(view, {{0, 0}, {10, 10}});
    EXPECT_EQ(host.pixel({5, 5}), kGreenOnScreen);
    view->setTintColor(UIColor::redColor());
    EXPECT_EQ(host.pixel({5, 5}), kRedOnScreen);
    view->setImage(image->imageWithRenderingMode(UIImageRenderingModeAlwaysOriginal));
    EXPECT_EQ(host.pixel({5, 5}), kWhiteOnScreen);
}

TEST_F(ImageView, HighlightedItShowsTheOtherImageIfThereIsOne) {
    const auto image = plainImage(2, 2, kRed), other = plainImage(2, 2, kBlue);
    auto view = make<UIImageView>(&UIImageView::initWithImage_highlightedImage, image, other);
    EXPECT_EQ(view->layer()->contents(), image->CGImage());
    view->setHighlighted(true);
    EXPECT_EQ(view->layer()->contents(), other->CGImage());
    view->setHighlightedImage(nullptr);
    EXPECT_EQ(view->layer()->contents(), image->CGImage());
}

TEST_F(ImageView, ASequenceShowsItsImagesInTurn) {
    auto view = place(make<UIImageView>(&UIImageView::initWithImage, plainImage(2, 2, kWhite)), {{0, 0}, {10, 10}});
    view->setAnimationImages({plainImage(2, 2, kRed), nullptr, plainImage(2, 2, kGreen), plainImage(2, 2, kBlue)});
    view->setAnimationDuration(3);
    view->setAnimationRepeatCount(2);
    EXPECT_EQ(view->animationImages().size(), 3u);
    EXPECT_FALSE(view->isAnimating());
    view->startAnimating();
    host.advance(0);
    EXPECT_TRUE(view->isAnimating());
    EXPECT_EQ(host.pixel({5, 5}), kRedOnScreen);
    host.advance(0.9);
    EXPECT_EQ(host.pixel({5, 5}), kRedOnScreen);
    host.advance(0.2);
    EXPECT_EQ(host.pixel({5, 5}), kGreenOnScreen);
    host.advance(1);
    EXPECT_EQ(host.pixel({5, 5}), kBlueOnScreen);
    host.advance(1);
    EXPECT_EQ(host.pixel({5, 5}), kRedOnScreen);
    host.advance(3);
    EXPECT_FALSE(view->isAnimating());
    EXPECT_EQ(host.pixel({5, 5}), kWhiteOnScreen);
}

TEST_F(ImageView, ASequenceGoesOnUntilItIsStopped) {
    auto view = place(make<UIImageView>(), {{0, 0}, {10, 10}});
    view->startAnimating();
    EXPECT_FALSE(view->isAnimating());
    view->setAnimationImages({plainImage(2, 2, kRed), plainImage(2, 2, kGreen)});
    view->startAnimating();
    host.advance(0);
    host.advance(10 + 1 / 60.0); // 150 rounds of 1/15 s, and half an image
    EXPECT_TRUE(view->isAnimating());
    EXPECT_EQ(host.pixel({5, 5}), kRedOnScreen);
    view->stopAnimating();
    EXPECT_FALSE(view->isAnimating());
    EXPECT_EQ(host.pixel({5, 5}), (FramePixel{0, 0, 0}));
    view->startAnimating();
    view->setAnimationImages({});
    EXPECT_FALSE(view->isAnimating());
}

} // namespace zr::tests
