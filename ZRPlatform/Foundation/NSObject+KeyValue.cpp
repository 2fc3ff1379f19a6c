#include <ZRPlatform/Foundation/Internal/SideTable.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>

#include <algorithm>

namespace zr {

namespace {

/// "setProgress:" gives "progress"; nil when the name is not a setter's.
NSString keyOfSetter(const NSString& name) {
    std::string_view text = name.utf8();
    if (!text.starts_with("set") || !text.ends_with(':') || text.size() < 5)
        return nullptr;
    std::string key(text.substr(3, text.size() - 4));
    const char initial = key.front();
    if (initial >= 'a' && initial <= 'z')
        return nullptr;
    if (initial >= 'A' && initial <= 'Z')
        key.front() = static_cast<char>(initial - 'A' + 'a');
    return key;
}

void logUnknownKey(const NSObject& object, const NSString& key) {
    NSLog("%s has no key \"%s\"", object.description().UTF8String(), key.UTF8String());
}

} // namespace

const KeyEntry* KeyTable::find(std::string_view name) const {
    for (const KeyTable* table = this; table; table = table->m_superclass) {
        const auto entry =
            std::ranges::find(table->m_entries, name, [](const KeyEntry& each) { return std::string_view(each.name); });
        if (entry != table->m_entries.end())
            return &*entry;
    }
    return nullptr;
}

const KeyTable& NSObject::keyTable() const {
    static const auto table = new KeyTable; // never destroyed: threads look keys up until the very end
    return *table;
}

bool NSObject::respondsToSelector(const NSString& name) const {
    if (keyTable().find(name.utf8()))
        return true;
    const NSString key = keyOfSetter(name);
    if (key.isNil())
        return false;
    const auto canBeSet = [this](std::string_view each) {
        const KeyEntry* entry = keyTable().find(each);
        return entry && entry->set;
    };
    // A key may begin with a capital itself: "URL" has the setter "setURL:".
    return canBeSet(key.utf8()) || canBeSet(std::string_view(name.utf8()).substr(3, name.utf8().size() - 4));
}

NSValue NSObject::valueForKey(const NSString& key) const {
    const KeyEntry* entry = keyTable().find(key.utf8());
    if (entry)
        return entry->get(this);
    logUnknownKey(*this, key);
    return nullptr;
}

void NSObject::setValue_forKey(const NSValue& value, const NSString& key) {
    const KeyEntry* entry = keyTable().find(key.utf8());
    if (!entry)
        logUnknownKey(*this, key);
    else if (!entry->set)
        NSLog("%s cannot be set the key \"%s\"", description().UTF8String(), key.UTF8String());
    else
        entry->set(this, value);
}

NSValue NSObject::valueForKeyPath(const NSString& keyPath) const {
    NSValue holder; // keeps the object alive that the next key is read from
    const NSObject* object = this;
    const auto keys = keyPath.componentsSeparatedByString(".");
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        NSValue next = object->valueForKey(keys[i]);
        std::swap(holder, next);
        object = holder.objectValue();
        if (!object)
            return nullptr;
    }
    return keys.empty() ? nullptr : object->valueForKey(keys.back());
}

void NSObject::setValue_forKeyPath(const NSValue& value, const NSString& keyPath) {
    const auto dot = keyPath.utf8().rfind('.');
    if (dot == std::string::npos) {
        setValue_forKey(value, keyPath);
        return;
    }
    const std::string_view text = keyPath.utf8();
    const NSValue holder = valueForKeyPath(text.substr(0, dot));
    if (NSObject* object = holder.objectValue())
        object->setValue_forKey(value, text.substr(dot + 1));
}

void NSObject::addObserver_forKeyPath_options_context(NSObject* observer, const NSString& keyPath, NSUInteger options,
                                                      void* context) {
    if (!observer || keyPath.isNil())
        return;
    if (!keyTable().find(keyPath.utf8())) {
        logUnknownKey(*this, keyPath);
        return;
    }
    sideTable().observations().add(observer, keyPath, options, context);
    if (!(options & NSKeyValueObservingOptionInitial))
        return;
    NSKeyValueChange change;
    if (options & NSKeyValueObservingOptionNew)
        change.newValue = valueForKey(keyPath);
    observer->observeValueForKeyPath_ofObject_change_context(keyPath, this, change, context);
}

void NSObject::removeObserver_forKeyPath(NSObject* observer, const NSString& keyPath) {
    detail::SideTable* table = m_sideTable.load(std::memory_order_acquire);
    if (table && observer)
        table->observations().removeLatest(observer, keyPath);
}

void NSObject::observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                              const NSKeyValueChange&, void*) {
    NSLog("%s was told of the key \"%s\" of %s, which it does not handle", description().UTF8String(),
          keyPath.UTF8String(), object ? object->description().UTF8String() : "nil");
}

bool NSObject::hasObservers(const char* key) const {
    detail::SideTable* table = m_sideTable.load(std::memory_order_acquire);
    return table && table->observations().containsKey(key);
}

NSValue NSObject::boxedValue(const char* key) const {
    const KeyEntry* entry = keyTable().find(key);
    return entry ? entry->get(this) : nullptr;
}

void NSObject::didChangeValueForKey(const char* key, const NSValue& oldValue) {
    if (!key || !hasObservers(key))
        return;
    const Ref<NSObject> keptAlive(this); // an observer may drop the last other reference
    const NSValue newValue = boxedValue(key);
    detail::ObservationList& list = sideTable().observations();
    for (const detail::Observation& each : list.observationsOfKey(key)) {
        const Ref<NSObject> observer = each.observer.lock();
        if (!observer)
            list.remove(each.id);
        else if (list.contains(each.id))
            observer->observeValueForKeyPath_ofObject_change_context(
                each.key, this,
                {each.options & NSKeyValueObservingOptionNew ? newValue : NSValue(),
                 each.options & NSKeyValueObservingOptionOld ? oldValue : NSValue()},
                each.context);
    }
}

} // namespace zr
