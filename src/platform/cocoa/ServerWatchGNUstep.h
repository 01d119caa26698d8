#pragma once

#import "platform/cocoa/StackingGNUstep.h"

#include <optional>

/// What the X server can tell and the platform does not pass on. It is learnt on a connection of
/// our own, which is open only while something is watched. It needs no timer, it cannot disturb the
/// platform's connection, and whatever was made on it ends with the host, however that ends.
namespace vistrel::cocoa::gnustep {

class ServerConnection;

/// Who is told. Everything is called on the main thread by its run loop.
struct ServerWatcher {
    /// Some window has appeared: a watched one, or any at all while all are watched.
    void (*windowAppeared)();
    /// The watched window has left the screen, and perhaps returns.
    void (*windowLeft)(XWindow window);
    /// The watched window exists no more.
    void (*windowDied)(XWindow window);
    /// The order of windows may have changed, while all are watched.
    void (*orderChanged)();
};

/// Watches this window of the host as well, until the watch ends.
void watchWindow(XWindow window, const ServerWatcher& watcher);

/// Watches the windows of all programs as well, or no longer.
void watchAllWindows(bool on, const ServerWatcher& watcher);

/// Ends the watch of windows.
void endWindowWatch();

/// The connection of the watch, for questions. It is closed while nothing is watched.
ServerConnection& watchConnection();

/// Calls `entered` whenever the pointer comes to `edge`, given in the coordinates of the X server.
/// nullopt ends it. Clicks at the edge reach no window meanwhile, so keep it thin.
void watchEdge(std::optional<NSRect> edge, void (*entered)());

} // namespace vistrel::cocoa::gnustep
