#pragma once

#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr::gallery {

/// A picture of hills below the sun, with round corners, drawn to fit: something for a component to lie over.
class Landscape : public UIView {
public:
    bool initWithFrame(CGRect frame) override;
    void drawRect(CGRect rect) override;
};

} // namespace zr::gallery
