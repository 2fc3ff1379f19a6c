#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <algorithm>
#include <array>
#include <optional>

namespace zr {

namespace {

constexpr CGFloat kMargin = 15;
constexpr CGFloat kIconSize = 32;
constexpr CGFloat kLineHeight = 30;
constexpr CGFloat kAccessoryMargin = 10;
/// Between the title and what lies at its right.
constexpr CGFloat kTitleGap = 5;
constexpr CGSize kAccessoryTextLimit{140, 30};
/// From the top of a line of text to that of the next one.
constexpr CGFloat kLineStep = 27;
constexpr CGFloat kFirstDetailHeight = 44;
constexpr NSTimeInterval kFade = 0.2;

Ref<UIColor> lineColor() { return ZRColor::zrColorWithRed_green_blue_alpha(215, 217, 215, 1); }
Ref<UIColor> titleColor() { return ZRColor::zrColorWithRed_green_blue_alpha(55, 63, 58, 1); }
Ref<UIColor> detailColor() { return ZRColor::zrColorWithRed_green_blue_alpha(134, 141, 137, 1); }

Ref<UILabel> makeLabel(CGFloat fontSize, UIColor* color) {
    const auto label = make<UILabel>();
    label->setBackgroundColor(UIColor::clearColor());
    label->setFont(UIFont::systemFontOfSize(fontSize));
    label->setTextColor(color);
    return label;
}

// Accessories

struct Accessory {
    enum Kind { None, Image, Button, Switch };

    Kind kind = None;
    /// An image view's, or a button's that is not selected.
    const char* image = nullptr;
    const char* selectedImage = nullptr;
    SEL action{};
};

/// In the order of `ZRAccessoryType`.
constexpr std::array<Accessory, 8> kAccessories{
    {{Accessory::None},
     {Accessory::Image},
     {Accessory::Button, nullptr, nullptr, selector<&ZRTableViewCell::accessoryButtonClicked>},
     {Accessory::Image, "icon_list_loading.png"},
     {Accessory::Button, "checkbox_1_normal.png", "checkbox_1_press.png",
      selector<&ZRTableViewCell::checkBoxButtonClicked>},
     {Accessory::Switch, nullptr, nullptr, selector<&ZRTableViewCell::switchButtonClicked>},
     {Accessory::Image, "icon_list_check.png"},
     {Accessory::Image, "list_icon_1.png"}}};

constexpr CGRect kAccessoryFrame{{0, 0}, {32, 32}};
constexpr CGRect kSwitchFrame{{0, 0}, {40, 30}};

Accessory accessoryOfType(std::int64_t type) {
    return static_cast<std::uint64_t>(type) < kAccessories.size() ? kAccessories[type] : Accessory();
}

Ref<UIImage> imageOf(const char* name) { return name ? UIImage::imageNamed(name) : nullptr; }

Ref<UIView> makeImageView(const Accessory& accessory) {
    const auto view = make<UIImageView>(&UIView::initWithFrame, kAccessoryFrame);
    view->setContentMode(UIViewContentModeCenter);
    view->setImage(imageOf(accessory.image));
    return view;
}

Ref<UIView> makeButton(const Accessory& accessory, ZRTableViewCell* cell) {
    const auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setFrame(kAccessoryFrame);
    button->setContentMode(UIViewContentModeCenter);
    const Ref<UIImage> image = imageOf(accessory.image);
    button->setImage_forState(image, UIControlStateNormal);
    button->setImage_forState(image, UIControlStateHighlighted);
    button->setImage_forState(imageOf(accessory.selectedImage), UIControlStateSelected);
    button->addTarget_action_forControlEvents(cell, accessory.action, UIControlEventTouchUpInside);
    return button;
}

Ref<UIView> makeSwitch(const Accessory& accessory, ZRTableViewCell* cell) {
    const auto view = make<ZRSwitch>(&UIView::initWithFrame, kSwitchFrame);
    view->addTarget_action_forControlEvents(cell, accessory.action, UIControlEventValueChanged);
    return view;
}

Ref<UIView> makeAccessoryView(const Accessory& accessory, ZRTableViewCell* cell) {
    switch (accessory.kind) {
    case Accessory::None:
        break;
    case Accessory::Image:
        return makeImageView(accessory);
    case Accessory::Button:
        return makeButton(accessory, cell);
    case Accessory::Switch:
        return makeSwitch(accessory, cell);
    }
    return nullptr;
}

// Geometry

CGFloat centeredTop(CGFloat height, CGFloat room) { return (room - height) * 0.5; }

CGRect iconFrame(CGSize content) {
    return CGRectMake(kMargin, centeredTop(kIconSize, content.height), kIconSize, kIconSize);
}

CGRect accessoryFrame(CGSize content, CGSize accessory) {
    return CGRectMake(content.width - accessory.width - kAccessoryMargin, centeredTop(accessory.height, content.height),
                      accessory.width, accessory.height);
}

CGRect accessoryLabelFrame(CGSize content, CGFloat rightInset, CGFloat textWidth) {
    return CGRectMake(content.width - rightInset - textWidth, centeredTop(kLineHeight, content.height), textWidth,
                      kLineHeight);
}

/// Where lines of text begin, and how long they may be.
struct Column {
    CGFloat x;
    CGFloat width;
};

struct TextFrames {
    CGRect title;
    /// Labels without text are not moved.
    std::optional<CGRect> detail;
    std::optional<CGRect> mark;
};

TextFrames textFrames(Column column, CGFloat contentHeight, CGFloat detailHeight, bool hasDetail, bool hasMark) {
    const auto line = [column](CGFloat top, CGFloat height) { return CGRectMake(column.x, top, column.width, height); };
    const CGFloat middle = centeredTop(kLineHeight, contentHeight);
    TextFrames frames{line(middle, kLineHeight), {}, {}};
    if (hasDetail) {
        frames.detail = line(hasMark ? centeredTop(detailHeight, contentHeight) : middle + 10, detailHeight);
        frames.title = line(CGRectGetMinY(*frames.detail) - kLineStep, kLineHeight);
        if (hasMark)
            frames.mark = line(CGRectGetMaxY(*frames.detail) - 4, kLineHeight);
    } else if (hasMark) {
        const CGFloat top = centeredTop(kLineHeight + detailHeight, contentHeight) - 5;
        frames.title = line(top, kLineHeight);
        frames.mark = line(top + kLineStep, detailHeight);
    }
    return frames;
}

/// As long as the cell from wherever it begins: an inset line runs out of the cell at the right.
CGRect lineFrame(CGSize cell, CGFloat left) {
    const CGFloat height = UIScreen::mainScreen()->scale() > 2 ? 0.4 : 0.5;
    return CGRectMake(left, cell.height - height, cell.width, height);
}

CGFloat widthOf(const UIView* view) { return view ? view->frame().size.width : 0; }

bool hasText(const UILabel* label) { return label && label->text().length() > 0; }

} // namespace

// Construction

bool ZRTableViewCell::initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) {
    if (!UITableViewCell::initWithStyle_reuseIdentifier(UITableViewCellStyleDefault, reuseIdentifier))
        return false;
    setExclusiveTouch(true);
    setSelectionStyle(UITableViewCellSelectionStyleNone);
    setZrTableViewCellStyle(style);

    m_lineView = make<UIView>();
    m_lineView->setBackgroundColor(lineColor());
    addSubview(m_lineView);

    m_zrImageView = make<UIImageView>();
    m_zrImageView->setBackgroundColor(UIColor::clearColor());
    contentView()->addSubview(m_zrImageView);

    m_zrTextLabel = makeLabel(17, titleColor());
    contentView()->addSubview(m_zrTextLabel);

    m_zrDetailTextLabel = makeLabel(15, detailColor());
    m_zrDetailTextLabel->setFrame(CGRectMake(0, 0, 0, kFirstDetailHeight));
    m_zrDetailTextLabel->setNumberOfLines(2);
    contentView()->addSubview(m_zrDetailTextLabel);

    m_zrAccessoryLabel = makeLabel(15, detailColor());
    m_zrAccessoryLabel->setTextAlignment(NSTextAlignmentRight);
    contentView()->addSubview(m_zrAccessoryLabel);

    if (m_zrTableViewCellStyle == ZRTableViewCellStyleMark) {
        m_zrMarkTextLabel = makeLabel(14, nullptr);
        contentView()->addSubview(m_zrMarkTextLabel);
    }
    return true;
}

const KeyTable& ZRTableViewCell::keyTable() const {
    using Cell = ZRTableViewCell;
    static const KeyTable table(
        UITableViewCell::keyTable(),
        {key<&Cell::zrImageView>("zrImageView"), key<&Cell::zrTextLabel>("zrTextLabel"),
         key<&Cell::zrDetailTextLabel>("zrDetailTextLabel"), key<&Cell::zrMarkTextLabel>("zrMarkTextLabel"),
         key<&Cell::zrAccessoryLabel>("zrAccessoryLabel"),
         key<&Cell::zrAccessoryView, &Cell::setZrAccessoryView>("zrAccessoryView"),
         key<&Cell::zrTableViewCellStyle, &Cell::setZrTableViewCellStyle>("zrTableViewCellStyle"),
         key<&Cell::zrAccessoryType, &Cell::setZrAccessoryType>("zrAccessoryType"),
         key<&Cell::checkBoxSelected, &Cell::setCheckBoxSelected>("checkBoxSelected"),
         key<&Cell::showFullLine, &Cell::setShowFullLine>("showFullLine"),
         key<&Cell::showSelectedStyle, &Cell::setShowSelectedStyle>("showSelectedStyle")});
    return table;
}

// Accessory

void ZRTableViewCell::setZrAccessoryType(std::int64_t type) {
    if (type == m_zrAccessoryType)
        return;
    m_zrAccessoryType = type;
    createAccessoryViewWithType(type);
}

void ZRTableViewCell::createAccessoryViewWithType(std::int64_t type) {
    setZrAccessoryView(nullptr);
    if (const Ref<UIView> view = makeAccessoryView(accessoryOfType(type), this)) {
        view->setExclusiveTouch(true);
        setZrAccessoryView(view);
    }
    if (type == ZRAccessoryTypeCheckMark)
        setCheckBoxSelected(true);
    layoutSubviews();
}

void ZRTableViewCell::setZrAccessoryView(UIView* view) {
    if (view == m_zrAccessoryView.get() || (view && contentView()->isDescendantOfView(view)))
        return;
    if (m_zrAccessoryView)
        m_zrAccessoryView->removeFromSuperview();
    m_zrAccessoryView = view;
    contentView()->addSubview(view);
}

void ZRTableViewCell::accessoryButtonClicked(UIButton*) {
    if (const auto block = m_cellAccessoryButtonBlock)
        block();
}

void ZRTableViewCell::checkBoxButtonClicked(UIButton*) { toggleCheckBox(); }

void ZRTableViewCell::switchButtonClicked(ZRSwitch* sender) {
    if (const auto block = m_switchValueChangedBlock)
        block(sender && sender->isOn());
}

// State

void ZRTableViewCell::setCheckBoxSelected(bool selected) {
    m_checkBoxSelected = selected;
    if (m_zrAccessoryType == ZRAccessoryTypeCheckBox) {
        if (auto* button = dynamic_cast<UIButton*>(m_zrAccessoryView.get()))
            button->setSelected(selected);
    }
    if (m_zrAccessoryType == ZRAccessoryTypeCheckMark && m_cellMultSelectBlock && m_zrAccessoryView)
        m_zrAccessoryView->setHidden(!selected);
}

void ZRTableViewCell::toggleCheckBox() {
    setCheckBoxSelected(!m_checkBoxSelected);
    if (const auto block = m_cellMultSelectBlock)
        block(m_checkBoxSelected);
}

// Layout

void ZRTableViewCell::layoutSubviews() {
    UITableViewCell::layoutSubviews();
    placeIcon();
    placeAccessories();
    placeTexts();
    placeLine();
}

void ZRTableViewCell::placeIcon() {
    if (!m_zrImageView->image())
        m_zrImageView->setFrame(CGRectZero);
    else if (m_zrImageView->frame() == CGRectZero)
        m_zrImageView->setFrame(iconFrame(contentView()->frame().size));
}

void ZRTableViewCell::placeAccessories() {
    const CGSize content = contentView()->frame().size;
    CGFloat rightInset = kMargin;
    if (m_zrAccessoryView) {
        m_zrAccessoryView->setFrame(accessoryFrame(content, m_zrAccessoryView->frame().size));
        rightInset += widthOf(m_zrAccessoryView);
    }
    // A text that is empty has no width.
    const CGSize text = sizeWithFont_constrainedToSize_lineBreakMode(
        m_zrAccessoryLabel->text(), m_zrAccessoryLabel->font(), kAccessoryTextLimit, NSLineBreakByWordWrapping);
    m_zrAccessoryLabel->setFrame(accessoryLabelFrame(content, rightInset, text.width));
}

void ZRTableViewCell::placeTexts() {
    const CGFloat taken = widthOf(m_zrImageView) + widthOf(m_zrAccessoryLabel) + widthOf(m_zrAccessoryView);
    const CGFloat room = frame().size.width - 2 * kMargin - taken - kTitleGap;
    const Column column{CGRectGetMaxX(m_zrImageView->frame()) + kMargin, std::max<CGFloat>(room, 0)};
    const TextFrames frames =
        textFrames(column, contentView()->frame().size.height, m_zrDetailTextLabel->frame().size.height,
                   hasText(m_zrDetailTextLabel), hasText(m_zrMarkTextLabel));
    m_zrTextLabel->setFrame(frames.title);
    if (frames.detail)
        m_zrDetailTextLabel->setFrame(*frames.detail);
    if (frames.mark)
        m_zrMarkTextLabel->setFrame(*frames.mark);
}

void ZRTableViewCell::placeLine() {
    const UIView* first = m_zrTextLabel;
    if (m_zrImageView->image())
        first = m_zrImageView;
    m_lineView->setFrame(lineFrame(frame().size, m_showFullLine ? 0 : CGRectGetMinX(first->frame())));
}

// Touches

bool ZRTableViewCell::showsTouches() const { return m_zrAccessoryType != ZRAccessoryTypeSwitch || m_showSelectedStyle; }

void ZRTableViewCell::paintBackground(UIColor* color) {
    setBackgroundColor(color);
    if (backgroundView())
        backgroundView()->setBackgroundColor(color);
}

void ZRTableViewCell::fadeBackground() {
    UIView::animateWithDuration_animations(kFade, [this] { paintBackground(UIColor::whiteColor()); });
}

void ZRTableViewCell::prepareForReuse() {
    UITableViewCell::prepareForReuse();
    for (UIView* faded : {static_cast<UIView*>(this), backgroundView()}) {
        if (faded)
            faded->layer()->removeAnimationForKey("backgroundColor");
    }
}

void ZRTableViewCell::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    const Ref<ZRTableViewCell> keep = this; // the table's delegate may drop it
    UITableViewCell::touchesBegan_withEvent(touches, event);
    if (showsTouches())
        paintBackground(lineColor());
}

void ZRTableViewCell::touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) {
    const Ref<ZRTableViewCell> keep = this;
    UITableViewCell::touchesCancelled_withEvent(touches, event);
    if (showsTouches())
        fadeBackground();
}

void ZRTableViewCell::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    const Ref<ZRTableViewCell> keep = this;
    UITableViewCell::touchesEnded_withEvent(touches, event);
    if (showsTouches())
        fadeBackground();
    toggleCheckBox();
    if (const auto block = m_cellSelectedBlock)
        block();
}

} // namespace zr
