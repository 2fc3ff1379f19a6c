#include <ZRPlatform/Foundation/NSNotificationCenter.h>

#include <algorithm>

namespace zr {

bool NSNotification::initWithName_object_userInfo(const NSString& name, NSObject* object, const NSValue& userInfo) {
    if (!NSObject::init())
        return false;
    m_name = name;
    m_object = object;
    m_userInfo = userInfo;
    return true;
}

NSNotificationCenter* NSNotificationCenter::defaultCenter() {
    static NSNotificationCenter* const center = make<NSNotificationCenter>().leak(); // in use until the very end
    return center;
}

void NSNotificationCenter::addObserver_selector_name_object(NSObject* observer, SEL selector, const NSString& name,
                                                            NSObject* object) {
    if (!observer || !selector)
        return;
    Registration registration{0, observer, selector, name, !object, object};
    const std::lock_guard lock(m_mutex);
    registration.id = ++m_lastId;
    m_registrations.push_back(std::move(registration));
}

void NSNotificationCenter::removeObserver(NSObject* observer) {
    removeObserver_name_object(observer, nullptr, nullptr);
}

void NSNotificationCenter::removeObserver_name_object(NSObject* observer, const NSString& name, NSObject* object) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_registrations, [&](const Registration& each) {
        if (each.isDead())
            return true;
        return observer && each.observer == observer && (name.isNil() || each.name == name) &&
               (!object || each.sender == object);
    });
}

void NSNotificationCenter::postNotificationName_object(const NSString& name, NSObject* object) {
    postNotificationName_object_userInfo(name, object, nullptr);
}

void NSNotificationCenter::postNotificationName_object_userInfo(const NSString& name, NSObject* object,
                                                                const NSValue& userInfo) {
    std::vector<Registration> told;
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_registrations, [](const Registration& each) { return each.isDead(); });
        std::ranges::copy_if(m_registrations, std::back_inserter(told), [&](const Registration& each) {
            return (each.name.isNil() || each.name == name) && (each.anySender || each.sender == object);
        });
    }
    const auto notification =
        make<NSNotification>(&NSNotification::initWithName_object_userInfo, name, object, userInfo);
    const NSValue arguments[] = {notification};
    for (const Registration& each : told) {
        const Ref<NSObject> observer = each.observer.lock();
        if (observer && isRegistered(each.id))
            each.selector.send(observer, arguments);
    }
}

bool NSNotificationCenter::isRegistered(std::uint64_t id) {
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(m_registrations, [id](const Registration& each) { return each.id == id; });
}

} // namespace zr
