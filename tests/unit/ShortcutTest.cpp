#include "TestHost.h"

namespace vistrel {
namespace {

struct Scheme {
    const char* name;
    const UserShortcut* shortcut;
    const char* keyTextKey;
    const char* toggleIndexKey;
    ModifierMask defaultMask;
};

class UserShortcuts : public testing::TestWithParam<Scheme> {
  protected:
    memory::MemoryDesktop desktop;
    TestHost it{desktop};

    [[nodiscard]] Shortcut resolved() {
        return resolve(*GetParam().shortcut, it.host.userDefaults());
    }
};

TEST_P(UserShortcuts, AreTheBuiltInOnesWhileTheUserHasNone) {
    it.setDefault(GetParam().keyTextKey, "k");
    it.setDefault(GetParam().toggleIndexKey, 2);
    EXPECT_EQ(resolved(), (Shortcut{"\n", GetParam().defaultMask}));
}

TEST_P(UserShortcuts, TakeTheStoredKeyAsItIs) {
    it.setDefault("ownShortCuts", true);
    for (const auto* key : {"m", "M", "", "two keys", "½"}) {
        it.setDefault(GetParam().keyTextKey, key);
        EXPECT_EQ(resolved().key, key);
    }
}

TEST_P(UserShortcuts, HaveNoKeyWithoutAStoredText) {
    it.setDefault("ownShortCuts", true);
    EXPECT_EQ(resolved(), (Shortcut{"", commandMask}));
    it.setDefault(GetParam().keyTextKey, 5);
    EXPECT_EQ(resolved(), (Shortcut{"", commandMask}));
}

TEST_P(UserShortcuts, TakeTheMaskFromTheToggleIndexWithAndWithoutAKey) {
    it.setDefault("ownShortCuts", true);
    const std::vector<std::pair<PropertyList, ModifierMask>> table{
        {0, 0x100000},  {1, 0x40000},   {2, 0x80000},           {3, 0x100000},       {7, 0x100000},
        {-1, 0x100000}, {"1", 0x40000}, {4294967297, 0x100000}, {Array{}, 0x100000},
    };
    for (const auto& [index, mask] : table) {
        it.setDefault(GetParam().toggleIndexKey, index);
        EXPECT_EQ(resolved(), (Shortcut{"", mask}));
    }
}

INSTANTIATE_TEST_SUITE_P(
    AllFour, UserShortcuts,
    testing::Values(Scheme{"Restore", &restoreShortcut, "restoreString", "restoreToggleIndex",
                           0x1C0000},
                    Scheme{"Center", &centerShortcut, "centerString", "centerToggleIndex", 0x80000},
                    Scheme{"Fullscreen", &fullscreenShortcut, "fullscreenString",
                           "fullscreenToggleIndex", 0x100000},
                    Scheme{"Menu", &menuShortcut, "menuString", "menuToggleIndex", 0x40000}),
    [](const auto& instance) { return instance.param.name; });

} // namespace
} // namespace vistrel
