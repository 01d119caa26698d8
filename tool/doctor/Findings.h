#pragma once

#import <Foundation/NSException.h>

namespace vistrel::doctor {

/// What can be found out about the host from the inside, as an object of JSON: its menus with the
/// items that are Vistrel's, its screens, its back end, and the values of the defaults `keys`.
NSDictionary* findings(NSArray* keys);

} // namespace vistrel::doctor
