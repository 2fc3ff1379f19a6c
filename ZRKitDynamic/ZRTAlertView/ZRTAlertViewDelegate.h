#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#pragma GCC visibility push(default)
namespace zr {

class ZRBaseAlert;

/// Told when an alert is dismissed, by a button or by code, before the alert leaves the screen.
///
/// It need not dismiss the alert: that goes on once it was told. One that does is not told again of the index that it
/// is just hearing of.
class ZRTAlertViewDelegate {
public:
    virtual ~ZRTAlertViewDelegate() = default;

    /// Told first when the index is the alert's `cancelButtonIndex`. `zrTAlertView_clickedButtonAtIndex` follows.
    virtual void zrTAlertViewCancelButtonClicked(ZRBaseAlert* /*alert*/) {}
    /// Told on every dismissal. `index`: 0 for the cancel button or an only button, 1 for the OK button beside a cancel
    /// one, or whatever the dismissal was called with.
    virtual void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert* /*alert*/, NSInteger /*index*/) {}
};

} // namespace zr
#pragma GCC visibility pop
