// CloseWindow WINDOW: asks a window to close, as the button in its title bar does.

#include <X11/Xlib.h>
#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    Display* display = argc == 2 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) {
        std::cerr << "usage: CloseWindow WINDOW, on an X display" << std::endl;
        return 1;
    }
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = std::strtoul(argv[1], nullptr, 10);
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    const bool isSent = XSendEvent(display, event.xclient.window, False, NoEventMask, &event);
    XCloseDisplay(display);
    return isSent ? 0 : 1;
}
