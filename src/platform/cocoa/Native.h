#pragma once

#include "core/SystemUIMode.h"

#import <AppKit/AppKit.h>

#include <string>

/// What GNUstep and macOS do each in their own way. NativeGNUstep.mm or NativeMacOS.mm is built,
/// never both.
namespace vistrel::cocoa::native {

/// Whether `number` was made as a boolean, so that it is written as one.
bool isBoolean(NSNumber* number);

/// The private name that AppKit gives its menus: "NSWindowsMenu" for the application's Window menu.
/// Empty for nil and for menus without one.
std::string menuName(NSMenu* menu);

/// Changes how much of the system's own interface is shown while the host is active.
void setSystemUIMode(SystemUIMode mode);

} // namespace vistrel::cocoa::native
