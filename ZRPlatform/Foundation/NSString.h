#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// An immutable UTF-8 text that can be nil; nil and empty differ. Copying it copies a reference.
///
/// Bytes that are not UTF-8 become U+FFFD on the way in, so every string is well-formed. Indices and lengths count
/// UTF-16 code units.
class NSString {
public:
    NSString() = default;
    /// Nil.
    NSString(std::nullptr_t) {}
    /// A null pointer gives nil.
    NSString(const char* text);
    /// A copy of the text; never nil.
    NSString(std::string_view text);
    /// A copy of the text; never nil.
    NSString(const std::string& text) : NSString(std::string_view(text)) {}
    /// printf's format and arguments, each `%@` left out: C types only.
    static NSString stringWithFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));

    /// An empty string is not nil.
    bool isNil() const { return !m_text; }
    /// The bytes; empty for nil.
    const std::string& utf8() const;
    /// The same, ended by a zero byte; as long as a copy of the string lives.
    const char* UTF8String() const { return utf8().c_str(); }
    /// The UTF-16 code units; empty for nil.
    std::u16string utf16() const;
    /// Halves of pairs that stand alone become U+FFFD.
    static NSString stringWithUTF16(std::u16string_view text);

    /// Count of UTF-16 code units; 0 for nil.
    NSUInteger length() const;
    /// Whether both hold the very same text object (copies do), which is less than equality.
    bool isSameObject(const NSString& other) const { return m_text == other.m_text; }

    /// Equal texts. Nil is equal to nothing, not even to nil (as a message to nil answers no).
    bool isEqualToString(const NSString& other) const;
    /// Code unit by code unit, not numeric: "10.0" sorts before "7.0". Nil compares as `NSOrderedSame`.
    NSComparisonResult compare(const NSString& other) const;
    /// The leading whole number, white space before it skipped; 0 when there is none; clamped to 32 bits.
    int intValue() const;
    /// As `intValue`, clamped to the width of `NSInteger`.
    NSInteger integerValue() const;
    /// The leading decimal number, with a fraction and an exponent if there are any, white space before it skipped; 0
    /// when there is none; infinite when it is too large. The point is a point in every locale.
    double doubleValue() const;

    /// Whether the text begins with this one. Any does with the empty one; nothing does with nil, nor does nil with
    /// anything.
    bool hasPrefix(const NSString& prefix) const;
    /// Whether the text ends with this one, likewise.
    bool hasSuffix(const NSString& suffix) const;
    /// The first place of `text`, or {NSNotFound, 0}.
    NSRange rangeOfString(const NSString& text) const;
    /// Ranges outside the string are cut to it. A surrogate pair is never split: a character of which the range holds
    /// one half only is left out. Of a nil string, nil.
    NSString substringWithRange(NSRange range) const;
    /// From the index to the end; empty beyond that. Cut as by `substringWithRange`.
    NSString substringFromIndex(NSUInteger index) const;
    /// Up to the index, without the code unit there. Cut as by `substringWithRange`.
    NSString substringToIndex(NSUInteger index) const;
    /// A surrogate pair that the range touches is replaced whole; an empty range inside one inserts before it.
    NSString stringByReplacingCharactersInRange_withString(NSRange range, const NSString& replacement) const;
    /// A nil text appends nothing.
    NSString stringByAppendingString(const NSString& text) const;
    /// The parts between the separators, empty ones too; the whole string when the separator is nil, empty or absent.
    /// Of a nil string, nothing.
    std::vector<NSString> componentsSeparatedByString(const NSString& separator) const;

    /// @name Path operations
    /// Of a nil string, or with a nil argument, each gives nil.
    /// @{
    /// Exactly one slash between the two: "a" and "b" give "a/b", "a/" and "/b" too; "" and "b" give "b". Trailing
    /// slashes are dropped: "a/" and "" give "a".
    NSString stringByAppendingPathComponent(const NSString& component) const;
    /// One dot between the two, trailing slashes dropped: "a/b/" and "png" give "a/b.png". An empty extension gives
    /// "a/b.". A path without a name, "" or "/", stays as it is.
    NSString stringByAppendingPathExtension(const NSString& extension) const;
    /// "/a/b.png" and "b.png/" give "b.png"; "/" gives "/".
    NSString lastPathComponent() const;
    /// "/a/b.tar.gz" gives "gz", "b", "b." and ".profile" give "".
    NSString pathExtension() const;
    /// "/a/b/" gives "/a", "/a" and "/" give "/", "a" gives "".
    NSString stringByDeletingLastPathComponent() const;
    /// "/a/b.png" and "/a/b." give "/a/b", "/a/" gives "/a", ".profile" stays.
    NSString stringByDeletingPathExtension() const;
    /// Whether it begins with a slash.
    bool isAbsolutePath() const;
    /// @}

    /// Nil equals nil here, so that containers and setters can compare.
    friend bool operator==(const NSString& a, const NSString& b) {
        return a.isNil() == b.isNil() && a.utf8() == b.utf8();
    }
    /// By bytes, nil first: an order for containers.
    friend bool operator<(const NSString& a, const NSString& b) {
        return a.isNil() != b.isNil() ? a.isNil() : a.utf8() < b.utf8();
    }

private:
    std::shared_ptr<const std::string> m_text;
};

std::ostream& operator<<(std::ostream& stream, const NSString& text);

} // namespace zr
#pragma GCC visibility pop

template <>
struct std::hash<zr::NSString> {
    std::size_t operator()(const zr::NSString& text) const noexcept { return std::hash<std::string>()(text.utf8()); }
};
