#include "TemporaryFolder.h"

#include "core/Settings.h"
#include "tool/SettingsReport.h"
#include "tool/ValueText.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace vistrel::tool {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

SettingsFile fileWith(Dictionary values) {
    return {.path = "/file", .state = SettingsFile::State::read, .values = std::move(values)};
}

ReportedSetting find(const std::vector<ReportedSetting>& settings, std::string_view key) {
    const auto found = std::ranges::find(settings, key, &ReportedSetting::key);
    return found == settings.end() ? ReportedSetting{} : *found;
}

/// One setting as TextEdit has it in its defaults.
ReportedSetting own(std::string_view key, const Dictionary& values, const SettingsFile& file = {}) {
    const auto report = settingsReport(file, {.domains = {{"TextEdit", values}}}, {});
    return report.domains.empty() ? ReportedSetting{} : find(report.domains[0].settings, key);
}

ReportedSetting own(std::string_view key, const PropertyList& value,
                    const SettingsFile& file = {}) {
    return own(key, Dictionary{{std::string(key), value}}, file);
}

const Dictionary ownShortcuts{{"ownShortCuts", true}};

Dictionary with(Dictionary values, std::string_view key, PropertyList value) {
    values.set(key, std::move(value));
    return values;
}

TEST(TheTable, HasEverySettingOfTheFileInItsOrder) {
    std::size_t index = 0;
    for (const auto& setting : knownSettings())
        if (setting.place == SettingPlace::file) {
            EXPECT_EQ(setting.key, globalSettings.at(index++).key);
        }
    EXPECT_EQ(index, globalSettings.size());
}

TEST(TheTable, FindsTheFramesOfAllDisplaySetups) {
    for (const auto* key : {"vtr_savedWindowRect", "vtr_savedWindowRect2", "vtr_savedWindowRect12"})
        EXPECT_NE(findSetting(key), nullptr) << key;
    for (const auto* key : {"vtr_savedWindowRectX", "windowMode2", "", "NSFont"})
        EXPECT_EQ(findSetting(key), nullptr) << key;
}

TEST(TheTable, HasAMeaningForEveryValue) {
    for (const auto& setting : knownSettings())
        for (const auto& value :
             {PropertyList(std::int64_t{0}), PropertyList(std::int64_t{-1}), PropertyList(true),
              PropertyList(std::string("x")), PropertyList(Array{})})
            EXPECT_THAT(setting.meaning(&value), AllOf(testing::Not(IsEmpty()), HasSubstr(".")))
                << setting.key;
}

TEST(TheSettingsFile, ThatIsAbsentMeansTheDefaults) {
    const auto report = settingsReport({}, {}, {});
    ASSERT_EQ(report.forAll.size(), globalSettings.size());
    const auto index = find(report.forAll, "spotlightBOOLIndex");
    EXPECT_EQ(index.value, std::nullopt);
    EXPECT_EQ(index.effective, PropertyList(std::int64_t{1}));
    EXPECT_THAT(index.flags, IsEmpty());
}

TEST(TheSettingsFile, ThatIsUnreadableMeansNothing) {
    const auto effective = effectiveSettings({.state = SettingsFile::State::unreadable});
    EXPECT_EQ(*effective.find("spotlightBOOLIndex"), PropertyList(std::int64_t{0}));
    EXPECT_EQ(*effective.find("spotlightBOOL"), PropertyList(false));
}

TEST(TheSettingsFile, MayLackKeysAndHoldOthers) {
    const auto report =
        settingsReport(fileWith({{"spotlightBOOL", true}, {"own", Array{}}}), {}, {});
    EXPECT_THAT(find(report.forAll, "spotlightBOOLIndex").flags,
                ElementsAre("Missing: it counts as 0."));
    EXPECT_THAT(find(report.forAll, "spotlightBOOL").flags, IsEmpty());
    EXPECT_THAT(find(report.forAll, "own").meaning, HasSubstr("keeps it"));
}

TEST(ASettingOfTheFile, SaysWhatAnOddValueCountsAs) {
    const auto report = settingsReport(
        fileWith({{"globalSettingsIndex", std::string("2x")}, {"vtrDisplaySetupBool", Array{}}}),
        {}, {});
    EXPECT_THAT(find(report.forAll, "globalSettingsIndex").flags,
                ElementsAre("A text where an integer belongs: it counts as 2."));
    EXPECT_THAT(find(report.forAll, "vtrDisplaySetupBool").flags,
                ElementsAre("A list where a boolean belongs: it counts as no."));
    EXPECT_THAT(find(report.forAll, "globalSettingsIndex").meaning, HasSubstr("hidden"));
}

TEST(ASettingInTheDefaults, MayBeANumberInAText) {
    EXPECT_THAT(own("windowMode", std::string("1")).flags, IsEmpty());
    EXPECT_THAT(own("windowMode", std::string("1")).meaning, HasSubstr("saved frame"));
    EXPECT_THAT(own("ownShortCuts", std::string("YES")).flags, IsEmpty());
    EXPECT_THAT(own("windowMode", std::string("one")).flags, ElementsAre(HasSubstr("counts as 0")));
    EXPECT_THAT(own("windowMode", 1.5).flags, ElementsAre(HasSubstr("A real where an integer")));
}

TEST(ASettingInTheDefaults, ThatIsCopiedFromTheFileSaysWhatComes) {
    const auto file = fileWith({{"globalSettingsIndex", std::int64_t{2}}});
    EXPECT_THAT(own("globalSettingsIndex", std::int64_t{2}, file).flags, IsEmpty());
    EXPECT_THAT(own("globalSettingsIndex", std::int64_t{1}, file).flags,
                ElementsAre(HasSubstr("Replaced at the next start")));
    EXPECT_THAT(own("spotlightBOOL", std::int64_t{0}, file).flags, IsEmpty())
        << "a number stands for a boolean there";
}

TEST(ASettingInTheDefaults, SaysWhenAnotherOneMakesItIdle) {
    EXPECT_THAT(own("kuiMode", std::int64_t{1}).flags, IsEmpty());
    EXPECT_THAT(
        own("kuiMode", std::int64_t{1}, fileWith({{"globalSettingsIndex", std::int64_t{3}}})).flags,
        ElementsAre(HasSubstr("globalSettingsIndex decides")));
    EXPECT_THAT(own("centerString", std::string("c")).flags,
                ElementsAre("Without effect: ownShortCuts is off."));
    EXPECT_THAT(own("centerString", with(ownShortcuts, "centerString", std::string("c"))).flags,
                IsEmpty());
    EXPECT_THAT(
        own("menuToggleIndex", with(ownShortcuts, "menuToggleIndex", std::int64_t{1})).flags,
        ElementsAre("Without effect: there is no menuString."));
}

TEST(ASavedFrame, BelongsToTheDisplaySetupsOrToAll) {
    const PropertyList frame = std::string("{{1, 2}, {300, 400}}");
    const auto perSetup = fileWith({{"vtrDisplaySetupBool", true}});
    EXPECT_THAT(own("vtr_savedWindowRect", frame).flags, IsEmpty());
    EXPECT_THAT(own("vtr_savedWindowRect2", frame, perSetup).flags, IsEmpty());
    EXPECT_THAT(own("vtr_savedWindowRect2", frame).flags, ElementsAre(HasSubstr("is off")));
    EXPECT_THAT(own("vtr_savedWindowRect", frame, perSetup).flags, ElementsAre(HasSubstr("is on")));
    EXPECT_THAT(own("vtr_savedWindowRect", std::string("x")).flags,
                ElementsAre("It is no frame of a window."));
    EXPECT_THAT(own("vtr_savedWindowRect", true).flags,
                ElementsAre("A boolean where a text belongs: it counts as none."));
}

TEST(TheDomains, AreThoseThatHoldASetting) {
    const StoredDefaults stored{
        .domains = {{"Ink", {{"NSFont", std::string("Mono")}}},
                    {"NSGlobalDomain", {{"VTRSearchTool", std::string("rofi")}}},
                    {"TextEdit", {{"windowMode", std::int64_t{1}}}}},
        .unreadable = {{"Gorm", "It is damaged."}}};
    const auto names = [&stored](const std::vector<std::string>& applications) {
        std::vector<std::string> found;
        for (const auto& domain : settingsReport({}, stored, applications).domains)
            found.push_back(domain.name);
        return found;
    };
    EXPECT_THAT(names({}), ElementsAre("Gorm", "NSGlobalDomain", "TextEdit"));
    EXPECT_THAT(names({"Ink"}), ElementsAre("Ink"));
    EXPECT_THAT(names({"Nobody"}), ElementsAre("Nobody"));
}

class ReadingTheFile : public TemporaryFolder {
  protected:
    [[nodiscard]] SettingsFile read() const { return readSettingsFile(folder); }

    std::filesystem::path write(const std::string& content) const {
        return TemporaryFolder::write("Library/Application Support/Vistrel/Settings.plist",
                                      content);
    }
};

TEST_F(ReadingTheFile, TellsWhetherItIsThere) {
    EXPECT_EQ(read().state, SettingsFile::State::absent);
    EXPECT_EQ(read().path, folder / "Library/Application Support/Vistrel/Settings.plist");
    write("<plist><dict><key>a</key><true/></dict></plist>");
    EXPECT_EQ(read().state, SettingsFile::State::read);
    EXPECT_EQ(*read().values.find("a"), PropertyList(true));
}

TEST_F(ReadingTheFile, TellsWhatIsWrongWithIt) {
    write("<plist><dict>");
    EXPECT_EQ(read().problem, "It is no XML property list, or a damaged one.");
    write("<plist><array/></plist>");
    EXPECT_EQ(read().problem, "It holds no dictionary.");
    const auto path = write(std::string((1U << 20U) + 1, ' '));
    EXPECT_EQ(read().problem, "It is larger than 1 MiB.");
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(read().problem, "It is a folder.");
    std::filesystem::remove(path);
    std::filesystem::create_symlink("/dev/null", path);
    EXPECT_EQ(read().problem, "It is no regular file.");
    EXPECT_EQ(read().state, SettingsFile::State::unreadable);
}

TEST(AValue, IsReadable) {
    EXPECT_EQ(valueText(PropertyList(true)), "yes");
    EXPECT_EQ(valueText(PropertyList(std::int64_t{-3})), "-3");
    EXPECT_EQ(valueText(PropertyList(1.5)), "1.5");
    EXPECT_EQ(valueText(PropertyList(std::string("a\"b\\c\nd\x1b"))), R"("a\"b\\c\nd?")");
    EXPECT_EQ(valueText(PropertyList(Array{std::int64_t{1}, std::string("é")})), "(1, \"é\")");
    EXPECT_EQ(valueText(PropertyList(Dictionary{{"k", false}})), "{\"k\" = no}");
    EXPECT_EQ(valueText(PropertyList(Data(3))), "3 bytes");
    EXPECT_EQ(valueText(PropertyList(Date{})), "2001-01-01T00:00:00Z");
    EXPECT_EQ(valueText(std::optional<PropertyList>()), "none");
    EXPECT_EQ(typeName(PropertyList(std::uint64_t{1})), "integer");
    EXPECT_EQ(typeName(PropertyList(Data{})), "data");
}

} // namespace

} // namespace vistrel::tool
