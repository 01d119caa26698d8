#include "TestHost.h"

namespace vistrel {
namespace {

class TwoHosts : public testing::Test {
  protected:
    memory::MemoryDesktop desktop;
    TestHost first{desktop};
    TestHost second{desktop};
};

TEST_F(TwoHosts, HaveAControllerAndDefaultsEach) {
    first.addWindowMenuWithZoom();
    second.addWindowMenuWithZoom();
    first.setDefault("kuiMode", 1);
    first.load();
    second.load();
    EXPECT_NE(first.corvane.m, second.corvane.m);
    EXPECT_TRUE(first.fields().isEnabled);
    EXPECT_FALSE(second.fields().isEnabled);
}

TEST_F(TwoHosts, ShareTheSettingsFileAndTheLastSaveWins) {
    first.load();
    second.load();
    auto& firstSettings = first.corvane.m->settings();
    auto& secondSettings = second.corvane.m->settings();
    first.setDefault("globalSettingsIndex", 1);
    second.setDefault("spotlightBOOL", 1);
    firstSettings.save(first.host.fileManager(), first.host.userDefaults());
    secondSettings.save(second.host.fileManager(), second.host.userDefaults());

    TestHost third{desktop};
    third.load();
    EXPECT_EQ(third.storedDefault("globalSettingsIndex"), PropertyList(0));
    EXPECT_EQ(third.storedDefault("spotlightBOOL"), PropertyList(1));
}

} // namespace
} // namespace vistrel
