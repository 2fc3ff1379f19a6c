#include <ZRPlatform/Hosts/Headless/Internal/AnimationRecorder.h>

#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <cstring>
#include <fstream>

namespace zr {

namespace {

bool samePixels(const CGImage& a, const CGImage& b) {
    if (a.width() != b.width() || a.height() != b.height())
        return false;
    for (NSUInteger y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.row(y), b.row(y), a.width() * 4) != 0)
            return false;
    }
    return true;
}

} // namespace

struct AnimationRecorder::Encoder {
    Encoder(int width, int height) {
        // Of the levels without loss the last one at which files shrink more than the work grows.
        WebPConfigInit(&config);
        WebPConfigLosslessPreset(&config, 3);
        WebPAnimEncoderOptions options;
        WebPAnimEncoderOptionsInit(&options);
        encoder = WebPAnimEncoderNew(width, height, &options);
        WebPPictureInit(&picture);
        picture.use_argb = 1;
        picture.width = width;
        picture.height = height;
        isReady = encoder && WebPPictureAlloc(&picture);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
    ~Encoder() {
        WebPPictureFree(&picture);
        WebPAnimEncoderDelete(encoder);
    }

    bool add(const CGImage& frame, int milliseconds) {
        const auto width = std::min<NSUInteger>(frame.width(), static_cast<NSUInteger>(picture.width));
        const auto height = std::min<NSUInteger>(frame.height(), static_cast<NSUInteger>(picture.height));
        std::fill_n(picture.argb, static_cast<std::size_t>(picture.argb_stride) * picture.height, 0xff000000u);
        for (NSUInteger y = 0; y < height; ++y) {
            const std::uint8_t* source = frame.pixels() + y * frame.bytesPerRow();
            std::uint32_t* target = picture.argb + y * static_cast<NSUInteger>(picture.argb_stride);
            for (NSUInteger x = 0; x < width; ++x, source += 4)
                target[x] = 0xff000000u | static_cast<std::uint32_t>(source[2] << 16 | source[1] << 8 | source[0]);
        }
        return WebPAnimEncoderAdd(encoder, &picture, milliseconds, &config);
    }

    WebPConfig config;
    WebPPicture picture;
    WebPAnimEncoder* encoder = nullptr;
    bool isReady = false;
};

AnimationRecorder::AnimationRecorder(std::string path, int fps, Nanoseconds start) :
    m_path(std::move(path)), m_fps(fps), m_start(start) {}

AnimationRecorder::~AnimationRecorder() = default;

void AnimationRecorder::addFrame(CGImage* frame) {
    const int milliseconds = millisecondsOf(nextFrameTime());
    ++m_nextFrame;
    if (!frame || m_failed || (m_lastFrame && samePixels(*m_lastFrame, *frame)))
        return;
    if (!m_encoder)
        m_encoder = std::make_unique<Encoder>(static_cast<int>(frame->width()), static_cast<int>(frame->height()));
    m_lastFrame = frame;
    m_failed = !m_encoder->isReady || !m_encoder->add(*frame, milliseconds);
}

bool AnimationRecorder::finish(Nanoseconds end) {
    if (!m_encoder || m_failed)
        return false;
    // An end in the very millisecond of the last frame would give that frame no time at all.
    const int milliseconds = std::max(millisecondsOf(end), millisecondsOf(timeOfFrame(m_nextFrame)));
    WebPData data;
    WebPDataInit(&data);
    bool written = WebPAnimEncoderAdd(m_encoder->encoder, nullptr, milliseconds, nullptr) &&
                   WebPAnimEncoderAssemble(m_encoder->encoder, &data);
    if (written) {
        std::ofstream file(m_path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(data.bytes), static_cast<std::streamsize>(data.size));
        file.close();
        written = file.good();
    }
    WebPDataClear(&data);
    return written;
}

int AnimationRecorder::millisecondsOf(Nanoseconds time) const {
    return static_cast<int>((time - m_start + 500'000) / 1'000'000);
}

} // namespace zr
