#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <cstddef>
#include <deque>

namespace zr {

/// How long frames took, in milliseconds.
class FrameTimes {
public:
    static constexpr std::size_t rememberedFrames = 60;

    void add(double milliseconds);
    /// 0 before the first frame.
    double last() const;
    /// The most that one of the last sixty took.
    double worst() const;

    /// Both in words, at the screen's scale; always of one size.
    Ref<CGImage> drawNote() const;

private:
    std::deque<double> m_times;
};

} // namespace zr
