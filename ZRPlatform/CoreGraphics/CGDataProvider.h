#pragma once

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>

#include <cstdlib>
#include <memory>

#pragma GCC visibility push(default)
namespace zr {

/// Bytes in memory that one may change.
class CFData : public NSObject {
public:
    /// A copy; nil when there is not enough memory.
    static Ref<CFData> copyOf(const std::uint8_t* bytes, NSUInteger length);

    /// `length` bytes, owned by the data.
    std::uint8_t* bytes() const { return m_bytes.get(); }
    /// In bytes.
    NSUInteger length() const { return m_length; }

private:
    struct Free {
        void operator()(std::uint8_t* bytes) const { std::free(bytes); }
    };

    std::unique_ptr<std::uint8_t, Free> m_bytes;
    NSUInteger m_length = 0;
};
using CFDataRef = const CFData*;
using CFMutableDataRef = CFData*;

/// The bytes, which belong to the data; null for nil.
const std::uint8_t* CFDataGetBytePtr(CFDataRef data);
/// The same, to be changed.
std::uint8_t* CFDataGetMutableBytePtr(CFMutableDataRef data);
/// How many bytes there are; 0 for nil.
NSInteger CFDataGetLength(CFDataRef data);

/// Where a bitmap's bytes come from.
class CGDataProvider : public NSObject {
public:
    /// Keeps the bytes.
    CGDataProvider(std::shared_ptr<const std::uint8_t[]> bytes, NSUInteger length) :
        m_bytes(std::move(bytes)), m_length(length) {}

    /// `length` bytes, owned by the provider.
    const std::uint8_t* bytes() const { return m_bytes.get(); }
    /// In bytes.
    NSUInteger length() const { return m_length; }

private:
    std::shared_ptr<const std::uint8_t[]> m_bytes;
    NSUInteger m_length;
};
using CGDataProviderRef = CGDataProvider*;

/// The bitmap's rows, `CGImageGetBytesPerRow` apart, from the first pixel to the last: the last row may be shorter than
/// the others, and between those of a part lie other pixels of the whole. Nil gives nil.
Ref<CGDataProvider> CGImageGetDataProvider(CGImageRef image);
/// A copy of all bytes. Nil for nil and when there is not enough memory.
Ref<CFData> CGDataProviderCopyData(CGDataProviderRef provider);
/// How a bitmap's pixels lie in memory: 32 bits, little end first, alpha first and premultiplied, or skipped in a
/// bitmap without transparency. 0 for nil.
CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image);

} // namespace zr
#pragma GCC visibility pop
