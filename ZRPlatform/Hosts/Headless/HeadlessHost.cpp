#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>

#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/Hosts/Headless/Internal/AnimationRecorder.h>
#include <ZRPlatform/Hosts/Headless/ViewTreeDump.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>

namespace zr {

namespace {

constexpr Nanoseconds kMovesPerSecond = 60;

CGPoint pointBetween(CGPoint a, CGPoint b, double fraction) {
    return {static_cast<CGFloat>(a.x + (b.x - a.x) * fraction), static_cast<CGFloat>(a.y + (b.y - a.y) * fraction)};
}

/// The bytes of the UTF-8 character that begins with `first`.
std::size_t characterLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0x80 ? 1 : byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const FramePixel& pixel) {
    return stream << "rgb(" << int(pixel.red) << ", " << int(pixel.green) << ", " << int(pixel.blue) << ")";
}

HeadlessHost::HeadlessHost(const DeviceProfile& profile) {
    Clock::setCurrent(&m_applicationClock);
    UIDevice::currentDevice()->setProfile(profile);
    m_application = make<UIApplication>();
    m_application->setHost(this);
}

HeadlessHost::~HeadlessHost() {
    stopRecording();
    m_application->terminate();
    // What still waits may speak of things that are gone already, so it is dropped, not run.
    NSRunLoop::mainRunLoop()->removeAll();
    m_application->setHost(nullptr);
    m_application = nullptr;
    NSRunLoop::mainRunLoop()->removeAll();
    // What the last windows left to be shown is nothing to the next host.
    CATransaction::commit({});
    UIDevice::currentDevice()->setProfile({});
    Clock::setCurrent(nullptr);
}

bool HeadlessHost::launch(UIApplicationDelegate* delegate) {
    const bool launched = m_application->launch(delegate);
    advance(0);
    return launched;
}

// Time

void HeadlessHost::advance(NSTimeInterval seconds) {
    advanceTo(m_clock.now() + std::max<Nanoseconds>(0, nanosecondsFromSeconds(seconds)));
}

void HeadlessHost::advanceTo(Nanoseconds target) {
    for (;;) {
        turn();
        const Nanoseconds now = m_clock.now();
        // Composing a frame may hand over work for this very moment.
        if (NSRunLoop::mainRunLoop()->hasOwnWork())
            continue;
        recordIfDue();
        if (now >= target)
            return;
        Nanoseconds next = target;
        if (const std::optional<Nanoseconds> due = NSRunLoop::mainRunLoop()->nextTimerTime())
            next = std::min(next, m_applicationClock.sourceTime(*due));
        if (m_recorder)
            next = std::min(next, m_recorder->nextFrameTime());
        m_clock.advanceTo(next);
    }
}

void HeadlessHost::turn() {
    NSRunLoop::mainRunLoop()->runDue();
    if (!m_application->needsFrame())
        return;
    m_damage = m_application->commitFrame().damage();
    ++m_framesComposed;
}

bool HeadlessHost::waitUntil(const std::function<bool()>& predicate, NSTimeInterval realSeconds) {
    using RealClock = std::chrono::steady_clock;
    const auto begin = RealClock::now();
    for (;;) {
        advance(0);
        if (!predicate || predicate())
            return predicate != nullptr;
        const double left = realSeconds - std::chrono::duration<double>(RealClock::now() - begin).count();
        if (!(left > 0))
            return false;
        NSRunLoop::mainRunLoop()->waitForWork(left);
    }
}

// Touches

void HeadlessHost::touchDown(CGPoint point, int finger) {
    if (!m_fingers.emplace(finger, point).second)
        return;
    m_application->touchBegan(finger, point);
    advance(0);
}

void HeadlessHost::touchMove(CGPoint point, int finger) {
    const auto found = m_fingers.find(finger);
    if (found == m_fingers.end())
        return;
    found->second = point;
    m_application->touchMoved(finger, point);
    advance(0);
}

void HeadlessHost::touchMove(CGPoint point, NSTimeInterval seconds, int finger) {
    const auto found = m_fingers.find(finger);
    if (found == m_fingers.end())
        return;
    const CGPoint from = found->second;
    const Nanoseconds begin = m_clock.now();
    const Nanoseconds duration = std::max<Nanoseconds>(0, nanosecondsFromSeconds(seconds));
    for (Nanoseconds step = 1;; ++step) {
        const Nanoseconds passed = step * kNanosecondsPerSecond / kMovesPerSecond;
        if (passed >= duration)
            break;
        advanceTo(begin + passed);
        touchMove(pointBetween(from, point, static_cast<double>(passed) / static_cast<double>(duration)), finger);
    }
    advanceTo(begin + duration);
    touchMove(point, finger);
}

void HeadlessHost::touchUp(int finger) {
    const auto found = m_fingers.find(finger);
    if (found == m_fingers.end())
        return;
    const CGPoint point = found->second;
    m_fingers.erase(found);
    m_application->touchEnded(finger, point);
    advance(0);
}

void HeadlessHost::touchCancel(int finger) {
    if (m_fingers.erase(finger) == 0)
        return;
    m_application->touchCancelled(finger);
    advance(0);
}

void HeadlessHost::tap(CGPoint point) {
    if (isTouching())
        return;
    touchDown(point);
    touchUp();
}

bool HeadlessHost::wheel(CGPoint point, CGPoint delta) {
    const bool used = m_application->wheelTurned(point, delta);
    advance(0);
    return used;
}

// Keyboard

bool HeadlessHost::typeText(const NSString& text) {
    const std::string& bytes = text.utf8();
    bool used = false;
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t length = characterLength(bytes[i]);
        if (bytes[i] == '\n')
            used |= m_application->keyPressed(UIKey::Return, 0);
        else
            used |= m_application->insertText(bytes.substr(i, length));
        advance(0);
        i += length;
    }
    return used;
}

bool HeadlessHost::setMarkedText(const NSString& text) {
    const bool used = m_application->setMarkedText_selectedRange(text, {text.length(), 0});
    advance(0);
    return used;
}

bool HeadlessHost::pressKey(UIKey key, unsigned modifiers) {
    const bool used = m_application->keyPressed(key, modifiers);
    advance(0);
    return used;
}

bool HeadlessHost::clipboardKey(char letter) {
    const bool used = m_application->clipboardKey(letter);
    advance(0);
    return used;
}

void HeadlessHost::rotate(UIInterfaceOrientation orientation) {
    m_application->setStatusBarOrientation(orientation);
    advance(0);
}

// Looking

Ref<CGImage> HeadlessHost::snapshot() {
    advance(0);
    return picture();
}

Ref<CGImage> HeadlessHost::picture() const {
    const Compositor& frame = m_application->compositor();
    if (CGRectIsNull(m_pictureArea))
        return frame.snapshot();
    const CGFloat scale = frame.scale();
    const CGRect pixels = CGRectMake(m_pictureArea.origin.x * scale, m_pictureArea.origin.y * scale,
                                     m_pictureArea.size.width * scale, m_pictureArea.size.height * scale);
    return CGImageCreateWithImageInRect(frame.snapshot().get(), pixels);
}

bool HeadlessHost::writeSnapshot(const std::string& path) {
    const auto image = UIImage::imageWithCGImage(snapshot());
    const std::vector<std::uint8_t> png = UIImagePNGRepresentation(image);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    file.close();
    return !png.empty() && file.good();
}

FramePixel HeadlessHost::pixel(CGPoint point) {
    advance(0);
    const Compositor& frame = m_application->compositor();
    const double x = std::floor(point.x * frame.scale());
    const double y = std::floor(point.y * frame.scale());
    if (!(x >= 0 && x < frame.width() && y >= 0 && y < frame.height()))
        return {};
    const std::size_t index =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(frame.width()) + static_cast<std::size_t>(x);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(frame.pixels() + index);
    return {bytes[2], bytes[1], bytes[0]};
}

std::string HeadlessHost::dump() {
    advance(0);
    return dumpViewTrees(m_application);
}

// Recording

bool HeadlessHost::startRecording(const std::string& path, int fps) {
    if (m_recorder || fps < 1 || fps > 120 || !std::ofstream(path, std::ios::binary | std::ios::app))
        return false;
    m_recorder = std::make_unique<AnimationRecorder>(path, fps, m_clock.now());
    advance(0);
    return true;
}

bool HeadlessHost::stopRecording() {
    if (!m_recorder)
        return false;
    advance(0);
    const std::unique_ptr<AnimationRecorder> recorder = std::move(m_recorder);
    return recorder->finish(m_clock.now());
}

void HeadlessHost::recordIfDue() {
    if (m_recorder && m_recorder->nextFrameTime() <= m_clock.now())
        m_recorder->addFrame(picture());
}

// UIApplicationHost

void HeadlessHost::wake() {
    // Nobody sleeps in here but `waitUntil`, and that sleeps on the run loop, which wakes by itself.
}

void HeadlessHost::textInputChanged(bool active, CGRect caret) {
    m_textInputActive = active;
    m_caretRect = caret;
}

} // namespace zr
