#include <ZRPlatform/CoreGraphics/CGDataProvider.h>

#include <algorithm>

namespace zr {

Ref<CFData> CFData::copyOf(const std::uint8_t* bytes, NSUInteger length) {
    auto* memory = static_cast<std::uint8_t*>(std::malloc(std::max<NSUInteger>(length, 1)));
    if (!memory)
        return nullptr;
    std::copy_n(bytes, length, memory);
    auto data = make<CFData>();
    data->m_bytes.reset(memory);
    data->m_length = length;
    return data;
}

const std::uint8_t* CFDataGetBytePtr(CFDataRef data) { return data ? data->bytes() : nullptr; }

std::uint8_t* CFDataGetMutableBytePtr(CFMutableDataRef data) { return data ? data->bytes() : nullptr; }

NSInteger CFDataGetLength(CFDataRef data) { return data ? static_cast<NSInteger>(data->length()) : 0; }

Ref<CGDataProvider> CGImageGetDataProvider(CGImageRef image) {
    if (!image)
        return nullptr;
    const bool isEmpty = image->width() == 0 || image->height() == 0;
    const NSUInteger length = isEmpty ? 0 : (image->height() - 1) * image->bytesPerRow() + image->width() * 4;
    // The provider's pointer keeps the image, and so its pixels, alive.
    const auto keep = std::make_shared<Ref<CGImage>>(image);
    return Ref<CGDataProvider>::adopt(
        new CGDataProvider(std::shared_ptr<const std::uint8_t[]>(keep, image->pixels()), length));
}

Ref<CFData> CGDataProviderCopyData(CGDataProviderRef provider) {
    return provider ? CFData::copyOf(provider->bytes(), provider->length()) : nullptr;
}

CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image) {
    if (!image)
        return 0;
    return kCGBitmapByteOrder32Little | (image->isOpaque() ? CGBitmapInfo{kCGImageAlphaNoneSkipFirst}
                                                           : CGBitmapInfo{kCGImageAlphaPremultipliedFirst});
}

} // namespace zr
