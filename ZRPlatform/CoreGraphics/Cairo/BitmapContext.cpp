#include <ZRPlatform/CoreGraphics/Cairo/Internal/BitmapContext.h>

#include <ZRPlatform/CoreGraphics/Cairo/Internal/Pixels.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace zr {

namespace {

constexpr std::uint32_t kAlphaBits = 0xFF000000u;

/// Zero-filled memory, null when there is not enough. The system hands out large zeroes without touching them.
std::shared_ptr<std::uint8_t[]> zeroedMemory(NSUInteger size) {
    auto* bytes = static_cast<std::uint8_t*>(std::calloc(size, 1));
    return bytes ? std::shared_ptr<std::uint8_t[]>(bytes, [](std::uint8_t* memory) { std::free(memory); }) : nullptr;
}

/// The luminance of a pixel in Cairo's order, as photographers' grey: 0.299 red + 0.587 green + 0.114 blue.
std::uint8_t luminance(std::uint32_t pixel) {
    const std::uint32_t sum = 299 * (pixel >> 16 & 0xFF) + 587 * (pixel >> 8 & 0xFF) + 114 * (pixel & 0xFF);
    return static_cast<std::uint8_t>((sum + 500) / 1000);
}

} // namespace

Ref<BitmapContext> BitmapContext::create(std::uint8_t* data, NSUInteger width, NSUInteger height,
                                         NSUInteger bytesPerRow, PixelLayout layout, CGBitmapInfo info) {
    auto context = Ref<BitmapContext>::adopt(new BitmapContext());
    if (!data) {
        context->m_memory = zeroedMemory(bytesPerRow * height);
        data = context->m_memory.get();
    }
    if (!data)
        return nullptr;
    context->m_data = data;
    context->m_width = width;
    context->m_height = height;
    context->m_bytesPerRow = bytesPerRow;
    context->m_layout = layout;
    context->m_info = info;
    unsigned char* canvas = data;
    auto stride = static_cast<int>(bytesPerRow);
    if (layout.needsCopy()) {
        context->m_canvas = zeroedMemory(width * height * 4);
        if (!context->m_canvas)
            return nullptr;
        canvas = context->m_canvas.get();
        stride = static_cast<int>(width) * 4;
    }
    cairo_surface_t* surface =
        cairo_image_surface_create_for_data(canvas, layout.opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                            static_cast<int>(width), static_cast<int>(height), stride);
    const bool made = cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
    if (made)
        context->setSurface(surface, static_cast<CGFloat>(height), layout.exchanged);
    cairo_surface_destroy(surface);
    return made ? context : nullptr;
}

std::uint32_t BitmapContext::canvasPixel(const std::uint8_t* row, NSUInteger x) const {
    if (m_layout.gray)
        return kAlphaBits | row[x] * 0x010101u;
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, row + 4 * x, 4);
    return m_layout.reversed ? __builtin_bswap32(pixel) : pixel;
}

void BitmapContext::willDraw() {
    if (!m_layout.needsCopy())
        return;
    auto* canvas = reinterpret_cast<std::uint32_t*>(m_canvas.get());
    for (NSUInteger y = 0; y < m_height; ++y) {
        for (NSUInteger x = 0; x < m_width; ++x)
            canvas[y * m_width + x] = canvasPixel(m_data + y * m_bytesPerRow, x);
    }
}

void BitmapContext::didDraw() {
    if (!m_layout.needsCopy())
        return;
    const auto* canvas = reinterpret_cast<const std::uint32_t*>(m_canvas.get());
    for (NSUInteger y = 0; y < m_height; ++y) {
        std::uint8_t* row = m_data + y * m_bytesPerRow;
        for (NSUInteger x = 0; x < m_width; ++x) {
            const std::uint32_t pixel = canvas[y * m_width + x];
            if (m_layout.gray) {
                row[x] = luminance(pixel);
            } else {
                const std::uint32_t reversed = __builtin_bswap32(pixel);
                std::memcpy(row + 4 * x, &reversed, 4);
            }
        }
    }
}

Ref<CGImage> BitmapContext::copyImage() const {
    if (!m_data)
        return nullptr;
    const NSUInteger rowBytes = m_width * 4;
    std::shared_ptr<std::uint8_t[]> pixels = zeroedMemory(rowBytes * m_height);
    if (!pixels)
        return nullptr;
    for (NSUInteger y = 0; y < m_height; ++y) {
        const std::uint8_t* from = m_data + y * m_bytesPerRow;
        auto* to = reinterpret_cast<std::uint32_t*>(pixels.get() + y * rowBytes);
        for (NSUInteger x = 0; x < m_width; ++x) {
            const std::uint32_t pixel = canvasPixel(from, x);
            to[x] = (m_layout.exchanged ? exchangedRedAndBlue(pixel) : pixel) | (m_layout.opaque ? kAlphaBits : 0);
        }
    }
    return Ref<CGImage>::adopt(new CGImage(m_width, m_height, rowBytes, std::move(pixels), m_layout.opaque));
}

Ref<CGImage> BitmapContext::takeImage() {
    Ref<CGImage> image;
    if (m_memory && !m_layout.needsCopy() && !m_layout.exchanged) {
        closeSurface();
        // Cairo leaves the unused byte of an opaque pixel at any value.
        for (NSUInteger y = 0; m_layout.opaque && y < m_height; ++y) {
            auto* row = reinterpret_cast<std::uint32_t*>(m_data + y * m_bytesPerRow);
            std::for_each(row, row + m_width, [](std::uint32_t& pixel) { pixel |= kAlphaBits; });
        }
        image =
            Ref<CGImage>::adopt(new CGImage(m_width, m_height, m_bytesPerRow, std::move(m_memory), m_layout.opaque));
    } else {
        image = copyImage();
        closeSurface();
    }
    m_memory = nullptr;
    m_data = nullptr;
    m_width = m_height = m_bytesPerRow = 0;
    m_canvas = nullptr;
    return image;
}

} // namespace zr
