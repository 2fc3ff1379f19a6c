#pragma once

#include <ZRPlatform/Foundation/SEL.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// One key of a class: its name, its getter, and its setter if it can be written.
struct KeyEntry {
    /// What the key is called.
    const char* name;
    /// Reads it, boxed; the object is of the class.
    NSValue (*get)(const NSObject* object);
    /// Writes it; null for a key that is read-only.
    void (*set)(NSObject* object, const NSValue& value);
};

/// `key<&UIView::alpha, &UIView::setAlpha>("alpha")`; without a setter the key is read-only.
template <auto Getter, auto Setter = nullptr>
constexpr KeyEntry key(const char* name) {
    using Class = typename detail::MethodTraits<decltype(Getter)>::Class;
    KeyEntry entry{name, nullptr, nullptr};
    entry.get = [](const NSObject* object) { return detail::box((dynamic_cast<const Class*>(object)->*Getter)()); };
    if constexpr (!std::is_same_v<decltype(Setter), std::nullptr_t>) {
        entry.set = [](NSObject* object, const NSValue& value) {
            const NSValue arguments[] = {value};
            NSValue result;
            detail::invokeMethod<Setter>(object, arguments, &result);
        };
    }
    return entry;
}

/// The keys of a class, on top of those of its superclass. A class overrides `keyTable` with a static one:
///
///     const KeyTable& Gauge::keyTable() const {
///         static const KeyTable table(UIView::keyTable(), {key<&Gauge::progress, &Gauge::setProgress>("progress")});
///         return table;
///     }
class KeyTable {
public:
    KeyTable() = default;
    /// `superclass`: outlives this one. Its keys count where this one has none of the name.
    KeyTable(const KeyTable& superclass, std::initializer_list<KeyEntry> entries) :
        m_superclass(&superclass), m_entries(entries) {}

    /// The key of the name, of this class or a superclass; null for an unknown one.
    const KeyEntry* find(std::string_view name) const;

private:
    const KeyTable* m_superclass = nullptr;
    std::vector<KeyEntry> m_entries;
};

/// What an observer wants to be told, to be added up: the new value, the old one, and the present one at once.
enum NSKeyValueObservingOptions : NSUInteger {
    NSKeyValueObservingOptionNew = 1,
    NSKeyValueObservingOptionOld = 2,
    NSKeyValueObservingOptionInitial = 4,
};

/// What changed; each value is nil unless its option was asked for.
struct NSKeyValueChange {
    /// Nil unless `NSKeyValueObservingOptionNew` was asked for.
    NSValue newValue;
    /// Nil unless `NSKeyValueObservingOptionOld` was asked for.
    NSValue oldValue;
};

} // namespace zr
#pragma GCC visibility pop
