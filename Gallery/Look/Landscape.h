#pragma once

#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr::gallery {

/// A picture of hills below the sun, with round corners, drawn to fit: something for a component to lie over.
class Landscape : public UIView {
public:
    bool initWithFrame(CGRect frame) override;
    void drawRect(CGRect rect) override;
    /// The same picture as an image, without the round corners. `size` in points, `scale` pixels a point.
    static Ref<UIImage> image(CGSize size, CGFloat scale);
};

} // namespace zr::gallery
