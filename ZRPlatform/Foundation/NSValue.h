#pragma once

#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>

#include <algorithm>
#include <any>
#include <concepts>
#include <limits>
#include <type_traits>
#include <variant>

#pragma GCC visibility push(default)
namespace zr {

/// A boxed value, or nil: a flag, a number, a string, an object (held strongly), or any copyable structure such as a
/// rectangle. Numbers convert into one another; anything else asked for as a number is 0.
class NSValue {
public:
    NSValue() = default;
    /// Nil.
    NSValue(std::nullptr_t) {}
    /// A boxed flag. A template, so that a pointer to something that is not an object does not slip in as one.
    template <std::same_as<bool> T>
    NSValue(T value) : m_value(value) {}
    /// A boxed whole number.
    template <class T>
    requires(std::is_integral_v<T> && !std::is_same_v<T, bool>) NSValue(T value) :
        m_value(static_cast<std::int64_t>(value)) {}
    /// The number of an enumerator.
    template <class T>
    requires std::is_enum_v<T> NSValue(T value) : m_value(static_cast<std::int64_t>(value)) {}
    /// A boxed number.
    NSValue(double value) : m_value(value) {}
    /// A boxed number.
    NSValue(float value) : m_value(static_cast<double>(value)) {}
    /// A boxed string; a nil one gives nil.
    NSValue(const NSString& value) {
        if (!value.isNil())
            m_value = value;
    }
    /// The same; a null pointer gives nil.
    NSValue(const char* value) : NSValue(NSString(value)) {}
    /// The object, kept; null gives nil.
    template <class T>
    requires std::is_base_of_v<NSObject, T> NSValue(T* object) {
        if (object)
            m_value = Ref<NSObject>(object);
    }
    /// The object, kept; nil gives nil.
    template <class T>
    NSValue(const Ref<T>& object) : NSValue(object.get()) {}
    /// An address, not followed and not owned; null gives nil.
    static NSValue valueWithPointer(void* pointer) {
        NSValue value;
        if (pointer)
            value.m_value = std::any(pointer);
        return value;
    }
    /// The address; null when the value is something else.
    void* pointerValue() const {
        const auto* any = std::get_if<std::any>(&m_value);
        auto* const* pointer = any ? std::any_cast<void*>(any) : nullptr;
        return pointer ? *pointer : nullptr;
    }
    /// Any other copyable structure.
    template <class T>
    requires(std::is_class_v<T> && !std::is_base_of_v<NSObject, T>) static NSValue
        valueWithStructure(const T& structure) {
        NSValue value;
        value.m_value = std::any(structure);
        return value;
    }

    /// Whether nothing is boxed.
    bool isNil() const { return std::holds_alternative<std::monostate>(m_value); }
    /// Whether it is a flag that is set or a number that is not 0; false for what is neither.
    bool boolValue() const { return doubleValue() != 0; }
    /// The number, without its fraction. What is out of range is clamped; not-a-number is 0, and so is what is no
    /// number.
    std::int32_t intValue() const { return as<std::int32_t>(); }
    /// As `intValue`, in the range of `NSInteger`.
    NSInteger integerValue() const;
    /// The number, in single precision; infinite when it is out of range. 0 for what is no number.
    float floatValue() const;
    /// The number; 0 for what is none.
    double doubleValue() const;
    /// The string; nil when the value is something else.
    NSString stringValue() const;
    /// The object; nil when the value is something else.
    NSObject* objectValue() const;
    /// The structure; null when the value is something else.
    template <class T>
    const T* structure() const {
        const auto* any = std::get_if<std::any>(&m_value);
        return any ? std::any_cast<T>(any) : nullptr;
    }

    /// The value as a `T`: a flag, number, enumerator, `NSString`, pointer to an object, `Ref`, `NSValue` or structure.
    /// What does not fit gives zero or nil.
    template <class T>
    T as() const;

    /// Numbers by value, strings by text, objects by `isEqual`; structures are never equal. Nil is equal to nil.
    bool isEqual(const NSValue& other) const;
    /// For dumps and logs.
    NSString description() const;

private:
    bool isNumber() const;

    std::variant<std::monostate, bool, std::int64_t, double, NSString, Ref<NSObject>, std::any> m_value;
};

/// Makers of boxed numbers.
struct NSNumber {
    /// A flag.
    static NSValue numberWithBool(bool value) { return value; }
    /// A whole number.
    static NSValue numberWithInt(std::int32_t value) { return value; }
    /// A whole number.
    static NSValue numberWithInteger(NSInteger value) { return value; }
    /// A number with a fraction.
    static NSValue numberWithFloat(float value) { return value; }
    /// A number with a fraction.
    static NSValue numberWithDouble(double value) { return value; }
};

namespace detail {
template <class T>
struct IsRef : std::false_type {};
template <class T>
struct IsRef<Ref<T>> : std::true_type {
    using Object = T;
};
} // namespace detail

template <class T>
T NSValue::as() const {
    if constexpr (std::is_same_v<T, NSValue>)
        return *this;
    else if constexpr (std::is_same_v<T, bool>)
        return boolValue();
    else if constexpr (std::is_enum_v<T>)
        return static_cast<T>(integerValue());
    else if constexpr (std::is_integral_v<T> && sizeof(T) < sizeof(NSInteger))
        return static_cast<T>(
            std::clamp<NSInteger>(integerValue(), std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    else if constexpr (std::is_integral_v<T>)
        return static_cast<T>(integerValue()); // modular, so that a boxed NSUInteger comes back whole
    else if constexpr (std::is_same_v<T, float>)
        return floatValue();
    else if constexpr (std::is_floating_point_v<T>)
        return doubleValue();
    else if constexpr (std::is_same_v<T, NSString>)
        return stringValue();
    else if constexpr (std::is_same_v<T, void*>)
        return pointerValue();
    else if constexpr (std::is_pointer_v<T>)
        return dynamic_cast<T>(objectValue());
    else if constexpr (detail::IsRef<T>::value)
        return T(dynamic_cast<typename detail::IsRef<T>::Object*>(objectValue()));
    else {
        const T* value = structure<T>();
        return value ? *value : T();
    }
}

namespace detail {
/// Boxes whatever a getter returns.
template <class T>
NSValue box(const T& value) {
    if constexpr (std::is_constructible_v<NSValue, const T&>)
        return NSValue(value);
    else
        return NSValue::valueWithStructure(value);
}
} // namespace detail

template <class Field, class Value>
void NSObject::setObservable(Field& field, Value&& value, const char* key) {
    if (!hasObservers(key)) {
        field = std::forward<Value>(value);
        return;
    }
    const NSValue oldValue = boxedValue(key);
    field = std::forward<Value>(value);
    didChangeValueForKey(key, oldValue);
}

} // namespace zr
#pragma GCC visibility pop
