#import "VTRLoader.h"

/// macOS loads no bundles of the user's into applications. There, this program is inserted as a
/// library (DYLD_INSERT_LIBRARIES) into an application that allows it, and makes the loader itself.
///
/// Not run anywhere yet: no Mac is at hand. Written against Apple's public documentation.
@interface VTRLoader (Insertion)
@end

@implementation VTRLoader (Insertion)

+ (void)load {
    @autoreleasepool {
        [[[VTRLoader alloc] init] release];
    }
}

@end
