#pragma once

#import <Foundation/NSObject.h>

@class NSMenu;
@class NSMenuItem;

/// The bundle's principal class and the target of its menu items: a thin skin over
/// vistrel::Corvane, one line for each action.
@interface Corvane : NSObject

/// Runs when the bundle is loaded, and installs the bundle in the host.
+ (void)load;

/// Whether the bundle may install itself in this host.
+ (BOOL)bundleWorksHere;

/// The host's Window menu, or nil.
+ (NSMenu*)windowMenu;

/// The host's Zoom item, or nil.
+ (NSMenuItem*)zoomMenuItem;

// The actions of the menu items. Each takes the sender, which is not looked at.

- (void)about:(id)sender;
- (void)openWebsite:(id)sender;
- (void)updates:(id)sender;
- (void)quorvix:(id)sender;
- (void)preferences:(id)sender;
- (void)saveWind:(id)sender;
- (void)restoreWind:(id)sender;
- (void)left:(id)sender;
- (void)right:(id)sender;
- (void)threeL:(id)sender;
- (void)threeM:(id)sender;
- (void)threeR:(id)sender;
- (void)center:(id)sender;
- (void)centerAverage:(id)sender;
- (void)floating:(id)sender;
- (void)setKUIMode:(id)sender;
- (void)doFullscreen:(id)sender;
- (void)makeLionFullscreen:(id)sender;
- (void)spotlight:(id)sender;

/// Where the active application is the Finder, quits the host and has it opened again. No menu item
/// leads here.
- (void)restartFinder;

@end
