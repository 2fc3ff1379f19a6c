#include <ZRPlatform/UIKit/Controllers/Internal/Presentation.h>

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>

#include <algorithm>

namespace zr {

namespace {

constexpr NSTimeInterval kDuration = 0.3;

NSInteger indexInSuperview(const UIView* view) {
    const auto& views = view->superview()->subviews();
    return std::find_if(views.begin(), views.end(), [view](const Ref<UIView>& each) { return each.get() == view; }) -
           views.begin();
}

bool leavesPresenterInPlace(const UIViewController* presented) {
    return presented->modalPresentationStyle() >= UIModalPresentationCustom;
}

} // namespace

bool Presentation::initWithPresenter_presented(UIViewController* presenter, UIViewController* presented) {
    if (!init())
        return false;
    m_presenter = presenter;
    m_presented = presented;
    presenter->m_presentation = this;
    presented->m_presentedBy = this;
    return true;
}

/// What is presented here and, in turn, on top of it; lowest first.
std::vector<Ref<UIViewController>> Presentation::stack() const {
    std::vector<Ref<UIViewController>> controllers;
    for (const Presentation* each = this; each; each = each->m_presented->m_presentation)
        controllers.push_back(each->m_presented);
    return controllers;
}

// Coming

void Presentation::present(bool animated, std::function<void()> completion) {
    const ChangeQueue::Step step;
    m_completion = std::move(completion);
    m_hidesPresenter = !leavesPresenterInPlace(m_presented);
    const Ref<UIViewController> presenter = m_presenter;
    const Ref<UIWindow> window = presenter->m_view->window();
    if (m_hidesPresenter)
        presenter->beginAppearanceTransition_animated(false, animated);
    // The message may have hidden the window: then what is presented appears with it.
    const bool isSeen = !window->isHidden();
    if (isSeen)
        m_presented->beginAppearanceTransition_animated(true, animated);
    const bool isInWindow = presenter->m_view && presenter->m_view->superview() == window;
    const NSInteger index =
        isInWindow ? indexInSuperview(presenter->m_view) + 1 : static_cast<NSInteger>(window->subviews().size());
    ControllerAccess::putView(m_presented, window, index, window->bounds());
    m_tookPresenter = m_hidesPresenter && isInWindow;
    m_done = &Presentation::hasCome;
    if (animated && isSeen)
        glide(m_presented, true, m_done);
    else
        hasCome();
}

void Presentation::hasCome() {
    const ChangeQueue::Step step;
    const Ref<Presentation> keep = this;
    endGlide();
    const Ref<UIViewController> presenter = m_presenter;
    if (m_tookPresenter && presenter->m_view) {
        const UIView* superview = presenter->m_view->superview();
        // Where it fills the window it will do so again, however large that is then.
        m_presenterFrame =
            superview && presenter->m_view->frame() == superview->bounds() ? CGRectZero : presenter->m_view->frame();
        ControllerAccess::takeView(presenter);
    }
    ControllerAccess::endAppearing(m_presented);
    if (m_hidesPresenter)
        ControllerAccess::endDisappearing(presenter);
    m_phase = Phase::There;
    if (const auto completion = std::exchange(m_completion, nullptr))
        completion();
}

// Going

void Presentation::dismiss(bool animated, std::function<void()> completion) {
    const ChangeQueue::Step step;
    const Ref<Presentation> keep = this;
    const Ref<UIViewController> presenter = m_presenter;
    m_completion = std::move(completion);
    const auto leaving = stack();
    for (const auto& controller : leaving)
        controller->m_presentedBy->m_phase = Phase::Going;
    const Ref<UIViewController> foremost = leaving.back();
    const Ref<UIWindow> window = foremost->m_view ? foremost->m_view->window() : nullptr;
    const bool isSeen = window && !window->isHidden();
    for (auto controller = leaving.rbegin(); controller != leaving.rend(); ++controller) {
        (*controller)->beginAppearanceTransition_animated(false, animated);
        if (*controller != foremost)
            ControllerAccess::takeView(*controller);
    }
    // Whatever is presented on top of one that leaves the presenter in place may have taken it away for that one.
    if (m_hidesPresenter && isSeen)
        presenter->beginAppearanceTransition_animated(true, animated);
    if (window)
        putPresenterBack(window);
    m_done = &Presentation::hasGone;
    if (animated && isSeen)
        glide(foremost, false, m_done);
    else
        hasGone();
}

void Presentation::putPresenterBack(UIWindow* window) {
    const Ref<UIViewController> foremost = stack().back();
    if (!m_tookPresenter || !foremost->m_view || foremost->m_view->superview() != window)
        return;
    const bool fills = m_presenterFrame == CGRectZero;
    ControllerAccess::putView(m_presenter, window, indexInSuperview(foremost->m_view),
                              fills ? window->bounds() : m_presenterFrame);
}

void Presentation::hasGone() {
    const ChangeQueue::Step step;
    const Ref<Presentation> keep = this;
    endGlide();
    const Ref<UIViewController> presenter = m_presenter;
    const auto gone = stack();
    ControllerAccess::takeView(gone.back());
    if (m_hidesPresenter)
        ControllerAccess::endAppearing(presenter);
    for (auto controller = gone.rbegin(); controller != gone.rend(); ++controller)
        ControllerAccess::endDisappearing(*controller);
    const auto completion = std::exchange(m_completion, nullptr);
    unlink(gone);
    if (completion)
        completion();
}

void Presentation::unlink(const std::vector<Ref<UIViewController>>& stack) {
    for (const auto& controller : stack) {
        const Ref<Presentation> presentation = std::exchange(controller->m_presentedBy, nullptr);
        if (presentation && presentation->m_presenter)
            presentation->m_presenter->m_presentation = nullptr;
    }
}

// Gliding

void Presentation::glide(UIViewController* foremost, bool isComing, void (Presentation::*done)()) {
    UIView* view = foremost->m_view;
    const Ref<UIWindow> window = view->window();
    if (!window) {
        (this->*done)();
        return;
    }
    m_shield = make<UIView>(&UIView::initWithFrame, window->bounds());
    m_shield->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    window->insertSubview_aboveSubview(m_shield, view);
    m_glide = make<ViewGlide>();
    ViewGlide::Path path{view, view->center(), view->center()};
    if (foremost->modalTransitionStyle() == UIModalTransitionStyleCrossDissolve)
        path.startAlpha = 0, path.endAlpha = view->alpha();
    else
        path.start.y += view->superview()->bounds().size.height;
    m_glide->addPath(path);
    m_glide->showProgress(isComing ? 0 : 1);
    const Weak<Presentation> weakSelf = this;
    m_glide->glideTo(isComing ? 1 : 0, kDuration, UIViewAnimationCurveEaseInOut, [weakSelf, done] {
        if (const Ref<Presentation> self = weakSelf.lock())
            (self.get()->*done)();
    });
}

void Presentation::endGlide() {
    if (m_shield)
        m_shield->removeFromSuperview();
    m_shield = nullptr;
    const Ref<ViewGlide> glide = std::exchange(m_glide, nullptr);
    if (!glide)
        return;
    glide->stop();
    // A view that has gone looks, when it is next used, as it did before.
    if (isGoing())
        glide->showProgress(1);
}

void Presentation::finish() {
    const Ref<Presentation> keep = this;
    m_presented->finishTransitions();
    if (m_glide)
        (this->*m_done)();
}

void Presentation::finishAll() {
    Ref<Presentation> lowest = this;
    while (lowest->isGoing() && lowest->m_presenter->m_presentedBy && lowest->m_presenter->m_presentedBy->isGoing())
        lowest = lowest->m_presenter->m_presentedBy;
    lowest->finish();
}

void Presentation::takeAway() {
    const Ref<Presentation> keep = this;
    endGlide();
    const auto gone = stack();
    for (auto controller = gone.rbegin(); controller != gone.rend(); ++controller) {
        (*controller)->beginAppearanceTransition_animated(false, false);
        ControllerAccess::takeView(*controller);
        ControllerAccess::endDisappearing(*controller);
    }
    unlink(gone);
    m_presenter = nullptr;
}

// The controllers' side

void UIViewController::presentViewController_animated_completion(UIViewController* controller, bool animated,
                                                                 std::function<void()> completion) {
    ChangeQueue::perform([self = Ref<UIViewController>(this), presented = Ref<UIViewController>(controller), animated,
                          completion = std::move(completion)] {
        const Ref<UIViewController> presenter = self->outermost();
        if (Presentation* presentedBy = presenter->m_presentedBy)
            presentedBy->finishAll();
        else
            presenter->finishTransitions();
        const UIWindow* window = presenter->m_view ? presenter->m_view->window() : nullptr;
        if (!presented || presented == presenter || !ControllerAccess::isFree(presented) || presenter->m_presentation ||
            !window || window->isHidden()) {
            NSLog("a controller cannot be presented: it is nil, shown elsewhere or has a parent; or the presenting one "
                  "presents another or is not on the screen");
            return;
        }
        const auto presentation = make<Presentation>(&Presentation::initWithPresenter_presented, presenter, presented);
        presentation->present(animated, completion);
    });
}

void UIViewController::dismissViewControllerAnimated_completion(bool animated, std::function<void()> completion) {
    ChangeQueue::perform([self = Ref<UIViewController>(this), animated, completion = std::move(completion)] {
        Ref<Presentation> meant;
        for (UIViewController* each = self; each && !meant; each = each->m_parent)
            meant = each->m_presentation;
        for (UIViewController* each = self; each && !meant; each = each->m_parent)
            meant = each->m_presentedBy;
        if (meant) {
            const bool wasGoing = meant->isGoing();
            meant->finishAll();
            if (!wasGoing) {
                meant->dismiss(animated, completion);
                return;
            }
        }
        if (completion)
            completion();
    });
}

UIViewController* UIViewController::presentedViewController() const {
    for (const UIViewController* each = this; each; each = each->m_parent) {
        if (each->m_presentation)
            return each->m_presentation->presented();
    }
    return nullptr;
}

UIViewController* UIViewController::presentingViewController() const {
    for (const UIViewController* each = this; each; each = each->m_parent) {
        if (each->m_presentedBy)
            return each->m_presentedBy->presenter();
    }
    return nullptr;
}

bool UIViewController::isBeingPresented() const { return m_presentedBy && m_presentedBy->isComing(); }
bool UIViewController::isBeingDismissed() const { return m_presentedBy && m_presentedBy->isGoing(); }

UIViewController* UIViewController::frontmost() {
    UIViewController* front = outermost();
    while (front->m_presentation && !front->m_presentation->isGoing())
        front = front->m_presentation->presented();
    return front;
}

} // namespace zr
