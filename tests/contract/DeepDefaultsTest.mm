#import "platform/cocoa/Convert.h"

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

namespace vistrel::cocoa {
namespace {

class DeepDefaults : public testing::Test {
  protected:
    void SetUp() override { pool = [[NSAutoreleasePool alloc] init]; }

    void TearDown() override { [pool release]; }

    static id nested(int levels) {
        id value = @"innermost";
        for (int level = 1; level < levels; ++level)
            value = [NSArray arrayWithObject:value];
        return value;
    }

    NSAutoreleasePool* pool = nil;
};

TEST_F(DeepDefaults, AreReadWhileAnybodyCouldMeanThem) {
    EXPECT_NE(toPropertyList(nested(deepestPropertyList)), std::nullopt);
    EXPECT_EQ(toPropertyList(nested(deepestPropertyList + 1)), std::nullopt);
}

TEST_F(DeepDefaults, DoNotFillTheStackOfTheHost) {
    EXPECT_EQ(toPropertyList(nested(50000)), std::nullopt);
}

} // namespace
} // namespace vistrel::cocoa
