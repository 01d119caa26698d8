#import "Launch.h"
#include "Report.h"
#include "TimedPlatform.h"

#include "core/Corvane.h"
#include "core/Layouts.h"
#import "platform/cocoa/CocoaPlatform.h"
#import "platform/cocoa/Convert.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSScreen.h>
#import <AppKit/NSWindow.h>

#include <cstdlib>
#include <unistd.h>

namespace {

// Long enough for the host and the window manager to be done with the move before.
constexpr NSTimeInterval seconds = 0.25;

struct Session {
    vistrel::cocoa::CocoaPlatform cocoa{nil};
    vistrel::bench::TimedPlatform platform{cocoa};
    vistrel::Corvane corvane{platform};
};

Session& session() {
    static auto* const theSession = new Session;
    return *theSession;
}

} // namespace

/// Inserts the block with a clock beside it. When the file VTR_BENCH_GO exists, it moves the key
/// window to the left half and back VTR_BENCH_ROUNDS times, in turns by the platform's own method
/// and by the system's whole action:
///
///     insert BEGIN END NANOSECONDS-IN-THE-MENUS
///     bare BEGIN RETURN
///     action BEGIN RETURN NANOSECONDS-IN-THE-WINDOW NANOSECONDS-IN-THE-MENUS
///     end
@interface VTRMoveBench : NSObject {
    NSRect home;
    int rounds;
    int step;
}

@end

@implementation VTRMoveBench

- (id)init {
    self = [super init];
    vistrel::bench::performAfterLaunch(self, @selector(insert));
    return self;
}

- (void)insert {
    const auto begin = vistrel::bench::now();
    session().corvane.insertMenu();
    const auto end = vistrel::bench::now();
    vistrel::bench::report("insert", {begin, end, session().platform.timeInMenus()});
    [self performSelector:@selector(wait) withObject:nil afterDelay:seconds];
}

- (void)wait {
    const char* const go = std::getenv("VTR_BENCH_GO");
    const char* const count = std::getenv("VTR_BENCH_ROUNDS");
    const bool isTime = go != nullptr && count != nullptr && access(go, F_OK) == 0;
    if (isTime) {
        rounds = std::atoi(count);
        home = [[NSApp keyWindow] frame];
    }
    [self performSelector:isTime ? @selector(move) : @selector(wait)
               withObject:nil
               afterDelay:seconds];
}

- (void)moveBare {
    NSWindow* window = [NSApp keyWindow];
    const auto screen = vistrel::cocoa::toRect([[window screen] frame]);
    const NSRect half = vistrel::cocoa::toNSRect(frameOf(vistrel::leftHalf, screen));
    const auto begin = vistrel::bench::now();
    [window setFrame:half display:YES];
    vistrel::bench::report("bare", {begin, vistrel::bench::now()});
}

- (void)moveByAction {
    const auto inWindow = session().platform.timeInWindow();
    const auto inMenus = session().platform.timeInMenus();
    const auto begin = vistrel::bench::now();
    session().corvane.left();
    const auto end = vistrel::bench::now();
    vistrel::bench::report("action", {begin, end, session().platform.timeInWindow() - inWindow,
                                      session().platform.timeInMenus() - inMenus});
}

/// A round has four steps: there and home bare, there and home by the action.
- (void)move {
    if (step == 4 * rounds) {
        vistrel::bench::report("end", {});
        return;
    }
    switch (step++ % 4) {
    case 0:
        [self moveBare];
        break;
    case 1:
        [[NSApp keyWindow] setFrame:home display:YES];
        break;
    case 2:
        [self moveByAction];
        break;
    default:
        session().corvane.left();
        break;
    }
    [self performSelector:@selector(move) withObject:nil afterDelay:seconds];
}

@end
