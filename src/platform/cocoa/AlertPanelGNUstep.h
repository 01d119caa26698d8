#pragma once

#include "core/Alert.h"

#import <AppKit/NSPanel.h>

/// The window of an alert. The platform's own panel does not let window managers close it, and one
/// that does so anyhow cuts the whole application off from the X server. This one is closed like
/// any window, by Escape as well, which counts as cancelling.
///
/// Run modally, it ends with NSAlertDefaultReturn when its default button was pressed, and with
/// another code when it was dismissed in any other way.
@interface VTRAlertPanel : NSPanel

- (id)initWithAlert:(const vistrel::Alert&)alert;

/// The action of the default button.
- (void)accept:(id)sender;

@end
