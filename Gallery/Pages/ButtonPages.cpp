#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <Gallery/Settings/SampleText.h>
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

// Another style

/// Follows somebody or no longer does, and looks like it: an outline, or filled.
class FollowButton : public ZRButton {
public:
    static constexpr std::int32_t kOutline = 3, kFilled = 2;

    void start() {
        show();
        addTarget_action_forControlEvents(this, selector<&FollowButton::tapped>, UIControlEventTouchUpInside);
    }
    void tapped() {
        m_isFollowing = !m_isFollowing;
        updateBottomButtonWithStyle(m_isFollowing ? kFilled : kOutline);
        show();
    }

private:
    void show() {
        setTitle_forState(SampleText::translated(m_isFollowing ? "Following" : "Follow"), UIControlStateNormal);
    }

    bool m_isFollowing = false;
};

void addFollowCard(PageView& page) {
    constexpr CGFloat kHeight = 64, kWidth = 120;
    const auto card = Look::card(CGRectMake(0, 0, page.contentWidth(), kHeight));
    const auto name =
        Look::label(SampleText::translated("Carla Rossi"), UIFont::systemFontOfSize(17), Look::titleColor());
    name->setFrame(CGRectMake(12, 0, page.contentWidth() - kWidth - 36, kHeight));
    card->addSubview(name);
    const CGRect frame =
        CGRectMake(page.contentWidth() - kWidth - 12, (kHeight - kButtonHeight) / 2, kWidth, kButtonHeight);
    const auto button = ZRButton::bottomButtonWithFrame_style<FollowButton>(frame, FollowButton::kOutline);
    button->start();
    card->addSubview(button);
    page.addView(card);
}

/// In the middle of a ground that every style shows on.
Ref<ZRButton> addLargeButton(PageView& page) {
    constexpr CGFloat kHeight = 100;
    constexpr CGSize kSize{200, 48};
    const auto ground = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, page.contentWidth(), kHeight));
    ground->setBackgroundColor(darkGround());
    ground->setOpaque(false);
    ground->layer()->setCornerRadius(Look::kCornerRadius);
    const CGFloat left = Look::wholePixels((page.contentWidth() - kSize.width) / 2);
    auto button = ZRButton::bottomButtonWithFrame_style(
        CGRectMake(left, (kHeight - kSize.height) / 2, kSize.width, kSize.height), 5);
    ground->addSubview(button);
    page.addView(ground);
    return button;
}

void changeStyle(ZRButton* button, std::int32_t style) {
    button->updateBottomButtonWithStyle(style);
    button->setTitle_forState(NSString::stringWithFormat("Style %d", style), UIControlStateNormal);
}

void buildUpdatePage(PageView& page) {
    addFollowCard(page);
    const auto button = addLargeButton(page);
    changeStyle(button, button->style());
    page.addHeading("STYLES");
    for (std::int32_t first = 0; first < kStyleCount; first += 4) {
        std::vector<PageButton> row;
        for (std::int32_t style = first; style < first + 4; ++style)
            row.push_back({NSString::stringWithFormat("%d", style), [button, style] { changeStyle(button, style); }});
        page.addButtons(row);
    }
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
        {"button-update", "Another style", kFamily, "A button that changes its look", "icon_button_light.png",
         "A button may be given another style at any time: here when it is tapped, or by the buttons below.",
         buildUpdatePage},
    };
}

} // namespace zr::gallery
