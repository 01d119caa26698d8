#pragma once

#include "core/Alert.h"

namespace vistrel::cocoa::gnustep {

/// Shows `alert` above the other windows of the host and waits until it has been dismissed. Answers
/// whether the default button did that. The window that had the keyboard has it again afterwards,
/// unless it has closed meanwhile.
bool runAlert(const Alert& alert);

/// Whether an alert waits for its user at this moment.
bool isRunningAlert();

} // namespace vistrel::cocoa::gnustep
