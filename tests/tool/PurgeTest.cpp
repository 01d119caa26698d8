#include "tool/Purge.h"
#include "core/Settings.h"

#include <gmock/gmock.h>

namespace vistrel::tool {

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// The keys that are removed from TextEdit's domain, which holds these values.
std::vector<std::string> removed(const Dictionary& values, std::string domain = "TextEdit") {
    const StoredDefaults stored{.domains = {{domain, values}}};
    std::vector<std::string> keys;
    for (const auto& change : purge(stored)) {
        EXPECT_EQ(change.domain, domain);
        EXPECT_EQ(change.after, std::nullopt);
        EXPECT_EQ(change.before, *values.find(change.key));
        keys.emplace_back(change.key);
    }
    return keys;
}

Dictionary whereVistrelHasRun() {
    Dictionary values;
    for (const auto& setting : globalSettings)
        values.set(setting.key, 0);
    return values;
}

TEST(Purge, RemovesTheCopiesOfTheGlobalSettings) {
    EXPECT_EQ(removed(whereVistrelHasRun()).size(), globalSettings.size());
}

TEST(Purge, RemovesWhatOneApplicationHasOfItsOwn) {
    auto values = whereVistrelHasRun();
    for (const auto* key : {"kuiMode", "windowMode", "ownShortCuts", "centerString",
                            "centerToggleIndex", "vtr_savedWindowRect", "vtr_savedWindowRect12"})
        values.set(key, "any");
    EXPECT_EQ(removed(values).size(), globalSettings.size() + 7);
}

TEST(Purge, LeavesWhatIsNotVistrels) {
    auto values = whereVistrelHasRun();
    values.set("NSRecentDocuments", Array{"a"});
    values.set("vtr_savedWindowRectangle", "a");
    EXPECT_EQ(removed(values).size(), globalSettings.size());
}

TEST(Purge, LeavesPlainNamesOfAnApplicationThatVistrelHasNotRunIn) {
    EXPECT_THAT(removed({{"windowMode", 1}, {"menuString", "m"}, {"kuiMode", 1}}), IsEmpty());
}

TEST(Purge, RemovesUnmistakableNamesEverywhere) {
    EXPECT_THAT(removed({{"VTRSearchTool", "rofi"}, {"windowMode", 1}}, "NSGlobalDomain"),
                UnorderedElementsAre("VTRSearchTool"));
    EXPECT_THAT(removed({{"vtr_savedWindowRect2", "a"}}),
                UnorderedElementsAre("vtr_savedWindowRect2"));
}

TEST(Purge, LeavesWhoLoadsVistrelToDisable) {
    EXPECT_THAT(removed({{"VTREnabled", true}, {"GSAppKitUserBundles", Array{"a"}}}), IsEmpty());
}

} // namespace

} // namespace vistrel::tool
