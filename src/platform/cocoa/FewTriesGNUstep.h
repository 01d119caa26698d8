#pragma once

#import <Foundation/NSDate.h>

namespace vistrel::cocoa::gnustep {

/// Allows a few tries in each second. For what somebody else may undo each time: two programs that
/// each insist on an order of windows would keep the whole desktop busy.
class FewTries {
  public:
    bool mayTryAgain() {
        constexpr int most = 5;
        const NSTimeInterval now = [NSDate timeIntervalSinceReferenceDate];
        if (now < since_ || now > since_ + 1) {
            since_ = now;
            tries_ = 0;
        }
        return ++tries_ <= most;
    }

  private:
    NSTimeInterval since_ = 0;
    int tries_ = 0;
};

} // namespace vistrel::cocoa::gnustep
