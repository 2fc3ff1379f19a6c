#pragma once

#include <ZRPlatform/Foundation/NSObject.h>

#include <mutex>

#pragma GCC visibility push(default)
namespace zr {

namespace detail {

/// Outlives its object and says whether that still exists.
class WeakAnchor final {
public:
    /// Null for an object that has begun to go away.
    explicit WeakAnchor(NSObject* object) : m_object(object) {}

    void retain() { m_references.fetch_add(1, std::memory_order_relaxed); }
    void release() {
        if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    /// Whether the object has not begun to go away.
    bool isAlive() const { return m_object.load(std::memory_order_acquire) != nullptr; }
    /// Retains the object if it is still alive.
    bool retainObject();
    /// To be called before the object is deleted. Once it returns, nobody is about to retain the object any more.
    void clear();

private:
    std::atomic<int> m_references{1};
    std::mutex m_mutex; // held to clear, and from reading the object to having retained it
    std::atomic<NSObject*> m_object;
};

} // namespace detail

/// A reference that reads nil once its object is gone. `get` is for the thread that owns the object; any other thread
/// asks for a strong reference with `lock`.
template <class T>
class Weak {
public:
    Weak() = default;
    /// Nil.
    Weak(std::nullptr_t) {}
    /// Reads null from when the object begins to go away. Nothing is retained.
    Weak(T* object) : m_object(object), m_anchor(object ? object->weakAnchor() : nullptr) {}
    /// The same.
    template <class U>
    requires std::is_convertible_v<U*, T*> Weak(const Ref<U>& object) : Weak(static_cast<T*>(object.get())) {}

    /// Borrowed; null once the object has begun to go away.
    T* get() const { return m_anchor && m_anchor->isAlive() ? m_object : nullptr; }
    /// A strong reference; nil once the object has begun to go away.
    Ref<T> lock() const { return m_anchor && m_anchor->retainObject() ? Ref<T>::adopt(m_object) : Ref<T>(); }

    /// The same as `get`.
    operator T*() const { return get(); }
    /// The object's members. Calling through nil is undefined.
    T* operator->() const { return get(); }

private:
    T* m_object = nullptr;
    Ref<detail::WeakAnchor> m_anchor;
};

/// A delegate: weak, and any object that is both an `NSObject` and a `Protocol`.
template <class Protocol>
class Delegate {
public:
    Delegate() = default;
    /// Nil.
    Delegate(std::nullptr_t) {}
    /// Reads nil once the object is gone; null gives nil. Nothing is retained.
    template <class T>
    requires(std::is_base_of_v<NSObject, T>&& std::is_base_of_v<Protocol, T>) Delegate(T* object) :
        m_object(static_cast<NSObject*>(object)), m_protocol(object) {}
    /// The same.
    template <class T>
    requires(std::is_base_of_v<NSObject, T>&& std::is_base_of_v<Protocol, T>) Delegate(const Ref<T>& object) :
        Delegate(object.get()) {}

    /// The delegate by its protocol; null once it is gone.
    Protocol* get() const { return m_object.get() ? m_protocol : nullptr; }
    /// The same as `get`.
    operator Protocol*() const { return get(); }
    /// The delegate's messages. Calling through nil is undefined.
    Protocol* operator->() const { return get(); }
    /// The delegate as an object; nil when it is gone. Hold it while calling a method that may drop the delegate.
    Ref<NSObject> object() const { return m_object.lock(); }

private:
    Weak<NSObject> m_object;
    Protocol* m_protocol = nullptr;
};

} // namespace zr
#pragma GCC visibility pop
