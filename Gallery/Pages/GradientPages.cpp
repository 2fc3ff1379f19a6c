#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRImage/ZRImage.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kSwatchHeight = 111;

std::vector<Ref<UIColor>> dawn() {
    return {ZRColor::zrColorWithRed_green_blue_alpha(25, 42, 86, 1),
            ZRColor::zrColorWithRed_green_blue_alpha(156, 84, 128, 1),
            ZRColor::zrColorWithRed_green_blue_alpha(255, 170, 94, 1)};
}

/// The kit makes a picture of the colours; any view of that size shows it.
Ref<UIView> makePicture(CGSize size) {
    auto picture = make<UIImageView>(&UIImageView::initWithFrame, CGRectMake(0, 0, size.width, size.height));
    picture->setImage(ZRImage::shadowImageFromColors_size(dawn(), size));
    return picture;
}

/// Or a colour that is a pattern, which goes wherever a colour does and repeats itself.
Ref<UIView> makeGround(CGSize size, CGFloat patternHeight) {
    auto ground = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, size.width, size.height));
    ground->setBackgroundColor(ZRColor::shadowColorFromColors_size(dawn(), CGSizeMake(size.width, patternHeight)));
    return ground;
}

void buildGradientPage(PageView& page) {
    const CGSize size = CGSizeMake(page.contentWidth(), kSwatchHeight);
    page.addHeading("AN IMAGE OF THREE COLOURS");
    page.addView(makePicture(size));
    page.addHeading("A COLOUR OF THREE COLOURS");
    page.addView(makeGround(size, kSwatchHeight));
    page.addHeading("THE SAME, A THIRD AS HIGH");
    page.addView(makeGround(size, kSwatchHeight / 3));
}

} // namespace

std::vector<Page> gradientPages() {
    return {
        {"gradients", "Gradients", "COLOURS", "Images and colours of many colours", "icon_bar_hues.png",
         "Colours one below the other, evenly from the top to the bottom edge: as an image, or as a colour for any "
         "background.",
         buildGradientPage},
    };
}

} // namespace zr::gallery
