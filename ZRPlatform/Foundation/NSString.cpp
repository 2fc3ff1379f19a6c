#include <ZRPlatform/Foundation/NSString.h>

#include <ZRPlatform/Foundation/Internal/UTF.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdarg>

namespace zr {

namespace {

constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view withoutLeadingSpace(std::string_view text) {
    const auto begin = std::find_if_not(text.begin(), text.end(), isSpace);
    return text.substr(static_cast<std::size_t>(begin - text.begin()));
}

template <class Integer>
Integer leadingInteger(std::string_view text) {
    text = withoutLeadingSpace(text);
    const bool isNegative = text.starts_with('-');
    if (text.starts_with('+') || isNegative)
        text.remove_prefix(1);
    Integer value = 0;
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
        const Integer digit = isNegative ? '0' - text.front() : text.front() - '0';
        if (__builtin_mul_overflow(value, Integer{10}, &value) || __builtin_add_overflow(value, digit, &value))
            return isNegative ? std::numeric_limits<Integer>::min() : std::numeric_limits<Integer>::max();
    }
    return value;
}

std::size_t countDigits(std::string_view text, std::size_t start) {
    std::size_t count = 0;
    while (start + count < text.size() && isDigit(text[start + count]))
        ++count;
    return count;
}

/// The decimal number at the start, cut where something else follows; empty when there is none.
std::string_view leadingDecimal(std::string_view text) {
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const std::size_t whole = countDigits(text, sign);
    std::size_t end = sign + whole;
    std::size_t fraction = 0;
    if (end < text.size() && text[end] == '.') {
        fraction = countDigits(text, end + 1);
        end += 1 + fraction;
    }
    if (whole + fraction == 0)
        return {};
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-'))
            ++exponent;
        if (const std::size_t digits = countDigits(text, exponent))
            end = exponent + digits;
    }
    return text.substr(0, end);
}

/// Whether a number that no double holds is too large, rather than too small.
bool isTooLarge(std::string_view number) {
    const std::size_t e = number.find_first_of("eE");
    const std::int64_t exponent = e == std::string_view::npos ? 0 : leadingInteger<std::int32_t>(number.substr(e + 1));
    const std::string_view mantissa = number.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    // The power of ten of the first digit that counts.
    const auto power = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return power + exponent > 0;
}

} // namespace

NSString::NSString(const char* text) {
    if (text)
        *this = NSString(std::string_view(text));
}

NSString::NSString(std::string_view text) : m_text(std::make_shared<const std::string>(detail::wellFormedUTF8(text))) {}

NSString NSString::stringWithFormat(const char* format, ...) {
    if (!format)
        return nullptr;
    std::va_list arguments;
    va_start(arguments, format);
    const std::string text = detail::formatted(format, arguments);
    va_end(arguments);
    return text;
}

const std::string& NSString::utf8() const {
    static const std::string& empty = *new std::string; // never destroyed: nil strings are read until the very end
    return m_text ? *m_text : empty;
}

std::u16string NSString::utf16() const { return detail::utf16FromUTF8(utf8()); }

NSString NSString::stringWithUTF16(std::u16string_view text) { return detail::utf8FromUTF16(text); }

NSUInteger NSString::length() const { return detail::utf16Length(utf8()); }

bool NSString::isEqualToString(const NSString& other) const {
    return !isNil() && !other.isNil() && utf8() == other.utf8();
}

NSComparisonResult NSString::compare(const NSString& other) const {
    if (isNil() || other.isNil())
        return NSOrderedSame;
    // Not in UTF-8: there, U+FFFD sorts before the characters that take a surrogate pair.
    const int order = utf16().compare(other.utf16());
    if (order == 0)
        return NSOrderedSame;
    return order < 0 ? NSOrderedAscending : NSOrderedDescending;
}

int NSString::intValue() const { return leadingInteger<int>(utf8()); }

NSInteger NSString::integerValue() const { return leadingInteger<NSInteger>(utf8()); }

double NSString::doubleValue() const {
    std::string_view text = withoutLeadingSpace(utf8());
    if (text.starts_with('+'))
        text = text.substr(1).starts_with('-') ? std::string_view() : text.substr(1);
    const std::string_view number = leadingDecimal(text);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    return std::copysign(isTooLarge(number) ? HUGE_VAL : 0.0, number.starts_with('-') ? -1.0 : 1.0);
}

bool NSString::hasPrefix(const NSString& prefix) const {
    return !isNil() && !prefix.isNil() && utf8().starts_with(prefix.utf8());
}

bool NSString::hasSuffix(const NSString& suffix) const {
    return !isNil() && !suffix.isNil() && utf8().ends_with(suffix.utf8());
}

NSRange NSString::rangeOfString(const NSString& text) const {
    const std::size_t place = text.utf8().empty() ? std::string::npos : utf8().find(text.utf8());
    if (place == std::string::npos)
        return {static_cast<NSUInteger>(NSNotFound), 0};
    return {detail::utf16Length(std::string_view(utf8()).substr(0, place)), text.length()};
}

NSString NSString::substringWithRange(NSRange range) const {
    if (isNil())
        return nullptr;
    const std::u16string text = utf16();
    NSUInteger begin = std::min(range.location, text.size());
    NSUInteger end = begin + std::min(range.length, text.size() - begin);
    if (detail::isInsidePair(text, begin))
        ++begin;
    if (detail::isInsidePair(text, end))
        --end;
    return begin < end ? stringWithUTF16(std::u16string_view(text).substr(begin, end - begin)) : NSString("");
}

NSString NSString::substringFromIndex(NSUInteger index) const {
    return substringWithRange({index, std::numeric_limits<NSUInteger>::max()});
}

NSString NSString::substringToIndex(NSUInteger index) const { return substringWithRange({0, index}); }

NSString NSString::stringByReplacingCharactersInRange_withString(NSRange range, const NSString& replacement) const {
    if (isNil())
        return nullptr;
    std::u16string text = utf16();
    NSUInteger begin = std::min(range.location, text.size());
    NSUInteger end = begin + std::min(range.length, text.size() - begin);
    const bool isInsertion = begin == end;
    if (detail::isInsidePair(text, begin))
        --begin;
    if (isInsertion)
        end = begin;
    else if (detail::isInsidePair(text, end))
        ++end;
    text.replace(begin, end - begin, replacement.utf16());
    return stringWithUTF16(text);
}

NSString NSString::stringByAppendingString(const NSString& text) const {
    if (isNil() || text.utf8().empty())
        return *this;
    return utf8() + text.utf8();
}

std::vector<NSString> NSString::componentsSeparatedByString(const NSString& separator) const {
    if (isNil())
        return {};
    if (separator.utf8().empty())
        return {*this};
    std::vector<NSString> components;
    std::size_t start = 0;
    for (std::size_t end; (end = utf8().find(separator.utf8(), start)) != std::string::npos;
         start = end + separator.utf8().size())
        components.emplace_back(std::string_view(utf8()).substr(start, end - start));
    components.emplace_back(std::string_view(utf8()).substr(start));
    return components;
}

std::ostream& operator<<(std::ostream& stream, const NSString& text) {
    return stream << (text.isNil() ? "(nil)" : text.utf8());
}

} // namespace zr
