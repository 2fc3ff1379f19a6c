#pragma once

#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/Weak.h>

#include <mutex>
#include <vector>

namespace zr::detail {

/// One registration of an observer for a key of an object.
struct Observation {
    std::uint64_t id;
    Weak<NSObject> observer;
    NSString key;
    NSUInteger options;
    void* context;
};

/// The registrations of one object, in the order they came. May be used on any thread.
class ObservationList {
public:
    void add(NSObject* observer, const NSString& key, NSUInteger options, void* context);
    void removeLatest(const NSObject* observer, const NSString& key);
    void remove(std::uint64_t id);
    bool contains(std::uint64_t id) const;
    bool containsKey(std::string_view key) const;
    std::vector<Observation> observationsOfKey(std::string_view key) const;

private:
    mutable std::mutex m_mutex;
    std::atomic<std::size_t> m_count{0}; // tells, without the mutex, that nobody observes
    std::uint64_t m_lastId = 0;
    std::vector<Observation> m_observations;
};

/// What only some objects need: made when an object is first held weakly or observed.
class SideTable {
public:
    /// Null for an object that has begun to go away.
    explicit SideTable(NSObject* object) : m_anchor(Ref<WeakAnchor>::adopt(new WeakAnchor(object))) {}

    WeakAnchor* anchor() const { return m_anchor; }
    ObservationList& observations() { return m_observations; }

private:
    Ref<WeakAnchor> m_anchor;
    ObservationList m_observations;
};

} // namespace zr::detail
