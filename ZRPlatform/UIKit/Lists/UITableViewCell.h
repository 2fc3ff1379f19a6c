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
    /// The initialiser's.
    UITableViewCellStyle style() const { return m_style; }
    /// What is added to a cell belongs in here; the cell's other views lie around and behind it. Never nil.
    UIView* contentView() const { return m_contentView; }
    /// At the left, no higher than the cell; made when first asked for.
    UIImageView* imageView();
    /// The text; made when first asked for.
    UILabel* textLabel();
    /// The second text; made when first asked for. Nil for the default style.
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
    /// What the cell shows at its right; none at first.
    UITableViewCellAccessoryType accessoryType() const { return m_accessoryType; }
    virtual void setAccessoryType(UITableViewCellAccessoryType type);
    /// Shown in place of the type's, in its own size; kept. Nil at first.
    UIView* accessoryView() const { return m_accessoryView; }
    virtual void setAccessoryView(UIView* view);
    /// @}

    /// @name Backgrounds
    /// Behind the content, as large as the cell; nil at first.
    /// @{
    /// Behind all that the cell shows; kept. Nil at first.
    UIView* backgroundView() const { return m_backgroundView; }
    virtual void setBackgroundView(UIView* view);
    /// In front of the background while the cell is selected or highlighted; nil for a grey one. Not shown with
    /// selection style none. Cells may share one: it is in the cell that shows it last.
    UIView* selectedBackgroundView() const { return m_selectedBackgroundView; }
    virtual void setSelectedBackgroundView(UIView* view);
    /// @}

    /// @name State
    /// The table sets these. Highlighted and selected look the same; labels show their highlighted colours.
    /// @{
    /// Whether a selected or highlighted cell shows a background of its own; it does at first.
    UITableViewCellSelectionStyle selectionStyle() const { return m_selectionStyle; }
    virtual void setSelectionStyle(UITableViewCellSelectionStyle style);
    /// Whether its row is selected; false at first.
    bool isSelected() const { return m_selected; }
    /// The same as `setSelected_animated`, not animated.
    void setSelected(bool selected) { setSelected_animated(selected, false); }
    /// Animated, the look of a selected cell fades away in 0.3 s; it always comes at once.
    virtual void setSelected_animated(bool selected, bool animated);
    /// Whether its row is touched; false at first.
    bool isHighlighted() const { return m_highlighted; }
    /// The same as `setHighlighted_animated`, not animated.
    void setHighlighted(bool highlighted) { setHighlighted_animated(highlighted, false); }
    /// Animated, the look of a highlighted cell fades away in 0.3 s; it always comes at once.
    virtual void setHighlighted_animated(bool highlighted, bool animated);
    /// Whether its table is being edited; false at first.
    bool isEditing() const { return m_editing; }
    /// The same as `setEditing_animated`, not animated.
    void setEditing(bool editing) { setEditing_animated(editing, false); }
    /// A flag for subclasses: the cell itself looks the same.
    virtual void setEditing_animated(bool editing, bool animated);
    /// @}

    /// @name Separator
    /// @{
    /// How far the line below the cell stays away from its sides: the table's, unless set here. Only left and right
    /// count.
    UIEdgeInsets separatorInset() const;
    virtual void setSeparatorInset(UIEdgeInsets inset);
    /// @}

    /// @name Use for row after row
    /// @{
    /// The initialiser's: cells of one identifier are used for one another's rows. Nil for a cell that serves one row
    /// only.
    const NSString& reuseIdentifier() const { return m_reuseIdentifier; }
    /// Called before the table hands the cell out again. Takes away what belonged to the old row: selection, highlight
    /// and the content view's place. An override calls it.
    virtual void prepareForReuse();
    /// The table that shows the cell, or showed it last; nil once that is gone.
    UITableView* _tableView() const;
    /// @}

    void layoutSubviews() override;
    void willRemoveSubview(UIView* view) override;
    /// True: the keyboard stops at rows.
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
