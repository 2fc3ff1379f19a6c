#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/QuartzCore/Composition/Compositor.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace zr { // not exported
class AnimationRecorder;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// The colour of one pixel of a frame, each part 0..255.
struct FramePixel {
    /// 0..255.
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const FramePixel&, const FramePixel&) = default;
};
std::ostream& operator<<(std::ostream& stream, const FramePixel& pixel);

/// An application without a screen: touches, keys and time come from code, frames and view trees are read back. Time
/// is a manual clock that starts at 0 and moves only as asked, so two runs give the same frames, byte for byte. In slow
/// motion the application's clock lags behind it, as behind a real one.
///
///     HeadlessHost host;
///     window->makeKeyAndVisible();
///     host.tap({100, 40});
///     host.advance(0.3);
///     EXPECT_EQ(host.pixel({10, 10}), (FramePixel{255, 255, 255}));
///
/// Making one makes the application object; one at a time, on the main thread, and any number after one another. Its
/// end drops the timers and blocks that still wait. Places are in points of the screen. Every input ends with a turn
/// of the run loop at the present time.
class HeadlessHost : public UIApplicationHost {
public:
    /// `profile`: the device that the application believes to run on.
    explicit HeadlessHost(const DeviceProfile& profile = {});
    HeadlessHost(const HeadlessHost&) = delete;
    HeadlessHost& operator=(const HeadlessHost&) = delete;
    ~HeadlessHost() override;

    /// Never null; it goes with the host.
    UIApplication* application() const { return m_application; }
    /// Makes `delegate` the application's and lets it start, as a program's start does. False when it refused.
    bool launch(UIApplicationDelegate* delegate);

    /// @name Time
    /// @{
    /// Lets time pass: everything that falls due runs in order, each at its exact time, with a frame after each such
    /// moment that changed something; at the end there is a turn at the target time. Negative spans count as 0.
    void advance(NSTimeInterval seconds);
    /// Seconds since the host was made.
    NSTimeInterval time() const { return secondsFromNanoseconds(m_clock.now()); }
    /// For work on real threads: runs turns at the present time until `predicate` holds, asleep between what other
    /// threads hand to the main run loop. The manual clock stands still. False when that much real time has passed.
    bool waitUntil(const std::function<bool()>& predicate, NSTimeInterval realSeconds = 10);
    /// @}

    /// @name Touches
    /// Fingers are told apart by number. One that is down cannot go down again, and one that is up cannot do anything
    /// else: such calls are ignored.
    /// @{
    /// The finger goes down at the point.
    void touchDown(CGPoint point, int finger = 0);
    /// The finger is at the point at once.
    void touchMove(CGPoint point, int finger = 0);
    /// The finger goes there along a line, in steps of 1/60 s while the clock advances by `seconds`; arrives exactly at
    /// the end.
    void touchMove(CGPoint point, NSTimeInterval seconds, int finger = 0);
    /// The finger goes up where it is.
    void touchUp(int finger = 0);
    /// The touch is cancelled, as by a host that takes the finger for itself.
    void touchCancel(int finger = 0);
    /// A finger goes down and up at once.
    void tap(CGPoint point);
    /// Turns a wheel there: `delta` points towards the end of the content. False when nothing scrolls there.
    bool wheel(CGPoint point, CGPoint delta);
    /// Whether the finger is down.
    bool isTouching(int finger = 0) const { return m_fingers.count(finger) != 0; }
    /// @}

    /// @name Keyboard
    /// Each returns false when nobody used it.
    /// @{
    /// Types character by character; a line feed is the return key. False when none of them was used.
    bool typeText(const NSString& text);
    /// What an input method is composing, the caret behind it; empty ends it. False when nobody takes text.
    bool setMarkedText(const NSString& text);
    /// `modifiers`: a sum of `UIKeyModifierFlags`. False when nobody used the key.
    bool pressKey(UIKey key, unsigned modifiers = 0);
    /// The control key with 'a', 'c', 'v' or 'x'. False when nobody used it.
    bool clipboardKey(char letter);
    /// Whether a text input has the focus.
    bool isTextInputActive() const { return m_textInputActive; }
    /// Where the caret is, in points of the screen; the zero rectangle while no text input has the focus.
    CGRect caretRect() const { return m_caretRect; }
    /// Whether the application has asked to be closed. Here that is for the test to judge: nothing ends.
    bool isClosed() const { return m_isClosed; }
    /// @}

    /// Turns the device; the application may refuse to follow.
    void rotate(UIInterfaceOrientation orientation);

    /// @name Looking
    /// All of these show the present: what has changed since the last turn is laid out, displayed and composed first.
    /// @{
    /// The screen, or the part of it that `setPictureArea` chose.
    Ref<CGImage> snapshot();
    /// The same as a PNG file; false when the file cannot be written.
    bool writeSnapshot(const std::string& path);
    /// The pixel that holds the point; black outside the screen.
    FramePixel pixel(CGPoint point);
    /// The visible windows' view trees as JSON; see `dumpViewTrees`.
    std::string dump();
    /// What pictures and recordings show from now on: a part of the screen in points, widened to whole pixels and cut
    /// off at the screen's edges. `CGRectNull`, as at first, is all of it. Outside the screen there is no picture.
    void setPictureArea(CGRect area) { m_pictureArea = area; }
    /// @}

    /// @name Frames
    /// @{
    /// Frames composed so far. Turns that change nothing compose none.
    std::int64_t framesComposed() const { return m_framesComposed; }
    /// What the last composed frame repainted, in pixels.
    const std::vector<PixelRect>& damage() const { return m_damage; }
    /// From now on, records the screen at each 1/fps s of the clock (1..120), the present one first. False when `path`
    /// cannot be written or a recording runs already.
    bool startRecording(const std::string& path, int fps = 30);
    /// Writes the recording, an animated WebP of full quality that plays for ever; frames like the one before only
    /// lengthen it. False when nothing is recorded or the file cannot be written. The host's end stops it too.
    bool stopRecording();
    /// Whether a recording runs.
    bool isRecording() const { return m_recorder != nullptr; }
    /// @}

    /// @name UIApplicationHost
    /// @{
    void wake() override;
    void textInputChanged(bool active, CGRect caret) override;
    /// Only remembered: the application ends with its host.
    void close() override { m_isClosed = true; }
    /// The application's clock takes so many of the manual clock's seconds for one of its own.
    void setSlowMotion(int factor) override { m_applicationClock.setSlowness(factor); }
    /// Kept in memory, nil at first.
    NSString clipboardText() const override { return m_clipboard; }
    /// Kept until the host goes.
    void setClipboardText(const NSString& text) override { m_clipboard = text; }
    /// @}

private:
    void advanceTo(Nanoseconds target);
    void turn();
    void recordIfDue();
    Ref<CGImage> picture() const;

    ManualClock m_clock;
    PacedClock m_applicationClock{m_clock};
    Ref<UIApplication> m_application;
    std::map<int, CGPoint> m_fingers;
    std::unique_ptr<AnimationRecorder> m_recorder;
    std::vector<PixelRect> m_damage;
    std::int64_t m_framesComposed = 0;
    NSString m_clipboard;
    CGRect m_caretRect;
    CGRect m_pictureArea = CGRectNull;
    bool m_textInputActive = false;
    bool m_isClosed = false;
};

} // namespace zr
#pragma GCC visibility pop
