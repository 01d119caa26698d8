#pragma once

#import <Foundation/NSGeometry.h>

/// The host's own menu, wherever the platform's style puts it: a panel, a bar of the screen, or a
/// bar of each window. Its key equivalents work in any case.
namespace vistrel::cocoa::gnustep {

/// Takes the menu out of sight, also when the platform has shown it again since.
void hideHostMenu();

/// Shows the menu as the platform does: a panel or the bar of the screen only while the host is
/// active.
void showHostMenu();

/// Whether the host can do without its menu's window: some other window can take the keyboard.
/// Where none can, the platform gives the keyboard to the menu, and a host without it cannot be
/// active.
bool mayHideHostMenu();

/// Shows the menu and waits, though not for long, until it can take the keyboard.
void showHostMenuForKeyboard();

/// Whether the user is in the middle of something with a menu of the host.
bool isHostMenuInUse();

/// The line of the screen's edge where the menu lives, one point thick.
NSRect hostMenuEdge();

/// Whether `point` is near enough to the menu, or to that edge, to keep a menu that has come back.
bool isNearHostMenu(NSPoint point);

} // namespace vistrel::cocoa::gnustep
