#pragma once

#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/Ref.h>

#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zr {

/// Views that wait to be used again, by identifier, and how to make one when none waits.
template <class View>
class ReuseQueue {
public:
    using Maker = std::function<Ref<View>(const NSString& identifier)>;

    void registerMaker(const NSString& identifier, Maker maker) { m_makers[identifier] = std::move(maker); }

    /// A view without an identifier is not kept.
    void put(const Ref<View>& view) {
        if (!view->reuseIdentifier().isNil())
            m_waiting[view->reuseIdentifier()].push_back(view);
    }

    /// Somebody uses it: it waits no more, if it did.
    void remove(const View* view) {
        if (const auto waiting = m_waiting.find(view->reuseIdentifier()); waiting != m_waiting.end())
            std::erase_if(waiting->second, [view](const Ref<View>& each) { return each.get() == view; });
    }

    /// One that waited, the latest first, made ready; else a new one; nil when nobody knows how to make it.
    Ref<View> take(const NSString& identifier) {
        if (const auto waiting = m_waiting.find(identifier); waiting != m_waiting.end() && !waiting->second.empty()) {
            const Ref<View> view = std::move(waiting->second.back());
            waiting->second.pop_back();
            view->prepareForReuse();
            return view;
        }
        const auto found = m_makers.find(identifier);
        if (found == m_makers.end())
            return nullptr;
        const Maker maker = found->second; // which may register another one
        return maker(identifier);
    }

private:
    std::unordered_map<NSString, std::vector<Ref<View>>> m_waiting;
    std::unordered_map<NSString, Maker> m_makers;
};

} // namespace zr
