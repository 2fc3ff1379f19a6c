#include <Gallery/Pages/TaskPace.h>

#include <chrono>

namespace zr::gallery {

namespace {
/// Where no thread could be started, nobody ever leaves; the main thread does not wait for that for ever.
constexpr std::chrono::seconds kPatience{10};
} // namespace

bool TaskPace::waitForStep() {
    std::unique_lock lock(m_mutex);
    m_isWaiting = true;
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return m_isEnding || m_steps > 0; });
    m_isWaiting = false;
    if (m_isEnding)
        return false;
    --m_steps;
    return true;
}

void TaskPace::leave() {
    const std::lock_guard lock(m_mutex);
    m_hasLeft = true;
    m_changed.notify_all();
}

void TaskPace::step() {
    std::unique_lock lock(m_mutex);
    ++m_steps;
    m_changed.notify_all();
    m_changed.wait_for(lock, kPatience, [this] { return m_hasLeft || (m_isWaiting && m_steps == 0); });
}

void TaskPace::end() {
    std::unique_lock lock(m_mutex);
    m_isEnding = true;
    m_changed.notify_all();
    m_changed.wait_for(lock, kPatience, [this] { return m_hasLeft; });
}

} // namespace zr::gallery
