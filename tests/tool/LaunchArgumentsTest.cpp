#include "tool/LaunchArguments.h"

#include <gmock/gmock.h>

namespace vistrel::tool {

namespace {

using testing::ElementsAre;

const std::string ours = "/ours/VistrelLoader.bundle";

std::string list(const LoadingDefaults& defaults, const std::vector<std::string>& more = {}) {
    return launchArguments(defaults, "Ink", ours, more).at(1);
}

TEST(LaunchArguments, SwitchVistrelOn) {
    EXPECT_THAT(launchArguments({}, "Ink", ours),
                ElementsAre("-GSAppKitUserBundles", "(\"" + ours + "\")", "-VTREnabled", "YES"));
}

TEST(LaunchArguments, KeepTheBundlesThatHoldForTheApplication) {
    LoadingDefaults defaults{.systemBundles = {std::string("/s.bundle")}};
    EXPECT_EQ(list(defaults), "(\"/s.bundle\", \"" + ours + "\")");
    defaults.domains["NSGlobalDomain"].bundles = Array{std::string("/g.bundle"), std::int64_t{3}};
    EXPECT_EQ(list(defaults), "(\"/g.bundle\", \"" + ours + "\")");
    defaults.domains["Ink"].bundles = Array{std::string("/i.bundle")};
    EXPECT_EQ(list(defaults, {"/d.bundle"}), "(\"/i.bundle\", \"" + ours + "\", \"/d.bundle\")");
    defaults.domains["Ink"].bundles = std::string("/odd.bundle");
    EXPECT_EQ(list(defaults), "(\"" + ours + "\")");
}

TEST(LaunchArguments, LoadNoOtherCopy) {
    LoadingDefaults defaults;
    defaults.domains["Ink"].bundles =
        Array{std::string("/old/VistrelLoader.bundle/"), std::string("/a"), ours};
    EXPECT_EQ(list(defaults), "(\"/a\", \"" + ours + "\")");
}

TEST(AnArgumentArray, QuotesWhatWouldEndAText) {
    EXPECT_EQ(argumentArray({}), "()");
    EXPECT_EQ(argumentArray({"a b", "c\"d", "e\\f", "ü"}), R"(("a b", "c\"d", "e\\f", "ü"))");
}

} // namespace

} // namespace vistrel::tool
