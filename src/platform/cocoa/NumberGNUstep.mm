#import "platform/cocoa/Number.h"

#import <Foundation/NSValue.h>

namespace vistrel::cocoa::native {

bool isBoolean(NSNumber* number) {
    // Booleans are two objects of a class of their own; any other number is of another one.
    return [number isKindOfClass:[[NSNumber numberWithBool:YES] class]] != NO;
}

} // namespace vistrel::cocoa::native
