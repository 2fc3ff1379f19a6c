#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Hosts/Window/Internal/DesktopWindow.h>

#include <atomic>
#include <thread>

namespace zr {

/// An application in a window of the desktop, on the real clock.
///
/// The loop sleeps until there is something to do: an event of the window system, a timer, a hand-over from another
/// thread, or a frame: the next of 60 a second while something glides, the next step of what goes in steps.
class WindowHost : public UIApplicationHost {
public:
    WindowHost(std::unique_ptr<DesktopWindow> window, const WindowOptions& options);
    WindowHost(const WindowHost&) = delete;
    WindowHost& operator=(const WindowHost&) = delete;
    ~WindowHost() override;

    UIApplication* application() const { return m_application; }
    /// Shows the window and runs until it is closed.
    void run();

    /// @name UIApplicationHost
    /// @{
    void wake() override;
    void textInputChanged(bool active, CGRect caret) override;
    void close() override { m_isClosed = true; }
    void setSlowMotion(int factor) override { m_clock.setSlowness(factor); }
    NSString clipboardText() const override;
    void setClipboardText(const NSString& text) override;
    /// @}

private:
    void composeIfDue();
    void sleep();
    /// By the real clock.
    std::optional<Nanoseconds> nextDueTime() const;
    bool wantsFrame() const { return m_isVisible && m_application->needsFrame(); }

    void handle(const SDL_Event& event);
    void handleWindow(const SDL_WindowEvent& event);
    void handleMouseButton(const SDL_MouseButtonEvent& event);
    void handleMouseMotion(const SDL_MouseMotionEvent& event);
    void handleMouseWheel(const SDL_MouseWheelEvent& event);
    void handleFinger(const SDL_TouchFingerEvent& event);
    void handleKey(const SDL_Keysym& key);
    void handleMarkedText(const char* text, int cursor, int length);

    std::unique_ptr<DesktopWindow> m_window;
    /// The application's.
    PacedClock& m_clock;
    Ref<UIApplication> m_application;
    const std::thread::id m_mainThread = std::this_thread::get_id();
    const bool m_logs;
    Uint32 m_wakeEvent = 0;
    /// One wake event at a time is on its way.
    std::atomic<bool> m_isWaking{false};
    /// By the real clock, whose beat is the display's.
    Nanoseconds m_nextFrameTime = 0;
    std::int64_t m_frames = 0;
    std::int64_t m_wakeUps = 0;
    bool m_isVisible = true;
    bool m_isMouseDown = false;
    bool m_isTextInputActive = false;
    bool m_isClosed = false;
};

} // namespace zr
