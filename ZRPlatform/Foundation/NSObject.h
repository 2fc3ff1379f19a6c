#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>
#include <ZRPlatform/Foundation/Ref.h>

#include <atomic>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace zr::detail { // not exported
class SideTable;
} // namespace zr::detail

#pragma GCC visibility push(default)
namespace zr {

class KeyTable;
class NSString;
class NSValue;
class SEL;
struct NSKeyValueChange;
namespace detail {
class WeakAnchor;
} // namespace detail

/// The root of every object: an atomic reference count, messages by name, key-value coding and observing.
///
/// Objects are made with `make<T>(…)` and held by `Ref` and `Weak`; the last reference gone, the object is destroyed
/// (the destructor is the tear-down). An object that lives on the stack or inside another may be lent by pointer and
/// held weakly, never strongly.
class NSObject {
public:
    NSObject();
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;
    virtual ~NSObject();

    /// The plain initialiser. An override calls its superclass's first; false means "no object".
    virtual bool init();

    /// Counts one reference more. `Ref` does it; nobody else should.
    virtual NSObject* retain();
    /// Counts one reference less; the last one destroys the object.
    virtual void release();
    /// How many references there are, for logs; 0 once the object has begun to go away.
    NSUInteger retainCount() const;

    /// Whether it is the same object, unless a class says otherwise.
    virtual bool isEqual(const NSObject* other) const;
    /// The class name and address, for logs.
    virtual NSString description() const;

    /// Whether the object is a `T` or of a class derived from it.
    template <class T>
    bool isKindOfClass() const {
        if constexpr (std::is_same_v<T, NSObject>)
            return true;
        else
            return dynamic_cast<const T*>(this) != nullptr;
    }

    /// @name Messages by name
    /// A message to an object that is not of the selector's class is dropped and logged.
    /// @{
    /// Sends the message now. Returns what the method returned, boxed; nil when the message was dropped.
    NSValue performSelector(SEL selector);
    /// The same with an argument.
    NSValue performSelector_withObject(SEL selector, const NSValue& object);
    /// Sends the message on this thread's run loop after `delay` seconds (at least one turn later). The object is kept
    /// alive until then.
    void performSelector_withObject_afterDelay(SEL selector, const NSValue& object, NSTimeInterval delay);
    /// Sends the message in a later turn of the main run loop; with `wait`, returns when it has run (at once when this
    /// is the main thread). The object is kept alive until then.
    void performSelectorOnMainThread_withObject_waitUntilDone(SEL selector, const NSValue& object, bool wait);
    /// Cancels every pending delayed perform of `target` on this thread.
    static void cancelPreviousPerformRequestsWithTarget(NSObject* target);
    /// Cancels the pending delayed performs of `target` with this selector and an equal argument.
    static void cancelPreviousPerformRequestsWithTarget_selector_object(NSObject* target, SEL selector,
                                                                        const NSValue& object);
    /// @}

    /// @name Key-value coding
    /// A class lists its keys once, by overriding `keyTable`.
    /// @{
    /// True for "progress" when the key can be read and for "setProgress:" when it can be written.
    bool respondsToSelector(const NSString& name) const;
    /// The value, boxed. An unknown key gives nil and is logged.
    NSValue valueForKey(const NSString& key) const;
    /// An unknown or read-only key is logged and otherwise ignored; a value of the wrong type sets zero or nil.
    void setValue_forKey(const NSValue& value, const NSString& key);
    /// As `valueForKey`, through objects: "titleLabel.text". Nil when one on the way is nil.
    NSValue valueForKeyPath(const NSString& keyPath) const;
    /// Sets a key of the object that the path before the last dot leads to; nothing happens when there is none.
    void setValue_forKeyPath(const NSValue& value, const NSString& keyPath);
    /// @}

    /// @name Key-value observing
    /// Observers are told on the thread that sets the value, also when the new value equals the old one.
    /// @{
    /// `keyPath`: one key of this object; a path of several is logged and otherwise ignored. `options`: a sum of
    /// `NSKeyValueObservingOptions`. The observer is held weakly. Registering twice tells twice.
    void addObserver_forKeyPath_options_context(NSObject* observer, const NSString& keyPath, NSUInteger options,
                                                void* context);
    /// Takes back the latest registration of this observer for this key. Nothing happens when there is none. An
    /// observer removed while the others are being told of a change is not told of it any more.
    void removeObserver_forKeyPath(NSObject* observer, const NSString& keyPath);
    /// Called on an observer. An override passes what it did not ask for on to its superclass; here it is logged.
    virtual void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                                const NSKeyValueChange& change, void* context);
    /// Tells the observers of `key`; setters of observable properties call `setObservable` instead.
    void didChangeValueForKey(const char* key, const NSValue& oldValue);
    /// @}

protected:
    /// The keys of this class and, through it, of its superclasses.
    virtual const KeyTable& keyTable() const;

    /// The one way to write an observable property: stores `value` in `field`, then tells the observers of `key`.
    template <class Field, class Value>
    void setObservable(Field& field, Value&& value, const char* key);

    /// Called once, when the last reference has gone; deletes the object. Views override it to be deleted on the main
    /// thread. Weak references read nil from here on.
    virtual void destroy();

private:
    template <class T>
    friend class Weak;
    friend class detail::WeakAnchor;

    bool isGoingAway() const;
    bool retainIfAlive();
    bool hasObservers(const char* key) const;
    NSValue boxedValue(const char* key) const;
    detail::SideTable& sideTable();
    detail::WeakAnchor* weakAnchor();

    std::atomic<std::int32_t> m_retainCount{1};
    std::atomic<detail::SideTable*> m_sideTable{nullptr};
};

} // namespace zr
#pragma GCC visibility pop

#include <ZRPlatform/Foundation/NSValue.h> // which defines `setObservable`, as that needs whole values
