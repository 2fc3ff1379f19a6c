#include <ZRPlatform/Foundation/NSObject.h>

#include <ZRPlatform/Foundation/Internal/SideTable.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/Foundation/NSThread.h>

#include <cstdlib>
#include <cxxabi.h>
#include <future>
#include <memory>
#include <typeinfo>

namespace zr {

namespace {

/// The count of an object that is being destroyed: so far from 0 that references taken and dropped by the destructors
/// do not destroy it again.
constexpr std::int32_t kGoingAway = 1 << 30;
constexpr std::int32_t kGoingAwayMinimum = kGoingAway / 2;

std::string className(const NSObject& object) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(object).name(), nullptr, nullptr, &status), &std::free);
    std::string text = status == 0 ? name.get() : typeid(object).name();
    if (text.starts_with("zr::"))
        text.erase(0, 4);
    return text;
}

} // namespace

NSObject::NSObject() = default;

NSObject::~NSObject() {
    detail::SideTable* table = m_sideTable.load(std::memory_order_acquire);
    if (!table)
        return;
    table->anchor()->clear(); // again, for an object that nobody has released because it was not made with `make`
    delete table;
}

bool NSObject::init() { return true; }

NSObject* NSObject::retain() {
    m_retainCount.fetch_add(1, std::memory_order_relaxed);
    return this;
}

void NSObject::release() {
    if (m_retainCount.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    // In this order: while the count is 0 no weak reference can be locked, and afterwards none is left to be.
    if (detail::SideTable* table = m_sideTable.load(std::memory_order_acquire))
        table->anchor()->clear();
    m_retainCount.store(kGoingAway, std::memory_order_relaxed);
    destroy();
}

void NSObject::destroy() { delete this; }

NSUInteger NSObject::retainCount() const {
    return isGoingAway() ? 0 : static_cast<NSUInteger>(m_retainCount.load(std::memory_order_relaxed));
}

bool NSObject::isGoingAway() const { return m_retainCount.load(std::memory_order_relaxed) >= kGoingAwayMinimum; }

bool NSObject::retainIfAlive() {
    std::int32_t count = m_retainCount.load(std::memory_order_relaxed);
    while (count > 0) {
        if (m_retainCount.compare_exchange_weak(count, count + 1, std::memory_order_relaxed))
            return true;
    }
    return false;
}

detail::SideTable& NSObject::sideTable() {
    if (detail::SideTable* table = m_sideTable.load(std::memory_order_acquire))
        return *table;
    auto table = std::make_unique<detail::SideTable>(isGoingAway() ? nullptr : this);
    detail::SideTable* existing = nullptr;
    if (m_sideTable.compare_exchange_strong(existing, table.get(), std::memory_order_acq_rel))
        return *table.release();
    return *existing;
}

detail::WeakAnchor* NSObject::weakAnchor() { return sideTable().anchor(); }

bool NSObject::isEqual(const NSObject* other) const { return this == other; }

NSString NSObject::description() const {
    return NSString::stringWithFormat("<%s: %p>", className(*this).c_str(), static_cast<const void*>(this));
}

NSValue NSObject::performSelector(SEL selector) { return selector.send(this); }

NSValue NSObject::performSelector_withObject(SEL selector, const NSValue& object) {
    const NSValue arguments[] = {object};
    return selector.send(this, arguments);
}

void NSObject::performSelector_withObject_afterDelay(SEL selector, const NSValue& object, NSTimeInterval delay) {
    if (!selector)
        return;
    auto timer = NSTimer::timerAfter(std::max<Nanoseconds>(nanosecondsFromSeconds(delay), 0));
    timer->m_isDelayedPerform = true;
    timer->m_target = this;
    timer->m_selector = selector;
    timer->m_userInfo = object;
    NSRunLoop::currentRunLoop()->addTimer(timer);
}

void NSObject::performSelectorOnMainThread_withObject_waitUntilDone(SEL selector, const NSValue& object, bool wait) {
    if (wait && NSThread::isMainThread()) {
        performSelector_withObject(selector, object);
        return;
    }
    auto done = std::make_shared<std::promise<void>>();
    std::future<void> isDone = done->get_future();
    NSRunLoop::mainRunLoop()->performBlock([target = Ref(this), selector, object, done = std::move(done)] {
        target->performSelector_withObject(selector, object);
        done->set_value();
    });
    // A block that is dropped breaks its promise, which wakes this thread as well.
    if (wait)
        isDone.wait();
}

void NSObject::cancelPreviousPerformRequestsWithTarget(NSObject* target) {
    NSRunLoop::currentRunLoop()->cancelPerformRequests(target, nullptr, nullptr);
}

void NSObject::cancelPreviousPerformRequestsWithTarget_selector_object(NSObject* target, SEL selector,
                                                                       const NSValue& object) {
    if (selector)
        NSRunLoop::currentRunLoop()->cancelPerformRequests(target, selector, object);
}

NSValue SEL::send(NSObject* target, std::span<const NSValue> arguments) const {
    if (!target || !m_record)
        return nullptr;
    const Ref<NSObject> keptAlive(target); // the message may drop the last other reference
    NSValue result;
    if (!m_record->invoke(target, arguments, &result))
        NSLog("%s does not understand the message sent to it", target->description().UTF8String());
    return result;
}

} // namespace zr
