#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRButton/ZRButton.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>

#include <cmath>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "BUTTONS";

constexpr std::int32_t kStyleCount = 8;
constexpr CGFloat kPadding = 10;
constexpr CGFloat kHeaderHeight = 30;
constexpr CGFloat kButtonHeight = 34;
constexpr CGFloat kRowHeight = 44;

/// From the left.
enum Column { kNormal, kHighlighted, kDisabled };
constexpr int kColumnCount = 3;

/// Counts its taps in its title.
class CountingButton : public ZRButton {
public:
    void startCounting() {
        setTitle_forState(NSString::stringWithFormat("Style %d", style()), UIControlStateNormal);
        addTarget_action_forControlEvents(this, selector<&CountingButton::tapped>, UIControlEventTouchUpInside);
    }
    void tapped() {
        setTitle_forState(NSString::stringWithFormat("Style %d · %d", style(), ++m_taps), UIControlStateNormal);
    }

private:
    int m_taps = 0;
};

/// The button of one style, held in the column's state. Only the one in the normal state can be touched.
Ref<ZRButton> makeButton(CGRect frame, std::int32_t style, Column column) {
    const auto button = ZRButton::bottomButtonWithFrame_style<CountingButton>(frame, style);
    button->titleLabel()->setFont(UIFont::systemFontOfSize(15));
    button->startCounting();
    button->setUserInteractionEnabled(column == kNormal);
    button->setHighlighted(column == kHighlighted);
    if (column == kDisabled)
        button->setEnabled(false);
    return button;
}

void addColumnTitles(UIView* table, CGFloat columnWidth, UIColor* color) {
    constexpr const char* titles[] = {"Normal", "Highlighted", "Disabled"};
    for (int column = 0; column < kColumnCount; ++column) {
        const auto title = Look::label(titles[column], UIFont::systemFontOfSize(13), color, 1, NSTextAlignmentCenter);
        title->setFrame(CGRectMake(kPadding + column * columnWidth, 6, columnWidth, kHeaderHeight - 6));
        table->addSubview(title);
    }
}

Ref<UIColor> darkGround() { return ZRColor::zrColorWithRed_green_blue_alpha(28, 62, 92, 1); }

CGFloat rowTop(std::int32_t style) { return kHeaderHeight + style * kRowHeight; }

/// Behind styles 4 and 5, of which white would show little or nothing.
void addBand(UIView* table) {
    const auto band = make<UIView>(&UIView::initWithFrame,
                                   CGRectMake(1, rowTop(4), table->bounds().size.width - 2, rowTop(6) - rowTop(4)));
    band->setBackgroundColor(darkGround());
    table->addSubview(band);
}

/// All styles, a row each, in their three states. `ground`: null for white.
std::function<void(PageView&)> showsButtons(const Ref<UIColor>& ground) {
    return [ground](PageView& page) {
        const CGFloat height = rowTop(kStyleCount) + kPadding;
        const auto table = Look::card(CGRectMake(0, 0, page.contentWidth(), height));
        if (ground) {
            table->setBackgroundColor(ground);
            table->layer()->setBorderWidth(0);
        } else {
            addBand(table);
        }
        const CGFloat columnWidth = (page.contentWidth() - 2 * kPadding) / kColumnCount;
        addColumnTitles(table, columnWidth, ground ? UIColor::whiteColor() : Look::detailColor());
        for (std::int32_t style = 0; style < kStyleCount; ++style) {
            const CGFloat y = rowTop(style) + (kRowHeight - kButtonHeight) / 2;
            for (int column = 0; column < kColumnCount; ++column) {
                const CGFloat left = Look::wholePixels(kPadding + column * columnWidth + kPadding / 2);
                const CGRect frame = CGRectMake(left, y, std::floor(columnWidth) - kPadding, kButtonHeight);
                table->addSubview(makeButton(frame, style, static_cast<Column>(column)));
            }
        }
        page.addView(table);
    };
}

} // namespace

std::vector<Page> buttonPages() {
    return {
        {"button-light", "On a light ground", kFamily, "Eight styles in three states", "icon_button_light.png",
         "The eight styles, as they are, pressed, and disabled. Styles 4 and 5, made for coloured grounds, stand on "
         "one. The buttons on the left can be tapped, and count.",
         showsButtons(nullptr)},
        {"button-color", "On a coloured ground", kFamily, "The same on colour", "icon_button_color.png",
         "Styles 4 and 5 are made for coloured grounds.", showsButtons(darkGround())},
    };
}

} // namespace zr::gallery
