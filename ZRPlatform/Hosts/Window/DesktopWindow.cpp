#include <ZRPlatform/Hosts/Window/Internal/DesktopWindow.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace zr {

namespace {

constexpr double kSmallestScale = 0.5;
/// Milliseconds for what was sent to the window to arrive.
constexpr Uint32 kLastMessageTime = 50;
/// Title bar and borders, in the window system's coordinates; they are known only once a window is on the screen.
constexpr int kTitleBarHeight = 40;

/// How frames lie in memory: blue, green, red, and a byte that does not count.
constexpr SDL_PixelFormatEnum kFrameFormat =
    SDL_BYTEORDER == SDL_LIL_ENDIAN ? SDL_PIXELFORMAT_XRGB8888 : SDL_PIXELFORMAT_BGRX8888;

void setHints() {
    // Fingers come as fingers, not as a mouse too.
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    // The click that activates the window is a touch like others.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_IME_SHOW_UI, "1");
    SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
    // Not a game: leaves the desktop's effects and its screen saver on.
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
}

/// The kinds of desktop that the environment names. Left to itself, SDL would try them all, noisily, and end up with a
/// driver that shows nothing.
std::string desktopDrivers() {
    std::string drivers;
    if (std::getenv("DISPLAY"))
        drivers = "x11";
    if (std::getenv("WAYLAND_DISPLAY"))
        drivers += drivers.empty() ? "wayland" : ",wayland";
    return drivers;
}

bool openDesktop(std::string& error) {
    setHints();
    if (!std::getenv("SDL_VIDEODRIVER")) {
        const std::string drivers = desktopDrivers();
        if (drivers.empty()) {
            error = "there is no display";
            return false;
        }
        SDL_SetHint(SDL_HINT_VIDEODRIVER, drivers.c_str());
    }
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        error = SDL_GetError();
        return false;
    }
    // X11 takes single rectangles from shared memory; a texture would be uploaded whole for every frame.
    if (!std::strcmp(SDL_GetCurrentVideoDriver(), "x11"))
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    return true;
}

int rounded(double value) { return static_cast<int>(std::lround(value)); }

} // namespace

std::unique_ptr<DesktopWindow> DesktopWindow::open(const WindowOptions& options, CGSize screen, std::string& error) {
    if (!openDesktop(error))
        return nullptr;
    std::unique_ptr<DesktopWindow> window(new DesktopWindow);
    window->m_window =
        SDL_CreateWindow(options.title.UTF8String(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                         rounded(screen.width), rounded(screen.height), SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI);
    if (!window->m_window) {
        error = SDL_GetError();
        return nullptr;
    }
    window->m_scale =
        options.windowScale ? *options.windowScale : window->largestScaleThatFits(screen, options.profile.scale);
    // In the middle with its real size, which the first frame would give it only after it was placed.
    const double pointsToUnits = window->m_scale / window->density();
    SDL_SetWindowSize(window->m_window, rounded(screen.width * pointsToUnits), rounded(screen.height * pointsToUnits));
    SDL_SetWindowPosition(window->m_window, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    return window;
}

DesktopWindow::~DesktopWindow() {
    if (m_window) {
        // SDL wakes itself by a message to its window, sent through a connection of its own. Should the display server
        // read that only after the window is gone, the program ends with an error; and there is no way to ask whether
        // it has. So the server is given the time, with the window out of sight.
        SDL_HideWindow(m_window);
        SDL_Delay(kLastMessageTime);
        SDL_DestroyWindow(m_window);
    }
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

double DesktopWindow::density() const {
    int width = 0;
    int pixels = 0;
    SDL_GetWindowSize(m_window, &width, nullptr);
    SDL_GetWindowSizeInPixels(m_window, &pixels, nullptr);
    return width > 0 && pixels > 0 ? static_cast<double>(pixels) / width : 1;
}

double DesktopWindow::largestScaleThatFits(CGSize screen, double preferredScale) const {
    SDL_Rect desktop;
    if (SDL_GetDisplayUsableBounds(std::max(0, SDL_GetWindowDisplayIndex(m_window)), &desktop) != 0)
        return preferredScale;
    const double fitting =
        density() * std::min(desktop.w / screen.width, (desktop.h - kTitleBarHeight) / screen.height);
    if (fitting >= preferredScale)
        return preferredScale;
    return std::max(kSmallestScale, std::floor(fitting * 2) / 2);
}

void DesktopWindow::resizeTo(int pixelWidth, int pixelHeight) {
    m_pixelWidth = pixelWidth;
    m_pixelHeight = pixelHeight;
    SDL_SetWindowSize(m_window, rounded(pixelWidth / density()), rounded(pixelHeight / density()));
}

void DesktopWindow::present(const Compositor& frame, const std::vector<PixelRect>& damage) {
    const bool sizeChanged = frame.width() != m_pixelWidth || frame.height() != m_pixelHeight;
    if (sizeChanged)
        resizeTo(frame.width(), frame.height());
    SDL_Surface* surface = SDL_GetWindowSurface(m_window);
    if (!surface)
        return;
    // A window manager may have given the window another size than it asked for.
    const PixelRect visible = intersection({0, 0, surface->w, surface->h}, {0, 0, frame.width(), frame.height()});
    std::vector<SDL_Rect> updated;
    for (const PixelRect& rect : sizeChanged ? std::vector{visible} : damage) {
        const PixelRect part = intersection(rect, visible);
        if (part.isEmpty())
            continue;
        const std::uint32_t* source = frame.pixels() + static_cast<std::ptrdiff_t>(part.y) * frame.width() + part.x;
        auto* target = static_cast<std::uint8_t*>(surface->pixels) +
                       static_cast<std::ptrdiff_t>(part.y) * surface->pitch +
                       static_cast<std::ptrdiff_t>(part.x) * surface->format->BytesPerPixel;
        SDL_ConvertPixels(part.width, part.height, kFrameFormat, source, frame.width() * 4, surface->format->format,
                          target, surface->pitch);
        updated.push_back({part.x, part.y, part.width, part.height});
    }
    if (!updated.empty())
        SDL_UpdateWindowSurfaceRects(m_window, updated.data(), static_cast<int>(updated.size()));
}

void DesktopWindow::presentAll(const Compositor& frame) { present(frame, {{0, 0, frame.width(), frame.height()}}); }

CGPoint DesktopWindow::pointFromWindow(double x, double y) const {
    const double points = density() / m_scale;
    return {static_cast<CGFloat>(x * points), static_cast<CGFloat>(y * points)};
}

CGPoint DesktopWindow::pointFromFraction(double x, double y) const {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(m_window, &width, &height);
    return pointFromWindow(x * width, y * height);
}

SDL_Rect DesktopWindow::windowRect(CGRect rect) const {
    const double pixels = m_scale / density();
    return {rounded(rect.origin.x * pixels), rounded(rect.origin.y * pixels), rounded(rect.size.width * pixels),
            rounded(rect.size.height * pixels)};
}

} // namespace zr
