#pragma once

#import <Foundation/NSGeometry.h>

@class NSWindow;

/// AppKit's animated move on GNUstep under X11. Frames are in the platform's coordinates: pixels, y
/// upwards from the lower edge of the whole X screen. Nothing is thrown.
namespace vistrel::cocoa::gnustep {

/// Moves and resizes the window with its decorations, with animation, and redraws it. Returns when
/// the window stands at `frame`, as the application and as the X server see it, and nothing about
/// it is still to come. Frames beyond the screen's edges are no exception, and stay when the window
/// is hidden or miniaturized and shown again.
///
/// Edges are rounded to whole pixels, and the size is kept within the window's own limits. A window
/// that is not on screen is moved at once, and so is any where the user's NSWindowResizeTime is not
/// positive. While the window moves, no timer of the host fires and what the user does waits. When
/// the host closes or hides the window meanwhile, it is left alone from then on. Nothing happens
/// for nil and for a frame with a number that is not finite.
void setFrameAnimated(NSWindow* window, NSRect frame);

/// Centres the window where the platform's own -center puts it, and returns when it stands there. A
/// middle between two pixels is rounded, so that window and X server agree on it.
void center(NSWindow* window);

/// The frame of `window` with which its content would be `content`, with the decorations that the
/// window really has. All zero for nil.
NSRect frameRectForContentRect(NSWindow* window, NSRect content);

/// All of the screen that most of the window is on. All zero for nil and where there is no screen.
NSRect screenFrame(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
