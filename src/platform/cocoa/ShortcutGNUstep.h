#pragma once

@class NSMenuItem;

namespace vistrel::cocoa::gnustep {

/// The platform shows a chosen shortcut in the menu bar, waits for a tenth of a second, and only
/// then sends the action. For `item`, and all others with the same target, the action comes first.
void actAtOnce(NSMenuItem* item);

} // namespace vistrel::cocoa::gnustep
