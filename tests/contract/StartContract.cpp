#include "ContractTest.h"

#include "core/Corvane.h"
#include "core/SystemUIMode.h"

#include <limits>

namespace vistrel {
namespace {

const std::string settingsPath = "~/Library/Application Support/Vistrel/Settings.plist";

/// What anybody may write into the settings: every type, and the numbers and texts that are hard to
/// deal with.
const std::vector<PropertyList> anything{
    false,
    true,
    0,
    1,
    2,
    3,
    4,
    -1,
    std::int64_t{std::numeric_limits<std::int32_t>::max()},
    std::int64_t{1} << 32,
    (std::int64_t{1} << 32) + 1,
    std::numeric_limits<std::int64_t>::max(),
    std::numeric_limits<std::int64_t>::min(),
    std::numeric_limits<std::uint64_t>::max(),
    0.5,
    1.9,
    -1e308,
    1e308,
    5e-324,
    "",
    "1",
    " 2",
    "3x",
    "YES",
    "99999999999999999999999999",
    "{{200, 100}, {600, 400}}",
    "%@ %n %s %d",
    "\\\"'\n\t½𝄞",
    std::string(100000, '['),
    Date{0},
    Date{1e18},
    Data{},
    Data(1000, std::byte{0xff}),
    Array{},
    Array{1, "1", Array{true}},
    Dictionary{},
    Dictionary{{"1", 1}, {"", Dictionary{{"deep", Data{std::byte{0}}}}}},
};

/// The whole start in a host whose settings are of any type.
class StartContract : public ContractTest {
  protected:
    void SetUp() override {
        host->openWindow(initial);
        // Windows are to move at once.
        store("NSWindowResizeTime", 0);
        files().createDirectory(files().expandTilde("~/Library/Application Support/Vistrel"));
    }

    void TearDown() override {
        for (const auto& key : stored)
            host->removeDefault(key);
        files().writeDictionary({}, files().expandTilde(settingsPath));
        application().setSystemUIMode(systemUINormal);
        host->closeWindow();
    }

    void store(const std::string& key, const PropertyList& value) {
        stored.push_back(key);
        host->storeDefault(key, value);
    }

    void writeFile(const Dictionary& settings) {
        files().writeDictionary(settings, files().expandTilde(settingsPath));
    }

    void start() {
        host->setMainMenu({{.title = "Window",
                            .submenu = {{.title = "Zoom", .action = "performZoom:"}},
                            .isWindowMenu = true}});
        corvane = std::make_unique<Corvane>(host->platform());
        corvane->insertMenu();
        items = host->windowMenuItems();
        ASSERT_GE(items.size(), 9U);
    }

    /// The command with this title, wherever in the block it is.
    [[nodiscard]] ContractItem command(const std::string& title) const {
        for (const auto& item : items) {
            if (item.title == title)
                return item;
            for (const auto& below : item.submenu)
                if (below.title == title)
                    return below;
        }
        return {};
    }

    [[nodiscard]] bool isHidden() const { return corvane->fields().isEnabled; }

    const Rect initial{150, 170, 400, 300};
    std::vector<std::string> stored;
    std::unique_ptr<Corvane> corvane;
    std::vector<ContractItem> items;
};

struct OwnShortcut {
    const char* title;
    const char* text;
    const char* index;
};

const std::vector<OwnShortcut> ownShortcuts{
    {"Restore Default Window Frame", "restoreString", "restoreToggleIndex"},
    {"Center Window", "centerString", "centerToggleIndex"},
    {"Toggle Fullscreen", "fullscreenString", "fullscreenToggleIndex"},
    {"Toggle Menu And Dock", "menuString", "menuToggleIndex"},
};

TEST_F(StartContract, AKeyIsATextOrNone) {
    store("ownShortCuts", true);
    for (const auto& value : anything) {
        for (const auto& own : ownShortcuts)
            store(own.text, value);
        start();
        const auto* text = std::get_if<std::string>(&value);
        for (const auto& own : ownShortcuts)
            EXPECT_EQ(command(own.title).key, text != nullptr ? *text : "") << own.title;
    }
}

TEST_F(StartContract, AModifierIsOneOfThree) {
    store("ownShortCuts", true);
    for (const auto& value : anything) {
        for (const auto& own : ownShortcuts)
            store(own.index, value);
        start();
        const auto index = integerValue(&value);
        const auto mask = index == 1 ? controlMask : index == 2 ? optionMask : commandMask;
        for (const auto& own : ownShortcuts)
            EXPECT_EQ(command(own.title).mask, mask) << own.title << index;
    }
}

TEST_F(StartContract, OwnShortcutsAreUsedOrNot) {
    for (const auto& value : anything) {
        store("ownShortCuts", value);
        start();
        EXPECT_EQ(command("Toggle Fullscreen").key, boolValue(&value) ? "" : "\n");
    }
}

TEST_F(StartContract, TheMenuIsHiddenByOneNumberOnly) {
    for (const auto& value : anything) {
        store("kuiMode", value);
        start();
        EXPECT_EQ(isHidden(), integerValue(&value) == 1);
        application().setSystemUIMode(systemUINormal);
    }
    for (const auto& value : anything) {
        writeFile({{"globalSettingsIndex", value}});
        store("kuiMode", 0);
        start();
        EXPECT_EQ(isHidden(), intValue(&value) == 2);
        application().setSystemUIMode(systemUINormal);
    }
}

TEST_F(StartContract, TheFileMayHoldAnything) {
    for (const auto& value : anything) {
        writeFile({{"spotlightBOOL", value},
                   {"spotlightBOOLIndex", value},
                   {"globalSettingsRestartBOOL", value},
                   {"globalSettingsFakeFSABool", value},
                   {"vtrDisplaySetupBool", value},
                   {"vtrRestartFinderBOOL", value}});
        start();
        const auto search = command("Show Spotlight Window");
        EXPECT_EQ(search.key, boolValue(&value) ? " " : "");
        if (boolValue(&value)) {
            EXPECT_EQ(search.mask, intValue(&value) == 0 ? commandMask : commandMask | optionMask);
        }
        EXPECT_EQ(corvane->fields().screensString, boolValue(&value) ? "1" : "");
    }
}

TEST_F(StartContract, TheFrameIsRestoredByOneNumberOnly) {
    const Rect saved{200, 100, 600, 400};
    store("vtr_savedWindowRect", textFromRect(saved));
    for (const auto& value : anything) {
        application().keyWindow().setFrameAnimated(initial);
        store("windowMode", value);
        start();
        EXPECT_EQ(application().keyWindow().frame(), integerValue(&value) == 1 ? saved : initial);
    }
}

TEST_F(StartContract, ASavedFrameThatIsNoTextIsNone) {
    store("windowMode", 1);
    for (const auto& value : anything) {
        if (std::holds_alternative<std::string>(value))
            continue;
        store("vtr_savedWindowRect", value);
        start();
        EXPECT_EQ(application().keyWindow().frame(), initial);
    }
}

TEST_F(StartContract, AfterAnySavedFrameTheWindowCanBeMoved) {
    store("windowMode", 1);
    for (const auto* text :
         {"", "nonsense", "%@%n", "{{0, 0}, {0, 0}}", "{{-1, -1}, {-1, -1}}",
          "{{1e9, 1e9}, {1e9, 1e9}}", "{{-1e9, -1e9}, {1, 1}}",
          "{{2147483648, -2147483649}, {4294967296, 4294967297}}",
          "{{1e308, -1e308}, {1e308, 1e308}}", "{{nan, inf}, {-inf, nan}}",
          "{{32767, 32767}, {32768, 65536}}", "{{0.5, 0.5}, {1e-320, 5e-324}}"}) {
        store("vtr_savedWindowRect", text);
        start();
        corvane->restoreWind();
        application().keyWindow().setFrameAnimated(initial);
        EXPECT_EQ(application().keyWindow().frame(), initial) << text;
    }
}

} // namespace
} // namespace vistrel
