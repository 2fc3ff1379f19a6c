#include <ZRPlatform/UIKit/Controllers/Internal/ViewGlide.h>

namespace zr {

namespace {

CGPoint between(CGPoint start, CGPoint end, CGFloat progress) {
    // The ends exactly, whatever rounding does in the middle.
    if (progress == 1)
        return end;
    return {start.x + (end.x - start.x) * progress, start.y + (end.y - start.y) * progress};
}

} // namespace

CGPoint centerOfFrame(CGRect frame) {
    return {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
}

void placeAtOnce(UIView* view, CGRect frame) {
    UIView::performWithoutAnimation([&] { view->setFrame(frame); });
}

void ViewGlide::place(CGFloat progress) {
    m_progress = progress;
    for (const Path& path : m_paths) {
        path.view->setCenter(between(path.start, path.end, progress));
        if (path.startAlpha != path.endAlpha)
            path.view->setAlpha(path.startAlpha + (path.endAlpha - path.startAlpha) * progress);
    }
}

void ViewGlide::showProgress(CGFloat progress) {
    UIView::performWithoutAnimation([&] { place(progress); });
}

void ViewGlide::glideTo(CGFloat progress, NSTimeInterval duration, UIViewAnimationCurve curve,
                        std::function<void()> done) {
    const int movement = ++m_movement;
    const Ref<ViewGlide> self = this;
    UIView::animateWithDuration_delay_options_animations_completion(
        duration, 0, static_cast<NSUInteger>(curve) << 16, [&] { place(progress); },
        [self, movement, done = std::move(done)](bool) {
            if (self->m_movement == movement)
                done();
        });
}

void ViewGlide::stop() {
    ++m_movement;
    for (const Path& path : m_paths) {
        path.view->layer()->removeAnimationForKey("position");
        if (path.startAlpha != path.endAlpha)
            path.view->layer()->removeAnimationForKey("opacity");
    }
}

} // namespace zr
