#include <Gallery/Look/TapControl.h>

namespace zr::gallery {

bool TapControl::initWithFrame(CGRect frame) {
    if (!UIControl::initWithFrame(frame))
        return false;
    addTarget_action_forControlEvents(this, selector<&TapControl::tapped>, UIControlEventTouchUpInside);
    return true;
}

void TapControl::tapped() {
    // A copy, as the action may drop the view that holds this control.
    if (const auto action = m_action)
        action();
}

} // namespace zr::gallery
