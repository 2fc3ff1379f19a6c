#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/Foundation/Clock.h>

#include <memory>
#include <string>

namespace zr {

/// Collects frames at fixed steps of time and writes them as an animated WebP without loss.
class AnimationRecorder {
public:
    /// The first frame is due at `start`, the next ones every 1/fps s.
    AnimationRecorder(std::string path, int fps, Nanoseconds start);
    ~AnimationRecorder();

    Nanoseconds nextFrameTime() const { return timeOfFrame(m_nextFrame); }
    /// Adds what shows at `nextFrameTime`. The first frame fixes the size of the recording: a frame of another size,
    /// after a turn of the device, shows in its top left corner.
    void addFrame(CGImage* frame);
    /// The last frame shows until `end`. False when the file cannot be written.
    bool finish(Nanoseconds end);

private:
    struct Encoder;

    Nanoseconds timeOfFrame(std::int64_t index) const { return m_start + index * kNanosecondsPerSecond / m_fps; }
    int millisecondsOf(Nanoseconds time) const;

    std::string m_path;
    int m_fps;
    Nanoseconds m_start;
    std::int64_t m_nextFrame = 0;
    Ref<CGImage> m_lastFrame;
    std::unique_ptr<Encoder> m_encoder;
    bool m_failed = false;
};

} // namespace zr
