#include <ZRPlatform/UIKit/Controls/Internal/TextFieldCaret.h>

#include <ZRPlatform/UIKit/Views/UIWindow.h>

namespace zr {

namespace {

constexpr NSTimeInterval kBlinkInterval = 0.5;

bool isOnScreen(const UIView* view) {
    if (!view->window())
        return false;
    for (; view; view = view->superview()) {
        if (view->isHidden())
            return false;
    }
    return true;
}

} // namespace

TextFieldCaret::TextFieldCaret() : m_view(make<UIView>()) {
    m_view->setUserInteractionEnabled(false);
    m_view->setHidden(true);
}

TextFieldCaret::~TextFieldCaret() { hide(); }

void TextFieldCaret::show(CGRect frame, UIColor* color) {
    hide();
    UIView::performWithoutAnimation([&] {
        m_view->setFrame(frame);
        m_view->setBackgroundColor(color);
        m_view->setHidden(false);
    });
    m_timer =
        NSTimer::scheduledTimerWithTimeInterval_repeats_block(kBlinkInterval, true, [this](NSTimer*) { blink(); });
}

void TextFieldCaret::hide() {
    m_view->setHidden(true);
    if (m_timer)
        m_timer->invalidate();
    m_timer = nullptr;
}

void TextFieldCaret::blink() {
    // Where nobody sees it, nobody is woken: moving the caret starts the blinking again.
    const UIView* field = m_view->superview();
    if (!field || !isOnScreen(field)) {
        m_view->setHidden(false);
        m_timer->invalidate();
        m_timer = nullptr;
        return;
    }
    m_view->setHidden(!m_view->isHidden());
}

} // namespace zr
