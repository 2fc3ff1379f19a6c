#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <map>

#pragma GCC visibility push(default)
namespace zr {

/// What look a button brings along.
enum UIButtonType : NSInteger {
    /// No look of its own: a white title, and the images as they are.
    UIButtonTypeCustom = 0,
    /// Title and template images in the tint colour, dimmed while highlighted.
    UIButtonTypeSystem = 1,
    UIButtonTypeRoundedRect = UIButtonTypeSystem,
};

/// A control with an image, a title to its right, and a background image behind both, each chosen by the state.
///
/// What a state lacks is that of the normal state; states that are sums (highlighted and selected) are states of their
/// own. Setting nil takes a state's own value away.
class UIButton : public UIControl {
public:
    /// A button of the class it is asked for: `UIButton::buttonWithType<ZRButton>(UIButtonTypeCustom)`. Its frame is
    /// zero. A button made otherwise is a custom one.
    template <class T = UIButton>
    static Ref<T> buttonWithType(UIButtonType type) {
        Ref<T> button = make<T>();
        if (button)
            static_cast<UIButton*>(button.get())->becomeType(type);
        return button;
    }
    bool initWithFrame(CGRect frame) override;

    /// As given to `buttonWithType`; custom for others.
    UIButtonType buttonType() const { return m_type; }

    /// @name What shows in a state
    /// `state` is a sum of `UIControlState` values. The getters give what the state shows, the normal state's value
    /// where it has none of its own.
    /// @{
    /// The text of the state; nil takes the state's own away.
    virtual void setTitle_forState(const NSString& title, NSUInteger state);
    /// The text's colour; kept. Nil takes the state's own away.
    virtual void setTitleColor_forState(UIColor* color, NSUInteger state);
    /// The colour of the title's shadow; kept. Nil takes the state's own away.
    virtual void setTitleShadowColor_forState(UIColor* color, NSUInteger state);
    /// The image beside the title; kept. Nil takes the state's own away.
    virtual void setImage_forState(UIImage* image, NSUInteger state);
    /// The image behind both, as large as the button; kept. Nil takes the state's own away.
    virtual void setBackgroundImage_forState(UIImage* image, NSUInteger state);

    /// The text of the state; nil where none was set, neither for it nor for the normal one.
    NSString titleForState(NSUInteger state) const;
    /// The text's colour. Where none was set: white (custom) or the tint colour (system), grey for a disabled system
    /// button.
    UIColor* titleColorForState(NSUInteger state) const;
    /// The colour of the text's shadow; nil, for no shadow, where none was set.
    UIColor* titleShadowColorForState(NSUInteger state) const;
    /// The image beside the title; nil where none was set.
    UIImage* imageForState(NSUInteger state) const;
    /// The image behind both; nil where none was set.
    UIImage* backgroundImageForState(NSUInteger state) const;

    /// The text of the state that the button is in.
    NSString currentTitle() const { return titleForState(state()); }
    /// The text's colour in that state.
    UIColor* currentTitleColor() const { return titleColorForState(state()); }
    /// The colour of the text's shadow in that state.
    UIColor* currentTitleShadowColor() const { return titleShadowColorForState(state()); }
    /// The image beside the title in that state.
    UIImage* currentImage() const { return imageForState(state()); }
    /// The image behind both in that state.
    UIImage* currentBackgroundImage() const { return backgroundImageForState(state()); }
    /// @}

    /// @name Parts
    /// Made when first asked for or needed; the button keeps them, and sets their text, colours, images and frames.
    /// Fonts are the caller's to set: 18 points for custom buttons and 15 for system ones at first.
    /// @{
    /// Shows the title; never nil.
    UILabel* titleLabel();
    /// Shows the image, not the background image; never nil.
    UIImageView* imageView();
    /// @}

    /// Whether a highlighted button without an image for that state shows the normal one darkened; true at first.
    bool adjustsImageWhenHighlighted() const { return m_adjustsImageWhenHighlighted; }
    virtual void setAdjustsImageWhenHighlighted(bool adjusts);
    /// Whether a disabled button without an image for that state shows the normal one at half opacity; true at first.
    bool adjustsImageWhenDisabled() const { return m_adjustsImageWhenDisabled; }
    virtual void setAdjustsImageWhenDisabled(bool adjusts);

    /// @name Layout
    /// Image and title stand side by side and are aligned as a pair, within the bounds less the content insets. The
    /// image's and the title's own insets are taken from that rectangle for the one part only.
    /// @{
    /// Between the bounds and the pair, in points; zero at first.
    UIEdgeInsets contentEdgeInsets() const { return m_contentEdgeInsets; }
    virtual void setContentEdgeInsets(UIEdgeInsets insets);
    /// Of the title alone, in points; zero at first.
    UIEdgeInsets titleEdgeInsets() const { return m_titleEdgeInsets; }
    virtual void setTitleEdgeInsets(UIEdgeInsets insets);
    /// Of the image alone, in points; zero at first.
    UIEdgeInsets imageEdgeInsets() const { return m_imageEdgeInsets; }
    virtual void setImageEdgeInsets(UIEdgeInsets insets);

    /// Where the background image lies: all of the bounds. To be overridden, as the next three.
    virtual CGRect backgroundRectForBounds(CGRect bounds) const;
    /// Where image and title may lie: the bounds less the content insets.
    virtual CGRect contentRectForBounds(CGRect bounds) const;
    /// Where the image of the present state lies in that rectangle.
    virtual CGRect imageRectForContentRect(CGRect contentRect) const;
    /// Where the present title lies in it, beside the image.
    virtual CGRect titleRectForContentRect(CGRect contentRect) const;
    /// Room for image, title and content insets, and for the background image; a system button adds 6 points above and
    /// below.
    CGSize sizeThatFits(CGSize size) const override;
    void layoutSubviews() override;
    /// @}

    void tintColorDidChange() override;

protected:
    const KeyTable& keyTable() const override;
    void stateChanged() override;

private:
    struct StateContent {
        NSString title;
        Ref<UIColor> titleColor;
        Ref<UIColor> titleShadowColor;
        Ref<UIImage> image;
        Ref<UIImage> backgroundImage;
    };

    void becomeType(UIButtonType type);
    template <class T>
    T contentForState(NSUInteger state, T StateContent::*member) const;
    /// Brings title, colours and images up to the state.
    void showState();
    void showTitle();
    void showImages();
    Ref<UIImage> adjustedImage(UIImage* image, Ref<UIImage> StateContent::*member) const;
    /// Of the title at this moment, no larger than `limit`.
    CGSize titleSize(CGSize limit) const;
    CGSize imageSize() const;

    std::map<NSUInteger, StateContent> m_contents;
    Ref<UILabel> m_titleLabel;
    Ref<UIImageView> m_imageView;
    Ref<UIImageView> m_backgroundImageView;
    UIEdgeInsets m_contentEdgeInsets;
    UIEdgeInsets m_titleEdgeInsets;
    UIEdgeInsets m_imageEdgeInsets;
    UIButtonType m_type = UIButtonTypeCustom;
    bool m_adjustsImageWhenHighlighted = true;
    bool m_adjustsImageWhenDisabled = true;
};

} // namespace zr
#pragma GCC visibility pop
