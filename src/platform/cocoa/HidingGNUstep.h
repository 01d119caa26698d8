#pragma once

#include "core/SystemUIMode.h"

namespace vistrel::cocoa::gnustep {

/// Carries out SetSystemUIMode for the mode that shows everything and the one that hides all. The
/// mode holds while the host is the active application: its own menu is out of sight, comes back
/// while the pointer is at the edge of the screen where it lives, and its windows cover the panels
/// and docks of the desktop. Nothing that is not the host's is changed. Any other mode counts as
/// the one that shows everything, and the mode that is set already changes nothing.
void setSystemUIMode(SystemUIMode mode);

} // namespace vistrel::cocoa::gnustep
