#pragma once

#include <ZRPlatform/QuartzCore/Composition/Compositor.h>
#include <ZRPlatform/UIKit/Application/DebugAids.h>
#include <ZRPlatform/UIKit/Application/UIApplicationHost.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Events/UIResponder.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zr { // not exported
class FrameTimes;
class GestureArbiter;
class KeyboardFocus;
class TouchDispatcher;
class TouchMarks;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class UIApplication;
class UITouch;

/// Posted by the application after its delegate has started it.
inline constexpr const char* UIApplicationDidFinishLaunchingNotification =
    "UIApplicationDidFinishLaunchingNotification";
/// Posted by the application after the screen has turned.
inline constexpr const char* UIApplicationDidChangeStatusBarOrientationNotification =
    "UIApplicationDidChangeStatusBarOrientationNotification";
/// For applications and hosts to post; view controllers then get `didReceiveMemoryWarning`.
inline constexpr const char* UIApplicationDidReceiveMemoryWarningNotification =
    "UIApplicationDidReceiveMemoryWarningNotification";

/// Posted by the application before the status bar's frame changes.
inline constexpr const char* UIApplicationWillChangeStatusBarFrameNotification =
    "UIApplicationWillChangeStatusBarFrameNotification";
/// Posted by the application after it has changed, inside the animation of the change.
inline constexpr const char* UIApplicationDidChangeStatusBarFrameNotification =
    "UIApplicationDidChangeStatusBarFrameNotification";

/// Whether dark or light letters are wished for. Nothing is drawn there.
enum UIStatusBarStyle : NSInteger { UIStatusBarStyleDefault = 0, UIStatusBarStyleLightContent = 1 };

/// How what lies below the status bar moves; a fade looks like a slide.
enum UIStatusBarAnimation : NSInteger {
    UIStatusBarAnimationNone = 0,
    UIStatusBarAnimationFade = 1,
    UIStatusBarAnimationSlide = 2,
};

/// The application's own part: what to do at start and end.
class UIApplicationDelegate : public UIResponder {
public:
    /// The program has started: make the windows here. False ends it.
    virtual bool applicationDidFinishLaunching(UIApplication*) { return true; }
    /// The program is about to end: the last moment to keep something. Does nothing unless overridden.
    virtual void applicationWillTerminate(UIApplication*) {}
};

/// The one application object: its windows, its touches, its frames. A host makes it and drives it.
class UIApplication : public UIResponder {
public:
    /// The one that the host has made; null before and after.
    static UIApplication* sharedApplication();

    UIApplication();
    /// Takes the views off the windows that are still shown.
    ~UIApplication() override;

    /// Kept, unlike other delegates. `launch` sets it.
    UIApplicationDelegate* delegate() const { return m_delegate; }
    void setDelegate(UIApplicationDelegate* delegate) { m_delegate = delegate; }
    /// Visible windows, lowest first.
    std::vector<UIWindow*> windows() const;
    /// Where typing goes; nil for none.
    UIWindow* keyWindow() const { return m_keyWindow.get(); }
    /// The key window's; nil when typing goes nowhere.
    UIResponder* firstResponder() const;
    /// Where the keyboard is; nil while it is nowhere. See `UIView::canBecomeFocused`.
    UIView* focusedView() const;
    /// How the interface stands.
    UIInterfaceOrientation statusBarOrientation() const;
    /// Turns the device: the screen's bounds follow, and `UIApplicationDidChangeStatusBarOrientationNotification` is
    /// posted. When a view controller in front does not allow it, everything stays as it is; see
    /// `UIViewController::attemptRotationToDeviceOrientation`.
    void setStatusBarOrientation(UIInterfaceOrientation orientation);

    /// @name Status bar
    /// The uppermost 20 points of the screen in every orientation. The platform draws nothing there: style and hiding
    /// are for those who lay out and paint below it. A tap there goes to what lies below, and if that is no control, it
    /// brings the content of the one scroll view that `scrollsToTop` back to its beginning. What a controller wishes
    /// counts from when its wish changes or the controller comes to the front; what is set here, from when it is set.
    /// @{
    /// In points of the screen; the zero rectangle while it is hidden.
    CGRect statusBarFrame() const;
    /// Whether there is no status bar to stay clear of; false at first.
    bool isStatusBarHidden() const { return m_statusBar.hidden; }
    /// The same as `setStatusBarHidden_withAnimation` without an animation.
    void setStatusBarHidden(bool hidden) { setStatusBarHidden_withAnimation(hidden, UIStatusBarAnimationNone); }
    /// Hides the status bar or shows it. With an animation, what lies below it moves in 0.35 s.
    void setStatusBarHidden_withAnimation(bool hidden, UIStatusBarAnimation animation);
    /// What letters are wished for; dark ones at first. Setting it changes nothing that is drawn.
    UIStatusBarStyle statusBarStyle() const { return m_statusBar.style; }
    void setStatusBarStyle(UIStatusBarStyle style) { m_statusBar.style = style; }
    /// The same as `setStatusBarStyle`: there is nothing to animate.
    void setStatusBarStyle_animated(UIStatusBarStyle style, bool) { setStatusBarStyle(style); }
    /// @}

    /// @name Debugging
    /// @{
    /// What helps with debugging and is on now; nothing at first.
    const DebugAids& debugAids() const { return m_debugAids; }
    /// Turns such aids on and off: from the next frame on, slow motion at once. Numbers out of range are cut to it.
    void setDebugAids(const DebugAids& aids);
    /// @}

    /// From here to `endIgnoringInteractionEvents` touches are ignored. Calls nest.
    void beginIgnoringInteractionEvents() { ++m_ignoringInteractionEvents; }
    /// Ends the latest `beginIgnoringInteractionEvents`.
    void endIgnoringInteractionEvents();
    /// Whether touches are ignored now.
    bool isIgnoringInteractionEvents() const { return m_ignoringInteractionEvents > 0; }
    /// Sends `action` to `target`; when that is nil, to whoever takes it first upwards of the first responder, else
    /// upwards of `sender`. False when nobody did.
    bool sendAction_to_from_forEvent(SEL action, NSObject* target, NSObject* sender, UIEvent* event);

    /// @name The host's side
    /// @{
    /// Who drives the application; not kept, and null once the host has gone.
    UIApplicationHost* host() const { return m_host; }
    void setHost(UIApplicationHost* host);
    /// Makes `delegate` the application's, lets it start, and posts `UIApplicationDidFinishLaunchingNotification`.
    /// False when it refuses, or is nil.
    bool launch(UIApplicationDelegate* delegate);
    /// Tells the delegate, if there is one, that the end has come. The application lets go of it as it goes.
    void terminate();
    /// A finger goes down: `identifier` tells fingers apart, the place is in points of the screen.
    void touchBegan(std::int64_t identifier, CGPoint location);
    /// That finger is somewhere else now.
    void touchMoved(std::int64_t identifier, CGPoint location);
    /// That finger goes up, at this place.
    void touchEnded(std::int64_t identifier, CGPoint location);
    /// That finger is not the application's any more: what it touches is told of a cancellation.
    void touchCancelled(std::int64_t identifier);
    /// A wheel, or two fingers on a trackpad, over that place: what scrolls there does so by `delta` points, positive
    /// ones towards the end of its content. False when nothing does.
    bool wheelTurned(CGPoint location, CGPoint delta);
    /// Typed text, to the first responder. False when nobody takes text.
    bool insertText(const NSString& text);
    /// What an input method is composing, to the first responder; see `UITextInput`. False when nobody takes text.
    bool setMarkedText_selectedRange(const NSString& text, NSRange range);
    /// A key that is not text: for the first responder, else for the view where the keyboard is. What both leave moves
    /// the keyboard about; see `UIView::canBecomeFocused`.
    bool keyPressed(UIKey key, unsigned modifiers) override;
    /// The control key with 'a', 'c', 'v' or 'x': select all, copy, paste, cut. False when nobody used it.
    bool clipboardKey(char letter);
    /// When a frame would show something new, a moment that has passed already for at once; none when nothing would
    /// until something is changed.
    std::optional<Nanoseconds> nextFrameTime() const;
    /// Whether a frame would show something new now.
    bool needsFrame() const;
    /// Ends a turn: layout, display, animations start, composition. Returns the picture; see `Compositor::damage`.
    Compositor& commitFrame();
    /// What makes the pictures: another one after the screen's size in pixels has changed.
    Compositor& compositor();
    /// @}

private:
    friend class GestureArbiter;
    friend class KeyboardFocus;
    friend class UIWindow;
    friend class UIView;
    friend class UIViewController;

    struct StatusBar {
        bool hidden = false;
        UIStatusBarStyle style = UIStatusBarStyleDefault;
    };

    void rotateTo(UIInterfaceOrientation orientation);
    void rotateToDeviceOrientation();
    void takeStatusBarWish();
    bool isStatusBarTap(const UITouch* touch, CGPoint start, CGPoint end) const;
    void statusBarTapped();
    void emptyWindows();
    void windowShown(UIWindow* window);
    void windowHidden(UIWindow* window);
    void windowLevelChanged();
    void setKeyWindow(UIWindow* window);
    void keyWindowLost(UIWindow* window);
    void tellHostOfTextInput();
    bool sendKey(const Ref<UIResponder>& responder, UIKey key, unsigned modifiers);
    void touchByKeyboard(std::int64_t identifier, CGPoint location);
    /// The touches of the view and of those below it are cancelled.
    void cancelTouchesInView(UIView* view);
    /// A view leaves its window: its touches are cancelled, and it stops being first responder.
    void viewLeavesWindow(UIView* view);
    void showFrameMarks(Compositor& picture, double milliseconds);

    UIApplicationHost* m_host = nullptr;
    Ref<UIApplicationDelegate> m_delegate;
    /// Visible windows by level and order of showing; not kept.
    std::vector<UIWindow*> m_windows;
    std::vector<Weak<UIWindow>> m_formerKeyWindows;
    Weak<UIWindow> m_keyWindow;
    /// As the user holds the device; the interface may not have followed.
    UIInterfaceOrientation m_deviceOrientation;
    StatusBar m_statusBar;
    /// What the controller in front asked for last.
    StatusBar m_statusBarWish;
    std::unique_ptr<GestureArbiter> m_gestures;
    std::unique_ptr<TouchDispatcher> m_touches;
    std::unique_ptr<KeyboardFocus> m_focus;
    std::unique_ptr<Compositor> m_compositor;
    DebugAids m_debugAids;
    /// Only while they are shown.
    std::unique_ptr<TouchMarks> m_touchMarks;
    std::unique_ptr<FrameTimes> m_frameTimes;
    int m_ignoringInteractionEvents = 0;
    bool m_sendingKey = false;
};

/// Opens a window, makes the delegate, and runs until the window is closed. Returns the program's exit code; 1, with a
/// line on standard error, when no window can be opened. `--device 320x568@2` and `--system-version 7.0` choose the
/// profile.
int UIApplicationMain(int argc, char** argv, Ref<UIApplicationDelegate> (*makeDelegate)());
/// The same with a delegate of this class, made by `make<AppDelegate>()`.
template <class AppDelegate>
int UIApplicationMain(int argc, char** argv) {
    return UIApplicationMain(argc, argv, [] { return Ref<UIApplicationDelegate>(make<AppDelegate>()); });
}

} // namespace zr
#pragma GCC visibility pop
