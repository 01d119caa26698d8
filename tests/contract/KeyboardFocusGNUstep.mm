#import "KeyboardFocus.h"

#import "platform/cocoa/X11GNUstep.h"

#include <X11/Xlib.h>

namespace vistrel {

bool hasKeyboardFocus(NSWindow* window) {
    ::Window focus = 0;
    int revertTo = 0;
    XGetInputFocus(cocoa::gnustep::display(), &focus, &revertTo);
    return focus != 0 && focus == cocoa::gnustep::xWindow(window);
}

void takeKeyboardFocus(NSWindow* window) {
    using namespace cocoa::gnustep;
    if (isMapped(window))
        XSetInputFocus(display(), xWindow(window), RevertToParent, CurrentTime);
}

} // namespace vistrel
