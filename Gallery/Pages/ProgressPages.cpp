#include <Gallery/Look/Look.h>
#include <Gallery/Look/StepSlider.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "PROGRESS VIEWS";

constexpr int kSteps = 21;
constexpr int kFirstStep = 13;
constexpr CGFloat kCellHeight = 104;

/// A dark ground, on which white shows, in cells of one width.
Ref<UIView> addGround(PageView& page, int rows) {
    auto ground = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, page.contentWidth(), rows * kCellHeight));
    ground->setBackgroundColor(Look::titleColor());
    ground->setOpaque(false);
    ground->layer()->setCornerRadius(Look::kCornerRadius);
    page.addView(ground);
    return ground;
}

/// In the middle of a cell, above its caption.
void placeInCell(UIView* ground, UIView* view, int column, int columns, int row, const char* caption) {
    const CGFloat width = ground->bounds().size.width / static_cast<CGFloat>(columns);
    const CGFloat left = width * static_cast<CGFloat>(column), top = kCellHeight * static_cast<CGFloat>(row);
    const CGSize size = view->bounds().size;
    view->setOpaque(false);
    view->setBackgroundColor(UIColor::clearColor());
    view->setFrame(CGRectMake(Look::wholePixels(left + (width - size.width) / 2),
                              Look::wholePixels(top + (76 - size.height) / 2), size.width, size.height));
    ground->addSubview(view);
    const auto label =
        Look::label(caption, UIFont::systemFontOfSize(13), Look::separatorColor(), 1, NSTextAlignmentCenter);
    label->setFrame(CGRectMake(left, top + 76, width, 18));
    ground->addSubview(label);
}

/// A slider from 0 to 1 that sets all of the views.
template <class ProgressView>
void addProgressSlider(PageView& page, const std::vector<Ref<ProgressView>>& views) {
    page.addHeading("PROGRESS");
    const auto slider = make<StepSlider>(&StepSlider::initWithFrame_stepCount,
                                         CGRectMake(0, 0, page.contentWidth(), StepSlider::kHeight), kSteps);
    const auto show = [views](int step) {
        for (const auto& view : views)
            view->setProgress(static_cast<float>(step) / (kSteps - 1));
    };
    slider->setAction(show);
    slider->setStep(kFirstStep);
    show(kFirstStep);
    page.addView(slider);
}

Ref<ZRRoundProgressView> makeRound(bool annular, CGFloat side, UIColor* progress, UIColor* background) {
    auto view = make<ZRRoundProgressView>(&UIView::initWithFrame, CGRectMake(0, 0, side, side));
    view->setAnnular(annular);
    if (progress)
        view->setProgressTintColor(progress);
    if (background)
        view->setBackgroundTintColor(background);
    return view;
}

void buildRoundPage(PageView& page) {
    const auto ground = addGround(page, 2);
    const Ref<UIColor> faintOrange = ZRColor::zrColorWithRed_green_blue_alpha(255, 140, 0, 0.3);
    const std::vector<Ref<ZRRoundProgressView>> views = {
        makeRound(false, 37, nullptr, nullptr),
        makeRound(false, 60, nullptr, nullptr),
        makeRound(false, 60, Look::cursorColor(), faintOrange),
        makeRound(true, 37, nullptr, nullptr),
        makeRound(true, 60, nullptr, nullptr),
        makeRound(true, 60, Look::green(), faintOrange),
    };
    constexpr const char* captions[] = {"37 points", "60 points", "tinted"};
    for (int i = 0; i < 6; ++i)
        placeInCell(ground, views[static_cast<std::size_t>(i)], i % 3, 3, i / 3, captions[i % 3]);
    addProgressSlider(page, views);
}

Ref<ZRBarProgressView> makeBar(CGSize size, UIColor* line, UIColor* remaining, UIColor* progress) {
    auto view = make<ZRBarProgressView>(&UIView::initWithFrame, CGRectMake(0, 0, size.width, size.height));
    if (line)
        view->setLineColor(line);
    if (remaining)
        view->setProgressRemainingColor(remaining);
    if (progress)
        view->setProgressColor(progress);
    return view;
}

void buildBarPage(PageView& page) {
    const auto ground = addGround(page, 3);
    const Ref<UIColor> faintGreen = ZRColor::zrColorWithRed_green_blue_alpha(0, 195, 64, 0.3);
    const std::vector<Ref<ZRBarProgressView>> views = {
        makeBar(CGSizeMake(120, 20), nullptr, nullptr, nullptr),
        makeBar(CGSizeMake(240, 30), nullptr, nullptr, nullptr),
        makeBar(CGSizeMake(240, 14), Look::green(), faintGreen, Look::green()),
    };
    constexpr const char* captions[] = {"120 x 20 points", "240 x 30 points", "line, pill and rest in colour"};
    for (int i = 0; i < 3; ++i)
        placeInCell(ground, views[static_cast<std::size_t>(i)], 0, 1, i, captions[i]);
    addProgressSlider(page, views);
}

} // namespace

std::vector<Page> progressPages() {
    return {
        {"progress-round", "Round progress", kFamily, "A pie or a ring, in any size and tint", "icon_hud_pie.png",
         "The HUD’s round indicator by itself: a wedge in a disc above, an arc along a ring below. Outline, arc and "
         "ground have colours of their own.",
         buildRoundPage},
        {"progress-bar", "Bar progress", kFamily, "A pill in a track, in any size and tint", "icon_hud_bar.png",
         "The HUD’s bar by itself. Its line, its pill and what remains have colours of their own.", buildBarPage},
    };
}

} // namespace zr::gallery
