#import "platform/cocoa/MoveGNUstep.h"

#import "platform/cocoa/PlaceGNUstep.h"

#import <AppKit/NSWindow.h>
#import <Foundation/NSString.h>
#import <Foundation/NSUserDefaults.h>

#include <algorithm>
#include <cmath>

namespace vistrel::cocoa::gnustep {

namespace {

using namespace std::chrono_literals;
using Seconds = std::chrono::duration<double>;

constexpr Seconds longest{0.25};
constexpr Seconds betweenSteps{1.0 / 75};

// A window manager answers within a few milliseconds; these end the waiting for one that does not,
// or that insists on another frame.
constexpr auto patienceWithStep = 100ms;
constexpr auto patienceWithEnd = 250ms;

// A host that answers each move with one of its own ends up where it wants to be.
constexpr int mostAttempts = 4;

// One number for each move. A host can, from a delegate, come back here while a move is under way;
// the newest one counts.
constinit unsigned int newest = 0;

/// The platform reads the user's setting without a look, and cannot do with what is not positive.
bool isSettingUsable() {
    id setting = [[NSUserDefaults standardUserDefaults] objectForKey:@"NSWindowResizeTime"];
    if (setting == nil)
        return true;
    return [setting respondsToSelector:@selector(floatValue)] && [setting floatValue] > 0;
}

Seconds duration(NSWindow* window, bool isOnScreen, NSRect frame) {
    if (!isOnScreen || !isSettingUsable())
        return {};
    const double time = [window animationResizeTime:frame];
    return std::isfinite(time) ? std::clamp(Seconds(time), Seconds(0), longest) : Seconds(0);
}

/// `from` at part 0 and `to` at part 1, slow near both.
NSRect between(NSRect from, NSRect to, double part) {
    const double way = part * part * (3 - 2 * part);
    const auto mix = [way](CGFloat a, CGFloat b) { return a + (b - a) * way; };
    return NSMakeRect(mix(NSMinX(from), NSMinX(to)), mix(NSMinY(from), NSMinY(to)),
                      mix(NSWidth(from), NSWidth(to)), mix(NSHeight(from), NSHeight(to)));
}

/// One animated move of a window.
class Move {
  public:
    Move(NSWindow* window, NSRect frame)
        : window_(window), wasOnScreen_(isOnScreen(window)), from_([window frame]),
          to_(attainableFrame(window, frame)), duration_(duration(window, wasOnScreen_, to_)) {}

    void run() {
        const auto begin = Clock::now();
        const int count = static_cast<int>(std::ceil(duration_ / betweenSteps));
        for (int next = 1; next < count && goesOn();) {
            stepTo(static_cast<double>(next) / count);
            const auto due =
                begin + std::chrono::duration_cast<Clock::duration>(next * betweenSteps);
            waitUntil([] { return false; }, due);
            // Whoever draws slowly gets fewer steps, not a longer animation.
            next = 1 + std::max(next, static_cast<int>((Clock::now() - begin) / betweenSteps));
        }
        end();
    }

  private:
    void stepTo(double part) {
        @autoreleasepool {
            arriveAt(attainableFrame(window_, between(from_, to_, part)), patienceWithStep);
        }
    }

    void end() {
        if (goesOn())
            arriveAt(to_, patienceWithEnd);
        // Where somebody else has had the last word, the window has to know.
        if (goesOn() && !isPlacedAt(window_, [window_ frame]))
            tell(window_, serverFrame(window_));
    }

    void arriveAt(NSRect frame, Clock::duration patience) {
        const auto limit = Clock::now() + patience;
        sendTo(frame, limit);
        for (int attempt = 0; attempt < mostAttempts && isWaitingFor(frame, limit); ++attempt) {
            if (isPlacedAt(window_, frame)) {
                // The back end compares sizes with the last one that the application asked for, not
                // with the one that the user has chosen since. When they are equal, it resizes the
                // X window and does not tell the window, and no number of equal calls changes that.
                tell(window_, frame);
            } else {
                sendAgain(frame, limit, attempt);
            }
        }
    }

    /// What the user or the window manager did before the move can come to light only after it. And
    /// a manager can take the request for the place where the window's content is now for a mistake
    /// and ignore it, so in the end the way leads through another place.
    void sendAgain(NSRect frame, Clock::time_point limit, int attempt) {
        if (attempt > 0)
            sendTo(NSOffsetRect(frame, 1, 1), limit);
        if (goesOn())
            sendTo(frame, limit);
    }

    void sendTo(NSRect frame, Clock::time_point limit) {
        moveTo(window_, frame);
        waitUntil([&] { return !goesOn() || hasSettled(window_, frame); }, limit);
    }

    [[nodiscard]] bool isWaitingFor(NSRect frame, Clock::time_point limit) const {
        return goesOn() && !standsAt(window_, frame) && Clock::now() < limit;
    }

    /// A window that has gone meanwhile is closed, perhaps for good: what its delegate was may be
    /// freed, so it is not touched again.
    [[nodiscard]] bool goesOn() const {
        return number_ == newest && isOnScreen(window_) == wasOnScreen_;
    }

    NSWindow* window_;
    bool wasOnScreen_;
    NSRect from_;
    NSRect to_;
    Seconds duration_;
    unsigned int number_ = ++newest;
};

} // namespace

void moveAnimated(NSWindow* window, NSRect frame) {
    Move(window, frame).run();
}

} // namespace vistrel::cocoa::gnustep
