#pragma once

#include <atomic>
#include <mutex>
#include <type_traits>
#include <utility>

#pragma GCC visibility push(default)
namespace zr {

/// A field that any thread may read and write at any time: what is read was written whole, and the last value written
/// stays. For the properties of an object that a task's thread sets while the main thread shows it.
///
/// Small plain values need no lock. Strings, references, blocks and larger structures are copied under one; what is
/// replaced is let go after it, so that whatever then happens may use the field again.
template <class T>
class Atomic {
public:
    Atomic() = default;
    /// Begins with this value.
    Atomic(T value) : m_value(std::move(value)) {}
    Atomic(const Atomic&) = delete;

    /// A copy of the last value written.
    T load() const {
        if constexpr (kLockFree) {
            return m_value.load();
        } else {
            const std::lock_guard lock(m_mutex);
            return m_value;
        }
    }
    /// The value that was replaced.
    T exchange(T value) {
        if constexpr (kLockFree) {
            return m_value.exchange(value);
        } else {
            const std::lock_guard lock(m_mutex);
            std::swap(m_value, value);
            return value;
        }
    }
    /// Writes the value; the one before is let go after the lock.
    Atomic& operator=(T value) {
        exchange(std::move(value));
        return *this;
    }
    /// The same as `load`.
    operator T() const { return load(); }

private:
    static constexpr bool kLockFree = std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(void*);
    struct NoMutex {};

    std::conditional_t<kLockFree, std::atomic<T>, T> m_value{};
    mutable std::conditional_t<kLockFree, NoMutex, std::mutex> m_mutex;
};

} // namespace zr
#pragma GCC visibility pop
