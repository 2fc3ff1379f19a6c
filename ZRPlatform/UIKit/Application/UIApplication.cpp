#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/UIKit/Application/Internal/FrameTimes.h>
#include <ZRPlatform/UIKit/Application/Internal/TouchMarks.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>
#include <ZRPlatform/UIKit/Events/Internal/KeyboardFocus.h>
#include <ZRPlatform/UIKit/Events/Internal/TouchDispatcher.h>
#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollInput.h>
#include <ZRPlatform/UIKit/Lists/UITableViewCell.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zr {

namespace {

UIApplication* g_application = nullptr;

void takeApart(UIView* view) {
    const auto subviews = view->subviews();
    for (const auto& subview : subviews) {
        takeApart(subview);
        subview->removeFromSuperview();
    }
}

} // namespace

UIApplication* UIApplication::sharedApplication() { return g_application; }

UIApplication::UIApplication() :
    m_deviceOrientation(UIDevice::currentDevice()->profile().orientation),
    m_gestures(std::make_unique<GestureArbiter>()), m_touches(std::make_unique<TouchDispatcher>(*m_gestures)),
    m_focus(std::make_unique<KeyboardFocus>(*this)) {
    g_application = this;
}

UIApplication::~UIApplication() {
    setHost(nullptr);
    emptyWindows();
    m_delegate = nullptr;
    g_application = nullptr;
}

/// An overlay keeps its window, or the view that it is shown in, and is kept by it; at the end nobody else takes it
/// off.
void UIApplication::emptyWindows() {
    const std::vector<Ref<UIWindow>> shown(m_windows.begin(), m_windows.end());
    for (const auto& window : shown)
        takeApart(window);
}

void UIApplication::setHost(UIApplicationHost* host) {
    m_host = host;
    CATransaction::setFrameHandler(host ? std::function<void()>([host] { host->wake(); }) : nullptr);
}

bool UIApplication::launch(UIApplicationDelegate* delegate) {
    m_delegate = delegate;
    if (!delegate || !delegate->applicationDidFinishLaunching(this))
        return false;
    NSNotificationCenter::defaultCenter()->postNotificationName_object(UIApplicationDidFinishLaunchingNotification,
                                                                       this);
    return true;
}

void UIApplication::terminate() {
    if (const Ref<UIApplicationDelegate> delegate = m_delegate)
        delegate->applicationWillTerminate(this);
}

// Windows

std::vector<UIWindow*> UIApplication::windows() const { return m_windows; }

void UIApplication::windowShown(UIWindow* window) {
    std::erase(m_windows, window);
    m_windows.push_back(window);
    windowLevelChanged();
}

void UIApplication::windowLevelChanged() {
    std::stable_sort(m_windows.begin(), m_windows.end(),
                     [](const UIWindow* a, const UIWindow* b) { return a->windowLevel() < b->windowLevel(); });
    CATransaction::setNeedsFrame();
}

void UIApplication::windowHidden(UIWindow* window) {
    std::erase(m_windows, window);
    if (m_keyWindow.get() == window || !m_keyWindow.get())
        keyWindowLost(window);
    CATransaction::setNeedsFrame();
}

void UIApplication::setKeyWindow(UIWindow* window) {
    const Ref<UIWindow> old = m_keyWindow.lock();
    if (old.get() == window)
        return;
    m_keyWindow = window;
    if (old) {
        std::erase_if(m_formerKeyWindows, [&](const Weak<UIWindow>& w) { return !w.get() || w.get() == old.get(); });
        m_formerKeyWindows.push_back(old);
        old->resignKeyWindow();
        NSNotificationCenter::defaultCenter()->postNotificationName_object(UIWindowDidResignKeyNotification, old);
    }
    if (window && m_keyWindow.get() == window) {
        window->becomeKeyWindow();
        NSNotificationCenter::defaultCenter()->postNotificationName_object(UIWindowDidBecomeKeyNotification, window);
    }
    tellHostOfTextInput();
}

/// Typing goes elsewhere when another window becomes key, without any text input's doing.
void UIApplication::tellHostOfTextInput() {
    if (!m_host)
        return;
    const auto* input = dynamic_cast<UITextInput*>(firstResponder());
    m_host->textInputChanged(input != nullptr, input ? input->caretRectOnScreen() : CGRectZero);
}

void UIApplication::keyWindowLost(UIWindow* window) {
    UIWindow* next = nullptr;
    for (const auto& former : m_formerKeyWindows) {
        UIWindow* candidate = former.get();
        const auto isVisible = [&](const UIWindow* w) {
            return std::find(m_windows.begin(), m_windows.end(), w) != m_windows.end();
        };
        if (!candidate || candidate == window || !isVisible(candidate))
            continue;
        // Of those that were key before, the topmost.
        const auto place = [&](const UIWindow* w) { return std::find(m_windows.begin(), m_windows.end(), w); };
        if (!next || place(candidate) > place(next))
            next = candidate;
    }
    setKeyWindow(next);
    std::erase_if(m_formerKeyWindows, [&](const Weak<UIWindow>& w) { return !w.get() || w.get() == window; });
}

UIResponder* UIApplication::firstResponder() const {
    const UIWindow* window = m_keyWindow.get();
    return window ? window->firstResponder() : nullptr;
}

// Events

void UIApplication::endIgnoringInteractionEvents() {
    m_ignoringInteractionEvents = std::max(0, m_ignoringInteractionEvents - 1);
}

bool UIApplication::sendAction_to_from_forEvent(SEL action, NSObject* target, NSObject* sender, UIEvent* event) {
    if (!target) {
        const auto takerUpwardsOf = [action](UIResponder* responder) {
            while (responder && !action.isAcceptedBy(responder))
                responder = responder->nextResponder();
            return responder;
        };
        target = takerUpwardsOf(firstResponder());
        if (!target)
            target = takerUpwardsOf(dynamic_cast<UIResponder*>(sender));
    }
    if (!action.isAcceptedBy(target))
        return false;
    const Ref<NSObject> keep = target;
    const NSValue arguments[] = {sender, event};
    action.send(target, arguments);
    return true;
}

void UIApplication::touchBegan(std::int64_t identifier, CGPoint location) {
    m_focus->forget();
    if (m_touchMarks)
        m_touchMarks->show(identifier, location);
    if (m_ignoringInteractionEvents == 0)
        m_touches->began(identifier, location, m_windows);
}

void UIApplication::touchByKeyboard(std::int64_t identifier, CGPoint location) {
    m_touches->began(identifier, location, m_windows);
    m_touches->ended(identifier, location);
}

void UIApplication::touchMoved(std::int64_t identifier, CGPoint location) {
    if (m_touchMarks)
        m_touchMarks->show(identifier, location);
    m_touches->moved(identifier, location);
}

void UIApplication::touchEnded(std::int64_t identifier, CGPoint location) {
    if (m_touchMarks)
        m_touchMarks->fadeOut(identifier);
    const auto finger = m_touches->finger(identifier);
    const bool isStatusBarTouched = finger && isStatusBarTap(finger->touch, finger->start, location);
    m_touches->ended(identifier, location);
    if (isStatusBarTouched)
        statusBarTapped();
}

void UIApplication::touchCancelled(std::int64_t identifier) {
    if (m_touchMarks)
        m_touchMarks->fadeOut(identifier);
    m_touches->cancelled(identifier);
}

bool UIApplication::wheelTurned(CGPoint location, CGPoint delta) {
    return m_ignoringInteractionEvents == 0 && turnWheelOver(TouchDispatcher::viewAt(location, m_windows), delta);
}

void UIApplication::cancelTouchesInView(UIView* view) { m_touches->cancelTouchesInView(view); }

void UIApplication::viewLeavesWindow(UIView* view) {
    cancelTouchesInView(view);
    if (dynamic_cast<UITableViewCell*>(view))
        m_focus->cellLeaves(view);
    const UIWindow* window = view->window();
    UIResponder* first = window ? window->firstResponder() : nullptr;
    const auto* firstView = dynamic_cast<UIView*>(first);
    if (const auto* controller = dynamic_cast<UIViewController*>(first))
        firstView = controller->viewIfLoaded();
    if (!firstView || !firstView->isDescendantOfView(view))
        return;
    // It is asked, but cannot stay.
    const Ref<UIResponder> keep = first;
    first->resignFirstResponder();
    if (UIWindow* left = view->window())
        left->dropFirstResponder(first);
}

bool UIApplication::insertText(const NSString& text) {
    const Ref<UIResponder> responder = firstResponder();
    auto* input = dynamic_cast<UITextInput*>(responder.get());
    if (input)
        input->insertText(text);
    return input != nullptr;
}

bool UIApplication::setMarkedText_selectedRange(const NSString& text, NSRange range) {
    const Ref<UIResponder> responder = firstResponder();
    auto* input = dynamic_cast<UITextInput*>(responder.get());
    if (input)
        input->setMarkedText_selectedRange(text, range);
    return input != nullptr;
}

bool UIApplication::keyPressed(UIKey key, unsigned modifiers) {
    // The application is the end of the responder chain: a key that comes back up to it was used by nobody there.
    if (m_sendingKey)
        return false;
    const Ref<UIResponder> focused = focusedView();
    return sendKey(firstResponder(), key, modifiers) || sendKey(focused, key, modifiers) ||
           m_focus->keyPressed(key, modifiers);
}

bool UIApplication::sendKey(const Ref<UIResponder>& responder, UIKey key, unsigned modifiers) {
    if (!responder)
        return false;
    m_sendingKey = true;
    const bool used = responder->keyPressed(key, modifiers);
    m_sendingKey = false;
    return used;
}

UIView* UIApplication::focusedView() const { return m_focus->view(); }

bool UIApplication::clipboardKey(char letter) {
    const Ref<UIResponder> responder = firstResponder();
    auto* input = dynamic_cast<UITextInput*>(responder.get());
    if (!input || !m_host)
        return false;
    switch (letter) {
    case 'a':
        input->selectAll();
        return true;
    case 'c':
    case 'x': {
        const NSString selected = input->selectedText();
        if (selected.length() == 0)
            return false;
        m_host->setClipboardText(selected);
        if (letter == 'x')
            input->deleteBackward();
        return true;
    }
    case 'v':
        if (m_host->clipboardText().length() == 0)
            return false;
        input->insertText(m_host->clipboardText());
        return true;
    default:
        return false;
    }
}

// Frames

std::optional<Nanoseconds> UIApplication::nextFrameTime() const {
    const Nanoseconds now = Clock::current().now();
    if (CATransaction::needsFrame())
        return now;
    if (!m_compositor || !std::isfinite(m_compositor->nextChangeTime()))
        return std::nullopt;
    return nanosecondsFromSeconds(m_compositor->nextChangeTime());
}

bool UIApplication::needsFrame() const {
    const std::optional<Nanoseconds> next = nextFrameTime();
    return next && *next <= Clock::current().now();
}

Compositor& UIApplication::compositor() {
    const UIScreen* screen = UIScreen::mainScreen();
    const CGSize size = screen->bounds().size;
    const int width = static_cast<int>(std::lround(size.width * screen->scale()));
    const int height = static_cast<int>(std::lround(size.height * screen->scale()));
    if (!m_compositor || m_compositor->width() != width || m_compositor->height() != height)
        m_compositor = std::make_unique<Compositor>(width, height, screen->scale());
    return *m_compositor;
}

Compositor& UIApplication::commitFrame() {
    using RealClock = std::chrono::steady_clock;
    const auto start = RealClock::now();
    const auto roots = [this] {
        std::vector<CALayer*> layers;
        for (const UIWindow* window : m_windows)
            layers.push_back(window->layer());
        return layers;
    };
    CATransaction::commit(roots());
    if (m_focus->placeRing())
        CATransaction::commit(roots());
    Compositor& picture = compositor();
    picture.compose(roots(), {m_debugAids.showsLayerBorders, m_touchMarks ? m_touchMarks->layer() : nullptr});
    if (m_debugAids.showsDamage || m_frameTimes)
        showFrameMarks(picture, std::chrono::duration<double, std::milli>(RealClock::now() - start).count());
    return picture;
}

// Debugging

void UIApplication::setDebugAids(const DebugAids& aids) {
    m_debugAids = aids;
    m_debugAids.slowMotion = std::clamp(aids.slowMotion, 1, DebugAids::slowestMotion);
    if (m_host)
        m_host->setSlowMotion(m_debugAids.slowMotion);
    if (aids.showsTouches != (m_touchMarks != nullptr))
        m_touchMarks = aids.showsTouches ? std::make_unique<TouchMarks>() : nullptr;
    if (aids.showsFrameTimes != (m_frameTimes != nullptr))
        m_frameTimes = aids.showsFrameTimes ? std::make_unique<FrameTimes>() : nullptr;
    if (m_compositor)
        m_compositor->removeMarks();
    CATransaction::setNeedsFrame();
}

/// A frame that changed nothing leaves the marks of the last one that did.
void UIApplication::showFrameMarks(Compositor& picture, double milliseconds) {
    if (picture.damage().empty())
        return;
    FrameMarks marks;
    marks.tintsDamage = m_debugAids.showsDamage;
    if (m_frameTimes) {
        m_frameTimes->add(milliseconds);
        marks.note = m_frameTimes->drawNote();
    }
    picture.showMarks(marks);
}

} // namespace zr
