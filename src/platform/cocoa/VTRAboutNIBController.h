#pragma once

#include "core/VTRAboutNIBController.h"
#include "platform/cocoa/CocoaOutlets.h"

#import <AppKit/NSWindowController.h>

#include <optional>

@class NSWindow;

/// The controller of the About window and the owner of its interface file "VTRAbout": a thin skin
/// over vistrel::VTRAboutNIBController.
@interface VTRAboutNIBController : NSWindowController {
    IBOutlet NSWindow* window;
    vistrel::cocoa::CocoaOutlets outlets;
    std::optional<vistrel::VTRAboutNIBController> core;
}

/// The initialised controller, or nil. `platform` must outlive it.
- (id)initWithPlatform:(vistrel::Platform&)platform;

/// Open a page each: the list of manuals, the maker's home page, the support page and the
/// acknowledgements.
- (IBAction)openManuals:(id)sender;
- (IBAction)openQuorvix:(id)sender;
- (IBAction)openSupport:(id)sender;
- (IBAction)openACK:(id)sender;

@end
