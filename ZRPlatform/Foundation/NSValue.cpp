#include <ZRPlatform/Foundation/NSValue.h>

#include <charconv>
#include <cmath>

namespace zr {

namespace {

/// 2 to the 63rd: the first double that is too large for an integer.
constexpr double kIntegerLimit = 9223372036854775808.0;

std::int64_t integerFromDouble(double value) {
    if (std::isnan(value))
        return 0;
    if (value >= kIntegerLimit)
        return std::numeric_limits<std::int64_t>::max();
    if (value < -kIntegerLimit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

/// Exact, where a conversion to double would make neighbours equal.
bool areEqual(std::int64_t integer, double number) {
    return number >= -kIntegerLimit && number < kIntegerLimit && std::trunc(number) == number &&
           static_cast<std::int64_t>(number) == integer;
}

template <class Number>
NSString shortestText(Number number) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

} // namespace

NSInteger NSValue::integerValue() const {
    if (const auto* flag = std::get_if<bool>(&m_value))
        return *flag ? 1 : 0;
    if (const auto* integer = std::get_if<std::int64_t>(&m_value))
        return static_cast<NSInteger>(*integer);
    if (const auto* number = std::get_if<double>(&m_value))
        return static_cast<NSInteger>(integerFromDouble(*number));
    return 0;
}

float NSValue::floatValue() const {
    const double value = doubleValue();
    if (std::abs(value) > std::numeric_limits<float>::max())
        return std::copysign(std::numeric_limits<float>::infinity(), value > 0 ? 1.0f : -1.0f);
    return static_cast<float>(value);
}

double NSValue::doubleValue() const {
    if (const auto* number = std::get_if<double>(&m_value))
        return *number;
    if (const auto* integer = std::get_if<std::int64_t>(&m_value))
        return static_cast<double>(*integer);
    const auto* flag = std::get_if<bool>(&m_value);
    return flag && *flag ? 1 : 0;
}

NSString NSValue::stringValue() const {
    const auto* text = std::get_if<NSString>(&m_value);
    return text ? *text : nullptr;
}

NSObject* NSValue::objectValue() const {
    const auto* object = std::get_if<Ref<NSObject>>(&m_value);
    return object ? object->get() : nullptr;
}

bool NSValue::isEqual(const NSValue& other) const {
    if (isNil() || other.isNil())
        return isNil() && other.isNil();
    if (const auto* text = std::get_if<NSString>(&m_value))
        return text->isEqualToString(other.stringValue());
    if (const NSObject* object = objectValue()) {
        const NSObject* otherObject = other.objectValue();
        return otherObject && object->isEqual(otherObject);
    }
    if (!isNumber() || !other.isNumber())
        return false;
    const auto* number = std::get_if<double>(&m_value);
    const auto* otherNumber = std::get_if<double>(&other.m_value);
    if (number && otherNumber)
        return *number == *otherNumber;
    if (number)
        return areEqual(other.integerValue(), *number);
    return otherNumber ? areEqual(integerValue(), *otherNumber) : integerValue() == other.integerValue();
}

NSString NSValue::description() const {
    if (isNil())
        return "nil";
    if (const auto* flag = std::get_if<bool>(&m_value))
        return *flag ? "true" : "false";
    if (const auto* integer = std::get_if<std::int64_t>(&m_value))
        return shortestText(*integer);
    if (const auto* number = std::get_if<double>(&m_value))
        return shortestText(*number);
    if (const NSObject* object = objectValue())
        return object->description();
    const NSString text = stringValue();
    return text.isNil() ? "<structure>" : text;
}

bool NSValue::isNumber() const {
    return std::holds_alternative<bool>(m_value) || std::holds_alternative<std::int64_t>(m_value) ||
           std::holds_alternative<double>(m_value);
}

} // namespace zr
