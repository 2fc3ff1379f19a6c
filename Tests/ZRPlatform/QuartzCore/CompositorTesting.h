#pragma once

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/QuartzCore/Composition/Compositor.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace zr::testing {

inline Ref<CGColor> color(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha = 1) {
    const CGFloat components[] = {red, green, blue, alpha};
    return CGColorCreate(CGColorSpaceCreateDeviceRGB(), components);
}

inline Ref<CALayer> box(CGRect frame, CGColor* background) {
    auto layer = make<CALayer>();
    layer->setFrame(frame);
    layer->setBackgroundColor(background);
    return layer;
}

/// A picture whose left half is red and whose right half is blue.
inline Ref<CGImage> redAndBlue(int width, int height) {
    std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[std::size_t(width) * height * 4]);
    auto* words = reinterpret_cast<std::uint32_t*>(pixels.get());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            words[y * width + x] = x < width / 2 ? 0xFFFF0000 : 0xFF0000FF;
    }
    return Ref<CGImage>::adopt(new CGImage(width, height, width * 4, pixels, true));
}

class CompositorTest : public ::testing::Test {
protected:
    void SetUp() override { Clock::setCurrent(&m_clock); }
    void TearDown() override {
        NSRunLoop::mainRunLoop()->removeAll();
        Clock::setCurrent(nullptr);
    }

    const std::vector<PixelRect>& compose() {
        CATransaction::commit({root.get()});
        return compositor.compose({root.get()});
    }
    /// Composes a moment at which an animation has moved the layer to the right so far.
    void moveByAQuarterPixel(CALayer* layer) {
        auto move = CABasicAnimation::animationWithKeyPath("position.x");
        move->setByValue(1.0);
        move->setDuration(1);
        layer->addAnimation_forKey(move, "move");
        CATransaction::commit({root.get()});
        m_clock.advanceTo(nanosecondsFromSeconds(0.125));
        compositor.compose({root.get()});
    }
    std::uint32_t pixel(int x, int y) const { return compositor.pixels()[y * compositor.width() + x]; }
    /// Red, green and blue of a pixel.
    static int channel(std::uint32_t value, int shift) { return int(value >> shift & 255); }

    /// Pixels' worth of black on the white root.
    double blackPixels() const {
        double covered = 0;
        for (int i = 0; i < 200 * 100; ++i)
            covered += 1 - channel(compositor.pixels()[i], 16) / 255.0;
        return covered;
    }

    ManualClock m_clock;
    Compositor compositor{200, 100, 2};
    Ref<CALayer> root = box(CGRectMake(0, 0, 100, 50), color(1, 1, 1));
};

inline constexpr int kRed = 16, kGreen = 8, kBlue = 0;

} // namespace zr::testing
