#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Hosts/Window/RunInWindow.h>

#include <SDL.h>
#include <memory>
#include <string>
#include <vector>

namespace zr {

/// A window of the desktop that shows frames, one pixel of the frame on one of the desktop.
class DesktopWindow {
public:
    /// Opens a hidden window for a screen of that size in points, and chooses its scale. Null when there is no desktop;
    /// `error` says why.
    static std::unique_ptr<DesktopWindow> open(const WindowOptions& options, CGSize screen, std::string& error);
    DesktopWindow(const DesktopWindow&) = delete;
    DesktopWindow& operator=(const DesktopWindow&) = delete;
    ~DesktopWindow();

    /// Desktop pixels a point.
    double scale() const { return m_scale; }
    void show() { SDL_ShowWindow(m_window); }
    /// Copies the damaged pixels to the window; all of them when the window's size changes to the frame's.
    void present(const Compositor& frame, const std::vector<PixelRect>& damage);
    /// Copies the whole frame again, after something has covered the window.
    void presentAll(const Compositor& frame);

    /// The window system's coordinates, which are larger than pixels on dense desktops, to points and back.
    CGPoint pointFromWindow(double x, double y) const;
    /// A place 0..1 of the window's width and height to points.
    CGPoint pointFromFraction(double x, double y) const;
    SDL_Rect windowRect(CGRect rect) const;

private:
    DesktopWindow() = default;

    double density() const;
    double largestScaleThatFits(CGSize screen, double preferredScale) const;
    void resizeTo(int pixelWidth, int pixelHeight);

    SDL_Window* m_window = nullptr;
    double m_scale = 1;
    int m_pixelWidth = 0;
    int m_pixelHeight = 0;
};

} // namespace zr
