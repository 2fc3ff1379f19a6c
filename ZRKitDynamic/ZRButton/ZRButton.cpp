#include <ZRKitDynamic/ZRButton/ZRButton.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>

#include <array>

namespace zr {

namespace {

struct StyleColor {
    enum Kind { Clear, White, Bytes, Fractions };

    Kind kind;
    /// 0..255, or 0..1 for fractions.
    double red = 0, green = 0, blue = 0;
    double alpha = 1;

    Ref<UIColor> color() const {
        switch (kind) {
        case Clear:
            return UIColor::clearColor();
        case White:
            return alpha == 1 ? Ref<UIColor>(UIColor::whiteColor()) : UIColor::colorWithWhite_alpha(1, alpha);
        case Bytes:
            return ZRColor::zrColorWithRed_green_blue_alpha(static_cast<std::int32_t>(red),
                                                            static_cast<std::int32_t>(green),
                                                            static_cast<std::int32_t>(blue), alpha);
        case Fractions:
            break;
        }
        return UIColor::colorWithRed_green_blue_alpha(red, green, blue, alpha);
    }
};

constexpr StyleColor clear{StyleColor::Clear};

constexpr StyleColor white(double alpha = 1) { return {StyleColor::White, 0, 0, 0, alpha}; }

constexpr StyleColor rgb(double red, double green, double blue, double alpha = 1) {
    return {StyleColor::Bytes, red, green, blue, alpha};
}

constexpr StyleColor f(double red, double green, double blue, double alpha = 1) {
    return {StyleColor::Fractions, red, green, blue, alpha};
}

/// In the order of the columns below.
constexpr std::array kKeys{botton_BG_Color_N,     botton_BG_Color_H,     botton_BG_Color_D,
                           botton_Border_Color_N, botton_Border_Color_H, botton_Border_Color_D,
                           botton_Title_Color_N,  botton_Title_Color_H,  botton_Title_Color_D};

constexpr std::array<std::array<StyleColor, kKeys.size()>, 8> kStyles{{
    {clear, clear, clear, clear, clear, clear, rgb(0, 187, 61), rgb(193, 198, 195), rgb(193, 198, 195)},
    {clear, clear, clear, clear, clear, clear, rgb(193, 198, 195), rgb(0, 187, 61), rgb(0, 187, 61)},
    {rgb(0, 195, 64), rgb(0, 173, 56), rgb(0, 195, 64, 0.3), rgb(0, 195, 64), rgb(0, 173, 56), clear, white(), white(),
     white()},
    {clear, rgb(0, 195, 64), clear, rgb(0, 195, 64), rgb(0, 195, 64), rgb(0, 195, 64, 0.3), rgb(0, 187, 61), white(),
     rgb(0, 187, 61, 0.3)},
    {white(), rgb(229, 238, 232), white(0.3), white(), rgb(229, 238, 232), clear, rgb(0, 187, 61), rgb(0, 187, 61),
     rgb(0, 187, 61)},
    {clear, white(), clear, white(), white(), white(0.3), white(), rgb(0, 187, 61), white(0.4)},
    {clear, rgb(179, 189, 182), clear, rgb(179, 189, 182), rgb(179, 189, 182), rgb(179, 189, 182), rgb(134, 141, 137),
     white(), rgb(134, 141, 137)},
    {f(0.337, 0.753, 0.894), f(0.317, 0.723, 0.854), f(0.337, 0.753, 0.894, 0.3), f(0.337, 0.753, 0.894),
     f(0.317, 0.723, 0.854), clear, white(), white(), white()},
}};

struct StatusKeys {
    const char* background;
    const char* border;
    const char* title;
    UIControlState state;
};

constexpr std::array<StatusKeys, 3> kStatuses{
    {{botton_BG_Color_N, botton_Border_Color_N, botton_Title_Color_N, UIControlStateNormal},
     {botton_BG_Color_H, botton_Border_Color_H, botton_Title_Color_H, UIControlStateHighlighted},
     {botton_BG_Color_D, botton_Border_Color_D, botton_Title_Color_D, UIControlStateDisabled}}};

constexpr std::int32_t kNormal = 0, kHighlighted = 1, kDisabled = 2;

template <class Array>
bool hasIndex(const Array& array, std::int32_t index) {
    return static_cast<std::uint32_t>(index) < array.size();
}

} // namespace

std::map<NSString, Ref<UIColor>> ZRButton::colorsWithStyle(std::int32_t style) {
    std::map<NSString, Ref<UIColor>> colors;
    if (!hasIndex(kStyles, style))
        return colors;
    for (std::size_t i = 0; i < kKeys.size(); ++i)
        colors[kKeys[i]] = kStyles[style][i].color();
    return colors;
}

void ZRButton::updateBottomButtonWithStyle(std::int32_t style) {
    setStyle(style);
    updateBottonColorWithStatus(kNormal);
}

void ZRButton::updateBottonColorWithStatus(std::int32_t status) {
    if (!hasIndex(kStatuses, status))
        return;
    const StatusKeys& keys = kStatuses[status];
    auto colors = colorsWithStyle(style());
    setBackgroundColor(colors[keys.background]);
    const Ref<UIColor> border = colors[keys.border];
    layer()->setBorderColor(border ? border->cgColor() : nullptr);
    setTitleColor_forState(colors[keys.title], keys.state);
}

void ZRButton::setHighlighted(bool highlighted) {
    UIButton::setHighlighted(highlighted);
    updateBottonColorWithStatus(highlighted ? kHighlighted : kNormal);
}

void ZRButton::setEnabled(bool enabled) {
    UIButton::setEnabled(enabled);
    updateBottonColorWithStatus(enabled ? kNormal : kDisabled);
}

void ZRButton::layoutSubviews() {
    UIButton::layoutSubviews();
    becomePill();
}

void ZRButton::becomePill() { layer()->setCornerRadius(frame().size.height * 0.5); }

} // namespace zr
