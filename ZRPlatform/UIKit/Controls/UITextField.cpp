#include <ZRPlatform/UIKit/Controls/UITextField.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldCaret.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldContent.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldEditing.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kClearButtonSize = 19;
constexpr CGFloat kClearButtonMargin = 5;
/// Of a rounded or bezelled field, which is as high as a button.
constexpr CGFloat kBorderedHeight = 30;
constexpr CGFloat kSmallestFontSize = 1;

/// How far the text keeps away from the edges.
CGSize borderInset(UITextBorderStyle style) {
    switch (style) {
    case UITextBorderStyleLine:
        return {2, 2};
    case UITextBorderStyleBezel:
    case UITextBorderStyleRoundedRect:
        return {7, 2};
    default:
        return {0, 0};
    }
}

/// From `left` to `right`, and no wider than nothing where they have crossed.
CGRect between(CGFloat left, CGFloat right, CGRect rect) {
    return CGRectMake(left, rect.origin.y, std::max<CGFloat>(right - left, 0), rect.size.height);
}

CGRect centredAt(CGFloat x, CGSize size, CGRect bounds) {
    return CGRectMake(x, std::round(CGRectGetMidY(bounds) - size.height / 2), size.width, size.height);
}

} // namespace

UITextField::UITextField() :
    m_model(std::make_unique<TextFieldEditing>()), m_caret(std::make_unique<TextFieldCaret>()) {}

UITextField::~UITextField() = default;

bool UITextField::initWithFrame(CGRect frame) {
    if (!UIControl::initWithFrame(frame))
        return false;
    m_font = UIFont::systemFontOfSize(UIFont::labelFontSize());
    m_textColor = UIColor::blackColor();
    setContentMode(UIViewContentModeRedraw);
    setOpaque(false);
    addSubview(m_caret->view());
    return true;
}

// Properties

NSString UITextField::text() const { return m_model->text(); }

void UITextField::setText(const NSString& text) {
    const NSValue oldText = m_model->text();
    m_model->setText(text);
    lookChanged();
    selectionChanged();
    didChangeValueForKey("text", oldText);
}

void UITextField::setPlaceholder(const NSString& placeholder) {
    m_placeholder = placeholder;
    lookChanged();
}

void UITextField::setFont(UIFont* font) {
    m_font = font ? Ref<UIFont>(font) : UIFont::systemFontOfSize(UIFont::labelFontSize());
    lookChanged();
}

void UITextField::setTextColor(UIColor* color) {
    m_textColor = color ? color : UIColor::blackColor();
    lookChanged();
}

void UITextField::setTextAlignment(NSTextAlignment alignment) {
    m_textAlignment = alignment;
    lookChanged();
}

void UITextField::setBorderStyle(UITextBorderStyle style) {
    m_borderStyle = style;
    lookChanged();
}

void UITextField::setAdjustsFontSizeToFitWidth(bool adjusts) {
    m_adjustsFontSizeToFitWidth = adjusts;
    lookChanged();
}

void UITextField::setMinimumFontSize(CGFloat size) {
    m_minimumFontSize = size;
    lookChanged();
}

void UITextField::setSecureTextEntry(bool secure) {
    m_secureTextEntry = secure;
    lookChanged();
}

void UITextField::setClearButtonMode(UITextFieldViewMode mode) {
    m_clearButtonMode = mode;
    lookChanged();
}

void UITextField::setLeftView(UIView* view) { replaceSideView(m_leftView, view); }
void UITextField::setRightView(UIView* view) { replaceSideView(m_rightView, view); }

void UITextField::setLeftViewMode(UITextFieldViewMode mode) {
    m_leftViewMode = mode;
    lookChanged();
}

void UITextField::setRightViewMode(UITextFieldViewMode mode) {
    m_rightViewMode = mode;
    lookChanged();
}

void UITextField::replaceSideView(Ref<UIView>& field, UIView* view) {
    if (field == view)
        return;
    // It may show elsewhere by now.
    if (field && field->superview() == this)
        field->removeFromSuperview();
    field = view;
    if (view)
        addSubview(view);
    lookChanged();
}

void UITextField::setEnabled(bool enabled) {
    UIControl::setEnabled(enabled);
    if (!enabled && m_editing)
        resignFirstResponder();
    setNeedsDisplay();
}

void UITextField::setHidden(bool hidden) {
    UIControl::setHidden(hidden);
    updateCaret();
}

void UITextField::setContentVerticalAlignment(UIControlContentVerticalAlignment alignment) {
    UIControl::setContentVerticalAlignment(alignment);
    lookChanged();
}

void UITextField::tintColorDidChange() { lookChanged(); }

const KeyTable& UITextField::keyTable() const {
    static const KeyTable table(
        UIControl::keyTable(),
        {
            key<&UITextField::text, &UITextField::setText>("text"),
            key<&UITextField::placeholder, &UITextField::setPlaceholder>("placeholder"),
            key<&UITextField::font, &UITextField::setFont>("font"),
            key<&UITextField::textColor, &UITextField::setTextColor>("textColor"),
            key<&UITextField::textAlignment, &UITextField::setTextAlignment>("textAlignment"),
            key<&UITextField::borderStyle, &UITextField::setBorderStyle>("borderStyle"),
            key<&UITextField::adjustsFontSizeToFitWidth, &UITextField::setAdjustsFontSizeToFitWidth>(
                "adjustsFontSizeToFitWidth"),
            key<&UITextField::minimumFontSize, &UITextField::setMinimumFontSize>("minimumFontSize"),
            key<&UITextField::clearButtonMode, &UITextField::setClearButtonMode>("clearButtonMode"),
            key<&UITextField::leftView, &UITextField::setLeftView>("leftView"),
            key<&UITextField::leftViewMode, &UITextField::setLeftViewMode>("leftViewMode"),
            key<&UITextField::rightView, &UITextField::setRightView>("rightView"),
            key<&UITextField::rightViewMode, &UITextField::setRightViewMode>("rightViewMode"),
            key<&UITextField::clearsOnBeginEditing, &UITextField::setClearsOnBeginEditing>("clearsOnBeginEditing"),
            key<&UITextField::isSecureTextEntry, &UITextField::setSecureTextEntry>("secureTextEntry"),
            key<&UITextField::isEditing>("editing"),
        });
    return table;
}

// First responder

bool UITextField::becomeFirstResponder() {
    if (isFirstResponder())
        return true;
    const Ref<UITextField> keep = this;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (!window() || !canBecomeFirstResponder())
        return false;
    if (m_delegate.get() && !m_delegate->textFieldShouldBeginEditing(this))
        return false;
    if (!UIControl::becomeFirstResponder())
        return false;
    beginEditing();
    return true;
}

void UITextField::beginEditing() {
    m_editing = true;
    if (m_clearsOnBeginEditing)
        setText("");
    m_model->moveCaret(m_model->text().length(), false);
    lookChanged();
    selectionChanged();
    sendActionsForControlEvents(UIControlEventEditingDidBegin);
    if (m_delegate.get())
        m_delegate->textFieldDidBeginEditing(this);
}

bool UITextField::resignFirstResponder() {
    const Ref<UITextField> keep = this;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (m_editing && m_delegate.get() && !m_delegate->textFieldShouldEndEditing(this))
        return false;
    if (!UIControl::resignFirstResponder())
        return false;
    finishEditing();
    return true;
}

void UITextField::finishEditing() {
    if (!m_editing)
        return;
    m_editing = false;
    m_model->unmark();
    m_model->moveCaret(m_model->text().length(), false);
    lookChanged();
    updateCaret();
    tellHost(false);
    sendActionsForControlEvents(UIControlEventEditingDidEnd);
    if (m_delegate.get())
        m_delegate->textFieldDidEndEditing(this);
}

/// A delegate may refuse to end editing, but not to leave the screen.
void UITextField::firstResponderWasTaken() {
    const Ref<UITextField> keep = this;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    finishEditing();
}

void UITextField::didMoveToWindow() {
    UIControl::didMoveToWindow();
    updateCaret();
}

// Layout

bool UITextField::shows(UITextFieldViewMode mode) const {
    return mode == UITextFieldViewModeAlways ||
           mode == (m_editing ? UITextFieldViewModeWhileEditing : UITextFieldViewModeUnlessEditing);
}

bool UITextField::showsClearButton() const {
    return isEnabled() && shows(m_clearButtonMode) && m_model->text().length() > 0;
}

CGRect UITextField::leftViewRectForBounds(CGRect bounds) const {
    if (!m_leftView)
        return CGRectZero;
    return centredAt(bounds.origin.x, m_leftView->bounds().size, bounds);
}

CGRect UITextField::rightViewRectForBounds(CGRect bounds) const {
    if (!m_rightView)
        return CGRectZero;
    const CGSize size = m_rightView->bounds().size;
    return centredAt(CGRectGetMaxX(bounds) - size.width, size, bounds);
}

CGRect UITextField::clearButtonRectForBounds(CGRect bounds) const {
    const bool hasRightView = m_rightView && shows(m_rightViewMode);
    const CGFloat right = hasRightView ? rightViewRectForBounds(bounds).origin.x : CGRectGetMaxX(bounds);
    const CGFloat margin = m_borderStyle == UITextBorderStyleNone ? 0 : kClearButtonMargin;
    return centredAt(right - margin - kClearButtonSize, {kClearButtonSize, kClearButtonSize}, bounds);
}

CGRect UITextField::rectBesideParts(CGRect bounds) const {
    const CGSize inset = borderInset(m_borderStyle);
    CGFloat left = bounds.origin.x + inset.width;
    CGFloat right = CGRectGetMaxX(bounds) - inset.width;
    if (m_leftView && shows(m_leftViewMode))
        left = std::max(left, CGRectGetMaxX(leftViewRectForBounds(bounds)));
    if (m_rightView && shows(m_rightViewMode))
        right = std::min(right, rightViewRectForBounds(bounds).origin.x);
    // Also while there is nothing to clear, so that centred text does not jump with the first letter.
    if (shows(m_clearButtonMode))
        right = std::min(right, clearButtonRectForBounds(bounds).origin.x);
    CGRect rect = between(left, right, bounds);
    rect.origin.y += inset.height;
    rect.size.height = std::max<CGFloat>(rect.size.height - 2 * inset.height, 0);
    return rect;
}

CGRect UITextField::textRectForBounds(CGRect bounds) const { return rectBesideParts(bounds); }
CGRect UITextField::editingRectForBounds(CGRect bounds) const { return rectBesideParts(bounds); }
CGRect UITextField::placeholderRectForBounds(CGRect bounds) const {
    return m_editing ? editingRectForBounds(bounds) : textRectForBounds(bounds);
}

CGRect UITextField::visibleTextRect() const {
    return m_editing ? editingRectForBounds(bounds()) : textRectForBounds(bounds());
}

CGSize UITextField::sizeThatFits(CGSize) const {
    const NSString& shown = m_model->text().length() > 0 ? m_model->text() : m_placeholder;
    const bool isSecret = m_secureTextEntry && m_model->text().length() > 0;
    const TextFieldContent line(shown, isSecret, m_font, TextRequest::unlimited, false);
    const CGRect room = rectBesideParts(CGRectMake(0, 0, 1000, 1000));
    const CGFloat height = std::ceil(m_font->lineHeight()) + 1000 - room.size.height;
    const bool isAtLeastAsHighAsAButton = borderInset(m_borderStyle).width > 2;
    return {std::ceil(line.size().width) + TextFieldCaret::kWidth + 1000 - room.size.width,
            isAtLeastAsHighAsAButton ? std::max(kBorderedHeight, height) : height};
}

void UITextField::layoutSubviews() {
    UIControl::layoutSubviews();
    placeSideView(m_leftView, shows(m_leftViewMode), leftViewRectForBounds(bounds()));
    placeSideView(m_rightView, shows(m_rightViewMode), rightViewRectForBounds(bounds()));
    selectionChanged();
}

void UITextField::placeSideView(UIView* view, bool visible, CGRect rect) {
    if (!view)
        return;
    view->setHidden(!visible);
    view->setFrame(rect);
}

void UITextField::lookChanged() {
    setNeedsLayout();
    setNeedsDisplay();
}

// The line of text

Ref<UIFont> UITextField::fittingFont() const {
    if (!m_adjustsFontSizeToFitWidth)
        return m_font;
    const CGFloat room = visibleTextRect().size.width - TextFieldCaret::kWidth;
    const TextFieldContent natural(m_model->text(), m_secureTextEntry, m_font, TextRequest::unlimited, false);
    if (natural.size().width <= room)
        return m_font;
    // Widths grow in proportion to the size.
    const CGFloat fitting = std::floor(m_font->pointSize() * room / natural.size().width * 4) / 4;
    const CGFloat smallest = std::max(kSmallestFontSize, m_minimumFontSize);
    return m_font->fontWithSize(std::min(m_font->pointSize(), std::max(smallest, fitting)));
}

TextFieldContent UITextField::content() const {
    return {m_model->text(), m_secureTextEntry, fittingFont(), visibleTextRect().size.width, !m_editing};
}

CGFloat UITextField::topOfLine(CGFloat height, CGRect rect) const {
    const CGFloat space = rect.size.height - height;
    switch (contentVerticalAlignment()) {
    case UIControlContentVerticalAlignmentTop:
        return rect.origin.y;
    case UIControlContentVerticalAlignmentBottom:
        return rect.origin.y + space;
    default:
        return rect.origin.y + space / 2;
    }
}

CGPoint UITextField::textOrigin(const TextFieldContent& content) const {
    const CGRect rect = visibleTextRect();
    CGPoint origin{rect.origin.x, topOfLine(content.layout->caretRect(0).size.height, rect)};
    const CGFloat space = rect.size.width - (m_editing ? TextFieldCaret::kWidth : 0) - content.size().width;
    if (space < 0) {
        origin.x -= m_scrollOffset;
        return origin;
    }
    const bool readsRightToLeft = content.caretX(0) > content.caretX(m_model->text().length());
    if (m_textAlignment == NSTextAlignmentCenter)
        origin.x += space / 2;
    else if (m_textAlignment == NSTextAlignmentRight ||
             (m_textAlignment >= NSTextAlignmentJustified && readsRightToLeft))
        origin.x += space;
    return origin;
}

void UITextField::scrollToCaret() {
    const TextFieldContent line = content();
    const CGFloat room = std::max<CGFloat>(visibleTextRect().size.width - TextFieldCaret::kWidth, 0);
    const CGFloat furthest = std::max<CGFloat>(line.size().width - room, 0);
    const CGFloat caret = line.caretX(m_model->caret());
    CGFloat offset = std::clamp(m_scrollOffset, std::min(caret - room, furthest), std::max<CGFloat>(caret, 0));
    offset = m_editing ? std::clamp<CGFloat>(offset, 0, furthest) : 0;
    if (offset == m_scrollOffset)
        return;
    m_scrollOffset = offset;
    setNeedsDisplay();
}

CGRect UITextField::caretRect() const {
    const TextFieldContent line = content();
    const CGRect rect = visibleTextRect();
    const CGPoint origin = textOrigin(line);
    const CGFloat scale = contentScaleFactor() > 0 ? contentScaleFactor() : 1;
    const auto onPixel = [scale](CGFloat value) { return std::round(value * scale) / scale; };
    const CGFloat furthest = std::max(rect.origin.x, CGRectGetMaxX(rect) - TextFieldCaret::kWidth);
    // Half of it on each side of the place between two letters, or it would hide the stem of the one after it.
    constexpr CGFloat half = TextFieldCaret::kWidth / 2;
    const CGFloat nearest = std::max<CGFloat>(rect.origin.x - half, 0);
    const CGFloat x = std::clamp(origin.x + line.caretX(m_model->caret()) - half, nearest, furthest);
    return CGRectMake(onPixel(x), onPixel(origin.y), TextFieldCaret::kWidth,
                      onPixel(line.layout->caretRect(0).size.height));
}

void UITextField::selectionChanged() {
    scrollToCaret();
    updateCaret();
    if (m_editing)
        tellHost(true);
}

void UITextField::updateCaret() {
    const bool isVisible = m_editing && window() && !isHidden() && m_model->selectedRange().length == 0;
    if (isVisible && CGRectIsFinite(bounds()))
        m_caret->show(caretRect(), tintColor());
    else
        m_caret->hide();
}

void UITextField::tellHost(bool active) const {
    UIApplication* application = UIApplication::sharedApplication();
    if (application && application->host() && (!active || window()))
        application->host()->textInputChanged(active, active ? caretRectOnScreen() : CGRectZero);
}

} // namespace zr
