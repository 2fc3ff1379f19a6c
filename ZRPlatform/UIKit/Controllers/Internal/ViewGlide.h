#pragma once

#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr {

/// Views that go together from one place and opacity to another: by themselves, or as a finger says.
class ViewGlide : public NSObject {
public:
    /// Alphas that are the same at both ends are left alone.
    struct Path {
        Ref<UIView> view;
        CGPoint start, end;
        CGFloat startAlpha = 1, endAlpha = 1;
    };

    void addPath(const Path& path) { m_paths.push_back(path); }
    /// At once; 0 is the start, 1 the end.
    void showProgress(CGFloat progress);
    CGFloat progress() const { return m_progress; }
    /// From where the views are; `done` is called when they have arrived, unless they are stopped.
    void glideTo(CGFloat progress, NSTimeInterval duration, UIViewAnimationCurve curve, std::function<void()> done);
    /// They are at once where they were heading.
    void stop();

private:
    void place(CGFloat progress);

    std::vector<Path> m_paths;
    CGFloat m_progress = 0;
    /// Tells the end of the present movement from that of one that was stopped.
    int m_movement = 0;
};

/// Moves `view` so that its frame's size and place are those of `frame`, without animation.
void placeAtOnce(UIView* view, CGRect frame);
/// The centre that a view of this frame has.
CGPoint centerOfFrame(CGRect frame);

} // namespace zr
