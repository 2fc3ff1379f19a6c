#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldContent.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldEditing.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>

namespace zr {

NSRange UITextField::selectedRange() const { return m_model->selectedRange(); }

void UITextField::setSelectedRange(NSRange range) {
    const NSRange whole = m_model->wholeCharacters(range);
    setSelection(whole.location, NSMaxRange(whole));
}

NSRange UITextField::markedRange() const { return m_model->markedRange(); }

void UITextField::setSelection(NSUInteger anchor, NSUInteger caret) {
    m_model->select(anchor, caret);
    setNeedsDisplay();
    selectionChanged();
}

// Changing the text

bool UITextField::mayReplace(NSRange range, const NSString& replacement) {
    const Ref<NSObject> keepDelegate = m_delegate.object();
    return !m_delegate.get() ||
           m_delegate->textField_shouldChangeCharactersInRange_replacementString(this, range, replacement);
}

void UITextField::replace(NSRange range, const NSString& replacement) {
    const Ref<UITextField> keep = this;
    if (!mayReplace(range, replacement))
        return;
    // The delegate may have set another text meanwhile.
    m_model->replace(m_model->wholeCharacters(range), replacement);
    textEdited();
}

void UITextField::textEdited() {
    lookChanged();
    selectionChanged();
    sendActionsForControlEvents(UIControlEventEditingChanged);
}

void UITextField::insertText(const NSString& text) {
    const NSString line = TextFieldEditing::withoutLineBreaks(text);
    if (line.length() > 0)
        replace(m_model->replacedByTyping(), line);
}

void UITextField::deleteBackward() { deleteBackward(false); }

void UITextField::deleteBackward(bool byWord) {
    NSRange range = m_model->selectedRange();
    if (range.length == 0) {
        range.location = m_model->previous(m_model->caret(), byWord);
        range.length = m_model->caret() - range.location;
    }
    if (range.length > 0)
        replace(range, "");
}

void UITextField::deleteForward(bool byWord) {
    NSRange range = m_model->selectedRange();
    if (range.length == 0)
        range.length = m_model->next(m_model->caret(), byWord) - range.location;
    if (range.length > 0)
        replace(range, "");
}

bool UITextField::hasText() const { return m_model->text().length() > 0; }

void UITextField::setMarkedText_selectedRange(const NSString& text, NSRange range) {
    if (text.length() == 0 && !m_model->isComposing())
        return;
    const Ref<UITextField> keep = this;
    m_model->setMarkedText(text, range);
    textEdited();
}

void UITextField::unmarkText() {
    m_model->unmark();
    setNeedsDisplay();
}

void UITextField::clear() {
    const Ref<UITextField> keep = this;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (m_delegate.get() && !m_delegate->textFieldShouldClear(this))
        return;
    setText("");
    sendActionsForControlEvents(UIControlEventEditingChanged);
}

// Clipboard

NSString UITextField::selectedText() const {
    const NSRange range = m_model->selectedRange();
    if (m_secureTextEntry || range.length == 0)
        return nullptr;
    return m_model->text().substringWithRange(range);
}

void UITextField::selectAll() { setSelection(0, m_model->text().length()); }

void UITextField::copy() {
    UIApplication* application = UIApplication::sharedApplication();
    const NSString text = selectedText();
    if (application && application->host() && text.length() > 0)
        application->host()->setClipboardText(text);
}

void UITextField::cut() {
    if (selectedText().length() == 0)
        return;
    copy();
    deleteBackward();
}

void UITextField::paste() {
    UIApplication* application = UIApplication::sharedApplication();
    if (application && application->host())
        insertText(application->host()->clipboardText());
}

// Keys

bool UITextField::keyPressed(UIKey key, unsigned modifiers) {
    if (!m_editing)
        return UIControl::keyPressed(key, modifiers);
    const bool byWord = modifiers & (UIKeyModifierControl | UIKeyModifierAlternate);
    switch (key) {
    case UIKey::Return:
        pressReturn();
        return true;
    case UIKey::Backspace:
        deleteBackward(byWord);
        return true;
    case UIKey::Delete:
        deleteForward(byWord);
        return true;
    case UIKey::Escape:
    case UIKey::Tab:
        return UIControl::keyPressed(key, modifiers);
    default:
        return pressArrow(key, modifiers);
    }
}

bool UITextField::accessibilityPerformEscape() {
    return m_editing ? resignFirstResponder() : UIControl::accessibilityPerformEscape();
}

bool UITextField::pressArrow(UIKey key, unsigned modifiers) {
    const bool extends = modifiers & UIKeyModifierShift;
    const bool byWord = modifiers & (UIKeyModifierControl | UIKeyModifierAlternate);
    const NSUInteger length = m_model->text().length();
    NSUInteger caret = m_model->caret();
    if (key == UIKey::Home || key == UIKey::Up) {
        caret = 0;
    } else if (key == UIKey::End || key == UIKey::Down) {
        caret = length;
    } else if (byWord) {
        caret = key == UIKey::Left ? m_model->previous(caret, true) : m_model->next(caret, true);
    } else {
        const TextFieldContent line = content();
        const NSRange selected = m_model->selectedRange();
        if (selected.length > 0 && !extends) {
            // The caret goes to the edge of the selection that lies in the arrow's direction.
            const bool endIsRight = line.caretX(NSMaxRange(selected)) >= line.caretX(selected.location);
            caret = (key == UIKey::Right) == endIsRight ? NSMaxRange(selected) : selected.location;
        } else {
            caret = key == UIKey::Left ? line.indexLeftOf(caret) : line.indexRightOf(caret);
        }
    }
    m_model->unmark();
    m_model->moveCaret(caret, extends);
    setNeedsDisplay();
    selectionChanged();
    return true;
}

void UITextField::pressReturn() {
    const Ref<UITextField> keep = this;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (m_delegate.get() && !m_delegate->textFieldShouldReturn(this))
        return;
    const bool endsEditing = allControlEvents() & UIControlEventEditingDidEndOnExit;
    sendActionsForControlEvents(UIControlEventEditingDidEndOnExit);
    if (endsEditing)
        resignFirstResponder();
}

} // namespace zr
