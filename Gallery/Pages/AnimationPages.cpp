#include <Gallery/Look/Landscape.h>
#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRAnimation/ZRAnimation.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "STOCK ANIMATIONS";

constexpr CGFloat kStageHeight = 300;

/// A card on a dark stage.
Ref<UIView> addCard(PageView& page, CGSize size) {
    const CGFloat width = page.contentWidth();
    const auto stage = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, width, kStageHeight));
    stage->setBackgroundColor(Look::titleColor());
    stage->setClipsToBounds(true);
    stage->layer()->setCornerRadius(Look::kCornerRadius);
    const CGPoint origin = CGPointMake((width - size.width) / 2, (kStageHeight - size.height) / 2);
    auto card = make<Landscape>(&UIView::initWithFrame,
                                CGRectMake(Look::wholePixels(origin.x), origin.y, size.width, size.height));
    stage->addSubview(card);
    page.addView(stage);
    return card;
}

// Tilt

constexpr double kTiltDuration = 0.6;
constexpr CGFloat kRecededScale = 0.8;

/// Each direction has a key of its own, so that the way back begins where the way there ended.
void tilt(CALayer* layer, bool forward) {
    const NSString key = forward ? "forward" : "backward";
    if (forward)
        layer->removeAllAnimations();
    layer->addAnimation_forKey(ZRAnimation::animationGroupForward_duration_scale(forward, kTiltDuration, kRecededScale),
                               key);
}

void buildTiltPage(PageView& page) {
    const auto card = addCard(page, CGSizeMake(220, 220));
    page.addButtons(
        {{"Forward", [card] { tilt(card->layer(), true); }}, {"Backward", [card] { tilt(card->layer(), false); }}});
    page.setShowAction([card] { tilt(card->layer(), true); });
}

// Spin

void spin(CALayer* layer, double duration) {
    layer->addAnimation_forKey(ZRAnimation::animationForRotation(duration), "spin");
}

void buildSpinPage(PageView& page) {
    const auto card = addCard(page, CGSizeMake(160, 160));
    page.addHeading("SECONDS A TURN");
    page.addButtons({{"0.5", [card] { spin(card->layer(), 0.5); }},
                     {"1", [card] { spin(card->layer(), 1); }},
                     {"4", [card] { spin(card->layer(), 4); }},
                     {"Stop", [card] { card->layer()->removeAnimationForKey("spin"); }}});
    page.setShowAction([card] { spin(card->layer(), 4); });
}

} // namespace

std::vector<Page> animationPages() {
    return {
        {"tilt", "Tilt and recede", kFamily, "A layer makes room for another", "icon_tilt.png",
         "The card leans back by 15 degrees in perspective, then stands up again: farther away after a forward one, "
         "where it was after a backward one.",
         buildTiltPage, 0.3},
        {"spin", "Spin", kFamily, "Round and round", "icon_spin.png", "An endless turn against the clock.",
         buildSpinPage, 0.4},
    };
}

} // namespace zr::gallery
