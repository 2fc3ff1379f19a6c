#include <ZRPlatform/UIKit/Images/Internal/ImageDecoder.h>

#include <ZRPlatform/UIKit/Images/Internal/ImageMetadata.h>

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <mutex>
#include <new>
#include <string_view>

namespace zr {

namespace {

using Bytes = FileBytes;

constexpr std::uintmax_t kMaximumFileSize = 512u << 20;

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};

// The decoders fill what is missing of a file that was cut short with grey or nothing and call it done, so whether the
// file goes on to its end is found out here.

bool isCompletePNG(Bytes bytes) {
    constexpr std::size_t kSignature = 8, kLengthTypeAndChecksum = 12;
    for (std::size_t at = kSignature; bytes.size() - at >= kLengthTypeAndChecksum;) {
        const std::size_t length = bigEndian32(bytes, at);
        if (length > bytes.size() - at - kLengthTypeAndChecksum)
            return false;
        if (startsWith(bytes, "IEND", at + 4))
            return true;
        at += kLengthTypeAndChecksum + length;
    }
    return false;
}

bool isCompleteJPEG(Bytes bytes) {
    constexpr std::uint8_t kEnd = 0xD9, kScan = 0xDA;
    std::size_t at = 2;
    while (at + 1 < bytes.size()) {
        const std::uint8_t marker = bytes[at + 1];
        const bool isMarker = bytes[at] == 0xFF && marker != 0 && marker != 0xFF;
        const bool standsAlone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
        if (!isMarker || standsAlone) {
            ++at; // the data of a scan, or filling between segments
            continue;
        }
        if (marker == kEnd)
            return true;
        if (at + 3 >= bytes.size())
            return false;
        at += 2;
        at += std::size_t{bytes[at]} << 8 | bytes[at + 1];
        if (marker == kScan && at >= bytes.size())
            return false;
    }
    return false;
}

/// Its loader takes the memory for the picture before it tells the size, so that is looked at here too.
bool isSoundWebP(Bytes bytes) {
    const bool isComplete = bytes.size() >= 12 && littleEndian32(bytes, 4) <= bytes.size() - 8;
    const PixelSize size = sizeInWebP(bytes);
    return isComplete && imageSizeIsAllowed(size.width, size.height);
}

/// This one reports a missing end itself.
bool loaderKnows(Bytes) { return true; }

int alwaysUpright(Bytes) { return 1; }

struct Format {
    std::string_view signature;
    std::size_t offset;
    const char* loader;
    /// Whether the loader may be given it.
    bool (*isSound)(Bytes);
    /// Where the loader does not tell it. Null where it does.
    int (*orientation)(Bytes);
    /// Whether the loader tells of the rows as they come, so that those that never came can be told from black ones.
    bool tellsRows = false;
};

constexpr Format kFormats[] = {
    {"\x89PNG\r\n\x1a\n", 0, "png", isCompletePNG, orientationInPNG, true},
    {"\xFF\xD8\xFF", 0, "jpeg", isCompleteJPEG, nullptr},
    {"GIF87a", 0, "gif", loaderKnows, alwaysUpright},
    {"GIF89a", 0, "gif", loaderKnows, alwaysUpright},
    {"WEBP", 8, "webp", isSoundWebP, orientationInWebP},
};

const Format* formatOf(Bytes bytes) {
    const auto* format = std::find_if(std::begin(kFormats), std::end(kFormats), [&](const Format& candidate) {
        return startsWith(bytes, candidate.signature, candidate.offset);
    });
    return format != std::end(kFormats) && format->isSound(bytes) ? format : nullptr;
}

/// What the header said.
struct SizeCheck {
    bool isKnown = false;
    bool isAllowed = false;
};

void sizePrepared(GdkPixbufLoader* loader, int width, int height, gpointer data) {
    auto& check = *static_cast<SizeCheck*>(data);
    check.isKnown = true;
    check.isAllowed =
        width > 0 && height > 0 && imageSizeIsAllowed(static_cast<NSUInteger>(width), static_cast<NSUInteger>(height));
    // A size of zero makes the decoder give up before it allocates the picture.
    if (!check.isAllowed)
        gdk_pixbuf_loader_set_size(loader, 0, 0);
}

void areaUpdated(GdkPixbufLoader*, int, int y, int, int height, gpointer data) {
    int& lastRow = *static_cast<int*>(data);
    lastRow = std::max(lastRow, y + height);
}

/// Decoders go on through all they were given even after they gave up, so the bites are small until the size is known.
bool feed(GdkPixbufLoader* loader, Bytes bytes, const SizeCheck& check) {
    constexpr std::size_t kSmallBite = 256;
    while (!bytes.empty()) {
        const std::size_t count = check.isKnown ? bytes.size() : std::min(bytes.size(), kSmallBite);
        if (!gdk_pixbuf_loader_write(loader, bytes.data(), count, nullptr) || (check.isKnown && !check.isAllowed))
            return false;
        bytes = bytes.subspan(count);
    }
    return true;
}

std::uint8_t premultiplied(unsigned component, unsigned alpha) {
    return static_cast<std::uint8_t>((component * alpha + 127) / 255);
}

Ref<CGImage> imageFromPixbuf(const GdkPixbuf* pixbuf) {
    const auto width = static_cast<NSUInteger>(gdk_pixbuf_get_width(pixbuf));
    const auto height = static_cast<NSUInteger>(gdk_pixbuf_get_height(pixbuf));
    if (!imageSizeIsAllowed(width, height) || gdk_pixbuf_get_bits_per_sample(pixbuf) != 8)
        return nullptr;
    const NSUInteger channels = static_cast<NSUInteger>(gdk_pixbuf_get_n_channels(pixbuf));
    const NSUInteger stride = static_cast<NSUInteger>(gdk_pixbuf_get_rowstride(pixbuf));
    const bool hasAlpha = gdk_pixbuf_get_has_alpha(pixbuf) != FALSE;
    const std::uint8_t* source = gdk_pixbuf_read_pixels(pixbuf);
    const std::shared_ptr<std::uint8_t[]> pixels(new (std::nothrow) std::uint8_t[width * height * 4]);
    if (!pixels)
        return nullptr;
    std::uint8_t* to = pixels.get();
    std::uint8_t leastAlpha = 255;
    for (NSUInteger y = 0; y < height; ++y) {
        const std::uint8_t* from = source + y * stride;
        for (NSUInteger x = 0; x < width; ++x, from += channels, to += 4) {
            const std::uint8_t alpha = hasAlpha ? from[3] : 255;
            to[0] = premultiplied(from[2], alpha);
            to[1] = premultiplied(from[1], alpha);
            to[2] = premultiplied(from[0], alpha);
            to[3] = alpha;
            leastAlpha = std::min(leastAlpha, alpha);
        }
    }
    return Ref<CGImage>::adopt(new CGImage(width, height, width * 4, pixels, leastAlpha == 255));
}

int orientationOf(GdkPixbuf* pixbuf) {
    const char* option = gdk_pixbuf_get_option(pixbuf, "orientation");
    const int orientation = option ? std::atoi(option) : 1;
    return orientation >= 1 && orientation <= 8 ? orientation : 1;
}

/// One image at a time: the codecs share tables that are filled at first use.
std::mutex& codecMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

bool imageSizeIsAllowed(NSUInteger width, NSUInteger height) {
    return width > 0 && height > 0 && width <= kMaximumImageSide && height <= kMaximumImageSide &&
           width * height <= kMaximumImagePixels;
}

std::optional<DecodedImage> decodeImage(Bytes bytes) {
    const std::lock_guard lock(codecMutex());
    const Format* format = formatOf(bytes);
    if (!format)
        return std::nullopt;
    const std::unique_ptr<GdkPixbufLoader, Unreference> loader(
        gdk_pixbuf_loader_new_with_type(format->loader, nullptr));
    if (!loader)
        return std::nullopt;
    SizeCheck check;
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(sizePrepared), &check);
    int lastRow = 0;
    g_signal_connect(loader.get(), "area-updated", G_CALLBACK(areaUpdated), &lastRow);
    const bool written = feed(loader.get(), bytes, check);
    const bool closed = gdk_pixbuf_loader_close(loader.get(), nullptr) != FALSE;
    GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!written || !closed || !check.isAllowed || !pixbuf ||
        (format->tellsRows && lastRow < gdk_pixbuf_get_height(pixbuf)))
        return std::nullopt;
    const int orientation = format->orientation ? format->orientation(bytes) : orientationOf(pixbuf);
    DecodedImage decoded{imageFromPixbuf(pixbuf), orientation};
    if (!decoded.image)
        return std::nullopt;
    return decoded;
}

std::optional<DecodedImage> decodeImageFile(const std::string& path) {
    // The system would take the part before a zero byte for the path, and give another file.
    if (path.find('\0') != std::string::npos)
        return std::nullopt;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > kMaximumFileSize)
        return std::nullopt;
    std::vector<std::uint8_t> bytes(size);
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return decodeImage(bytes);
}

std::vector<std::uint8_t> encodePNG(const CGImage& image) {
    const std::lock_guard lock(codecMutex());
    const std::unique_ptr<GdkPixbuf, Unreference> pixbuf(gdk_pixbuf_new(
        GDK_COLORSPACE_RGB, !image.isOpaque(), 8, static_cast<int>(image.width()), static_cast<int>(image.height())));
    if (!pixbuf)
        return {};
    const NSUInteger stride = static_cast<NSUInteger>(gdk_pixbuf_get_rowstride(pixbuf.get()));
    const auto straight = [](unsigned component, unsigned alpha) {
        return static_cast<std::uint8_t>(alpha ? std::min((component * 255 + alpha / 2) / alpha, 255u) : 0);
    };
    for (NSUInteger y = 0; y < image.height(); ++y) {
        const std::uint8_t* from = image.pixels() + y * image.bytesPerRow();
        std::uint8_t* to = gdk_pixbuf_get_pixels(pixbuf.get()) + y * stride;
        for (NSUInteger x = 0; x < image.width(); ++x, from += 4) {
            const std::uint8_t alpha = image.isOpaque() ? 255 : from[3];
            *to++ = straight(from[2], alpha);
            *to++ = straight(from[1], alpha);
            *to++ = straight(from[0], alpha);
            if (!image.isOpaque())
                *to++ = alpha;
        }
    }
    gchar* buffer = nullptr;
    gsize size = 0;
    if (!gdk_pixbuf_save_to_buffer(pixbuf.get(), &buffer, &size, "png", nullptr, nullptr))
        return {};
    std::vector<std::uint8_t> bytes(buffer, buffer + size);
    g_free(buffer);
    return bytes;
}

} // namespace zr
