#include <ZRPlatform/UIKit/Controls/Internal/TextFieldContent.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldEditing.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <algorithm>

namespace zr {

namespace {

/// A finger is thicker than the clear button.
constexpr CGFloat kClearButtonReach = 8;

} // namespace

bool UITextField::beginTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) {
    if (!UIControl::beginTrackingWithTouch_withEvent(touch, event))
        return false;
    const CGPoint point = touch->locationInView(this);
    const CGRect clearButton = CGRectInset(clearButtonRectForBounds(bounds()), -kClearButtonReach, -kClearButtonReach);
    m_trackingKind = Tracking::None;
    if (showsClearButton() && CGRectContainsPoint(clearButton, point)) {
        m_trackingKind = Tracking::ClearButton;
        m_clearButtonPressed = true;
        setNeedsDisplay();
    } else if (m_editing) {
        touchText(touch);
    }
    return true;
}

void UITextField::touchText(UITouch* touch) {
    m_model->unmark();
    const TextFieldContent line = content();
    const CGPoint origin = textOrigin(line);
    const CGPoint touched = touch->locationInView(this);
    const CGPoint point{touched.x - origin.x, touched.y - origin.y};
    if (touch->tapCount() >= 3) {
        selectAll();
        return;
    }
    if (touch->tapCount() == 2) {
        m_trackingKind = Tracking::Words;
        m_touchedWord = line.wordAtPoint(point);
        setSelection(m_touchedWord.location, NSMaxRange(m_touchedWord));
        return;
    }
    m_trackingKind = Tracking::Caret;
    const NSUInteger index = line.indexAtPoint(point);
    setSelection(index, index);
}

bool UITextField::continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) {
    const CGPoint point = touch->locationInView(this);
    if (m_trackingKind == Tracking::ClearButton) {
        m_clearButtonPressed = isTouchInside();
        setNeedsDisplay();
    } else if (m_trackingKind != Tracking::None) {
        dragTo(point);
    }
    return UIControl::continueTrackingWithTouch_withEvent(touch, event);
}

void UITextField::dragTo(CGPoint point) {
    const TextFieldContent line = content();
    const CGPoint origin = textOrigin(line);
    point = {point.x - origin.x, point.y - origin.y};
    if (m_trackingKind == Tracking::Caret) {
        const NSUInteger index = line.indexAtPoint(point);
        setSelection(index, index);
        return;
    }
    const NSRange word = line.wordAtPoint(point);
    if (word.location < m_touchedWord.location)
        setSelection(NSMaxRange(m_touchedWord), word.location);
    else
        setSelection(m_touchedWord.location, std::max(NSMaxRange(m_touchedWord), NSMaxRange(word)));
}

void UITextField::endTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) {
    const Ref<UITextField> keep = this;
    UIControl::endTrackingWithTouch_withEvent(touch, event);
    const Tracking kind = std::exchange(m_trackingKind, Tracking::None);
    m_clearButtonPressed = false;
    setNeedsDisplay();
    if (!isTouchInside())
        return;
    if (kind == Tracking::ClearButton) {
        clear();
        becomeFirstResponder();
        return;
    }
    if (m_editing)
        return;
    const CGPoint touched = touch->locationInView(this);
    if (!becomeFirstResponder())
        return;
    const TextFieldContent line = content();
    const CGPoint origin = textOrigin(line);
    const NSUInteger index = line.indexAtPoint({touched.x - origin.x, touched.y - origin.y});
    setSelection(index, index);
}

void UITextField::cancelTrackingWithEvent(UIEvent* event) {
    UIControl::cancelTrackingWithEvent(event);
    m_trackingKind = Tracking::None;
    m_clearButtonPressed = false;
    setNeedsDisplay();
}

CGRect UITextField::caretRectOnScreen() const {
    CGRect rect = convertRect_toView(caretRect(), nullptr);
    if (window())
        rect.origin = window()->layer()->convertPoint_toLayer(rect.origin, nullptr);
    return rect;
}

} // namespace zr
