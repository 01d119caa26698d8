#include "TestHost.h"

namespace vistrel {
namespace {

using testing::Contains;
using testing::Not;

struct Row {
    std::int64_t globalSettingsIndex;
    std::int64_t kuiMode;
    bool isEnabled;
    std::vector<std::string> calls;
    bool isMarked;
};

class StartUpModes : public HostTest, public testing::WithParamInterface<Row> {
  protected:
    [[nodiscard]] std::vector<std::string> systemUICalls() const {
        std::vector<std::string> calls;
        std::ranges::copy_if(it.host.calls.lines, std::back_inserter(calls),
                             [](const auto& line) { return line.starts_with("setSystemUIMode"); });
        return calls;
    }
};

TEST_P(StartUpModes, SetFlagSystemModeAndMark) {
    const auto& row = GetParam();
    writeSettings({{"globalSettingsIndex", row.globalSettingsIndex}});
    it.setDefault("kuiMode", row.kuiMode);
    it.load();

    EXPECT_EQ(it.fields().isEnabled, row.isEnabled);
    EXPECT_THAT(systemUICalls(), testing::ElementsAreArray(row.calls));
    EXPECT_EQ(markedItems(*windows), row.isMarked ? std::vector{7} : std::vector<int>{});
}

const std::vector<std::string> none;
const std::vector<std::string> normal{"setSystemUIMode 0 0"};
const std::vector<std::string> hidden{"setSystemUIMode 4 1"};

INSTANTIATE_TEST_SUITE_P(
    Table, StartUpModes,
    testing::Values(Row{0, 0, false, normal, false}, Row{0, 1, true, hidden, true},
                    Row{0, 2, false, none, false}, Row{0, 3, false, none, false},
                    Row{0, 5, false, none, false}, Row{0, -1, false, none, false},
                    Row{0, 4294967297, false, none, false}, Row{1, 1, false, normal, false},
                    Row{2, 0, true, hidden, true}, Row{3, 1, false, none, false},
                    Row{4, 1, false, none, false}, Row{-1, 1, false, none, false}));

class StartUpMode : public HostTest {};

TEST_F(StartUpMode, MarksTheItemSixBelowZoomWhichIsToggleMenuAndDock) {
    writeSettings({{"globalSettingsIndex", 2}});
    it.load();
    EXPECT_EQ(windows->items()[7]->title, "Toggle Menu And Dock");
    EXPECT_TRUE(windows->items()[7]->state);
}

TEST_F(StartUpMode, MarksTheItemAtIndexFiveWithoutZoom) {
    memory::MemoryDesktop other;
    TestHost host(other);
    auto& menu = host.addEmptyWindowMenu();
    host.setDefault("kuiMode", 1);
    host.load();
    EXPECT_EQ(markedItems(menu), std::vector{5});
    EXPECT_EQ(menu.items()[5]->title, "Toggle Menu And Dock");
}

TEST_F(StartUpMode, ConsultsTheApplicationsModeOnlyWhenTheGlobalOneLeavesItTheChoice) {
    writeSettings({{"globalSettingsIndex", 3}});
    it.load();
    EXPECT_THAT(it.host.calls.lines, Not(Contains("integerForKey kuiMode")));
}

TEST_F(StartUpMode, HidesWithoutAWindowMenuToo) {
    memory::MemoryDesktop other;
    TestHost host(other);
    host.setDefault("kuiMode", 1);
    host.load();
    EXPECT_TRUE(host.fields().isEnabled);
    EXPECT_EQ(host.host.systemUIMode, systemUIHidden);
}

} // namespace
} // namespace vistrel
