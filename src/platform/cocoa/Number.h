#pragma once

@class NSNumber;

/// What the number classes of GNUstep and macOS tell each in their own way. NumberGNUstep.mm or
/// NumberMacOS.mm is built, never both. Apart from Native.h because it needs no application.
namespace vistrel::cocoa::native {

/// Whether `number` was made as a boolean, so that it is written as one.
bool isBoolean(NSNumber* number);

} // namespace vistrel::cocoa::native
