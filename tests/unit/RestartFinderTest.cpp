#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;

class RestartFinder : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        it.load();
        it.host.calls.lines.clear();
        it.host.workspace().activeApplication = "Finder";
        it.host.path = "/Applications/Host.app";
    }

    void restart() { it.corvane.m->restartFinder(); }
};

TEST_F(RestartFinder, TellsThenStartsTheShellThenQuits) {
    restart();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("activeApplicationName",
                            "localizedString RestartIndex == 0 - Should restart",
                            "localizedString VTR!",
                            "runAlert \"VTR!\" \"RestartIndex == 0 - Should restart\" [OK] []",
                            "launch /bin/sh [-c] [sleep 1 ; /usr/bin/open "
                            "'/Applications/Host.app']",
                            "terminate"));
}

TEST_F(RestartFinder, HappensWhateverTheUserAnswers) {
    it.host.acceptsAlerts = false;
    restart();
    EXPECT_EQ(it.host.calls.lines.back(), "terminate");
}

TEST_F(RestartFinder, LeavesAQuoteInThePathAsItIs) {
    it.host.path = "/Users/it's/Host.app";
    restart();
    EXPECT_THAT(
        it.host.calls.lines,
        testing::Contains("launch /bin/sh [-c] [sleep 1 ; /usr/bin/open '/Users/it's/Host.app']"));
}

TEST_F(RestartFinder, ShowsTheHostsOwnWords) {
    it.host.strings = {{"RestartIndex == 0 - Should restart", "Neustart 100 %"},
                       {"VTR!", "Achtung"}};
    restart();
    EXPECT_EQ(it.host.alerts.at(0).title, "Achtung");
    EXPECT_EQ(it.host.alerts.at(0).message, "Neustart 100 %");
}

class AnotherApplication : public RestartFinder, public testing::WithParamInterface<std::string> {};

TEST_P(AnotherApplication, IsNotRestarted) {
    it.host.workspace().activeApplication = GetParam();
    restart();
    EXPECT_THAT(it.host.calls.lines, ElementsAre("activeApplicationName"));
}

INSTANTIATE_TEST_SUITE_P(Names, AnotherApplication,
                         testing::Values("finder", "FINDER", "Finder ", " Finder", "Finder2",
                                         "Find", "", "TextEdit"));

TEST_F(RestartFinder, IsNoMenuItemsAction) {
    for (const auto& item : windows->items())
        EXPECT_NE(item->action, "restartFinder");
}

} // namespace
} // namespace vistrel
