#pragma once

#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#pragma GCC visibility push(default)
namespace zr {

/// Shows an image, or a sequence of images, placed by its content mode. Takes no touches unless told to.
///
/// The image is the layer's contents: nothing is drawn. A template image is coloured with the tint colour.
class UIImageView : public UIView {
public:
    bool initWithFrame(CGRect frame) override;
    /// Takes the image's size, at the origin; a zero frame for nil.
    virtual bool initWithImage(UIImage* image);
    /// The same, with an image for when it is highlighted, which gives no size; either may be nil.
    virtual bool initWithImage_highlightedImage(UIImage* image, UIImage* highlightedImage);

    /// Nil shows nothing but the background. Changing it leaves the frame alone.
    UIImage* image() const { return m_image; }
    virtual void setImage(UIImage* image);
    /// Shown while highlighted; with nil the image is.
    UIImage* highlightedImage() const { return m_highlightedImage; }
    virtual void setHighlightedImage(UIImage* image);
    /// Whether the highlighted image shows; false at first. The cell of a table sets it for its own.
    bool isHighlighted() const { return m_highlighted; }
    virtual void setHighlighted(bool highlighted);

    /// @name A sequence
    /// @{
    /// The images in the order of their being shown. Setting them stops a running sequence; nil images are left out.
    const std::vector<Ref<UIImage>>& animationImages() const { return m_animationImages; }
    void setAnimationImages(std::vector<Ref<UIImage>> images);
    /// Seconds for all images once; 0, the default, gives each a thirtieth of a second.
    NSTimeInterval animationDuration() const { return m_animationDuration; }
    void setAnimationDuration(NSTimeInterval duration) { m_animationDuration = duration > 0 ? duration : 0; }
    /// How many times all are shown; 0, the default, never ends.
    NSInteger animationRepeatCount() const { return m_animationRepeatCount; }
    void setAnimationRepeatCount(NSInteger count) { m_animationRepeatCount = count > 0 ? count : 0; }
    /// Shows the sequence, from the first image on, with the duration and the count of now.
    void startAnimating();
    /// Ends the sequence: the image shows again.
    void stopAnimating();
    /// Whether a sequence runs; false also once its last round is over.
    bool isAnimating() const;
    /// @}

    void tintColorDidChange() override;
    /// The image's size; zero without one.
    CGSize sizeThatFits(CGSize size) const override;

protected:
    const KeyTable& keyTable() const override;

private:
    UIImage* shownImage() const;
    void showImage();
    void renewTint();
    Ref<CGImage> contentsOf(const UIImage* image) const;

    Ref<UIImage> m_image;
    Ref<UIImage> m_highlightedImage;
    std::vector<Ref<UIImage>> m_animationImages;
    NSTimeInterval m_animationDuration = 0;
    NSInteger m_animationRepeatCount = 0;
    bool m_highlighted = false;
};

} // namespace zr
#pragma GCC visibility pop
