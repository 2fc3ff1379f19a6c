#pragma once

#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <algorithm>
#include <functional>

namespace zr::tests {

/// What `draw` draws, at `scale` pixels a point, on nothing.
inline Ref<UIImage> picture(CGSize size, CGFloat scale, const std::function<void()>& draw) {
    UIGraphicsBeginImageContextWithOptions(size, false, scale);
    draw();
    Ref<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

/// The box around the pixels that are at least half covered, in pixels; `right` and `bottom` lie just outside.
struct InkBox {
    int left = 1 << 20, top = 1 << 20, right = 0, bottom = 0;
    bool isEmpty() const { return right <= left; }
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    friend bool operator==(const InkBox&, const InkBox&) = default;
};

inline InkBox inkOf(const UIImage* image) {
    InkBox box;
    for (NSUInteger y = 0; y < image->CGImage()->height(); ++y) {
        for (NSUInteger x = 0; x < image->CGImage()->width(); ++x) {
            if (pixelOf(image, x, y).alpha < 128)
                continue;
            box.left = std::min(box.left, static_cast<int>(x));
            box.right = std::max(box.right, static_cast<int>(x) + 1);
            box.top = std::min(box.top, static_cast<int>(y));
            box.bottom = std::max(box.bottom, static_cast<int>(y) + 1);
        }
    }
    return box;
}

inline bool samePixels(const UIImage* a, const UIImage* b) {
    for (NSUInteger y = 0; y < a->CGImage()->height(); ++y) {
        for (NSUInteger x = 0; x < a->CGImage()->width(); ++x) {
            if (!(pixelOf(a, x, y) == pixelOf(b, x, y)))
                return false;
        }
    }
    return true;
}

/// Pixels whose red and blue differ clearly.
inline int colouredPixels(const UIImage* image) {
    int count = 0;
    for (NSUInteger y = 0; y < image->CGImage()->height(); ++y) {
        for (NSUInteger x = 0; x < image->CGImage()->width(); ++x) {
            const Pixel pixel = pixelOf(image, x, y);
            count += std::abs(pixel.red - pixel.blue) > 60 ? 1 : 0;
        }
    }
    return count;
}

} // namespace zr::tests
