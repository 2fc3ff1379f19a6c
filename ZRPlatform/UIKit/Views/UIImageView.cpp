#include <ZRPlatform/UIKit/Views/UIImageView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>

#include <limits>

namespace zr {

namespace {

constexpr const char* kAnimationKey = "UIImageAnimation";
constexpr NSTimeInterval kDefaultImageDuration = 1 / 30.0;

} // namespace

bool UIImageView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setUserInteractionEnabled(false);
    return true;
}

bool UIImageView::initWithImage(UIImage* image) { return initWithImage_highlightedImage(image, nullptr); }

bool UIImageView::initWithImage_highlightedImage(UIImage* image, UIImage* highlightedImage) {
    if (!initWithFrame({{0, 0}, image ? image->size() : CGSizeZero}))
        return false;
    setImage(image);
    setHighlightedImage(highlightedImage);
    return true;
}

const KeyTable& UIImageView::keyTable() const {
    static const KeyTable table(
        UIView::keyTable(), {key<&UIImageView::image, &UIImageView::setImage>("image"),
                             key<&UIImageView::highlightedImage, &UIImageView::setHighlightedImage>("highlightedImage"),
                             key<&UIImageView::isHighlighted, &UIImageView::setHighlighted>("highlighted")});
    return table;
}

// The image

void UIImageView::setImage(UIImage* image) {
    setObservable(m_image, image, "image");
    showImage();
}

void UIImageView::setHighlightedImage(UIImage* image) {
    setObservable(m_highlightedImage, image, "highlightedImage");
    showImage();
}

void UIImageView::setHighlighted(bool highlighted) {
    setObservable(m_highlighted, highlighted, "highlighted");
    showImage();
}

UIImage* UIImageView::shownImage() const {
    return m_highlighted && m_highlightedImage ? m_highlightedImage.get() : m_image.get();
}

void UIImageView::showImage() {
    const UIImage* image = shownImage();
    CATransaction::beginWithoutActions();
    layer()->setContents(contentsOf(image));
    if (image) {
        layer()->setContentsScale(image->scale());
        layer()->setContentsCenter(image->contentsCenter());
    }
    CATransaction::endWithoutActions();
}

Ref<CGImage> UIImageView::contentsOf(const UIImage* image) const {
    if (!image)
        return nullptr;
    if (image->renderingMode() == UIImageRenderingModeAlwaysTemplate)
        return image->imageTintedWithColor(tintColor()->cgColor());
    return image->uprightImage();
}

CGSize UIImageView::sizeThatFits(CGSize) const { return m_image ? m_image->size() : CGSizeZero; }

// The tint is inherited, so it may be another one in another place.

void UIImageView::renewTint() {
    const UIImage* image = shownImage();
    if (image && image->renderingMode() == UIImageRenderingModeAlwaysTemplate)
        showImage();
}

void UIImageView::tintColorDidChange() { renewTint(); }

// A sequence

void UIImageView::setAnimationImages(std::vector<Ref<UIImage>> images) {
    stopAnimating();
    std::erase(images, nullptr);
    m_animationImages = std::move(images);
}

void UIImageView::startAnimating() {
    if (m_animationImages.empty())
        return;
    std::vector<NSValue> pictures;
    for (const auto& image : m_animationImages)
        pictures.push_back(contentsOf(image));
    auto animation = CAKeyframeAnimation::animationWithKeyPath("contents");
    animation->setValues(std::move(pictures));
    animation->setCalculationMode(kCAAnimationDiscrete);
    const auto count = static_cast<NSTimeInterval>(m_animationImages.size());
    animation->setDuration(m_animationDuration > 0 ? m_animationDuration : count * kDefaultImageDuration);
    animation->setRepeatCount(m_animationRepeatCount > 0 ? static_cast<float>(m_animationRepeatCount)
                                                         : std::numeric_limits<float>::max());
    if (!shownImage())
        layer()->setContentsScale(m_animationImages.front()->scale());
    layer()->addAnimation_forKey(animation, kAnimationKey);
}

void UIImageView::stopAnimating() { layer()->removeAnimationForKey(kAnimationKey); }

bool UIImageView::isAnimating() const { return layer()->animationForKey(kAnimationKey) != nullptr; }

} // namespace zr
