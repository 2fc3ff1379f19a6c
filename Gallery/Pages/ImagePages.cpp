#include <Gallery/Look/Landscape.h>
#include <Gallery/Look/Look.h>
#include <Gallery/Look/StepSlider.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRImage/UIImage+Help.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "IMAGE PROCESSING";

constexpr CGFloat kFrameHeight = 210;
constexpr CGFloat kCaptionHeight = 18;

/// A picture, what is made of it, and how large that is.
class ImageDemo : public NSObject {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage(PageView* page) {
        m_page = page;
        m_photo = Landscape::image(CGSizeMake(300, 200), 2);
        return init();
    }

    /// Adds what the page shows.
    virtual void buildPage() = 0;

protected:
    PageView* page() const { return m_page; }
    /// 300 x 200 points of scale 2.
    UIImage* photo() const { return m_photo; }

    void addImageView() {
        const CGFloat width = page()->contentWidth();
        const auto card = Look::card(CGRectMake(0, 0, width, kFrameHeight + kCaptionHeight + 14));
        m_imageView = make<UIImageView>(&UIImageView::initWithFrame, CGRectMake(6, 6, width - 12, kFrameHeight - 6));
        m_imageView->setContentMode(UIViewContentModeScaleAspectFit);
        card->addSubview(m_imageView);
        m_caption = Look::label("", UIFont::systemFontOfSize(13), Look::detailColor(), 1, NSTextAlignmentCenter);
        m_caption->setFrame(CGRectMake(6, kFrameHeight + 6, width - 12, kCaptionHeight));
        card->addSubview(m_caption);
        page()->addView(card);
    }

    void showImage(const Ref<UIImage>& image) {
        m_imageView->setImage(image);
        if (!image) {
            m_caption->setText("nil");
            return;
        }
        m_caption->setText(NSString::stringWithFormat("%g x %g points, %zu x %zu pixels", image->size().width,
                                                      image->size().height, CGImageGetWidth(image->CGImage()),
                                                      CGImageGetHeight(image->CGImage())));
    }

private:
    Weak<PageView> m_page;
    Ref<UIImage> m_photo;
    Ref<UIImageView> m_imageView;
    Ref<UILabel> m_caption;
};

/// The operations without a choice, a button each.
class SizeDemo : public ImageDemo {
public:
    void buildPage() override {
        addImageView();
        page()->addButtons(
            {{"Original", [this] { showImage(photo()); }}, {"rectImage", [this] { showImage(rectImage(photo())); }}});
        page()->addButtons({{"subImageWithRect", [this] { showSun(); }}, {"scaleToSize", [this] { showSqueezed(); }}});
        page()->addButton("setFuzzyPhoto", [this] { showImage(setFuzzyPhoto(photo())); });
        showImage(photo());
    }

private:
    void showSun() { showImage(subImageWithRect(photo(), CGRectMake(190, 10, 90, 90))); }
    void showSqueezed() { showImage(scaleToSize(photo(), CGSizeMake(120, 200))); }
};

/// A slider that says how strong.
class BlurDemo : public ImageDemo {
protected:
    void addSlider(const NSString& heading, int stepCount, int step) {
        page()->addHeading(heading);
        m_slider = make<StepSlider>(&StepSlider::initWithFrame_stepCount,
                                    CGRectMake(0, 0, page()->contentWidth(), StepSlider::kHeight), stepCount);
        m_slider->setStep(step);
        m_slider->setAction([this](int) { update(); });
        page()->addView(m_slider);
    }
    int step() const { return m_slider->step(); }

    virtual void update() = 0;

private:
    Ref<StepSlider> m_slider;
};

class GaussianDemo : public BlurDemo {
public:
    void buildPage() override {
        addImageView();
        addSlider("RADIUS 0 TO 40", 21, 4);
        page()->addButtons({{"Whole", [this] { crop(CGSizeZero); }},
                            {"Square", [this] { crop(CGSizeMake(200, 200)); }},
                            {"Tall", [this] { crop(CGSizeMake(100, 200)); }}});
        update();
    }

protected:
    void update() override { showImage(blurryImageWithBlurLevel_size(photo(), 2 * step(), m_size)); }

private:
    void crop(CGSize size) {
        m_size = size;
        update();
    }

    CGSize m_size;
};

class BoxDemo : public BlurDemo {
public:
    void buildPage() override {
        addImageView();
        addSlider("BLUR 0 TO 1", 21, 8);
        page()->addButtons({{"No tint", [this] { tint(nullptr); }},
                            {"Veil", [this] { tint(UIColor::colorWithWhite_alpha(1, 0.5)); }},
                            {"Opaque", [this] { tint(ZRColor::zrColorWithRed_green_blue_alpha(0, 195, 64, 1)); }}});
        update();
    }

protected:
    void update() override { showImage(zr_boxblurImageWithBlur_withTintColor(photo(), step() / 20.0, m_tint)); }

private:
    void tint(const Ref<UIColor>& color) {
        m_tint = color;
        update();
    }

    Ref<UIColor> m_tint;
};

/// A demo of the class `Demo` on its own page: what `Page::build` asks for.
template <class Demo>
void buildImagePage(PageView& page) {
    const auto demo = make<Demo>(&ImageDemo::initWithPage, &page);
    page.keep(demo);
    demo->buildPage();
}

} // namespace

std::vector<Page> imagePages() {
    return {
        {"image-size", "Crop and scale", kFamily, "Square, crop, scale, reduce", "icon_image_size.png",
         "Each operation makes a new image and leaves the original alone. Some count in points, some in pixels.",
         buildImagePage<SizeDemo>},
        {"image-gaussian", "Gaussian blur", kFamily, "As soft as one likes", "icon_image_gaussian.png",
         "The whole picture grows by the blur’s spread; with a size it is scaled and cropped.",
         buildImagePage<GaussianDemo>},
        {"image-box", "Box blur and tint", kFamily, "Three passes, and a veil", "icon_image_box.png",
         "Three box blurs look like a Gaussian one. The tint’s rectangle is in points, so of a picture of scale 2 it "
         "covers a quarter.",
         buildImagePage<BoxDemo>},
    };
}

} // namespace zr::gallery
