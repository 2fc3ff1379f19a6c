#include <ZRPlatform/Foundation/Internal/SideTable.h>

#include <algorithm>

namespace zr::detail {

bool WeakAnchor::retainObject() {
    const std::lock_guard lock(m_mutex);
    NSObject* object = m_object.load(std::memory_order_relaxed);
    return object && object->retainIfAlive();
}

void WeakAnchor::clear() {
    const std::lock_guard lock(m_mutex);
    m_object.store(nullptr, std::memory_order_release);
}

void ObservationList::add(NSObject* observer, const NSString& key, NSUInteger options, void* context) {
    Weak<NSObject> weakObserver(observer);
    const std::lock_guard lock(m_mutex);
    m_observations.push_back({++m_lastId, std::move(weakObserver), key, options, context});
    m_count.store(m_observations.size(), std::memory_order_release);
}

void ObservationList::removeLatest(const NSObject* observer, const NSString& key) {
    const std::lock_guard lock(m_mutex);
    const auto latest = std::find_if(m_observations.rbegin(), m_observations.rend(), [&](const Observation& each) {
        return each.observer.get() == observer && each.key == key;
    });
    if (latest == m_observations.rend())
        return;
    m_observations.erase(std::next(latest).base());
    m_count.store(m_observations.size(), std::memory_order_release);
}

void ObservationList::remove(std::uint64_t id) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_observations, [id](const Observation& each) { return each.id == id; });
    m_count.store(m_observations.size(), std::memory_order_release);
}

bool ObservationList::contains(std::uint64_t id) const {
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(m_observations, [id](const Observation& each) { return each.id == id; });
}

bool ObservationList::containsKey(std::string_view key) const {
    if (m_count.load(std::memory_order_acquire) == 0)
        return false;
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(m_observations, [key](const Observation& each) { return each.key.utf8() == key; });
}

std::vector<Observation> ObservationList::observationsOfKey(std::string_view key) const {
    std::vector<Observation> result;
    const std::lock_guard lock(m_mutex);
    std::ranges::copy_if(m_observations, std::back_inserter(result),
                         [key](const Observation& each) { return each.key.utf8() == key; });
    return result;
}

} // namespace zr::detail
