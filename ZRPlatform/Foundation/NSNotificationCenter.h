#pragma once

#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/Foundation/Weak.h>

#include <functional>
#include <mutex>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// What an observer receives: the name, the sender (may be nil) and free information.
class NSNotification : public NSObject {
public:
    /// Name and information are copied, the sender is kept.
    bool initWithName_object_userInfo(const NSString& name, NSObject* object, const NSValue& userInfo);
    /// The name that it was posted under.
    const NSString& name() const { return m_name; }
    /// The sender, kept; may be nil.
    NSObject* object() const { return m_object; }
    /// As posted; may be nil.
    const NSValue& userInfo() const { return m_userInfo; }

private:
    NSString m_name;
    Ref<NSObject> m_object;
    NSValue m_userInfo;
};

/// Delivers notifications by name, on the posting thread, before `post…` returns, in the order of registration.
/// An observer removed during a post is not told any more; one added during a post is told from the next on.
/// May be used on any thread.
class NSNotificationCenter : public NSObject {
public:
    /// The one of the process; it lives as long as that.
    static NSNotificationCenter* defaultCenter();

    /// A nil name observes every name, a nil object every sender. Observers and senders are held weakly. The message
    /// takes the `NSNotification`.
    void addObserver_selector_name_object(NSObject* observer, SEL selector, const NSString& name, NSObject* object);
    /// Takes back every registration of this observer.
    void removeObserver(NSObject* observer);
    /// Takes back those made for this name and this sender; nil stands for any.
    void removeObserver_name_object(NSObject* observer, const NSString& name, NSObject* object);
    /// Returns when everybody has been told. `object`: the sender, may be nil.
    void postNotificationName_object(const NSString& name, NSObject* object);
    /// The same with free information, which may be nil.
    void postNotificationName_object_userInfo(const NSString& name, NSObject* object, const NSValue& userInfo);

private:
    struct Registration {
        std::uint64_t id;
        Weak<NSObject> observer;
        SEL selector;
        NSString name;
        bool anySender;
        Weak<NSObject> sender;

        bool isDead() const { return !observer || (!anySender && !sender); }
    };

    bool isRegistered(std::uint64_t id);

    std::mutex m_mutex;
    std::vector<Registration> m_registrations;
    std::uint64_t m_lastId = 0;
};

} // namespace zr
#pragma GCC visibility pop
