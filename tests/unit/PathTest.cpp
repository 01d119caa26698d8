#include "core/Path.h"

#include <gtest/gtest.h>

namespace vistrel {
namespace {

TEST(Path, JoinsFolderAndComponentByOneSlash) {
    EXPECT_EQ(appendingPathComponent("/home/user", "Settings.plist"), "/home/user/Settings.plist");
    EXPECT_EQ(appendingPathComponent("/home/user/", "/Settings.plist"),
              "/home/user/Settings.plist");
    EXPECT_EQ(appendingPathComponent("/", "/Settings.plist"), "/Settings.plist");
}

} // namespace
} // namespace vistrel
