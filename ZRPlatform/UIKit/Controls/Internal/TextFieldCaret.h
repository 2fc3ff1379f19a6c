#pragma once

#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr {

/// The bar where typing goes: half a second on, half a second off. Its timer runs only while it is shown.
class TextFieldCaret {
public:
    static constexpr CGFloat kWidth = 2;

    TextFieldCaret();
    ~TextFieldCaret();

    UIView* view() const { return m_view; }
    /// Moves the bar and starts a new half second of being on.
    void show(CGRect frame, UIColor* color);
    void hide();
    bool isShown() const { return m_timer; }

private:
    void blink();

    Ref<UIView> m_view;
    Ref<NSTimer> m_timer;
};

} // namespace zr
