#include "core/Settings.h"
#import "platform/cocoa/CocoaPlatform.h"
#import "platform/cocoa/Convert.h"

#import <Foundation/Foundation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

/// The settings file on a real disk, read and written by the real Foundation.
namespace vistrel {
namespace {

namespace fs = std::filesystem;

constexpr auto xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string plist(const std::string& root) {
    return std::string(xmlHead) + "<plist version=\"1.0\">" + root + "</plist>\n";
}

class SettingsFile : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }

    void TearDown() override { fs::remove_all(folder); }

    void write(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

    [[nodiscard]] std::string bytes() const {
        std::ostringstream content;
        content << std::ifstream(path, std::ios::binary).rdbuf();
        return content.str();
    }

    [[nodiscard]] std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    void load() { settings.load(platform.fileManager(), platform.userDefaults()); }

    void save() { settings.save(platform.fileManager(), platform.userDefaults()); }

    [[nodiscard]] std::int64_t mirrored(std::string_view key) {
        return platform.userDefaults().integerForKey(key);
    }

    cocoa::CocoaPlatform platform{nil};
    const fs::path folder =
        platform.fileManager().expandTilde("~/Library/Application Support/Vistrel");
    const fs::path path = folder / "Settings.plist";
    Settings settings;
};

TEST_F(SettingsFile, IsNotWrittenByLoading) {
    fs::remove_all(folder);
    load();
    EXPECT_TRUE(fs::is_directory(folder));
    EXPECT_EQ(filesInFolder(), 0U);
    EXPECT_EQ(settings.dataPath(), path.string());
    EXPECT_EQ(mirrored("spotlightBOOLIndex"), 1);
}

TEST_F(SettingsFile, IsAnXMLPropertyListWithTypedValues) {
    load();
    save();
    EXPECT_THAT(bytes(), testing::StartsWith("<?xml"));
    EXPECT_THAT(bytes(), testing::HasSubstr("<key>spotlightBOOLIndex</key>"));
    EXPECT_THAT(bytes(), testing::HasSubstr("<integer>1</integer>"));
    EXPECT_THAT(bytes(), testing::HasSubstr("<false/>"));
    EXPECT_THAT(bytes(), testing::Not(testing::HasSubstr("<string>")));
}

TEST_F(SettingsFile, LeavesTheFolderWithNothingElseInIt) {
    load();
    save();
    save();
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(SettingsFile, MirrorsBooleansAndIntegersWithTheirSetters) {
    write(plist("<dict><key>spotlightBOOL</key><true/><key>vtrDisplaySetupBool</key><true/>"
                "<key>globalSettingsIndex</key><integer>3</integer></dict>"));
    load();
    EXPECT_EQ(platform.userDefaults().objectForKey("spotlightBOOL"), PropertyList(1));
    EXPECT_EQ(platform.userDefaults().objectForKey("vtrDisplaySetupBool"), PropertyList(true));
    EXPECT_EQ(platform.userDefaults().objectForKey("globalSettingsIndex"), PropertyList(3));
    EXPECT_EQ(platform.userDefaults().objectForKey("spotlightBOOLIndex"), PropertyList(0));
}

TEST_F(SettingsFile, KeepsUnknownKeysOfEveryTypeThroughASave) {
    write(plist("<dict>"
                "<key>array</key><array><integer>-1</integer><string>½</string></array>"
                "<key>bool</key><true/>"
                "<key>data</key><data>AP8=</data>"
                "<key>date</key><date>2020-01-02T03:04:05Z</date>"
                "<key>dict</key><dict><key>deep</key><dict/></dict>"
                "<key>integer</key><integer>9223372036854775807</integer>"
                "<key>real</key><real>0.1</real>"
                "<key>text</key><string>a &lt;&amp;&gt; b</string>"
                "</dict>"));
    load();
    const auto before = *settings.VTRData();
    ASSERT_EQ(before.entries().size(), 8U);
    save();
    load();
    EXPECT_EQ(settings.VTRData()->entries().size(), 15U);
    for (const auto& [key, value] : before.entries())
        EXPECT_EQ(*settings.VTRData()->find(key), value) << key;
    EXPECT_EQ(*settings.VTRData()->find("real"), PropertyList(0.1));
    EXPECT_EQ(*settings.VTRData()->find("bool"), PropertyList(true));
    EXPECT_EQ(*settings.VTRData()->find("date"), PropertyList(Date{599627045}));
}

TEST_F(SettingsFile, ConvertsForeignValues) {
    write(plist("<dict><key>globalSettingsIndex</key><string>2</string>"
                "<key>spotlightBOOLIndex</key><array/>"
                "<key>spotlightBOOL</key><string>YES</string>"
                "<key>vtrDisplaySetupBool</key><date>2020-01-02T03:04:05Z</date></dict>"));
    load();
    EXPECT_EQ(mirrored("globalSettingsIndex"), 2);
    EXPECT_EQ(mirrored("spotlightBOOLIndex"), 0);
    EXPECT_EQ(mirrored("spotlightBOOL"), 1);
    EXPECT_EQ(mirrored("vtrDisplaySetupBool"), 0);
}

struct Unreadable {
    const char* name;
    std::string content;
};

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int count = 0; count < times; ++count)
        result += text;
    return result;
}

class UnreadableSettingsFile : public SettingsFile,
                               public testing::WithParamInterface<Unreadable> {};

TEST_P(UnreadableSettingsFile, ReadsAsZeroesAndIsNotOverwritten) {
    write(GetParam().content);
    load();
    EXPECT_EQ(settings.VTRData(), nullptr);
    EXPECT_EQ(mirrored("spotlightBOOLIndex"), 0);
    save();
    EXPECT_EQ(bytes(), GetParam().content);
    EXPECT_EQ(filesInFolder(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Files, UnreadableSettingsFile,
    testing::Values(
        Unreadable{"Empty", ""}, Unreadable{"Text", "hello"},
        Unreadable{"TruncatedXML", plist("<dict><key>a</key><integer>1").substr(0, 90)},
        Unreadable{"ArrayRoot", plist("<array><integer>1</integer></array>")},
        Unreadable{"TextRoot", plist("<string>text</string>")}, Unreadable{"NoRoot", plist("")},
        Unreadable{"OnlyTheHead", xmlHead}, Unreadable{"UnknownElement", plist("<what/>")},
        Unreadable{"BinaryPropertyList",
                   std::string("bplist00\xD1\x01\x02Qa\x10\x01\x08\x0B\x0D", 17)},
        Unreadable{"OldStyleText", "{ globalSettingsIndex = 2; }"},
        Unreadable{"DeepOldStyleText", repeated("{a=", 100000)},
        Unreadable{"DeepXML", plist(repeated("<dict><key>a</key>", 50000))},
        Unreadable{"DeepArrays", plist("<dict><key>a</key>" + repeated("<array>", 100000))},
        Unreadable{"Serialized", std::string("\0\1\2\3\4\5\6\7", 8)},
        Unreadable{"InvalidUTF8", plist("<dict><key>a</key><string>\xFF\xFE</string></dict>")},
        Unreadable{"TooLarge", plist("<dict><key>a</key><string>" + std::string(1U << 20U, 'a') +
                                     "</string></dict>")}),
    [](const auto& instance) { return instance.param.name; });

TEST_F(SettingsFile, ReadsAsZeroesWhenAFolderIsInItsPlace) {
    fs::create_directories(path / "inside");
    load();
    EXPECT_EQ(settings.VTRData(), nullptr);
    save();
    EXPECT_TRUE(fs::is_directory(path / "inside"));
}

TEST_F(SettingsFile, DoesNotWaitForTheWriterOfAPipe) {
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    load();
    EXPECT_EQ(settings.VTRData(), nullptr);
}

TEST_F(SettingsFile, StaysASymbolicLinkWhenItsTargetIsWritten) {
    const auto elsewhere = folder / "elsewhere.plist";
    fs::create_symlink("elsewhere.plist", path);
    load();
    settings.setVTRData(std::make_shared<Dictionary>(Dictionary{{"a", 1}}));
    save();
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_TRUE(fs::is_regular_file(elsewhere));
    load();
    EXPECT_NE(settings.VTRData()->find("a"), nullptr);
}

TEST_F(SettingsFile, IsNotWrittenThroughALoopOfLinks) {
    fs::create_symlink("Settings.plist", path);
    settings.setDataPath(path.string());
    settings.setVTRData(std::make_shared<Dictionary>());
    save();
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(SettingsFile, KeepsItsPermissions) {
    load();
    save();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
    fs::permissions(path, fs::perms(0640));
    save();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST(PropertyListConversion, RefusesObjectsThatNoPropertyListHolds) {
    EXPECT_EQ(cocoa::toPropertyList(nil), std::nullopt);
    EXPECT_EQ(cocoa::toPropertyList([NSNull null]), std::nullopt);
    EXPECT_EQ(cocoa::toPropertyList([NSArray arrayWithObject:[NSNull null]]), std::nullopt);
    EXPECT_EQ(cocoa::toPropertyList([NSDictionary dictionaryWithObject:[NSNull null]
                                                                forKey:@"key"]),
              std::nullopt);
    EXPECT_EQ(cocoa::toPropertyList([NSDictionary dictionaryWithObject:@"value"
                                                                forKey:[NSNull null]]),
              std::nullopt);
}

TEST(PropertyListConversion, TellsTheKindsOfNumbersApart) {
    EXPECT_EQ(cocoa::toPropertyList([NSNumber numberWithBool:YES]), PropertyList(true));
    EXPECT_EQ(cocoa::toPropertyList([NSNumber numberWithInt:1]), PropertyList(1));
    EXPECT_EQ(cocoa::toPropertyList([NSNumber numberWithChar:1]), PropertyList(1));
    EXPECT_EQ(cocoa::toPropertyList([NSNumber numberWithFloat:0.5F]), PropertyList(0.5));
    EXPECT_EQ(cocoa::toPropertyList([NSNumber numberWithUnsignedLongLong:~0ULL]),
              PropertyList(~std::uint64_t{0}));
}

TEST(PropertyListConversion, ReadsInvalidTextAsEmpty) {
    EXPECT_TRUE([cocoa::toNSString("\xFF") isEqualToString:@""]);
    EXPECT_EQ(cocoa::toString(nil), "");
}

} // namespace
} // namespace vistrel
