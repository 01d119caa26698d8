#pragma once

#import <AppKit/AppKit.h>

namespace vistrel {

/// Whether the keyboard really is the window's: the application may think so some time before the
/// desktop has given it, and loses it again when the desktop decides otherwise.
bool hasKeyboardFocus(NSWindow* window);

} // namespace vistrel
