#pragma once

#include "core/VTRPreferencesController.h"
#include "platform/cocoa/CocoaOutlets.h"

#import <AppKit/NSWindowController.h>

#include <optional>

@class NSTextField;
@class NSWindow;

/// The controller of the settings window and the owner of its interface file "VTRPreferences": a
/// thin skin over vistrel::VTRPreferencesController. The window's controls are bound to the host
/// defaults.
@interface VTRPreferencesController : NSWindowController {
    IBOutlet NSWindow* window;
    /// Shows the name of the application whose own settings the window edits.
    IBOutlet NSTextField* appName;
    /// What connects the controls with the host defaults, where the platform does not.
    id bindings;
    vistrel::cocoa::CocoaOutlets outlets;
    std::optional<vistrel::VTRPreferencesController> core;
}

/// The initialised controller, or nil. `platform` must outlive it.
- (id)initWithPlatform:(vistrel::Platform&)platform;

/// Writes the global settings into the settings file.
- (IBAction)savePreferences:(id)sender;

/// Open the maker's home page and the manual.
- (IBAction)openQuorvix:(id)sender;
- (IBAction)openManual:(id)sender;

@end
