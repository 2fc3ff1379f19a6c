#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>
#include <ZRPlatform/UIKit/Controls/UITextInputTraits.h>
#include <ZRPlatform/UIKit/Text/NSText.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>

#include <memory>

namespace zr { // not exported
class TextFieldCaret;
class TextFieldEditing;
struct TextFieldContent;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class UITextField;

/// How the edge of a text field looks. Rounded: a white plate with a light hairline around it and corners of 5 points.
enum UITextBorderStyle : NSInteger {
    UITextBorderStyleNone = 0,
    UITextBorderStyleLine = 1,
    UITextBorderStyleBezel = 2,
    UITextBorderStyleRoundedRect = 3,
};

/// When a part beside the text shows.
enum UITextFieldViewMode : NSInteger {
    UITextFieldViewModeNever = 0,
    UITextFieldViewModeWhileEditing = 1,
    UITextFieldViewModeUnlessEditing = 2,
    UITextFieldViewModeAlways = 3,
};

/// Is asked before a text field changes and told afterwards. Every question's default answer is yes.
class UITextFieldDelegate {
public:
    virtual ~UITextFieldDelegate() = default;
    /// No leaves the field without the focus.
    virtual bool textFieldShouldBeginEditing(UITextField*) { return true; }
    /// It is first responder now.
    virtual void textFieldDidBeginEditing(UITextField*) {}
    /// No keeps the focus.
    virtual bool textFieldShouldEndEditing(UITextField*) { return true; }
    /// It is first responder no more.
    virtual void textFieldDidEndEditing(UITextField*) {}
    /// Asked before typing, deleting, cutting and pasting; the range is in UTF-16 code units.
    virtual bool textField_shouldChangeCharactersInRange_replacementString(UITextField*, NSRange, const NSString&) {
        return true;
    }
    /// Asked after a tap of the clear button. No leaves the text.
    virtual bool textFieldShouldClear(UITextField*) { return true; }
    /// The return key was pressed. No keeps the control from sending its end-on-exit event.
    virtual bool textFieldShouldReturn(UITextField*) { return true; }
};

/// One line of text to type into. A tap begins editing: the field becomes first responder and shows a caret, which
/// taps, drags and keys move. A double tap selects a word, a triple tap everything. Text wider than the field scrolls,
/// so that the caret stays in sight.
///
/// Sends the editing events of `UIControl`: begin, changed (typing, not `setText`), end, and end-on-exit for the return
/// key. That one also ends editing when somebody listens to it.
class UITextField : public UIControl, public UITextInput {
public:
    UITextField();
    ~UITextField() override;
    bool initWithFrame(CGRect frame) override;

    /// Never nil; empty at first. Setting puts the caret at its end and sends no event.
    NSString text() const;
    virtual void setText(const NSString& text);
    /// Shown in light grey while the text is empty.
    const NSString& placeholder() const { return m_placeholder; }
    virtual void setPlaceholder(const NSString& placeholder);
    /// The system font of 17 points at first, and for nil.
    UIFont* font() const { return m_font; }
    virtual void setFont(UIFont* font);
    /// Black at first, and for nil.
    UIColor* textColor() const { return m_textColor; }
    virtual void setTextColor(UIColor* color);
    /// Left at first.
    NSTextAlignment textAlignment() const { return m_textAlignment; }
    virtual void setTextAlignment(NSTextAlignment alignment);
    /// None at first.
    UITextBorderStyle borderStyle() const { return m_borderStyle; }
    virtual void setBorderStyle(UITextBorderStyle style);
    /// Whether a text that is too wide is shrunk before it scrolls; false at first.
    bool adjustsFontSizeToFitWidth() const { return m_adjustsFontSizeToFitWidth; }
    virtual void setAdjustsFontSizeToFitWidth(bool adjusts);
    /// The smallest size that the text is shrunk to, in points; 0 at first.
    CGFloat minimumFontSize() const { return m_minimumFontSize; }
    virtual void setMinimumFontSize(CGFloat size);

    /// @name Editing
    /// @{
    /// Asked and told of the editing; held weakly, nil at first.
    UITextFieldDelegate* delegate() const { return m_delegate; }
    void setDelegate(const Delegate<UITextFieldDelegate>& delegate) { m_delegate = delegate; }
    /// Whether it is being typed into.
    bool isEditing() const { return m_editing; }
    /// Whether editing begins with an empty text; false at first.
    bool clearsOnBeginEditing() const { return m_clearsOnBeginEditing; }
    void setClearsOnBeginEditing(bool clears) { m_clearsOnBeginEditing = clears; }
    /// What is selected, in UTF-16 code units; of no length where the caret stands.
    NSRange selectedRange() const;
    /// Cut to the text and widened to whole characters.
    void setSelectedRange(NSRange range);
    /// What an input method is composing; of no length when it is not.
    NSRange markedRange() const;
    /// Puts the selected text on the clipboard; secret text stays where it is.
    void copy();
    /// Copies the selected text and deletes it; secret text stays where it is.
    void cut();
    /// Replaces the selection by the clipboard's text, line breaks left out.
    void paste();
    /// @}

    /// @name Traits
    /// Secret text shows as bullets, one a character, and cannot be copied. The other traits are kept for hosts that
    /// have a keyboard on the screen.
    /// @{
    /// Whether the text is secret: shown as bullets, and not to be copied. False at first.
    bool isSecureTextEntry() const { return m_secureTextEntry; }
    virtual void setSecureTextEntry(bool secure);
    /// Whether words should be corrected; the default at first.
    UITextAutocorrectionType autocorrectionType() const { return m_autocorrectionType; }
    void setAutocorrectionType(UITextAutocorrectionType type) { m_autocorrectionType = type; }
    /// Which letters should be made capitals; the first of sentences at first.
    UITextAutocapitalizationType autocapitalizationType() const { return m_autocapitalizationType; }
    void setAutocapitalizationType(UITextAutocapitalizationType type) { m_autocapitalizationType = type; }
    /// Which keys there should be; the default at first.
    UIKeyboardType keyboardType() const { return m_keyboardType; }
    void setKeyboardType(UIKeyboardType type) { m_keyboardType = type; }
    /// What the return key should say; the default at first.
    UIReturnKeyType returnKeyType() const { return m_returnKeyType; }
    void setReturnKeyType(UIReturnKeyType type) { m_returnKeyType = type; }
    /// @}

    /// @name Beside the text
    /// The views are kept and placed by the field; nil at first. All modes are never at first. The clear button shows
    /// only where there is something to clear.
    /// @{
    /// When the button shows that empties the text.
    UITextFieldViewMode clearButtonMode() const { return m_clearButtonMode; }
    virtual void setClearButtonMode(UITextFieldViewMode mode);
    /// A view at the left edge, of its own size.
    UIView* leftView() const { return m_leftView; }
    virtual void setLeftView(UIView* view);
    /// When the left view shows.
    UITextFieldViewMode leftViewMode() const { return m_leftViewMode; }
    virtual void setLeftViewMode(UITextFieldViewMode mode);
    /// A view at the right edge, of its own size.
    UIView* rightView() const { return m_rightView; }
    virtual void setRightView(UIView* view);
    /// When the right view shows.
    UITextFieldViewMode rightViewMode() const { return m_rightViewMode; }
    virtual void setRightViewMode(UITextFieldViewMode mode);
    /// @}

    /// @name Places, for overriding
    /// Each gives a rectangle within `bounds`.
    /// @{
    /// Where the border is drawn: at the edge of the bounds.
    virtual CGRect borderRectForBounds(CGRect bounds) const { return bounds; }
    /// Where the text lies: within the border, beside the parts that show, and beside the room for the clear button.
    virtual CGRect textRectForBounds(CGRect bounds) const;
    /// The same while the field is edited.
    virtual CGRect editingRectForBounds(CGRect bounds) const;
    /// Where the placeholder lies: where the text would.
    virtual CGRect placeholderRectForBounds(CGRect bounds) const;
    /// 19 x 19 points in the middle of the height, left of the right view or at the right edge, 5 points from it in a
    /// field with a border.
    virtual CGRect clearButtonRectForBounds(CGRect bounds) const;
    /// At the left edge, in the middle of the height; zero without a view.
    virtual CGRect leftViewRectForBounds(CGRect bounds) const;
    /// At the right edge, in the middle of the height; zero without a view.
    virtual CGRect rightViewRectForBounds(CGRect bounds) const;
    /// @}

    /// @name UITextInput
    /// @{
    void insertText(const NSString& text) override;
    void deleteBackward() override;
    bool hasText() const override;
    void setMarkedText_selectedRange(const NSString& text, NSRange range) override;
    void unmarkText() override;
    CGRect caretRectOnScreen() const override;
    NSString selectedText() const override;
    void selectAll() override;
    /// @}

    /// Room for the text, or else the placeholder, on one line within the border, beside the parts that show; with a
    /// rounded border at least as high as a button.
    CGSize sizeThatFits(CGSize size) const override;
    /// While it is enabled.
    bool canBecomeFirstResponder() const override { return isEnabled(); }
    /// Begins editing, if the delegate lets it. The caret stands at the text's end.
    bool becomeFirstResponder() override;
    /// Ends editing, if the delegate lets it.
    bool resignFirstResponder() override;
    bool keyPressed(UIKey key, unsigned modifiers) override;
    /// Ends editing, if the field is edited.
    bool accessibilityPerformEscape() override;
    void setEnabled(bool enabled) override;
    void setHidden(bool hidden) override;
    void setContentVerticalAlignment(UIControlContentVerticalAlignment alignment) override;
    void tintColorDidChange() override;
    void firstResponderWasTaken() override;
    void didMoveToWindow() override;
    void layoutSubviews() override;
    void drawRect(CGRect rect) override;
    bool beginTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) override;
    bool continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) override;
    void endTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) override;
    void cancelTrackingWithEvent(UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;

private:
    enum class Tracking { None, Caret, Words, ClearButton };

    bool mayReplace(NSRange range, const NSString& replacement);
    void replace(NSRange range, const NSString& replacement);
    void textEdited();
    void clear();
    void pressReturn();
    bool pressArrow(UIKey key, unsigned modifiers);
    void deleteForward(bool byWord);
    void deleteBackward(bool byWord);
    void beginEditing();
    void finishEditing();
    void lookChanged();
    void selectionChanged();
    void setSelection(NSUInteger anchor, NSUInteger caret);
    void scrollToCaret();
    void updateCaret();
    void tellHost(bool active) const;
    void touchText(UITouch* touch);
    void dragTo(CGPoint point);
    void placeSideView(UIView* view, bool visible, CGRect rect);
    void replaceSideView(Ref<UIView>& field, UIView* view);
    bool shows(UITextFieldViewMode mode) const;
    bool showsClearButton() const;
    CGRect rectBesideParts(CGRect bounds) const;
    CGRect visibleTextRect() const;
    Ref<UIFont> fittingFont() const;
    TextFieldContent content() const;
    CGPoint textOrigin(const TextFieldContent& content) const;
    /// Of a line in the rectangle, as the content alignment says.
    CGFloat topOfLine(CGFloat height, CGRect rect) const;
    CGRect caretRect() const;
    void drawBorder(CGContextRef context) const;
    void drawText(CGContextRef context) const;
    void drawPlaceholder(CGContextRef context) const;
    void drawClearButton(CGContextRef context) const;

    std::unique_ptr<TextFieldEditing> m_model;
    std::unique_ptr<TextFieldCaret> m_caret;
    Delegate<UITextFieldDelegate> m_delegate;
    NSString m_placeholder;
    Ref<UIFont> m_font;
    Ref<UIColor> m_textColor;
    Ref<UIView> m_leftView;
    Ref<UIView> m_rightView;
    CGFloat m_minimumFontSize = 0;
    /// How far the text is moved to the left, in points.
    CGFloat m_scrollOffset = 0;
    Tracking m_trackingKind = Tracking::None;
    NSRange m_touchedWord;
    NSTextAlignment m_textAlignment = NSTextAlignmentLeft;
    UITextBorderStyle m_borderStyle = UITextBorderStyleNone;
    UITextFieldViewMode m_clearButtonMode = UITextFieldViewModeNever;
    UITextFieldViewMode m_leftViewMode = UITextFieldViewModeNever;
    UITextFieldViewMode m_rightViewMode = UITextFieldViewModeNever;
    UITextAutocorrectionType m_autocorrectionType = UITextAutocorrectionTypeDefault;
    UITextAutocapitalizationType m_autocapitalizationType = UITextAutocapitalizationTypeSentences;
    UIKeyboardType m_keyboardType = UIKeyboardTypeDefault;
    UIReturnKeyType m_returnKeyType = UIReturnKeyDefault;
    bool m_editing = false;
    bool m_clearButtonPressed = false;
    bool m_secureTextEntry = false;
    bool m_clearsOnBeginEditing = false;
    bool m_adjustsFontSizeToFitWidth = false;
};

} // namespace zr
#pragma GCC visibility pop
