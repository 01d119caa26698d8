#pragma once

#import <Foundation/NSObject.h>

/// Brings Vistrel into an application that knows nothing of it.
///
/// The platform loads bundles into an application long before its menus exist, so what it loads is
/// this class, which waits until the application has launched and then loads Vistrel.bundle from
/// the folder that its own bundle is in.
@interface VTRLoader : NSObject
@end
