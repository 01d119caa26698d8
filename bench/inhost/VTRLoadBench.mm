#import "Launch.h"
#include "Report.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSMenu.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSString.h>

#include <cstdlib>

/// Loads the bundle that VTR_BENCH_BUNDLE names, as the loader would, with the clock in its hand.
@interface VTRLoadBench : NSObject
@end

@implementation VTRLoadBench

- (id)init {
    self = [super init];
    vistrel::bench::performAfterLaunch(self, @selector(measure));
    return self;
}

- (void)measure {
    const char* const path = std::getenv("VTR_BENCH_BUNDLE");
    if (path == nullptr)
        return;
    NSBundle* bundle = [NSBundle bundleWithPath:[NSString stringWithUTF8String:path]];
    const auto items = [[NSApp windowsMenu] numberOfItems];
    const auto begin = vistrel::bench::now();
    [bundle load];
    const auto end = vistrel::bench::now();
    vistrel::bench::report("load", {begin, end, [[NSApp windowsMenu] numberOfItems] - items});
}

@end
