#pragma once

#include <ZRPlatform/UIKit/Events/UIEvent.h>

#pragma GCC visibility push(default)
namespace zr {

/// Keys that a responder is sent apart from text.
enum class UIKey { Return, Escape, Tab, Backspace, Delete, Left, Right, Up, Down, Home, End };

/// Modifier keys held, to be added up.
enum UIKeyModifierFlags : unsigned { UIKeyModifierShift = 1, UIKeyModifierControl = 2, UIKeyModifierAlternate = 4 };

/// Something that can be sent events: it handles them or passes them on to its next responder.
class UIResponder : public NSObject {
public:
    /// What gets the events that this responder does not handle; nil at the end of the chain.
    virtual UIResponder* nextResponder() const { return nullptr; }

    /// @name Touches
    /// The default passes the touches on to the next responder.
    /// @{
    /// Fingers went down on the view.
    virtual void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event);
    /// Fingers that are down have moved.
    virtual void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event);
    /// Fingers went up.
    virtual void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event);
    /// Fingers are no longer the responder's, up or not: a recogniser has taken them, or the view was hidden or left
    /// its window.
    virtual void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event);
    /// @}

    /// @name First responder
    /// The one responder that typing goes to.
    /// @{
    /// Whether it may be made first; false unless a class says otherwise.
    virtual bool canBecomeFirstResponder() const { return false; }
    /// Whether it lets go when another one is to be first; true unless a class says otherwise.
    virtual bool canResignFirstResponder() const { return true; }
    /// True when it is the first responder afterwards. It must be in a window, and the old one must agree to resign.
    virtual bool becomeFirstResponder();
    /// Nobody is first then. False, and nothing changes, when it is first and does not agree to resign.
    virtual bool resignFirstResponder();
    /// Whether it is the first one of its window; typing comes to it while that is the key window.
    bool isFirstResponder() const;
    /// Called when the responder stopped being first without having agreed to resign: it left its window, or was
    /// forced.
    virtual void firstResponderWasTaken() {}
    /// @}

    /// @name Typing
    /// @{
    /// A key that is not text, for the first responder or the view where the keyboard is. True when it was used; the
    /// default passes it on.
    virtual bool keyPressed(UIKey key, unsigned modifiers);
    /// The escape key: leaves what is open, an overlay or a screen for example. True when there was something, or when
    /// nothing behind it may be left; the default passes it on.
    virtual bool accessibilityPerformEscape();
    /// @}
};

/// A responder that takes typed text, an input method's included.
class UITextInput {
public:
    virtual ~UITextInput() = default;
    /// Puts the text in place of the selection, or at the caret.
    virtual void insertText(const NSString& text) = 0;
    /// Deletes the selection, or else the character before the caret.
    virtual void deleteBackward() = 0;
    /// Whether there is anything to delete.
    virtual bool hasText() const = 0;
    /// Text that an input method is still composing, shown but not yet final; empty ends it. The range is the
    /// selection inside it.
    virtual void setMarkedText_selectedRange(const NSString& text, NSRange range) = 0;
    /// What is being composed becomes final as it is.
    virtual void unmarkText() = 0;
    /// Where the caret is, in points of the screen: input methods open their list there.
    virtual CGRect caretRectOnScreen() const = 0;
    /// For the clipboard keys of a host; nil when there is no selection or the text is secret.
    virtual NSString selectedText() const = 0;
    /// Selects all of the text that is there.
    virtual void selectAll() = 0;
};

} // namespace zr
#pragma GCC visibility pop
