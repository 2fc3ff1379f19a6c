#include <ZRPlatform/Hosts/Window/Internal/WindowHost.h>

#include <ZRPlatform/Foundation/NSRunLoop.h>

#include <algorithm>
#include <iostream>

namespace zr {

namespace {

constexpr Nanoseconds kFrameDuration = kNanosecondsPerSecond / 60;

/// The profile, at the scale that the window has.
DeviceProfile shownProfile(const WindowOptions& options, double scale) {
    DeviceProfile profile = options.profile;
    profile.scale = static_cast<CGFloat>(scale);
    return profile;
}

/// The real clock, as fast as it goes.
PacedClock& applicationClock() {
    static auto* clock = new PacedClock(Clock::current()); // never destroyed: worker threads read it until the very end
    clock->setSlowness(1);
    return *clock;
}

} // namespace

WindowHost::WindowHost(std::unique_ptr<DesktopWindow> window, const WindowOptions& options) :
    m_window(std::move(window)), m_clock(applicationClock()), m_logs(options.frameLog),
    m_wakeEvent(SDL_RegisterEvents(1)) {
    // On since the start of the video driver; an input method is to open with a text field only.
    SDL_StopTextInput();
    Clock::setCurrent(&m_clock);
    UIDevice::currentDevice()->setProfile(shownProfile(options, m_window->scale()));
    m_application = make<UIApplication>();
    m_application->setHost(this);
    m_application->setDebugAids(options.debugAids);
    NSRunLoop::mainRunLoop()->setWakeHandler([this] { wake(); });
}

WindowHost::~WindowHost() {
    m_application->terminate();
    NSRunLoop::mainRunLoop()->setWakeHandler({});
    NSRunLoop::mainRunLoop()->removeAll();
    m_application->setHost(nullptr);
    m_application = nullptr;
    NSRunLoop::mainRunLoop()->removeAll();
    Clock::setCurrent(nullptr);
    if (m_logs)
        std::cerr << "frames " << m_frames << ", wake-ups " << m_wakeUps << std::endl;
}

void WindowHost::run() {
    m_window->show();
    while (!m_isClosed) {
        NSRunLoop::mainRunLoop()->runDue();
        composeIfDue();
        if (!m_isClosed)
            sleep();
    }
}

void WindowHost::composeIfDue() {
    const Nanoseconds now = m_clock.source().now();
    if (!wantsFrame() || now < m_nextFrameTime)
        return;
    // Frames keep to the beat, but one that comes after a pause begins a new one.
    m_nextFrameTime += kFrameDuration;
    if (m_nextFrameTime <= now)
        m_nextFrameTime = now + kFrameDuration;
    const Compositor& frame = m_application->commitFrame();
    m_window->present(frame, frame.shownDamage());
    ++m_frames;
    if (m_logs)
        std::cerr << "frame " << m_frames << ": " << frame.paintedPixels() << " pixels" << std::endl;
}

std::optional<Nanoseconds> WindowHost::nextDueTime() const {
    const auto byTheRealClock = [this](std::optional<Nanoseconds> time) {
        return time ? std::optional(m_clock.sourceTime(*time)) : std::nullopt;
    };
    const auto due = byTheRealClock(NSRunLoop::mainRunLoop()->nextDueTime());
    const auto change = byTheRealClock(m_isVisible ? m_application->nextFrameTime() : std::nullopt);
    if (!change)
        return due;
    const Nanoseconds frame = std::max(*change, m_nextFrameTime);
    return due ? std::min(*due, frame) : frame;
}

void WindowHost::sleep() {
    SDL_Event event;
    bool hasEvent = false;
    if (const std::optional<Nanoseconds> due = nextDueTime()) {
        // Rounded up: a sleep that ends a moment too early would only be followed by another.
        constexpr Nanoseconds kMillisecond = 1'000'000;
        constexpr Nanoseconds kLongestSleep = 3'600'000;
        const Nanoseconds span = std::max<Nanoseconds>(0, *due - m_clock.source().now());
        const Nanoseconds milliseconds = std::min((span + kMillisecond - 1) / kMillisecond, kLongestSleep);
        hasEvent = SDL_WaitEventTimeout(&event, static_cast<int>(milliseconds));
    } else {
        hasEvent = SDL_WaitEvent(&event);
    }
    ++m_wakeUps;
    if (m_logs)
        std::cerr << "wake-up " << m_wakeUps << std::endl;
    for (; hasEvent && !m_isClosed; hasEvent = SDL_PollEvent(&event))
        handle(event);
}

void WindowHost::wake() {
    // The main thread is awake when it calls this, and looks at everything before it sleeps again.
    if (std::this_thread::get_id() == m_mainThread || m_isWaking.exchange(true))
        return;
    SDL_Event event{};
    event.type = m_wakeEvent;
    if (SDL_PushEvent(&event) != 1)
        m_isWaking = false;
}

void WindowHost::textInputChanged(bool active, CGRect caret) {
    if (active) {
        SDL_Rect rect = m_window->windowRect(caret);
        SDL_SetTextInputRect(&rect);
    }
    if (active == m_isTextInputActive)
        return;
    m_isTextInputActive = active;
    if (active)
        SDL_StartTextInput();
    else
        SDL_StopTextInput();
}

NSString WindowHost::clipboardText() const {
    if (!SDL_HasClipboardText())
        return nullptr;
    const std::unique_ptr<char, void (*)(void*)> text(SDL_GetClipboardText(), SDL_free);
    return text.get();
}

void WindowHost::setClipboardText(const NSString& text) { SDL_SetClipboardText(text.UTF8String()); }

} // namespace zr
