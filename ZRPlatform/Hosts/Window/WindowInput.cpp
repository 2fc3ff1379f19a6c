#include <ZRPlatform/Hosts/Window/Internal/WindowHost.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zr {

namespace {

/// The mouse's finger; those of touch screens count from 0.
constexpr std::int64_t kMouseFinger = -1;

/// Points that one notch of a wheel scrolls.
constexpr float kNotch = 50;

struct MappedKey {
    SDL_Keycode code;
    UIKey key;
};
constexpr MappedKey kKeys[] = {
    {SDLK_RETURN, UIKey::Return},
    {SDLK_KP_ENTER, UIKey::Return},
    {SDLK_ESCAPE, UIKey::Escape},
    {SDLK_TAB, UIKey::Tab},
    {SDLK_LEFT, UIKey::Left},
    {SDLK_RIGHT, UIKey::Right},
    {SDLK_BACKSPACE, UIKey::Backspace},
    {SDLK_DELETE, UIKey::Delete},
    {SDLK_UP, UIKey::Up},
    {SDLK_DOWN, UIKey::Down},
    {SDLK_HOME, UIKey::Home},
    {SDLK_END, UIKey::End},
};

unsigned modifiersOf(Uint16 state) {
    return (state & KMOD_SHIFT ? UIKeyModifierShift : 0u) | (state & KMOD_CTRL ? UIKeyModifierControl : 0u) |
           (state & KMOD_ALT ? UIKeyModifierAlternate : 0u);
}

bool isClipboardLetter(SDL_Keycode code) {
    return code == SDLK_a || code == SDLK_c || code == SDLK_v || code == SDLK_x;
}

/// The count of UTF-16 code units in the first `characters` characters of well-formed UTF-8.
NSUInteger utf16LengthOfPrefix(const std::string& text, int characters) {
    NSUInteger length = 0;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if ((byte & 0xc0) == 0x80)
            continue;
        if (characters-- <= 0)
            break;
        length += byte >= 0xf0 ? 2 : 1;
    }
    return length;
}

} // namespace

void WindowHost::handle(const SDL_Event& event) {
    if (event.type == m_wakeEvent) {
        m_isWaking = false;
        return;
    }
    switch (event.type) {
    case SDL_QUIT:
        m_isClosed = true;
        break;
    case SDL_WINDOWEVENT:
        handleWindow(event.window);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        handleMouseButton(event.button);
        break;
    case SDL_MOUSEMOTION:
        handleMouseMotion(event.motion);
        break;
    case SDL_MOUSEWHEEL:
        handleMouseWheel(event.wheel);
        break;
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
        handleFinger(event.tfinger);
        break;
    case SDL_KEYDOWN:
        handleKey(event.key.keysym);
        break;
    case SDL_TEXTINPUT:
        m_application->insertText(event.text.text);
        break;
    case SDL_TEXTEDITING:
        handleMarkedText(event.edit.text, event.edit.start, event.edit.length);
        break;
    case SDL_TEXTEDITING_EXT:
        handleMarkedText(event.editExt.text, event.editExt.start, event.editExt.length);
        SDL_free(event.editExt.text);
        break;
    default:
        break;
    }
}

void WindowHost::handleWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_HIDDEN:
    case SDL_WINDOWEVENT_MINIMIZED:
        m_isVisible = false;
        break;
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_RESTORED:
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        m_isVisible = true;
        m_window->presentAll(m_application->compositor());
        break;
    default:
        break;
    }
}

void WindowHost::handleMouseButton(const SDL_MouseButtonEvent& event) {
    if (event.button != SDL_BUTTON_LEFT || event.which == SDL_TOUCH_MOUSEID)
        return;
    const bool isDown = event.state == SDL_PRESSED;
    if (isDown == m_isMouseDown)
        return;
    m_isMouseDown = isDown;
    const CGPoint point = m_window->pointFromWindow(event.x, event.y);
    if (isDown)
        m_application->touchBegan(kMouseFinger, point);
    else
        m_application->touchEnded(kMouseFinger, point);
}

void WindowHost::handleMouseMotion(const SDL_MouseMotionEvent& event) {
    if (m_isMouseDown && event.which != SDL_TOUCH_MOUSEID)
        m_application->touchMoved(kMouseFinger, m_window->pointFromWindow(event.x, event.y));
}

/// Trackpads turn by parts of a notch. The direction is the one that the desktop's settings ask for. With the shift
/// key, a wheel that only turns up and down scrolls across.
void WindowHost::handleMouseWheel(const SDL_MouseWheelEvent& event) {
    int x = 0, y = 0;
    SDL_GetMouseState(&x, &y);
    CGPoint delta{static_cast<CGFloat>(event.preciseX * kNotch), static_cast<CGFloat>(-event.preciseY * kNotch)};
    if (delta.x == 0 && (SDL_GetModState() & KMOD_SHIFT))
        std::swap(delta.x, delta.y);
    m_application->wheelTurned(m_window->pointFromWindow(x, y), delta);
}

void WindowHost::handleFinger(const SDL_TouchFingerEvent& event) {
    const CGPoint point = m_window->pointFromFraction(event.x, event.y);
    switch (event.type) {
    case SDL_FINGERDOWN:
        m_application->touchBegan(event.fingerId, point);
        break;
    case SDL_FINGERMOTION:
        m_application->touchMoved(event.fingerId, point);
        break;
    default:
        m_application->touchEnded(event.fingerId, point);
        break;
    }
}

void WindowHost::handleKey(const SDL_Keysym& key) {
    const unsigned modifiers = modifiersOf(key.mod);
    if (modifiers == UIKeyModifierControl && isClipboardLetter(key.sym)) {
        m_application->clipboardKey(static_cast<char>(key.sym));
        return;
    }
    const auto* mapped =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const MappedKey& entry) { return entry.code == key.sym; });
    if (mapped != std::end(kKeys))
        m_application->keyPressed(mapped->key, modifiers);
}

void WindowHost::handleMarkedText(const char* text, int cursor, int length) {
    const NSString marked = text;
    const NSUInteger begin = utf16LengthOfPrefix(marked.utf8(), cursor);
    const NSUInteger end = utf16LengthOfPrefix(marked.utf8(), cursor + std::max(0, length));
    m_application->setMarkedText_selectedRange(marked, {begin, end - begin});
}

} // namespace zr
