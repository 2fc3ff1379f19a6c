#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>

namespace zr::gallery {

/// A control that runs a block when it is tapped; the base of the gallery's rows and buttons.
class TapControl : public UIControl {
public:
    bool initWithFrame(CGRect frame) override;
    /// Empty does nothing.
    void setAction(std::function<void()> action) { m_action = std::move(action); }

private:
    void tapped();

    std::function<void()> m_action;
};

} // namespace zr::gallery
