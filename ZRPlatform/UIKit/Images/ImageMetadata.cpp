#include <ZRPlatform/UIKit/Images/Internal/ImageMetadata.h>

#include <functional>

namespace zr {

namespace {

constexpr int kUpright = 1;

/// The numbers of the metadata, in the byte order that they begin with.
class MetadataReader {
public:
    explicit MetadataReader(FileBytes bytes) : m_bytes(bytes), m_isLittle(startsWith(bytes, "II")) {}

    bool has(std::size_t offset, std::size_t count) const {
        return offset <= m_bytes.size() && count <= m_bytes.size() - offset;
    }
    std::uint32_t number16(std::size_t offset) const {
        const std::uint32_t first = m_bytes[offset], second = m_bytes[offset + 1];
        return m_isLittle ? second << 8 | first : first << 8 | second;
    }
    std::uint32_t number32(std::size_t offset) const {
        return m_isLittle ? littleEndian32(m_bytes, offset) : bigEndian32(m_bytes, offset);
    }

private:
    FileBytes m_bytes;
    bool m_isLittle;
};

/// A directory of numbered entries of 12 bytes: number, type, count, and the value itself when it is short.
int orientationIn(FileBytes metadata) {
    constexpr std::string_view kPrefix("Exif\0\0", 6); // some writers keep what only JPEG needs
    constexpr std::size_t kEntrySize = 12;
    constexpr std::uint32_t kOrientation = 0x0112, kShort = 3;
    if (startsWith(metadata, kPrefix))
        metadata = metadata.subspan(kPrefix.size());
    if (!startsWith(metadata, std::string_view("II*\0", 4)) && !startsWith(metadata, std::string_view("MM\0*", 4)))
        return kUpright;
    const MetadataReader reader(metadata);
    const std::size_t directory = reader.has(4, 4) ? reader.number32(4) : metadata.size();
    if (!reader.has(directory, 2))
        return kUpright;
    const std::size_t end = directory + 2 + kEntrySize * reader.number16(directory);
    for (std::size_t entry = directory + 2; entry < end && reader.has(entry, kEntrySize); entry += kEntrySize) {
        if (reader.number16(entry) != kOrientation || reader.number16(entry + 2) != kShort)
            continue;
        const std::uint32_t orientation = reader.number16(entry + 8);
        return orientation >= 1 && orientation <= 8 ? static_cast<int>(orientation) : kUpright;
    }
    return kUpright;
}

} // namespace

int orientationInPNG(FileBytes bytes) {
    constexpr std::size_t kSignature = 8, kLengthAndType = 8, kChecksum = 4;
    for (std::size_t at = kSignature; at <= bytes.size() && bytes.size() - at >= kLengthAndType + kChecksum;) {
        const std::size_t length = bigEndian32(bytes, at);
        if (length > bytes.size() - at - kLengthAndType - kChecksum)
            break;
        if (startsWith(bytes, "eXIf", at + 4))
            return orientationIn(bytes.subspan(at + kLengthAndType, length));
        at += kLengthAndType + length + kChecksum;
    }
    return kUpright;
}

namespace {

/// Calls `visit` with the type and the content of each chunk of a WebP file, until one is cut short or it says stop.
void visitChunks(FileBytes bytes, const std::function<bool(std::string_view type, FileBytes content)>& visit) {
    constexpr std::size_t kFirstChunk = 12, kType = 4, kTypeAndLength = 8;
    for (std::size_t at = kFirstChunk; at <= bytes.size() && bytes.size() - at >= kTypeAndLength;) {
        const std::size_t length = littleEndian32(bytes, at + kType);
        if (length > bytes.size() - at - kTypeAndLength)
            return;
        const std::string_view type(reinterpret_cast<const char*>(bytes.data()) + at, kType);
        if (!visit(type, bytes.subspan(at + kTypeAndLength, length)))
            return;
        at += kTypeAndLength + length + length % 2;
    }
}

/// Of the canvas, or of a picture with losses or without; zero for other chunks.
PixelSize sizeInChunk(std::string_view type, FileBytes content) {
    constexpr std::uint32_t kSide24 = 0xFFFFFF, kSide14 = 0x3FFF;
    if (type == "VP8X" && content.size() >= 10)
        return {(littleEndian32(content, 4) & kSide24) + 1, (littleEndian32(content, 6) >> 8) + 1};
    if (type == "VP8 " && content.size() >= 10)
        return {littleEndian32(content, 6) & kSide14, littleEndian32(content, 6) >> 16 & kSide14};
    if (type == "VP8L" && content.size() >= 5)
        return {(littleEndian32(content, 1) & kSide14) + 1, (littleEndian32(content, 1) >> 14 & kSide14) + 1};
    return {};
}

} // namespace

int orientationInWebP(FileBytes bytes) {
    int orientation = kUpright;
    visitChunks(bytes, [&](std::string_view type, FileBytes content) {
        if (type != "EXIF")
            return true;
        orientation = orientationIn(content);
        return false;
    });
    return orientation;
}

PixelSize sizeInWebP(FileBytes bytes) {
    PixelSize largest;
    visitChunks(bytes, [&](std::string_view type, FileBytes content) {
        const PixelSize size = sizeInChunk(type, content);
        largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
        return true;
    });
    return largest;
}

} // namespace zr
