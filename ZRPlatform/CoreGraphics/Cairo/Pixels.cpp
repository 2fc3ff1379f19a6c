#include <ZRPlatform/CoreGraphics/Cairo/Internal/Pixels.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// Half of the bell, from its middle outwards, so that the whole adds up to 1.
std::vector<float> gaussian(double deviation) {
    std::vector<float> weights(static_cast<std::size_t>(std::ceil(3 * deviation)) + 1);
    float sum = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const double distance = static_cast<double>(i) / deviation;
        weights[i] = static_cast<float>(std::exp(-distance * distance / 2));
        sum += i == 0 ? weights[i] : 2 * weights[i];
    }
    for (float& weight : weights)
        weight /= sum;
    return weights;
}

/// Softens `count` values, `stride` apart; nothing lies beyond the ends.
void softenLine(float* values, std::size_t count, std::size_t stride, const std::vector<float>& weights,
                std::vector<float>& scratch) {
    scratch.assign(count, 0);
    for (std::size_t i = 0; i < count; ++i) {
        const float value = values[i * stride];
        if (value == 0)
            continue;
        const std::size_t first = i >= weights.size() ? i - weights.size() + 1 : 0;
        const std::size_t last = std::min(i + weights.size() - 1, count - 1);
        for (std::size_t k = first; k <= last; ++k)
            scratch[k] += value * weights[k > i ? k - i : i - k];
    }
    for (std::size_t i = 0; i < count; ++i)
        values[i * stride] = scratch[i];
}

} // namespace

cairo_surface_t* surfaceWithImage(const CGImage& image, bool exchanged) {
    constexpr NSUInteger kLargestSide = 32767;
    if (image.width() > kLargestSide || image.height() > kLargestSide || image.bytesPerRow() % 4 != 0)
        return nullptr;
    const auto width = static_cast<int>(image.width());
    const auto height = static_cast<int>(image.height());
    const cairo_format_t format = image.isOpaque() ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
    // Cairo asks for writable memory but only reads a source.
    cairo_surface_t* surface =
        exchanged ? cairo_image_surface_create(format, width, height)
                  : cairo_image_surface_create_for_data(const_cast<unsigned char*>(image.pixels()), format, width,
                                                        height, static_cast<int>(image.bytesPerRow()));
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return nullptr;
    }
    if (!exchanged)
        return surface;
    unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* from = image.row(static_cast<NSUInteger>(y));
        std::transform(from, from + width, reinterpret_cast<std::uint32_t*>(data + std::ptrdiff_t(y) * stride),
                       exchangedRedAndBlue);
    }
    cairo_surface_mark_dirty(surface);
    return surface;
}

cairo_surface_t* blurredAlpha(cairo_surface_t* surface, double deviation) {
    cairo_surface_flush(surface);
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    cairo_surface_t* blurred = cairo_image_surface_create(CAIRO_FORMAT_A8, width, height);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS || cairo_surface_status(blurred) != CAIRO_STATUS_SUCCESS)
        return blurred;
    const auto columns = static_cast<std::size_t>(width);
    const auto rows = static_cast<std::size_t>(height);
    const unsigned char* from = cairo_image_surface_get_data(surface);
    const int fromStride = cairo_image_surface_get_stride(surface);
    std::vector<float> alpha(columns * rows);
    for (std::size_t y = 0; y < rows; ++y) {
        const unsigned char* row = from + static_cast<std::ptrdiff_t>(y) * fromStride;
        for (std::size_t x = 0; x < columns; ++x)
            alpha[y * columns + x] = row[4 * x + 3];
    }
    if (deviation > 0.01) {
        const std::vector<float> weights = gaussian(deviation);
        std::vector<float> scratch;
        for (std::size_t y = 0; y < rows; ++y)
            softenLine(&alpha[y * columns], columns, 1, weights, scratch);
        for (std::size_t x = 0; x < columns; ++x)
            softenLine(&alpha[x], rows, columns, weights, scratch);
    }
    unsigned char* to = cairo_image_surface_get_data(blurred);
    const int toStride = cairo_image_surface_get_stride(blurred);
    for (std::size_t y = 0; y < rows; ++y) {
        unsigned char* row = to + static_cast<std::ptrdiff_t>(y) * toStride;
        for (std::size_t x = 0; x < columns; ++x)
            row[x] = static_cast<unsigned char>(std::lround(std::min(alpha[y * columns + x], 255.0f)));
    }
    cairo_surface_mark_dirty(blurred);
    return blurred;
}

} // namespace zr
