#pragma once

#pragma GCC visibility push(default)
namespace zr {

class UIButton;
class ZRTNavigationBar;

/// Told what the user does with a navigation bar.
class ZRTNavigationBarDelegate {
public:
    virtual ~ZRTNavigationBarDelegate() = default;

    /// The back button was tapped. The base class does nothing.
    virtual void zrTNavigationBar_backButtonClicked(ZRTNavigationBar* /*bar*/, UIButton* /*button*/) {}
};

} // namespace zr
#pragma GCC visibility pop
