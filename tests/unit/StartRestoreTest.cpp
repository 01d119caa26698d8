#include "TestHost.h"

namespace vistrel {
namespace {

class StartRestore : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        window = &it.addFrontWindow();
        it.setDefault("windowMode", 1);
    }

    memory::MemoryWindow* window = nullptr;
};

const Rect initial{10, 20, 300, 200};
const Rect saved{212, 140, 960, 720};

TEST_F(StartRestore, PutsTheKeyWindowWhereItWasSaved) {
    it.setDefault("vtr_savedWindowRect", "{{212, 140}, {960, 720}}");
    it.load();
    EXPECT_EQ(window->frame(), saved);
}

TEST_F(StartRestore, HappensOnlyInWindowModeOne) {
    it.setDefault("vtr_savedWindowRect", "{{212, 140}, {960, 720}}");
    it.setDefault("windowMode", 2);
    it.load();
    EXPECT_EQ(window->frame(), initial);
}

TEST_F(StartRestore, DoesNothingWhenNothingIsSaved) {
    it.load();
    EXPECT_EQ(window->frame(), initial);
}

TEST_F(StartRestore, TakesAValueThatIsNoTextAsNothingSaved) {
    it.setDefault("vtr_savedWindowRect", 5);
    it.load();
    EXPECT_EQ(window->frame(), initial);
}

TEST_F(StartRestore, AppliesWhateverTheTextHolds) {
    it.setDefault("vtr_savedWindowRect", "no numbers");
    it.load();
    EXPECT_EQ(window->frame(), Rect{});
}

TEST_F(StartRestore, ChoosesTheFrameOfTheDisplaySetup) {
    writeSettings({{"vtrDisplaySetupBool", true}});
    desktop.screens.push_back({1440, 0, 1280, 800});
    it.setDefault("vtr_savedWindowRect", "{{1, 1}, {1, 1}}");
    it.setDefault("vtr_savedWindowRect2", "{{212, 140}, {960, 720}}");
    it.load();
    EXPECT_EQ(window->frame(), saved);
}

TEST_F(StartRestore, FindsNoFrameSavedForAnotherDisplaySetup) {
    writeSettings({{"vtrDisplaySetupBool", true}});
    it.setDefault("vtr_savedWindowRect", "{{1, 1}, {1, 1}}");
    it.setDefault("vtr_savedWindowRect2", "{{212, 140}, {960, 720}}");
    it.load();
    EXPECT_EQ(window->frame(), initial);
}

TEST_F(StartRestore, ComesBeforeTheFramesAreRemembered) {
    it.setDefault("vtr_savedWindowRect", "{{212, 140}, {960, 720}}");
    it.load();
    EXPECT_EQ(it.fields().rect, saved);
    EXPECT_EQ(it.fields().rectThreeR, saved);
}

TEST_F(StartRestore, WithoutAKeyWindowMovesNothing) {
    it.host.key = nullptr;
    it.setDefault("vtr_savedWindowRect", "{{212, 140}, {960, 720}}");
    it.load();
    EXPECT_EQ(window->frame(), initial);
}

} // namespace
} // namespace vistrel
