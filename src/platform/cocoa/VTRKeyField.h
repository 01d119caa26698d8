#pragma once

#import <AppKit/NSTextField.h>

/// A text field for the key of a shortcut. It holds one character: a newly typed one takes the
/// place of the one before. A longer text that is set by a program stays until somebody types.
@interface VTRKeyField : NSTextField
@end
