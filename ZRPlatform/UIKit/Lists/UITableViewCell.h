#pragma once

#include <ZRPlatform/UIKit/Views/UIGeometry.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#pragma GCC visibility push(default)
namespace zr {

class UIControl;
class UITableView;

/// Which texts a cell has, and where.
enum UITableViewCellStyle : NSInteger {
    /// One line of text.
    UITableViewCellStyleDefault,
    /// Text at the left, grey detail text at the right.
    UITableViewCellStyleValue1,
    /// A narrow column of text in the tint colour, right-aligned, and detail text beside it.
    UITableViewCellStyleValue2,
    /// Detail text below the text.
    UITableViewCellStyleSubtitle,
};

/// Whether a touched or selected cell shows a background of its own; all but none do.
enum UITableViewCellSelectionStyle : NSInteger {
    UITableViewCellSelectionStyleNone,
    UITableViewCellSelectionStyleBlue,
    UITableViewCellSelectionStyleGray,
    UITableViewCellSelectionStyleDefault,
};

/// What a cell shows at its right edge.
enum UITableViewCellAccessoryType : NSInteger {
    UITableViewCellAccessoryNone,
    UITableViewCellAccessoryDisclosureIndicator,
    UITableViewCellAccessoryDetailDisclosureButton,
    UITableViewCellAccessoryCheckmark,
    UITableViewCellAccessoryDetailButton,
};

/// One row of a table view: a content view, with an accessory at its right. Image and labels are made when they are
/// first asked for. Touches that nothing in the cell takes are passed on to the table, which selects rows.
///
/// The content view fills the cell but for the accessory. It is placed when the cell's size or accessory change, and
/// when the cell is used for another row; whoever moves it meanwhile, to show what lies behind it, has it to himself.
class UITableViewCell : public UIView {
public:
    /// 320 x 44 points. `reuseIdentifier`: nil for a cell that serves one row only.
    virtual bool initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier);
    /// Of the default style, without an identifier.
    bool initWithFrame(CGRect frame) override;

    /// @name Content
    /// @{
    UITableViewCellStyle style() const { return m_style; }
    /// Behind the other views of the cell that applications add; add to this one.
    UIView* contentView() const { return m_contentView; }
    UIImageView* imageView();
    UILabel* textLabel();
    /// Nil for the default style.
    UILabel* detailTextLabel();
    /// Steps by which the content is moved to the right; 0 at first, negative ones are 0.
    NSInteger indentationLevel() const { return m_indentationLevel; }
    virtual void setIndentationLevel(NSInteger level);
    /// Points a step; 10 at first.
    CGFloat indentationWidth() const { return m_indentationWidth; }
    virtual void setIndentationWidth(CGFloat width);
    /// @}

    /// @name Accessory
    /// At the right, 15 points from the edge.
    /// @{
    UITableViewCellAccessoryType accessoryType() const { return m_accessoryType; }
    virtual void setAccessoryType(UITableViewCellAccessoryType type);
    /// Shown in place of the type's, in its own size; nil at first.
    UIView* accessoryView() const { return m_accessoryView; }
    virtual void setAccessoryView(UIView* view);
    /// @}

    /// @name Backgrounds
    /// Behind the content, as large as the cell; nil at first.
    /// @{
    UIView* backgroundView() const { return m_backgroundView; }
    virtual void setBackgroundView(UIView* view);
    /// In front of the background while the cell is selected or highlighted; nil for a grey one. Not shown with
    /// selection style none.
    UIView* selectedBackgroundView() const { return m_selectedBackgroundView; }
    virtual void setSelectedBackgroundView(UIView* view);
    /// @}

    /// @name State
    /// The table sets these. Highlighted and selected look the same; labels show their highlighted colours.
    /// @{
    UITableViewCellSelectionStyle selectionStyle() const { return m_selectionStyle; }
    virtual void setSelectionStyle(UITableViewCellSelectionStyle style);
    bool isSelected() const { return m_selected; }
    void setSelected(bool selected) { setSelected_animated(selected, false); }
    /// Animated, the look of a selected cell fades away in 0.3 s; it always comes at once.
    virtual void setSelected_animated(bool selected, bool animated);
    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted) { setHighlighted_animated(highlighted, false); }
    virtual void setHighlighted_animated(bool highlighted, bool animated);
    bool isEditing() const { return m_editing; }
    void setEditing(bool editing) { setEditing_animated(editing, false); }
    /// A flag for subclasses: the cell itself looks the same.
    virtual void setEditing_animated(bool editing, bool animated);
    /// @}

    /// @name Separator
    /// @{
    /// The table's, unless set here.
    UIEdgeInsets separatorInset() const;
    virtual void setSeparatorInset(UIEdgeInsets inset);
    /// @}

    /// @name Use for row after row
    /// @{
    const NSString& reuseIdentifier() const { return m_reuseIdentifier; }
    /// Called before the table hands the cell out again. Takes away what belonged to the old row: selection, highlight
    /// and the content view's place. An override calls it.
    virtual void prepareForReuse();
    /// The table that shows the cell, or showed it last; nil once that is gone.
    UITableView* _tableView() const;
    /// @}

    void layoutSubviews() override;
    bool canBecomeFocused() const override { return true; }

protected:
    const KeyTable& keyTable() const override;

private:
    friend class UITableView;

    /// A hairline; a nil colour for none.
    struct Separator {
        Ref<UIColor> color;
        UIEdgeInsets inset;
    };

    void detailButtonTapped();
    void showSelection(bool animated);
    void fadeSelection();
    Ref<UIView> makeAccessory();
    void replaceAccessory();
    UIView* shownAccessory() const { return m_accessoryView ? m_accessoryView : m_typeAccessory; }
    void placeBehind(UIView* view, UIView* sibling);
    /// The lines that the table wants above and below.
    void setSeparators(const Separator& above, const Separator& below);
    void showSeparator(Ref<UIView>& line, const Separator& separator);
    void placeSeparators();

    Ref<UIView> m_contentView;
    Ref<UIImageView> m_imageView;
    Ref<UILabel> m_textLabel;
    Ref<UILabel> m_detailTextLabel;
    Ref<UIView> m_accessoryView;
    Ref<UIView> m_typeAccessory;
    Ref<UIView> m_backgroundView;
    Ref<UIView> m_selectedBackgroundView;
    /// What shows the selection now; nil when nothing does.
    Ref<UIView> m_shownSelection;
    Ref<UIView> m_lineAbove;
    Ref<UIView> m_lineBelow;
    Separator m_separatorAbove;
    Separator m_separatorBelow;
    std::optional<UIEdgeInsets> m_separatorInset;
    Weak<UITableView> m_tableView;
    NSString m_reuseIdentifier;
    /// Where the content view was put last.
    std::optional<CGRect> m_contentFrame;
    UITableViewCellStyle m_style = UITableViewCellStyleDefault;
    UITableViewCellSelectionStyle m_selectionStyle = UITableViewCellSelectionStyleDefault;
    UITableViewCellAccessoryType m_accessoryType = UITableViewCellAccessoryNone;
    NSInteger m_indentationLevel = 0;
    CGFloat m_indentationWidth = 10;
    bool m_selected = false;
    bool m_highlighted = false;
    bool m_editing = false;
};

} // namespace zr
#pragma GCC visibility pop
