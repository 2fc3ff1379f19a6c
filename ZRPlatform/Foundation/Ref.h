#pragma once

#include <cassert>
#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

#pragma GCC visibility push(default)
namespace zr {

/// A strong reference to an `NSObject`, or nil. It converts to the plain pointer that a call asks for.
template <class T>
class Ref {
public:
    Ref() = default;
    /// Nil.
    Ref(std::nullptr_t) {}
    /// Retains `object`.
    Ref(T* object) : m_object(object) { retainObject(); }
    /// Retains what the other one holds.
    Ref(const Ref& other) : m_object(other.m_object) { retainObject(); }
    /// Takes the reference over, and leaves nil.
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    /// Retains the object, here one of a derived class.
    template <class U>
    requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other) : m_object(other.get()) { retainObject(); }
    /// Takes the reference over, and leaves nil.
    template <class U>
    requires std::is_convertible_v<U*, T*> Ref(Ref<U>&& other)
    noexcept : m_object(other.leak()) {}
    ~Ref() { releaseObject(m_object); }

    /// Releases what was held before, after it has taken the new one.
    Ref& operator=(Ref other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// Takes over a reference that the caller owns; nothing is retained.
    static Ref adopt(T* object) {
        Ref ref;
        ref.m_object = object;
        return ref;
    }

    /// The object, borrowed; null for nil.
    T* get() const { return m_object; }
    /// The object, where a pointer is asked for; null for nil.
    operator T*() const { return m_object; }
    /// The object's members. Not for nil, which debug builds assert.
    T* operator->() const {
        assert(m_object && "a call through a nil reference");
        return m_object;
    }
    /// The object itself. Not for nil, which debug builds assert.
    T& operator*() const {
        assert(m_object && "nil is no object");
        return *m_object;
    }

    /// Gives the reference away: the caller now owns it.
    [[nodiscard]] T* leak() noexcept { return std::exchange(m_object, nullptr); }

private:
    void retainObject() {
        if (m_object)
            m_object->retain();
    }
    static void releaseObject(T* object) {
        if (object)
            object->release();
    }

    T* m_object = nullptr;
};

/// A downcast that keeps the object alive; nil when the object is of another class.
template <class To, class From>
Ref<To> dynamicCast(const Ref<From>& object) {
    return Ref<To>(dynamic_cast<To*>(object.get()));
}

namespace detail {
/// A new object, told its own class if it wants to know: `noteClass<T>` can ask the compiler what `T` overrides.
template <class T>
Ref<T> allocate() {
    auto object = Ref<T>::adopt(new T());
    if constexpr (requires { object->template noteClass<T>(); })
        object->template noteClass<T>();
    return object;
}
} // namespace detail

/// Allocates a `T` and calls its `init`. Nil when the initialiser returned false.
template <class T>
Ref<T> make() {
    auto object = detail::allocate<T>();
    return object->init() ? object : nullptr;
}

/// Allocates a `T` and calls the given initialiser with the arguments; the initialiser is dispatched dynamically.
/// Nil when it returned false.
template <class T, class Class, class... Parameters, class... Arguments>
Ref<T> make(bool (Class::*initialiser)(Parameters...), Arguments&&... arguments) {
    static_assert(std::is_base_of_v<Class, T>);
    // In one line what the compiler would say in dozens.
    if constexpr (sizeof...(Parameters) != sizeof...(Arguments)) {
        static_assert(sizeof...(Parameters) == sizeof...(Arguments), "make: the initialiser takes another number");
    } else if constexpr (!(std::is_convertible_v<Arguments, Parameters> && ...)) {
        static_assert((std::is_convertible_v<Arguments, Parameters> && ...),
                      "make: an argument is not what the initialiser takes there");
    } else {
        auto object = detail::allocate<T>();
        return std::invoke(initialiser, *object, std::forward<Arguments>(arguments)...) ? object : nullptr;
    }
}

} // namespace zr
#pragma GCC visibility pop

template <class T>
struct std::hash<zr::Ref<T>> {
    std::size_t operator()(const zr::Ref<T>& ref) const noexcept { return std::hash<T*>()(ref.get()); }
};
