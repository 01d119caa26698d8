#import "platform/cocoa/Guard.h"

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace vistrel::cocoa {
namespace {

TEST(Guard, LetsNoCxxExceptionOut) {
    runGuarded([] { throw std::runtime_error("100% broken"); });
    runGuarded([] { throw 42; });
}

TEST(Guard, LetsNoObjectiveCExceptionOut) {
    runGuarded([] { [NSException raise:NSGenericException format:@"broken"]; });
    runGuarded([] { @throw @"no exception object"; });
}

TEST(Guard, RunsTheAction) {
    static bool hasRun;
    hasRun = false;
    runGuarded([] { hasRun = true; });
    EXPECT_TRUE(hasRun);
}

} // namespace
} // namespace vistrel::cocoa
