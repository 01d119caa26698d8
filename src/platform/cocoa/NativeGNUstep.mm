#import "platform/cocoa/Native.h"

namespace vistrel::cocoa::native {

bool isBoolean(NSNumber* number) {
    // Booleans are two objects of a class of their own; any other number is of another one.
    return [number isKindOfClass:[[NSNumber numberWithBool:YES] class]] != NO;
}

std::string menuName(NSMenu* menu) {
    // There are no private names here, but the application knows which menu is its Window menu.
    return menu != nil && menu == [NSApp windowsMenu] ? "NSWindowsMenu" : "";
}

void setSystemUIMode(SystemUIMode mode) {
    if (mode == systemUIHidden)
        [[NSApp mainMenu] close];
    else
        [[NSApp mainMenu] display];
}

} // namespace vistrel::cocoa::native
