#pragma once

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/CoreGraphics/Cairo/Internal/CairoContext.h>

#include <memory>

namespace zr {

/// How a bitmap's pixels lie in memory, compared with Cairo's.
struct PixelLayout {
    /// Red and blue change places.
    bool exchanged = false;
    /// The four bytes of a pixel come in reverse; Cairo draws on a copy.
    bool reversed = false;
    /// One byte a pixel; Cairo draws on a copy.
    bool gray = false;
    bool opaque = false;

    bool needsCopy() const { return reversed || gray; }
    NSUInteger bytesPerPixel() const { return gray ? 1 : 4; }
};

/// A Cairo context on memory. Not installed.
class BitmapContext final : public CairoContext {
public:
    /// Null `data`: memory of its own, zero at first. Nil when there is none to be had.
    static Ref<BitmapContext> create(std::uint8_t* data, NSUInteger width, NSUInteger height, NSUInteger bytesPerRow,
                                     PixelLayout layout, CGBitmapInfo info);

    NSUInteger width() const { return m_width; }
    NSUInteger height() const { return m_height; }
    NSUInteger bytesPerRow() const { return m_bytesPerRow; }
    std::uint8_t* data() const { return m_data; }
    CGBitmapInfo info() const { return m_info; }

    /// Nil when empty, as is the next.
    Ref<CGImage> copyImage() const;
    Ref<CGImage> takeImage();

private:
    void willDraw() override;
    void didDraw() override;
    std::uint32_t canvasPixel(const std::uint8_t* row, NSUInteger x) const;

    std::shared_ptr<std::uint8_t[]> m_memory;
    std::uint8_t* m_data = nullptr;
    /// What Cairo draws on when the memory's form is not Cairo's.
    std::shared_ptr<std::uint8_t[]> m_canvas;
    NSUInteger m_width = 0;
    NSUInteger m_height = 0;
    NSUInteger m_bytesPerRow = 0;
    PixelLayout m_layout;
    CGBitmapInfo m_info = 0;
};

} // namespace zr
