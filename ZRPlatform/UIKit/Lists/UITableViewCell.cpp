#include <ZRPlatform/UIKit/Lists/UITableViewCell.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViewCellAccessory.h>
#include <ZRPlatform/UIKit/Lists/Internal/TableViewCellLayout.h>
#include <ZRPlatform/UIKit/Lists/UITableView.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zr {

namespace {

constexpr CGRect kFirstFrame{{0, 0}, {320, 44}};
constexpr NSTimeInterval kSelectionFade = 0.3;
constexpr CGFloat kDetailFontSize = 12;
constexpr CGFloat kColumnFontSize = 14;

/// The cell lies two steps above its image and its labels.
void relayoutCellOf(const UIView* part) {
    if (const UIView* content = part->superview(); content && content->superview())
        content->superview()->setNeedsLayout();
}

/// The cell's layout depends on the sizes of what it shows.
class CellLabel : public UILabel {
public:
    void setText(const NSString& text) override {
        UILabel::setText(text);
        relayoutCellOf(this);
    }
    void setFont(UIFont* font) override {
        UILabel::setFont(font);
        relayoutCellOf(this);
    }
};

class CellImageView : public UIImageView {
public:
    void setImage(UIImage* image) override {
        UIImageView::setImage(image);
        relayoutCellOf(this);
    }
};

CGSize sizeOfText(const UILabel* label) {
    return label && label->text().length() > 0 ? label->sizeThatFits(CGSizeZero) : CGSizeZero;
}

Ref<UILabel> makeLabel(UITableViewCellStyle style) {
    const Ref<UILabel> label = make<CellLabel>();
    if (style == UITableViewCellStyleValue2)
        label->setFont(UIFont::systemFontOfSize(kColumnFontSize));
    return label;
}

} // namespace

bool UITableViewCell::initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) {
    if (!UIView::initWithFrame(kFirstFrame))
        return false;
    m_style = style;
    m_reuseIdentifier = reuseIdentifier;
    setBackgroundColor(UIColor::whiteColor());
    m_contentView = make<UIView>(&UIView::initWithFrame, kFirstFrame);
    addSubview(m_contentView);
    return true;
}

bool UITableViewCell::initWithFrame(CGRect frame) {
    if (!initWithStyle_reuseIdentifier(UITableViewCellStyleDefault, nullptr))
        return false;
    setFrame(frame);
    return true;
}

const KeyTable& UITableViewCell::keyTable() const {
    static const KeyTable table(
        UIView::keyTable(),
        {key<&UITableViewCell::_tableView>("_tableView"), key<&UITableViewCell::contentView>("contentView"),
         key<&UITableViewCell::reuseIdentifier>("reuseIdentifier"),
         key<&UITableViewCell::accessoryView, &UITableViewCell::setAccessoryView>("accessoryView"),
         key<&UITableViewCell::accessoryType, &UITableViewCell::setAccessoryType>("accessoryType"),
         key<&UITableViewCell::backgroundView, &UITableViewCell::setBackgroundView>("backgroundView"),
         key<&UITableViewCell::selectedBackgroundView, &UITableViewCell::setSelectedBackgroundView>(
             "selectedBackgroundView"),
         key<&UITableViewCell::selectionStyle, &UITableViewCell::setSelectionStyle>("selectionStyle"),
         key<&UITableViewCell::indentationLevel, &UITableViewCell::setIndentationLevel>("indentationLevel"),
         key<&UITableViewCell::isSelected, &UITableViewCell::setSelected>("selected"),
         key<&UITableViewCell::isHighlighted, &UITableViewCell::setHighlighted>("highlighted"),
         key<&UITableViewCell::isEditing, &UITableViewCell::setEditing>("editing")});
    return table;
}

// Content

UIImageView* UITableViewCell::imageView() {
    if (!m_imageView) {
        m_imageView = make<CellImageView>();
        m_imageView->setContentMode(UIViewContentModeScaleAspectFit);
        m_contentView->addSubview(m_imageView);
        setNeedsLayout();
    }
    return m_imageView;
}

UILabel* UITableViewCell::textLabel() {
    if (!m_textLabel) {
        m_textLabel = makeLabel(m_style);
        if (m_style == UITableViewCellStyleValue2) {
            m_textLabel->setTextAlignment(NSTextAlignmentRight);
            m_textLabel->setTextColor(tintColor());
        }
        m_contentView->addSubview(m_textLabel);
        setNeedsLayout();
    }
    return m_textLabel;
}

UILabel* UITableViewCell::detailTextLabel() {
    if (m_style == UITableViewCellStyleDefault)
        return nullptr;
    if (!m_detailTextLabel) {
        m_detailTextLabel = makeLabel(m_style);
        if (m_style == UITableViewCellStyleSubtitle)
            m_detailTextLabel->setFont(UIFont::systemFontOfSize(kDetailFontSize));
        if (m_style == UITableViewCellStyleValue1) {
            m_detailTextLabel->setTextAlignment(NSTextAlignmentRight);
            m_detailTextLabel->setTextColor(
                UIColor::colorWithRed_green_blue_alpha(142 / 255.0, 142 / 255.0, 147 / 255.0, 1));
        }
        m_contentView->addSubview(m_detailTextLabel);
        setNeedsLayout();
    }
    return m_detailTextLabel;
}

void UITableViewCell::setIndentationLevel(NSInteger level) {
    m_indentationLevel = std::max<NSInteger>(level, 0);
    setNeedsLayout();
}

void UITableViewCell::setIndentationWidth(CGFloat width) {
    if (!std::isfinite(width))
        return;
    m_indentationWidth = width;
    setNeedsLayout();
}

// Accessory

void UITableViewCell::setAccessoryType(UITableViewCellAccessoryType type) {
    if (type == m_accessoryType)
        return;
    m_accessoryType = type;
    if (!m_accessoryView)
        replaceAccessory();
}

void UITableViewCell::setAccessoryView(UIView* view) {
    if (view == m_accessoryView.get())
        return;
    if (m_accessoryView && m_accessoryView->superview() == this)
        m_accessoryView->removeFromSuperview();
    m_accessoryView = view;
    replaceAccessory();
}

void UITableViewCell::replaceAccessory() {
    if (m_typeAccessory)
        m_typeAccessory->removeFromSuperview();
    m_typeAccessory = m_accessoryView ? nullptr : makeAccessory();
    if (UIView* view = shownAccessory())
        addSubview(view);
    setNeedsLayout();
}

Ref<UIView> UITableViewCell::makeAccessory() {
    if (m_accessoryType == UITableViewCellAccessoryNone)
        return nullptr;
    const auto accessory = make<TableViewCellAccessory>(&TableViewCellAccessory::initWithType, m_accessoryType);
    if (UIControl* button = accessory->button())
        button->addTarget_action_forControlEvents(this, selector<&UITableViewCell::detailButtonTapped>,
                                                  UIControlEventTouchUpInside);
    return accessory;
}

void UITableViewCell::detailButtonTapped() {
    if (UITableView* table = m_tableView)
        table->detailButtonTapped(this);
}

// Backgrounds

/// Behind `sibling`, which may be nil for the very back.
void UITableViewCell::placeBehind(UIView* view, UIView* sibling) {
    if (sibling)
        insertSubview_belowSubview(view, sibling);
    else
        insertSubview_atIndex(view, 0);
    view->setFrame(bounds());
}

void UITableViewCell::setBackgroundView(UIView* view) {
    if (view == m_backgroundView.get())
        return;
    if (m_backgroundView && m_backgroundView->superview() == this)
        m_backgroundView->removeFromSuperview();
    m_backgroundView = view;
    if (view)
        placeBehind(view, nullptr);
}

void UITableViewCell::setSelectedBackgroundView(UIView* view) {
    if (view == m_selectedBackgroundView.get())
        return;
    m_selectedBackgroundView = view;
    if (const Ref<UIView> shown = std::exchange(m_shownSelection, nullptr))
        shown->removeFromSuperview();
    showSelection(false);
}

// State

void UITableViewCell::setSelectionStyle(UITableViewCellSelectionStyle style) {
    m_selectionStyle = style;
    showSelection(false);
}

void UITableViewCell::setSelected_animated(bool selected, bool animated) {
    if (std::exchange(m_selected, selected) != selected)
        showSelection(animated);
}

void UITableViewCell::setHighlighted_animated(bool highlighted, bool animated) {
    if (std::exchange(m_highlighted, highlighted) != highlighted)
        showSelection(animated);
}

void UITableViewCell::setEditing_animated(bool editing, bool) { m_editing = editing; }

void UITableViewCell::showSelection(bool animated) {
    const bool shows = (m_selected || m_highlighted) && m_selectionStyle != UITableViewCellSelectionStyleNone;
    for (UILabel* label : {m_textLabel.get(), m_detailTextLabel.get()}) {
        if (label)
            label->setHighlighted(shows);
    }
    if (m_imageView)
        m_imageView->setHighlighted(shows);
    if (!shows) {
        if (animated)
            fadeSelection();
        else if (const Ref<UIView> shown = std::exchange(m_shownSelection, nullptr))
            shown->removeFromSuperview();
        return;
    }
    UIView::performWithoutAnimation([this] {
        if (!m_shownSelection) {
            m_shownSelection = m_selectedBackgroundView;
            if (!m_shownSelection) {
                m_shownSelection = make<UIView>();
                m_shownSelection->setBackgroundColor(UIColor::colorWithWhite_alpha(217 / 255.0, 1));
            }
            placeBehind(m_shownSelection, m_contentView);
        }
        m_shownSelection->setAlpha(1);
    });
}

/// Cells that share the view of their selection take it from one another.
void UITableViewCell::willRemoveSubview(UIView* view) {
    UIView::willRemoveSubview(view);
    if (view == m_shownSelection.get())
        m_shownSelection = nullptr;
}

void UITableViewCell::fadeSelection() {
    const Ref<UIView> fading = m_shownSelection;
    if (!fading)
        return;
    const Weak<UITableViewCell> weakSelf = this;
    UIView::animateWithDuration_animations_completion(
        kSelectionFade, [&fading] { fading->setAlpha(0); },
        [weakSelf, fading](bool) {
            const Ref<UITableViewCell> self = weakSelf.lock();
            // Meanwhile the cell may have been selected again.
            if (!self || self->m_shownSelection != fading || fading->alpha() > 0)
                return;
            self->m_shownSelection = nullptr;
            fading->removeFromSuperview();
            fading->setAlpha(1);
        });
}

// Separators

UIEdgeInsets UITableViewCell::separatorInset() const {
    const UITableView* table = m_tableView;
    if (m_separatorInset || !table)
        return m_separatorInset.value_or(UIEdgeInsetsZero);
    return table->separatorInset();
}

void UITableViewCell::setSeparatorInset(UIEdgeInsets inset) {
    m_separatorInset = inset;
    if (UITableView* table = m_tableView)
        table->renewSeparators(this);
}

void UITableViewCell::setSeparators(const Separator& above, const Separator& below) {
    m_separatorAbove = above;
    m_separatorBelow = below;
    showSeparator(m_lineAbove, above);
    showSeparator(m_lineBelow, below);
    placeSeparators();
}

void UITableViewCell::showSeparator(Ref<UIView>& line, const Separator& separator) {
    if (!separator.color) {
        if (const Ref<UIView> old = std::exchange(line, nullptr))
            old->removeFromSuperview();
        return;
    }
    if (!line) {
        line = make<UIView>();
        line->setUserInteractionEnabled(false);
        insertSubview_aboveSubview(line, m_contentView);
    }
    line->setBackgroundColor(separator.color);
}

void UITableViewCell::placeSeparators() {
    const CGSize size = bounds().size;
    const CGFloat hairline = 1 / UIScreen::mainScreen()->scale();
    const auto place = [&](UIView* line, UIEdgeInsets inset, CGFloat top) {
        if (line)
            line->setFrame(
                {{inset.left, top}, {std::max<CGFloat>(size.width - inset.left - inset.right, 0), hairline}});
    };
    place(m_lineAbove, m_separatorAbove.inset, 0);
    place(m_lineBelow, m_separatorBelow.inset, size.height - hairline);
}

// Use for row after row

void UITableViewCell::prepareForReuse() {
    setHighlighted_animated(false, false);
    setSelected_animated(false, false);
    m_contentFrame.reset();
    setNeedsLayout();
}

UITableView* UITableViewCell::_tableView() const { return m_tableView; }

// Layout

void UITableViewCell::layoutSubviews() {
    TableViewCellParts parts;
    parts.cell = bounds().size;
    parts.accessory = shownAccessory() ? shownAccessory()->bounds().size : CGSizeZero;
    parts.image = m_imageView && m_imageView->image() ? m_imageView->image()->size() : CGSizeZero;
    // The other styles give their labels fixed room.
    if (m_style == UITableViewCellStyleValue1 || m_style == UITableViewCellStyleSubtitle) {
        parts.text = sizeOfText(m_textLabel);
        parts.detailText = sizeOfText(m_detailTextLabel);
    }
    parts.indentation = static_cast<CGFloat>(m_indentationLevel) * m_indentationWidth;
    parts.style = m_style;
    const TableViewCellLayout layout = layoutOfTableViewCell(parts);

    if (m_contentFrame != layout.content) {
        m_contentFrame = layout.content;
        m_contentView->setFrame(layout.content);
    }
    if (UIView* accessory = shownAccessory())
        accessory->setFrame(layout.accessory);
    if (m_imageView)
        m_imageView->setFrame(layout.image);
    if (m_textLabel)
        m_textLabel->setFrame(layout.text);
    if (m_detailTextLabel)
        m_detailTextLabel->setFrame(layout.detailText);
    for (UIView* background : {m_backgroundView.get(), m_shownSelection.get()}) {
        if (background)
            background->setFrame(bounds());
    }
    placeSeparators();
}

} // namespace zr
