#include <ZRPlatform/UIKit/Controls/UIButton.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Text/TextEngine.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kCustomFontSize = 18;
constexpr CGFloat kSystemFontSize = 15;
constexpr CGFloat kSystemPadding = 6;
constexpr CGFloat kDimmedAlpha = CGFloat(0.2);
constexpr CGFloat kDarkening = CGFloat(0.5);
constexpr CGFloat kDisabledAlpha = CGFloat(0.5);
constexpr CGFloat kDisabledWhite = CGFloat(0.67);

/// Tells its button when its look changes the room it needs.
class ButtonLabel : public UILabel {
public:
    void setFont(UIFont* font) override {
        UILabel::setFont(font);
        askForLayout();
    }
    void setNumberOfLines(NSInteger count) override {
        UILabel::setNumberOfLines(count);
        askForLayout();
    }

private:
    void askForLayout() {
        if (UIView* button = superview())
            button->setNeedsLayout();
    }
};

bool isMissing(const NSString& text) { return text.isNil(); }
template <class T>
bool isMissing(const Ref<T>& object) {
    return !object;
}

bool isTemplate(const UIImage* image) { return image && image->renderingMode() == UIImageRenderingModeAlwaysTemplate; }

/// The image itself when it is too large to be drawn anew.
Ref<UIImage> redrawn(UIImage& image, CGFloat alpha, CGFloat darkening) {
    const CGRect all{{0, 0}, image.size()};
    UIGraphicsBeginImageContextWithOptions(all.size, false, image.scale());
    image.drawInRect_blendMode_alpha(all, kCGBlendModeNormal, alpha);
    if (darkening > 0) {
        UIColor::colorWithWhite_alpha(0, darkening)->setFill();
        UIRectFillUsingBlendMode(all, kCGBlendModeSourceAtop);
    }
    const Ref<UIImage> result = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    if (!result)
        return &image;
    return result->resizableImageWithCapInsets(image.capInsets())->imageWithRenderingMode(image.renderingMode());
}

CGFloat roundedToPixel(CGFloat value) {
    const CGFloat scale = UIScreen::mainScreen()->scale();
    return std::floor(value * scale + CGFloat(0.5)) / scale;
}

/// Where `length` begins within the available run: at its start (-1), middle (0) or end (1).
CGFloat alignedStart(CGFloat origin, CGFloat available, CGFloat length, int alignment) {
    return roundedToPixel(origin + (available - length) * static_cast<CGFloat>(alignment + 1) / 2);
}

int sideOf(UIControlContentHorizontalAlignment alignment) {
    if (alignment == UIControlContentHorizontalAlignmentCenter)
        return 0;
    return alignment == UIControlContentHorizontalAlignmentRight ? 1 : -1;
}

int sideOf(UIControlContentVerticalAlignment alignment) {
    if (alignment == UIControlContentVerticalAlignmentCenter)
        return 0;
    return alignment == UIControlContentVerticalAlignmentBottom ? 1 : -1;
}

CGSize sizeWithin(CGSize size, CGSize limit) {
    return {std::clamp(size.width, CGFloat(0), std::max(limit.width, CGFloat(0))),
            std::clamp(size.height, CGFloat(0), std::max(limit.height, CGFloat(0)))};
}

} // namespace

bool UIButton::initWithFrame(CGRect frame) {
    if (!UIControl::initWithFrame(frame))
        return false;
    setOpaque(false);
    return true;
}

const KeyTable& UIButton::keyTable() const {
    static const KeyTable table(
        UIControl::keyTable(),
        {key<&UIButton::buttonType>("buttonType"), key<&UIButton::currentTitle>("currentTitle"),
         key<&UIButton::currentTitleColor>("currentTitleColor"),
         key<&UIButton::currentTitleShadowColor>("currentTitleShadowColor"),
         key<&UIButton::currentImage>("currentImage"), key<&UIButton::currentBackgroundImage>("currentBackgroundImage"),
         key<&UIButton::adjustsImageWhenHighlighted, &UIButton::setAdjustsImageWhenHighlighted>(
             "adjustsImageWhenHighlighted"),
         key<&UIButton::adjustsImageWhenDisabled, &UIButton::setAdjustsImageWhenDisabled>("adjustsImageWhenDisabled"),
         key<&UIButton::contentEdgeInsets, &UIButton::setContentEdgeInsets>("contentEdgeInsets"),
         key<&UIButton::titleEdgeInsets, &UIButton::setTitleEdgeInsets>("titleEdgeInsets"),
         key<&UIButton::imageEdgeInsets, &UIButton::setImageEdgeInsets>("imageEdgeInsets")});
    return table;
}

void UIButton::becomeType(UIButtonType type) {
    m_type = type;
    showState();
}

// What shows in a state

template <class T>
T UIButton::contentForState(NSUInteger state, T StateContent::*member) const {
    for (const NSUInteger candidate : {state, NSUInteger{UIControlStateNormal}}) {
        const auto content = m_contents.find(candidate);
        if (content != m_contents.end() && !isMissing(content->second.*member))
            return content->second.*member;
    }
    return nullptr;
}

void UIButton::setTitle_forState(const NSString& title, NSUInteger state) {
    m_contents[state].title = title;
    showTitle();
}

void UIButton::setTitleColor_forState(UIColor* color, NSUInteger state) {
    m_contents[state].titleColor = color;
    showTitle();
}

void UIButton::setTitleShadowColor_forState(UIColor* color, NSUInteger state) {
    m_contents[state].titleShadowColor = color;
    showTitle();
}

void UIButton::setImage_forState(UIImage* image, NSUInteger state) {
    m_contents[state].image = image;
    showImages();
}

void UIButton::setBackgroundImage_forState(UIImage* image, NSUInteger state) {
    m_contents[state].backgroundImage = image;
    showImages();
}

NSString UIButton::titleForState(NSUInteger state) const { return contentForState(state, &StateContent::title); }

UIColor* UIButton::titleColorForState(NSUInteger state) const {
    if (UIColor* color = contentForState(state, &StateContent::titleColor))
        return color;
    if (m_type == UIButtonTypeCustom)
        return UIColor::whiteColor();
    static UIColor* const disabledColor = UIColor::colorWithWhite_alpha(kDisabledWhite, 1).leak();
    return state & UIControlStateDisabled ? disabledColor : tintColor();
}

UIColor* UIButton::titleShadowColorForState(NSUInteger state) const {
    return contentForState(state, &StateContent::titleShadowColor);
}

UIImage* UIButton::imageForState(NSUInteger state) const { return contentForState(state, &StateContent::image); }

UIImage* UIButton::backgroundImageForState(NSUInteger state) const {
    return contentForState(state, &StateContent::backgroundImage);
}

// Parts

UILabel* UIButton::titleLabel() {
    if (!m_titleLabel) {
        m_titleLabel = make<ButtonLabel>();
        m_titleLabel->setFont(
            UIFont::systemFontOfSize(m_type == UIButtonTypeSystem ? kSystemFontSize : kCustomFontSize));
        m_titleLabel->setBackgroundColor(UIColor::clearColor());
        m_titleLabel->setLineBreakMode(NSLineBreakByTruncatingMiddle);
        insertSubview_atIndex(m_titleLabel, (m_backgroundImageView ? 1 : 0) + (m_imageView ? 1 : 0));
    }
    return m_titleLabel;
}

UIImageView* UIButton::imageView() {
    if (!m_imageView) {
        m_imageView = make<UIImageView>();
        insertSubview_atIndex(m_imageView, m_backgroundImageView ? 1 : 0);
    }
    return m_imageView;
}

void UIButton::stateChanged() {
    UIControl::stateChanged();
    showState();
}

void UIButton::showState() {
    showTitle();
    showImages();
}

void UIButton::showTitle() {
    const NSString title = currentTitle();
    if (title.isNil() && !m_titleLabel)
        return;
    const bool isDimmed = m_type == UIButtonTypeSystem && isHighlighted();
    UILabel* label = titleLabel();
    label->setText(title);
    label->setTextColor(currentTitleColor());
    label->setShadowColor(currentTitleShadowColor());
    label->setAlpha(isDimmed ? kDimmedAlpha : 1);
    setNeedsLayout();
}

void UIButton::showImages() {
    UIImage* image = currentImage();
    if (image || m_imageView) {
        const bool isDimmed = m_type == UIButtonTypeSystem && isHighlighted() && isTemplate(image);
        imageView()->setImage(adjustedImage(image, &StateContent::image));
        imageView()->setAlpha(isDimmed ? kDimmedAlpha : 1);
    }
    UIImage* background = currentBackgroundImage();
    if (background && !m_backgroundImageView) {
        m_backgroundImageView = make<UIImageView>();
        insertSubview_atIndex(m_backgroundImageView, 0);
    }
    if (m_backgroundImageView)
        m_backgroundImageView->setImage(adjustedImage(background, &StateContent::backgroundImage));
    setNeedsLayout();
}

Ref<UIImage> UIButton::adjustedImage(UIImage* image, Ref<UIImage> StateContent::*member) const {
    const auto own = m_contents.find(state());
    const bool isNormalOne = own == m_contents.end() || !(own->second.*member);
    if (!image || !isNormalOne)
        return image;
    if (!isEnabled() && m_adjustsImageWhenDisabled)
        return redrawn(*image, kDisabledAlpha, 0);
    if (isEnabled() && isHighlighted() && m_adjustsImageWhenHighlighted && !isTemplate(image))
        return redrawn(*image, 1, kDarkening);
    return image;
}

void UIButton::setAdjustsImageWhenHighlighted(bool adjusts) {
    m_adjustsImageWhenHighlighted = adjusts;
    showImages();
}

void UIButton::setAdjustsImageWhenDisabled(bool adjusts) {
    m_adjustsImageWhenDisabled = adjusts;
    showImages();
}

void UIButton::tintColorDidChange() { showState(); }

// Layout

void UIButton::setContentEdgeInsets(UIEdgeInsets insets) {
    m_contentEdgeInsets = insets;
    setNeedsLayout();
}

void UIButton::setTitleEdgeInsets(UIEdgeInsets insets) {
    m_titleEdgeInsets = insets;
    setNeedsLayout();
}

void UIButton::setImageEdgeInsets(UIEdgeInsets insets) {
    m_imageEdgeInsets = insets;
    setNeedsLayout();
}

CGSize UIButton::imageSize() const {
    const UIImage* image = currentImage();
    return image ? image->size() : CGSizeZero;
}

CGSize UIButton::titleSize(CGSize limit) const {
    if (!m_titleLabel || currentTitle().length() == 0)
        return CGSizeZero;
    // Measuring a title that is wider anyway would take long.
    if (std::isfinite(limit.width) && m_titleLabel->text().utf8().size() > TextRequest::longestLine)
        return limit;
    return sizeWithin(m_titleLabel->sizeThatFits({std::max(limit.width, CGFloat(1)), limit.height}), limit);
}

CGRect UIButton::backgroundRectForBounds(CGRect bounds) const { return bounds; }

CGRect UIButton::contentRectForBounds(CGRect bounds) const {
    return UIEdgeInsetsInsetRect(bounds, m_contentEdgeInsets);
}

CGRect UIButton::imageRectForContentRect(CGRect contentRect) const {
    const auto [origin, available] = UIEdgeInsetsInsetRect(contentRect, m_imageEdgeInsets);
    CGSize image = sizeWithin(imageSize(), available);
    const CGSize title = titleSize({available.width - image.width, available.height});
    if (contentVerticalAlignment() == UIControlContentVerticalAlignmentFill)
        image.height = std::max(available.height, CGFloat(0));
    if (contentHorizontalAlignment() == UIControlContentHorizontalAlignmentFill && title.width == 0)
        image.width = std::max(available.width, CGFloat(0));
    return {{alignedStart(origin.x, available.width, image.width + title.width, sideOf(contentHorizontalAlignment())),
             alignedStart(origin.y, available.height, image.height, sideOf(contentVerticalAlignment()))},
            image};
}

CGRect UIButton::titleRectForContentRect(CGRect contentRect) const {
    const auto [origin, available] = UIEdgeInsetsInsetRect(contentRect, m_titleEdgeInsets);
    const CGSize image = sizeWithin(imageSize(), UIEdgeInsetsInsetRect(contentRect, m_imageEdgeInsets).size);
    CGSize title = titleSize({available.width - image.width, available.height});
    if (contentVerticalAlignment() == UIControlContentVerticalAlignmentFill)
        title.height = std::max(available.height, CGFloat(0));
    if (contentHorizontalAlignment() == UIControlContentHorizontalAlignmentFill)
        title.width = std::max(available.width - image.width, CGFloat(0));
    const CGFloat pair = image.width + title.width;
    const CGFloat start = alignedStart(origin.x, available.width, pair, sideOf(contentHorizontalAlignment()));
    return {{start + image.width,
             alignedStart(origin.y, available.height, title.height, sideOf(contentVerticalAlignment()))},
            title};
}

CGSize UIButton::sizeThatFits(CGSize) const {
    const CGSize image = imageSize();
    const CGSize title = titleSize({TextRequest::unlimited, TextRequest::unlimited});
    const UIEdgeInsets& insets = m_contentEdgeInsets;
    const CGFloat padding = m_type == UIButtonTypeSystem ? 2 * kSystemPadding : 0;
    const UIImage* background = currentBackgroundImage();
    const CGSize least = background ? background->size() : CGSizeZero;
    return {std::max(image.width + title.width + insets.left + insets.right, least.width),
            std::max(std::max(image.height, title.height) + insets.top + insets.bottom + padding, least.height)};
}

void UIButton::layoutSubviews() {
    const CGRect contentRect = contentRectForBounds(bounds());
    if (m_backgroundImageView)
        m_backgroundImageView->setFrame(backgroundRectForBounds(bounds()));
    if (m_imageView)
        m_imageView->setFrame(imageRectForContentRect(contentRect));
    if (m_titleLabel)
        m_titleLabel->setFrame(titleRectForContentRect(contentRect));
}

} // namespace zr
