#pragma once

#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSValue.h>

#include <span>
#include <tuple>

#pragma GCC visibility push(default)
namespace zr {

namespace detail {

struct SelectorRecord {
    /// Sends the message; false when the target is not of the method's class.
    bool (*invoke)(NSObject* target, std::span<const NSValue> arguments, NSValue* result);
    bool (*accepts)(const NSObject* target);
};

} // namespace detail

/// A message that can be stored, compared and sent later: `selector<&ZRBaseAlert::buttonClicked>`. Nil by default.
class SEL {
public:
    constexpr SEL() = default;
    /// Nil.
    constexpr SEL(std::nullptr_t) {}
    /// For `selector`.
    constexpr explicit SEL(const detail::SelectorRecord* record) : m_record(record) {}

    /// Whether it is not nil.
    constexpr explicit operator bool() const { return m_record != nullptr; }
    /// Whether both are the same method's, or both nil.
    friend constexpr bool operator==(SEL a, SEL b) { return a.m_record == b.m_record; }

    /// Whether an object of this class can be sent the message.
    bool isAcceptedBy(const NSObject* target) const { return m_record && target && m_record->accepts(target); }
    /// Sends the message. Arguments that the method does not take are left out, those that are missing are nil. A nil
    /// target is silently ignored; one of another class is logged. Returns what the method returned, boxed.
    NSValue send(NSObject* target, std::span<const NSValue> arguments = {}) const;

private:
    const detail::SelectorRecord* m_record = nullptr;
};

namespace detail {

template <class Method>
struct MethodTraits;
template <class C, class R, class... A>
struct MethodTraits<R (C::*)(A...)> {
    using Class = C;
    using Result = R;
    using Arguments = std::tuple<std::decay_t<A>...>;
};
template <class C, class R, class... A>
struct MethodTraits<R (C::*)(A...) const> : MethodTraits<R (C::*)(A...)> {};

template <auto Method>
bool invokeMethod(NSObject* target, std::span<const NSValue> arguments, NSValue* result) {
    using Traits = MethodTraits<decltype(Method)>;
    using Arguments = typename Traits::Arguments;
    auto* object = dynamic_cast<typename Traits::Class*>(target);
    if (!object)
        return false;
    auto call = [&]<std::size_t... I>(std::index_sequence<I...>)->decltype(auto) {
        return (object->*Method)(
            (I < arguments.size() ? arguments[I] : NSValue()).template as<std::tuple_element_t<I, Arguments>>()...);
    };
    constexpr auto indices = std::make_index_sequence<std::tuple_size_v<Arguments>>();
    if constexpr (std::is_void_v<typename Traits::Result>)
        call(indices);
    else
        *result = box(call(indices));
    return true;
}

template <auto Method>
bool acceptsMethod(const NSObject* target) {
    return dynamic_cast<const typename MethodTraits<decltype(Method)>::Class*>(target) != nullptr;
}

template <auto Method>
inline constexpr SelectorRecord selectorRecord{&invokeMethod<Method>, &acceptsMethod<Method>};

} // namespace detail

/// The message that calls `Method`, a pointer to a member function: `selector<&MyView::tapped>`.
template <auto Method>
inline constexpr SEL selector{&detail::selectorRecord<Method>};

} // namespace zr
#pragma GCC visibility pop
