#pragma once

#include <Gallery/Look/TapControl.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::gallery {

/// A button filled with the kit's green, darker while pressed, with a white title.
class PillButton : public TapControl {
public:
    bool initWithFrame_title(CGRect frame, const NSString& title);

    void setHighlighted(bool highlighted) override;
    void layoutSubviews() override;

private:
    Ref<UILabel> m_title;
};

} // namespace zr::gallery
