#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;

class SettingsStore : public HostTest {
  protected:
    void loadSettings() { settings.load(it.host.fileManager(), it.host.userDefaults()); }

    void save() { settings.save(it.host.fileManager(), it.host.userDefaults()); }

    [[nodiscard]] std::vector<std::string> mirrorCalls() const {
        std::vector<std::string> calls;
        std::ranges::copy_if(it.host.calls.lines, std::back_inserter(calls),
                             [](const auto& line) { return line.starts_with("set"); });
        return calls;
    }

    [[nodiscard]] Dictionary file() const {
        return std::get<Dictionary>(*desktop.files.at(settingsPath));
    }

    Settings settings;
};

const Dictionary sevenDefaults{
    {"globalSettingsIndex", 0},
    {"spotlightBOOLIndex", 1},
    {"spotlightBOOL", false},
    {"globalSettingsRestartBOOL", false},
    {"globalSettingsFakeFSABool", false},
    {"vtrDisplaySetupBool", false},
    {"vtrRestartFinderBOOL", false},
};

TEST_F(SettingsStore, MakesTheFolderAndNoFileAtTheFirstRun) {
    loadSettings();
    EXPECT_TRUE(desktop.folders.contains("/home/user/Library/Application Support/Vistrel"));
    EXPECT_TRUE(desktop.files.empty());
    EXPECT_EQ(settings.dataPath(), settingsPath);
}

TEST_F(SettingsStore, LooksForTheFolderThenMakesItThenLooksForTheFile) {
    loadSettings();
    const auto& lines = it.host.calls.lines;
    EXPECT_THAT(std::vector<std::string>(lines.begin(), lines.begin() + 3),
                ElementsAre("fileExists /home/user/Library/Application Support/Vistrel",
                            "createDirectory /home/user/Library/Application Support/Vistrel",
                            "fileExists " + settingsPath));
}

TEST_F(SettingsStore, LeavesAnExistingFolderAlone) {
    desktop.folders.insert("/home/user/Library/Application Support/Vistrel");
    loadSettings();
    EXPECT_THAT(it.host.calls.lines,
                testing::Not(testing::Contains(testing::StartsWith("create"))));
}

TEST_F(SettingsStore, BuildsSevenDefaultsInOrderWhileThereIsNoFile) {
    loadSettings();
    ASSERT_NE(settings.VTRData(), nullptr);
    EXPECT_EQ(settings.VTRData()->entries(), sevenDefaults.entries());
}

TEST_F(SettingsStore, MirrorsTheDefaultsInOrderWithTheirSetters) {
    loadSettings();
    EXPECT_THAT(mirrorCalls(),
                ElementsAre("setInteger 0 globalSettingsIndex", "setInteger 1 spotlightBOOLIndex",
                            "setInteger 0 spotlightBOOL", "setBool false globalSettingsRestartBOOL",
                            "setBool false globalSettingsFakeFSABool",
                            "setBool false vtrDisplaySetupBool",
                            "setBool false vtrRestartFinderBOOL"));
}

TEST_F(SettingsStore, MirrorsEveryValueOfTheFile) {
    writeSettings({{"vtrRestartFinderBOOL", true},
                   {"vtrDisplaySetupBool", true},
                   {"globalSettingsFakeFSABool", true},
                   {"globalSettingsRestartBOOL", true},
                   {"spotlightBOOL", true},
                   {"spotlightBOOLIndex", 0},
                   {"globalSettingsIndex", 3}});
    loadSettings();
    EXPECT_THAT(mirrorCalls(),
                ElementsAre("setInteger 3 globalSettingsIndex", "setInteger 0 spotlightBOOLIndex",
                            "setInteger 1 spotlightBOOL", "setBool true globalSettingsRestartBOOL",
                            "setBool true globalSettingsFakeFSABool",
                            "setBool true vtrDisplaySetupBool",
                            "setBool true vtrRestartFinderBOOL"));
    EXPECT_EQ(it.storedDefault("spotlightBOOL"), PropertyList(1));
    EXPECT_EQ(it.storedDefault("vtrDisplaySetupBool"), PropertyList(true));
}

const std::vector<std::string> allZero{
    "setInteger 0 globalSettingsIndex",
    "setInteger 0 spotlightBOOLIndex",
    "setInteger 0 spotlightBOOL",
    "setBool false globalSettingsRestartBOOL",
    "setBool false globalSettingsFakeFSABool",
    "setBool false vtrDisplaySetupBool",
    "setBool false vtrRestartFinderBOOL",
};

TEST_F(SettingsStore, MirrorsMissingKeysAsZeroNotAsTheirDefaults) {
    writeSettings({});
    loadSettings();
    EXPECT_EQ(mirrorCalls(), allZero);
}

TEST_F(SettingsStore, HasNoDictionaryWhenTheFileIsDamagedAndMirrorsZeroes) {
    writeSettings({});
    desktop.files[settingsPath] = std::nullopt;
    loadSettings();
    EXPECT_EQ(settings.VTRData(), nullptr);
    EXPECT_EQ(mirrorCalls(), allZero);
}

TEST_F(SettingsStore, HasNoDictionaryWhenTheRootIsAnArray) {
    writeSettings({});
    desktop.files[settingsPath] = PropertyList(Array{1, 2});
    loadSettings();
    EXPECT_EQ(settings.VTRData(), nullptr);
}

TEST_F(SettingsStore, HasNoDictionaryWhenAFolderIsInTheFilesPlace) {
    writeSettings({});
    desktop.files.clear();
    desktop.folders.insert(settingsPath);
    loadSettings();
    EXPECT_EQ(settings.VTRData(), nullptr);
    EXPECT_EQ(mirrorCalls(), allZero);
}

TEST_F(SettingsStore, ConvertsTextsAndReadsWhatCannotBeConvertedAsZero) {
    writeSettings({{"globalSettingsIndex", "2"},
                   {"spotlightBOOLIndex", Array{1}},
                   {"spotlightBOOL", "YES"},
                   {"globalSettingsRestartBOOL", Dictionary{}},
                   {"globalSettingsFakeFSABool", Data{std::byte{1}}},
                   {"vtrDisplaySetupBool", 2.5},
                   {"vtrRestartFinderBOOL", Date{1}}});
    loadSettings();
    EXPECT_THAT(mirrorCalls(),
                ElementsAre("setInteger 2 globalSettingsIndex", "setInteger 0 spotlightBOOLIndex",
                            "setInteger 1 spotlightBOOL", "setBool false globalSettingsRestartBOOL",
                            "setBool false globalSettingsFakeFSABool",
                            "setBool true vtrDisplaySetupBool",
                            "setBool false vtrRestartFinderBOOL"));
}

TEST_F(SettingsStore, CarriesOnWhenTheFolderCannotBeMade) {
    desktop.unwritable.insert("/home/user/Library");
    loadSettings();
    EXPECT_EQ(*settings.VTRData(), sevenDefaults);
    save();
    EXPECT_TRUE(desktop.files.empty());
}

TEST_F(SettingsStore, SavesTheSevenKeysWithTheirTypes) {
    loadSettings();
    it.setDefault("globalSettingsIndex", 2);
    it.setDefault("spotlightBOOLIndex", 0);
    it.setDefault("spotlightBOOL", 1);
    it.setDefault("vtrDisplaySetupBool", true);
    save();
    EXPECT_EQ(file(), (Dictionary{{"globalSettingsIndex", 2},
                                  {"spotlightBOOLIndex", 0},
                                  {"spotlightBOOL", true},
                                  {"globalSettingsRestartBOOL", false},
                                  {"globalSettingsFakeFSABool", false},
                                  {"vtrDisplaySetupBool", true},
                                  {"vtrRestartFinderBOOL", false}}));
}

TEST_F(SettingsStore, ReadsTheSevenKeysInOrderThenWritesOnce) {
    loadSettings();
    it.host.calls.lines.clear();
    save();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("integerForKey globalSettingsIndex", "integerForKey spotlightBOOLIndex",
                            "boolForKey spotlightBOOL", "boolForKey globalSettingsRestartBOOL",
                            "boolForKey globalSettingsFakeFSABool",
                            "boolForKey vtrDisplaySetupBool", "boolForKey vtrRestartFinderBOOL",
                            "writeDictionary " + settingsPath));
}

TEST_F(SettingsStore, NarrowsSavedIntegersTo32Bits) {
    loadSettings();
    it.setDefault("globalSettingsIndex", 4294967298);
    it.setDefault("spotlightBOOLIndex", 2147483648);
    save();
    EXPECT_EQ(*file().find("globalSettingsIndex"), PropertyList(2));
    EXPECT_EQ(*file().find("spotlightBOOLIndex"), PropertyList(-2147483648LL));
}

TEST_F(SettingsStore, AddsMissingKeysAndKeepsUnknownOnes) {
    const Array others{true, 1, 2.5, "text", Date{5}, Data{std::byte{9}}, Dictionary{{"k", 1}}};
    writeSettings({{"unknown", others}, {"globalSettingsIndex", 1}});
    loadSettings();
    save();
    EXPECT_EQ(file().entries().size(), 8U);
    EXPECT_EQ(*file().find("unknown"), PropertyList(others));
    EXPECT_EQ(*file().find("globalSettingsIndex"), PropertyList(1));
}

TEST_F(SettingsStore, SavesNothingOverADamagedFile) {
    writeSettings({});
    desktop.files[settingsPath] = std::nullopt;
    loadSettings();
    save();
    EXPECT_EQ(desktop.files.at(settingsPath), std::nullopt);
}

TEST_F(SettingsStore, TravelsWithoutThePerApplicationKeys) {
    it.setDefault("kuiMode", 1);
    it.setDefault("windowMode", 1);
    it.setDefault("ownShortCuts", true);
    loadSettings();
    save();
    EXPECT_EQ(file(), sevenDefaults);
}

TEST_F(SettingsStore, HasTwoCopiesThatAreIndependent) {
    writeSettings({{"globalSettingsIndex", 1}});
    Settings other;
    loadSettings();
    other.load(it.host.fileManager(), it.host.userDefaults());
    EXPECT_NE(settings.VTRData(), other.VTRData());

    it.setDefault("globalSettingsIndex", 3);
    other.save(it.host.fileManager(), it.host.userDefaults());
    EXPECT_EQ(*settings.VTRData()->find("globalSettingsIndex"), PropertyList(1));
    EXPECT_EQ(*other.VTRData()->find("globalSettingsIndex"), PropertyList(3));
}

} // namespace
} // namespace vistrel
