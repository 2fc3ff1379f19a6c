#pragma once

#include <ZRPlatform/UIKit/Lists/UITableViewCell.h>

#include <cstdint>
#include <functional>
#include <utility>

#pragma GCC visibility push(default)
namespace zr {

class UIButton;
class ZRSwitch;

/// The style of a cell with a third line; every other style gives a cell without one.
inline constexpr UITableViewCellStyle ZRTableViewCellStyleMark = static_cast<UITableViewCellStyle>(2);

/// What a cell shows at its right, 32 x 32 points but for the switch. Numbers that are none of these show nothing.
enum ZRAccessoryType : std::int64_t {
    ZRAccessoryTypeNone,
    /// An image view without an image; the caller gives it one.
    ZRAccessoryTypeImage,
    /// A button without a title or an image, whose taps call `cellAccessoryButtonBlock`.
    ZRAccessoryTypeButton,
    /// "icon_list_loading.png", standing still.
    ZRAccessoryTypeLoading,
    /// A button that shows `checkBoxSelected` and is toggled with it.
    ZRAccessoryTypeCheckBox,
    /// A `ZRSwitch`, whose changes call `switchValueChangedBlock`.
    ZRAccessoryTypeSwitch,
    /// "icon_list_check.png"; it comes and goes with `checkBoxSelected` while there is a `cellMultSelectBlock`.
    ZRAccessoryTypeCheckMark,
    /// "list_icon_1.png".
    ZRAccessoryTypeListIcon,
};

/// The kit's list row: an icon, a title, up to two more lines, and at the right a short text and a view, above a
/// hairline of its own. The platform cell's own image, labels and accessory are left alone, and selection shows no
/// background: a touch itself darkens the row at once, and the row fades back to white within 0.2 s after it.
///
/// Texts may be nil or of any length: a line shows what fits it. The cell places what it has at its next layout; who
/// changes texts, images or `showFullLine` of a row in sight asks for one. Cells of no size, or of one that is not a
/// number, place their parts by the same rules; texts that are left no room have no width. Main thread only.
class ZRTableViewCell : public UITableViewCell {
public:
    /// `style`: `ZRTableViewCellStyleMark`, or any other number for a cell without the mark label.
    bool initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) override;

    /// @name Parts
    /// In the content view, kept by the cell.
    /// @{
    /// The icon. While it has no image its frame is zero; with one, a zero frame becomes 32 x 32 points at the left, in
    /// the middle of the height. Any other frame is the caller's and stays, in cells that are used again too. Give the
    /// cell its accessory first: that lays it out, and a cell that is in no table yet is 44 points high.
    UIImageView* zrImageView() const { return m_zrImageView; }
    /// The title, 17 points, dark grey.
    UILabel* zrTextLabel() const { return m_zrTextLabel; }
    /// The second line, 15 points, grey, in two lines. Its height, 44 points at first, is the caller's and stays.
    UILabel* zrDetailTextLabel() const { return m_zrDetailTextLabel; }
    /// A third line, 14 points, black; nil but for the style with a mark.
    UILabel* zrMarkTextLabel() const { return m_zrMarkTextLabel; }
    /// A short text left of the accessory view, right-aligned, 15 points, grey. At most 140 points of it show.
    UILabel* zrAccessoryLabel() const { return m_zrAccessoryLabel; }
    /// @}

    /// The style that the initialiser was given. Another one changes nothing in a cell that is made.
    std::int64_t zrTableViewCellStyle() const { return m_zrTableViewCellStyle; }
    virtual void setZrTableViewCellStyle(std::int64_t style) { m_zrTableViewCellStyle = style; }

    /// @name Accessory
    /// @{
    /// A `ZRAccessoryType`; none at first. Another one makes that one's view and lays the cell out at once; the same
    /// one does nothing. A new check box is not checked, whatever the flag; a new check mark sets the flag.
    std::int64_t zrAccessoryType() const { return m_zrAccessoryType; }
    virtual void setZrAccessoryType(std::int64_t type);
    /// What shows at the right: the type's view, or one set by the caller; nil at first. It keeps its size. Setting
    /// moves the view here from where it was, and takes the one held before out of whatever view it is in: a view that
    /// another cell holds too goes wrong there. The cell itself, its content view and the views that they are in are
    /// ignored.
    UIView* zrAccessoryView() const { return m_zrAccessoryView; }
    virtual void setZrAccessoryView(UIView* view);
    /// Makes the view of a type without becoming of that type.
    virtual void createAccessoryViewWithType(std::int64_t type);
    /// @}

    /// @name State
    /// @{
    /// Whether the row is checked; false at first. Every tap of the row toggles it, whatever the accessory. Setting it
    /// calls no block.
    bool checkBoxSelected() const { return m_checkBoxSelected; }
    virtual void setCheckBoxSelected(bool selected);
    /// Whether the hairline begins at the cell's left edge, instead of where the icon or the title does; false at
    /// first.
    bool showFullLine() const { return m_showFullLine; }
    virtual void setShowFullLine(bool full) { m_showFullLine = full; }
    /// Whether a row with a switch is darkened by touches as others are; false at first.
    bool showSelectedStyle() const { return m_showSelectedStyle; }
    virtual void setShowSelectedStyle(bool shows) { m_showSelectedStyle = shows; }
    /// @}

    /// @name Blocks
    /// Copied; nil at first. They may do anything to the cell, let go of it included. Each call is one of a copy: what
    /// a block remembers lies outside of it.
    /// @{
    /// Called after a touch has changed the switch, with its new state.
    const std::function<void(bool on)>& switchValueChangedBlock() const { return m_switchValueChangedBlock; }
    virtual void setSwitchValueChangedBlock(std::function<void(bool on)> block) {
        m_switchValueChangedBlock = std::move(block);
    }
    /// Called after a tap of the button at the right.
    const std::function<void()>& cellAccessoryButtonBlock() const { return m_cellAccessoryButtonBlock; }
    virtual void setCellAccessoryButtonBlock(std::function<void()> block) {
        m_cellAccessoryButtonBlock = std::move(block);
    }
    /// Called after a tap of the row or of its check box, with the new `checkBoxSelected`.
    const std::function<void(bool selected)>& cellMultSelectBlock() const { return m_cellMultSelectBlock; }
    virtual void setCellMultSelectBlock(std::function<void(bool selected)> block) {
        m_cellMultSelectBlock = std::move(block);
    }
    /// Called after a tap of the row, as the last of all.
    const std::function<void()>& cellSelectedBlock() const { return m_cellSelectedBlock; }
    virtual void setCellSelectedBlock(std::function<void()> block) { m_cellSelectedBlock = std::move(block); }
    /// @}

    /// @name Actions of the accessories
    /// @{
    /// A tap of the button: runs `cellAccessoryButtonBlock`.
    virtual void accessoryButtonClicked(UIButton* sender);
    /// A tap of the check box: toggles `checkBoxSelected`, then runs `cellMultSelectBlock`.
    virtual void checkBoxButtonClicked(UIButton* sender);
    /// A touch has changed the switch: runs `switchValueChangedBlock`.
    virtual void switchButtonClicked(ZRSwitch* sender);
    /// @}

    /// Places icon, accessory, texts and hairline, in this order.
    void layoutSubviews() override;
    /// Also ends the fade of the last touch, which was on another row.
    void prepareForReuse() override;

    /// Darkens the row.
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// The row fades back to white.
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// The row fades back to white; `checkBoxSelected` is toggled, and the blocks run.
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;

private:
    void toggleCheckBox();
    bool showsTouches() const;
    void paintBackground(UIColor* color);
    void fadeBackground();
    void placeIcon();
    void placeAccessories();
    void placeTexts();
    void placeLine();

    Ref<UIView> m_lineView;
    Ref<UIImageView> m_zrImageView;
    Ref<UILabel> m_zrTextLabel;
    Ref<UILabel> m_zrDetailTextLabel;
    Ref<UILabel> m_zrMarkTextLabel;
    Ref<UILabel> m_zrAccessoryLabel;
    Ref<UIView> m_zrAccessoryView;
    std::function<void(bool)> m_switchValueChangedBlock;
    std::function<void()> m_cellAccessoryButtonBlock;
    std::function<void(bool)> m_cellMultSelectBlock;
    std::function<void()> m_cellSelectedBlock;
    std::int64_t m_zrTableViewCellStyle = 0;
    std::int64_t m_zrAccessoryType = ZRAccessoryTypeNone;
    bool m_checkBoxSelected = false;
    bool m_showFullLine = false;
    bool m_showSelectedStyle = false;
};

} // namespace zr
#pragma GCC visibility pop
