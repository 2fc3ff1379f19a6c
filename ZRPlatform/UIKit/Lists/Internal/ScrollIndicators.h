#pragma once

#include <ZRPlatform/QuartzCore/Layers/CALayer.h>

namespace zr {

class UIScrollView;

/// The bars at the edges of a scroll view. They are layers in front of its content, made when they first show; hidden
/// ones cost nothing.
class ScrollIndicators {
public:
    explicit ScrollIndicators(UIScrollView& view) : m_view(view) {}

    void show();
    /// They fade out, after `delay` seconds.
    void fade(NSTimeInterval delay);
    /// To where the content is now.
    void update();

private:
    void place(Ref<CALayer>& bar, bool shows, CGRect frame);
    CGRect horizontalFrame() const;
    CGRect verticalFrame() const;

    UIScrollView& m_view;
    Ref<CALayer> m_horizontal;
    Ref<CALayer> m_vertical;
    bool m_isShown = false;
};

} // namespace zr
