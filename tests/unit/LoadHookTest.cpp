#include "TestHost.h"

namespace vistrel {
namespace {

class LoadHook : public HostTest {};

TEST_F(LoadHook, MakesTheControllerAndInstallsTheMenu) {
    EXPECT_EQ(it.corvane.m, nullptr);
    it.load();
    EXPECT_NE(it.corvane.m, nullptr);
    EXPECT_EQ(windows->items().size(), 12U);
}

TEST_F(LoadHook, RunASecondTimeMakesNoSecondControllerAndNoSecondMenu) {
    it.load();
    const auto* first = it.corvane.m.get();
    const auto calls = it.host.calls.lines;
    it.load();
    EXPECT_EQ(it.corvane.m.get(), first);
    EXPECT_EQ(it.host.calls.lines, calls);
}

TEST_F(LoadHook, FindsAHostWithoutAnIdentifierEligible) {
    it.host.identifier.reset();
    EXPECT_TRUE(it.corvane.bundleWorksHere(it.host));
}

TEST_F(LoadHook, MakesTheExclusionSetEmptyAtTheFirstQuestion) {
    it.host.identifier = "org.example.host";
    EXPECT_FALSE(it.corvane.doesntWork.has_value());
    EXPECT_TRUE(it.corvane.bundleWorksHere(it.host));
    ASSERT_TRUE(it.corvane.doesntWork.has_value());
    EXPECT_TRUE(it.corvane.doesntWork->empty());
}

TEST_F(LoadHook, KeepsAControllerOfZeroesInAnExcludedHost) {
    it.host.identifier = "org.example.host";
    it.corvane.doesntWork = {{"org.example.host"}};
    it.addFrontWindow();
    it.load();

    ASSERT_NE(it.corvane.m, nullptr);
    EXPECT_EQ(it.fields().rect, Rect{});
    EXPECT_EQ(it.fields().screens, 0);
    EXPECT_EQ(it.corvane.m->settings().VTRData(), nullptr);
    EXPECT_EQ(it.corvane.m->settings().dataPath(), "");
    EXPECT_EQ(windows->items().size(), 4U);
    EXPECT_TRUE(it.host.calls.lines.empty());
}

TEST_F(LoadHook, LeavesOtherHostsToAnExclusionSetWithMembers) {
    it.corvane.doesntWork = {{"org.example.other"}};
    it.host.identifier = "org.example.host";
    EXPECT_TRUE(it.corvane.bundleWorksHere(it.host));
    it.host.identifier.reset();
    EXPECT_TRUE(it.corvane.bundleWorksHere(it.host));
}

TEST(Controller, StartsAsZeroes) {
    memory::MemoryDesktop desktop;
    memory::MemoryHost host(desktop);
    const Corvane controller(host);
    const auto& fields = controller.fields();
    EXPECT_EQ(fields.screens, 0);
    EXPECT_EQ(fields.screensString, "");
    for (const bool flag : {fields.isEnabled, fields.isFullscreen, fields.isLeft, fields.isRight,
                            fields.isThreeL, fields.isThreeM, fields.isThreeR, fields.isFloating})
        EXPECT_FALSE(flag);
    for (const auto& frame : {fields.rect, fields.rectLeft, fields.rectRight, fields.rectThreeL,
                              fields.rectThreeM, fields.rectThreeR})
        EXPECT_EQ(frame, Rect{});
}

TEST(Controller, KeepsACopyOfTheDataPath) {
    Settings settings;
    std::string path = "/first";
    settings.setDataPath(path);
    path = "/second";
    EXPECT_EQ(settings.dataPath(), "/first");
}

TEST(Controller, SharesTheDictionaryItIsGiven) {
    Settings settings;
    const auto dictionary = std::make_shared<Dictionary>();
    settings.setVTRData(dictionary);
    dictionary->set("key", 1);
    EXPECT_NE(settings.VTRData()->find("key"), nullptr);
    EXPECT_EQ(settings.VTRData(), dictionary);
}

} // namespace
} // namespace vistrel
