#pragma once

#include <ZRPlatform/UIKit/Controls/UIButton.h>

#include <cstdint>
#include <map>

#pragma GCC visibility push(default)
namespace zr {

/// A key of the dictionary that `ZRButton::colorsWithStyle` gives: the colour of the background (BG), the border or the
/// title of a button that is normal (N), highlighted (H) or disabled (D).
inline constexpr const char* botton_BG_Color_N = "botton_BG_Color_N";
inline constexpr const char* botton_BG_Color_H = "botton_BG_Color_H";
inline constexpr const char* botton_BG_Color_D = "botton_BG_Color_D";
inline constexpr const char* botton_Border_Color_N = "botton_Border_Color_N";
inline constexpr const char* botton_Border_Color_H = "botton_Border_Color_H";
inline constexpr const char* botton_Border_Color_D = "botton_Border_Color_D";
inline constexpr const char* botton_Title_Color_N = "botton_Title_Color_N";
inline constexpr const char* botton_Title_Color_H = "botton_Title_Color_H";
inline constexpr const char* botton_Title_Color_D = "botton_Title_Color_D";

/// The kit's pill-shaped button, in one of eight fixed styles: 0 a green text and 1 its grey inverse, 2 filled green,
/// 3 a green outline that fills when pressed, 4 white with green text, 5 a white outline for dark backgrounds, 6 a grey
/// outline, 7 filled blue.
///
/// It colours itself whenever it is highlighted or enabled or ceases to be, by the setter that was called last alone: a
/// disabled button that stops being highlighted looks enabled. Main thread only.
class ZRButton : public UIButton {
public:
    /// A new dictionary of the style's nine colours by their keys; empty for a style that is none of 0..7.
    static std::map<NSString, Ref<UIColor>> colorsWithStyle(std::int32_t style);
    /// A custom button of the class that is asked for, with this style, and a border of one point.
    template <class Button = ZRButton>
    static Ref<Button> bottomButtonWithFrame_style(CGRect frame, std::int32_t style);

    /// 0..7, or another number for a button without colours; 0 at first.
    std::int32_t style() const { return m_style; }
    /// Recolours nothing; see `updateBottomButtonWithStyle`.
    virtual void setStyle(std::int32_t style) { m_style = style; }

    /// Sets the style and shows its normal colours. A style that is none of 0..7 has no colours.
    virtual void updateBottomButtonWithStyle(std::int32_t style);
    /// Shows the style's colours for a state: 0 normal, 1 highlighted, 2 disabled; any other number is ignored. Of the
    /// title's colours, only that state's is set.
    virtual void updateBottonColorWithStatus(std::int32_t status);

    /// Shows the style's colours for highlighted or for normal, whether or not the button is enabled.
    void setHighlighted(bool highlighted) override;
    /// Shows the style's colours for normal or for disabled, whether or not the button is highlighted.
    void setEnabled(bool enabled) override;
    /// The corners stay rounded to half the height.
    void layoutSubviews() override;

private:
    void becomePill();

    std::int32_t m_style = 0;
};

template <class Button>
Ref<Button> ZRButton::bottomButtonWithFrame_style(CGRect frame, std::int32_t style) {
    const Ref<Button> button = buttonWithType<Button>(UIButtonTypeCustom);
    if (!button)
        return nullptr;
    button->setFrame(frame);
    button->becomePill();
    button->layer()->setBorderWidth(1);
    button->updateBottomButtonWithStyle(style);
    return button;
}

} // namespace zr
#pragma GCC visibility pop
