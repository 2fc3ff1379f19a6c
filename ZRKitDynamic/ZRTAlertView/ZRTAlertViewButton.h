#pragma once

#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Controls/UIControl.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#pragma GCC visibility push(default)
namespace zr {

/// The flat button along the bottom of an alert: a centred title inside a hairline border. It shows its state by the
/// colours of title and background.
///
/// Enabled and highlighted each colour the button without asking for the other, so the setter called last wins: a
/// disabled button that stops being highlighted looks enabled.
class ZRTAlertViewButton : public UIControl {
public:
    bool initWithFrame(CGRect frame) override;

    /// What the button says; nil, at first, for nothing.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title);

    /// The title covers the whole button, now as before.
    void setFrame(CGRect frame) override;
    /// As for `setFrame`: the title covers the whole button.
    void setBounds(CGRect bounds) override;

    /// A disabled button has a light grey title on a grey ground; an enabled one looks as at first.
    void setEnabled(bool enabled) override;
    /// A highlighted button has a green title on a light grey ground; another one looks as at first.
    void setHighlighted(bool highlighted) override;

private:
    void layOutTitle();

    NSString m_title;
    Ref<UILabel> m_titleLabel;
};

} // namespace zr
#pragma GCC visibility pop
