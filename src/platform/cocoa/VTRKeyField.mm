#import "platform/cocoa/VTRKeyField.h"

#import "platform/cocoa/Guard.h"

#import <AppKit/NSText.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSString.h>

namespace {

/// The character of `text` that ends at `caret`, where what was typed last stands; as the reader
/// sees it, which may be more than one unit of the text.
NSString* characterBefore(NSUInteger caret, NSString* text) {
    if (caret == 0 || caret > [text length])
        caret = [text length];
    return [text substringWithRange:[text rangeOfComposedCharacterSequenceAtIndex:caret - 1]];
}

void keepLastTyped(NSText* editor) {
    NSString* text = [editor string];
    if ([text length] < 2)
        return;
    NSString* character = characterBefore([editor selectedRange].location, text);
    if (![character isEqualToString:text])
        [editor setString:character];
}

} // namespace

@implementation VTRKeyField

- (void)textDidChange:(NSNotification*)notification {
    // Ahead of whoever is told of the new text.
    vistrel::cocoa::runGuarded([self] { keepLastTyped([self currentEditor]); });
    [super textDidChange:notification];
}

@end
