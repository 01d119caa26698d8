#include "TemporaryFolder.h"

#include "tool/Applications.h"
#include "tool/NeededLibraries.h"

#include <gmock/gmock.h>

namespace vistrel::tool {

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace fs = std::filesystem;

class FindingAnApplication : public TemporaryFolder {
  protected:
    std::string found(const std::string& name) {
        const auto application = findApplication(name, places);
        return application ? application->program : "";
    }

    ApplicationPlaces places{.folders = {folder / "user", folder / "system"},
                             .programs = {folder / "bin"}};
};

TEST_F(FindingAnApplication, TakesTheFirstFolderThatHasIt) {
    const auto system = program("system/Ink.app/Ink");
    EXPECT_EQ(found("Ink"), system);
    const auto user = program("user/Ink.app/Ink");
    EXPECT_EQ(found("Ink"), user);
    EXPECT_EQ(found("Ink.app"), user);
    EXPECT_EQ(found("ink"), "") << "names are exact";
}

TEST_F(FindingAnApplication, FollowsTheLinksOfProgramFolders) {
    const auto linked = program("elsewhere/Gorm.app/Gorm");
    fs::create_directories(folder / "bin");
    fs::create_symlink(linked, folder / "bin/gorm");
    EXPECT_EQ(found("gorm"), linked);
    EXPECT_EQ(findApplication("gorm", places)->name, "Gorm");
}

TEST_F(FindingAnApplication, TakesPathsOfFoldersAndOfPrograms) {
    const auto path = program("a b/Ink.app/Ink");
    EXPECT_EQ(found(folder / "a b/Ink.app"), path);
    EXPECT_EQ(found(folder / "a b/Ink.app/"), path);
    EXPECT_EQ(found(path), path);
}

TEST_F(FindingAnApplication, KnowsWhatIsNone) {
    write("user/Text.app/Text", "not executable");
    fs::create_directories(folder / "user/Folder.app/Folder");
    for (const auto* name : {"", "Nothing", "Text", "Folder", "/", "/no/such.app", ".."})
        EXPECT_EQ(found(name), "") << name;
    EXPECT_EQ(found(folder), "");
}

TEST_F(FindingAnApplication, TellsWhyItIsOfNoUse) {
    program("user/Script.app/Script");
    EXPECT_THAT(findCocoaApplication("Nothing", places).problem,
                StartsWith("there is no application Nothing."));
    EXPECT_EQ(findCocoaApplication("Script", places).problem, "Script is no Cocoa application.");
    EXPECT_EQ(findCocoaApplication(folder, places).problem,
              folder.string() + " is no Cocoa application.");
}

TEST_F(FindingAnApplication, KnowsTheNameOfAProcessAlsoWithoutOne) {
    EXPECT_EQ(processName("Ink"), "Ink");
    EXPECT_EQ(processName("Ink.app"), "Ink");
    EXPECT_EQ(processName("/gone/Ink.app"), "Ink");
    EXPECT_EQ(processName("/gone/Ink.app/"), "Ink");
    EXPECT_EQ(processName(program("x/Gorm.app/Gorm").parent_path()), "Gorm");
    for (const auto* name : {"", ".", "..", ".app", "/", "a/b", "/gone/Ink", "NSGlobalDomain"})
        EXPECT_EQ(processName(name), std::nullopt) << name;
}

TEST_F(FindingAnApplication, ReadsWhatAProgramNeeds) {
    EXPECT_THAT(neededLibraries("/proc/self/exe"), Contains(StartsWith("libc.so")));
}

TEST_F(FindingAnApplication, ReadsNothingFromWhatIsNoWholeProgram) {
    std::ifstream file("/proc/self/exe", std::ios::binary);
    std::string content(4096, '\0');
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    for (const std::size_t size : {0U, 3U, 4U, 16U, 63U, 64U, 200U, 1000U, 4096U})
        EXPECT_THAT(neededLibraries(write("cut", content.substr(0, size))), IsEmpty()) << size;
    EXPECT_THAT(neededLibraries(folder), IsEmpty());
    EXPECT_THAT(neededLibraries(folder / "missing"), IsEmpty());
}

} // namespace

} // namespace vistrel::tool
