#pragma once

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// Makes the controls of `window` that its interface file binds to the shared user defaults
/// controller show and edit the defaults of the host. Answers the connection, which lasts until it
/// is released, or nil for nil.
///
/// The platform reads the bindings, but it binds them to a controller of their own without any
/// defaults, because it knows that mark of the interface file by another name. Naming it there in
/// both ways would not do: Interface Builder drops what it does not know, pop-up buttons would
/// still write nothing back, a removed value would stay on screen, and a value of an unusual type
/// would be shown as something else than it acts as. So the bindings are taken for what they say,
/// control and key, and their work is done here.
id connectBindings(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
