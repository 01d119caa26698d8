#pragma once

#import <Foundation/NSObject.h>

namespace vistrel::bench {

/// Sends `selector` to `receiver`, without arguments, in the turn of the run loop after the one in
/// which the host has finished launching: the moment at which the loader loads.
void performAfterLaunch(id receiver, SEL selector);

} // namespace vistrel::bench
