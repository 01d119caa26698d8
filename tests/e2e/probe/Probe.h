// What the files of the probe share: the principal class, the server that
// carries its requests, and one function per subject that answers them.
#pragma once

#import <AppKit/AppKit.h>
#import <Foundation/Foundation.h>

/// Answers one request, given without its line end, by a JSON object.
@protocol VTRProbeAnswering
- (NSDictionary*)answerTo:(NSString*)request;
@end

/// Listens on a Unix socket on the host's main run loop, so that every answer
/// is computed between two events of the host, never beside it.
@interface VTRProbeServer : NSObject <RunLoopEvents> {
    id<VTRProbeAnswering> answerer;
    NSMutableDictionary* pending; // number of a connection -> bytes not yet a line
    int listener;
}
- (id)initWithAnswerer:(id<VTRProbeAnswering>)object;
- (BOOL)listenAt:(NSString*)path;
@end

@interface VTRProbe : NSObject <VTRProbeAnswering> {
    VTRProbeServer* server;
    BOOL launched;
    NSUInteger actions;
    NSString* lastAction;
}
@end

namespace probe {

/// nil is written as JSON's null.
id orNull(id value);

/// Written as true or false, not as 1 or 0.
NSNumber* flag(BOOL value);

/// A window's number, or null where there is no window.
id numberOf(NSWindow* window);

/// The X window of a window: it exists only while the window is not deferred,
/// and it changes.
NSNumber* identifierOfXServer(NSWindow* window);

/// A rectangle as [x, y, width, height], in the platform's own coordinates.
NSArray* numbers(NSRect rect);

/// A rectangle on screen as [x, y, width, height], counted as the X server counts.
NSArray* rowsFromTop(NSRect rect);

/// The rectangles of the items of a menu that is on screen, and which of them is highlighted. Null
/// where it is not.
id openMenu(NSMenu* menu);

NSDictionary* mainMenu();
NSDictionary* windows();
NSDictionary* modalWindow();

/// The controls of the window with this number, in the order of its views; none where there is no
/// such window.
NSDictionary* controls(NSString* number);

NSDictionary* screens();
NSDictionary* userDefault(NSString* key);
NSDictionary* classes(NSString* prefix);

/// Has the target of the menus' items that is of the class named before the blank in `argument`
/// perform the method named behind it, which takes nothing, in the host's next turn.
NSDictionary* perform(NSString* argument);

} // namespace probe
