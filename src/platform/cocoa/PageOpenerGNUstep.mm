#import "platform/cocoa/PageOpenerGNUstep.h"

#import "platform/cocoa/Convert.h"
#include "platform/posix/DetachedProcess.h"
#include "platform/posix/FindProgram.h"

#import <AppKit/NSWorkspace.h>
#import <Foundation/NSString.h>
#import <Foundation/NSURL.h>

namespace vistrel::cocoa::gnustep {

namespace {

bool isOfWeb(NSString* scheme) {
    return [scheme caseInsensitiveCompare:@"http"] == NSOrderedSame ||
           [scheme caseInsensitiveCompare:@"https"] == NSOrderedSame;
}

/// The workspace is asked for the application, and not to open anything: it would wait half a
/// minute for that application, or for its answer without end, and tell of a failure in a modal
/// panel. The platform's opener does that in a process of its own.
std::string opener(NSString* scheme) {
    std::string program;
    if ([[NSWorkspace sharedWorkspace] getBestAppInRole:nil forScheme:scheme] != nil)
        program = posix::findProgram("gopen");
    return program.empty() ? posix::findProgram("xdg-open") : program;
}

} // namespace

void openPage(NSURL* url) {
    NSString* scheme = [url scheme];
    // Comparing nil answers that all is the same.
    if (scheme == nil || !isOfWeb(scheme))
        return;
    const auto program = opener(scheme);
    if (!program.empty())
        posix::startDetached({program, toString([url absoluteString])});
}

} // namespace vistrel::cocoa::gnustep
