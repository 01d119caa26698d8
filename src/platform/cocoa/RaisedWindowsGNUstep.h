#pragma once

@class NSWindow;

/// The host's windows that stand above those of other programs, for one reason or both: a window
/// floats, or the host covers panels and docks. Only the host's own windows are changed, so that
/// nothing stays behind when it ends. While there is neither reason, nothing is observed.
namespace vistrel::cocoa::gnustep {

/// Keeps `window`, for as long as it is on the platform's floating level, above the windows of
/// other programs, also when it is put on screen anew; or does so no longer. A window that closes
/// is forgotten.
void setFloating(NSWindow* window, bool floats);

/// Keeps all windows of the host, and those it will open, above panels and docks, or no longer.
/// Their order among themselves stays, and so do their levels.
void setCovering(bool covers);

} // namespace vistrel::cocoa::gnustep
