#pragma once

@class NSString;

namespace vistrel::cocoa::gnustep {

/// The key equivalent "\n" of a menu item. On this platform the Return key sends a carriage return
/// and menus compare key equivalents as texts, so a plain line feed would never be typed. This text
/// is equal to
/// "\n" in every respect, and also to what Return and Enter send.
NSString* returnKeyEquivalent();

} // namespace vistrel::cocoa::gnustep
