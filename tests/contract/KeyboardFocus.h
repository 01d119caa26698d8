#pragma once

#import <AppKit/AppKit.h>

namespace vistrel {

/// Whether the keyboard really is the window's: the application may think so some time before the
/// desktop has given it, and loses it again when the desktop decides otherwise.
bool hasKeyboardFocus(NSWindow* window);

/// Gives the window the keyboard, as a click on it does, if it is on screen.
void takeKeyboardFocus(NSWindow* window);

} // namespace vistrel
