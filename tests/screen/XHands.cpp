#include "XHands.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace
{

Display* display()
{
    static Display* const opened = XOpenDisplay(nullptr);
    return opened;
}

} // namespace

bool XHands::areThere()
{
    int event = 0, error = 0, major = 0, minor = 0;
    return display() && XTestQueryExtension(display(), &event, &error, &major, &minor);
}

void XHands::move(int x, int y) { XTestFakeMotionEvent(display(), -1, x, y, CurrentTime); }

void XHands::button(unsigned button, bool isDown)
{
    XTestFakeButtonEvent(display(), button, isDown, CurrentTime);
}

void XHands::key(unsigned code, bool isDown)
{
    XTestFakeKeyEvent(display(), code, isDown, CurrentTime);
}

unsigned XHands::codeOf(const char* name)
{
    const KeySym symbol = XStringToKeysym(name);
    return symbol == NoSymbol ? 0 : XKeysymToKeycode(display(), symbol);
}

unsigned XHands::codeOf(char character, bool* isShifted)
{
    const auto symbol = static_cast<KeySym>(character); // of printable ASCII, the same number
    const KeyCode code = XKeysymToKeycode(display(), symbol);
    *isShifted = XkbKeycodeToKeysym(display(), code, 0, 0) != symbol;
    return code;
}

void XHands::sync() { XSync(display(), False); }

bool XHands::hasWindowManager()
{
    return XGetSelectionOwner(display(), XInternAtom(display(), "WM_S0", False)) != None;
}

bool XHands::isManaged(unsigned long window)
{
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* data = nullptr;
    const Atom state = XInternAtom(display(), "WM_STATE", False);
    const bool isFound = XGetWindowProperty(display(), window, state, 0, 1, False, AnyPropertyType,
                                            &type, &format, &count, &rest, &data) == Success &&
                         count == 1;
    if (data)
        XFree(data);
    return isFound;
}
