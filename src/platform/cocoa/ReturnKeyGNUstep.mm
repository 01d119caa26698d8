#import "platform/cocoa/ReturnKeyGNUstep.h"

#import <Foundation/NSString.h>

/// A text of one line feed that says it is equal to the characters of Return and Enter as well.
@interface VTRReturnKey : NSString
@end

@implementation VTRReturnKey

- (NSUInteger)length {
    return 1;
}

- (unichar)characterAtIndex:(NSUInteger)index {
    return '\n';
}

/// A menu item copies its key equivalent; a plain string would come of that.
- (id)copyWithZone:(NSZone*)zone {
    return [self retain];
}

- (NSUInteger)hash {
    return [@"\n" hash];
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:[NSString class]] && [self isEqualToString:other];
}

- (BOOL)isEqualToString:(NSString*)other {
    // The menu draws "RET" for an item whose key equals these two characters.
    if ([other length] == 2)
        return [other characterAtIndex:0] == '\\' && [other characterAtIndex:1] == 'r';
    if ([other length] != 1)
        return NO;
    constexpr unichar enterKey = 0x03;
    const unichar character = [other characterAtIndex:0];
    return character == '\n' || character == '\r' || character == enterKey;
}

@end

namespace vistrel::cocoa::gnustep {

NSString* returnKeyEquivalent() {
    return [[[VTRReturnKey alloc] init] autorelease];
}

} // namespace vistrel::cocoa::gnustep
