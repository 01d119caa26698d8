#include "TemporaryFolder.h"

#include "tool/Installation.h"
#include "tool/LoadedBundles.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace vistrel::tool {

namespace {

using testing::IsEmpty;

namespace fs = std::filesystem;

class Bundles : public TemporaryFolder {
  protected:
    /// Writes a bundle and answers its path.
    fs::path bundle(const std::string& name, const std::string& version) const {
        write(fs::path(name + ".bundle") / name, "program");
        write(fs::path(name + ".bundle") / "Resources/Info-gnustep.plist",
              "<plist><dict><key>CFBundleShortVersionString</key><string>" + version +
                  "</string></dict></plist>");
        return folder / (name + ".bundle");
    }

    void process(const std::string& number, const std::string& command,
                 const std::string& file) const {
        using std::string_literals::operator""s;
        write(fs::path("proc") / number / "cmdline", command + "\0-x\0"s);
        write(fs::path("proc") / number / "maps",
              "7f00-7f01 r--p 00000000 08:01 123        /usr/lib/libc.so.6\n"
              "7f02-7f03 rw-p 00000000 00:00 0 \n"
              "7f04-7f05 r-xp 00001000 08:01 124                        " +
                  file + "\n7f06-7f07 rw-p 00000000 00:00 0          [stack]\n");
    }

    [[nodiscard]] std::vector<LoadedBundle> loaded() const {
        return loadedBundles(folder / "proc", ::getuid());
    }
};

TEST_F(Bundles, AreFoundInTheMapsOfProcesses) {
    const auto path = bundle("Vistrel", "1.2.3");
    process("20", "/apps/Text Edit.app/Text Edit", path / "Vistrel");
    process("3", "Ink", path / "Vistrel");
    process("4", "other", "/usr/lib/Vistrel.bundle/VistrelX");
    process("self", "me", path / "Vistrel");
    const auto found = loaded();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].process, 3);
    EXPECT_EQ(found[0].name, "Ink");
    EXPECT_EQ(found[1].process, 20);
    EXPECT_EQ(found[1].name, "Text Edit");
    EXPECT_EQ(found[1].path, path);
    EXPECT_EQ(found[1].version, "1.2.3");
    EXPECT_FALSE(found[1].isReplaced);
}

TEST_F(Bundles, ThatWereReplacedHaveNoVersion) {
    const auto path = bundle("Vistrel", "1.2.3");
    process("5", "Ink", (path / "Vistrel").string() + " (deleted)");
    const auto found = loaded();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].isReplaced);
    EXPECT_EQ(found[0].path, path);
    EXPECT_EQ(found[0].version, "");
}

TEST_F(Bundles, OfOtherUsersAreNotLookedAt) {
    process("5", "Ink", bundle("Vistrel", "1") / "Vistrel");
    EXPECT_THAT(loadedBundles(folder / "proc", ::getuid() + 1), IsEmpty());
    EXPECT_THAT(loadedBundles(folder / "missing", ::getuid()), IsEmpty());
}

TEST_F(Bundles, AreFoundBesideABuildAndWhereTheyAreInstalled) {
    const auto program = folder / "prefix/bin/vistrel";
    EXPECT_FALSE(findInstallation(program, ""));
    write("prefix/bin/vistrel", "");
    for (const auto& name : {"Vistrel", "VistrelLoader"}) {
        bundle(name, "1.0");
        fs::create_directories(folder / "prefix/lib/GNUstep/Bundles");
        fs::rename(folder / (std::string(name) + ".bundle"),
                   folder / "prefix/lib/GNUstep/Bundles" / (std::string(name) + ".bundle"));
    }
    const auto installed = findInstallation(program, "");
    ASSERT_TRUE(installed);
    EXPECT_EQ(installed->folder, folder / "prefix/lib/GNUstep/Bundles");
    EXPECT_EQ(installed->vistrel->version, "1.0");
    EXPECT_FALSE(installed->doctor);
    fs::rename(folder / "prefix/lib/GNUstep/Bundles", folder / "prefix/bundles");
    EXPECT_EQ(findInstallation(program, "")->folder, folder / "prefix/bundles");
    EXPECT_EQ(findInstallation("/none", folder / "prefix/../prefix/bundles/")->folder,
              folder / "prefix/bundles");
    fs::remove(folder / "prefix/bundles/VistrelLoader.bundle/VistrelLoader");
    EXPECT_FALSE(findInstallation(program, "")) << "a loader without its program is none";
    EXPECT_FALSE(findInstallation(program, folder / "missing"));
}

TEST_F(Bundles, WithoutInformationHaveNoVersion) {
    write("Vistrel.bundle/Vistrel", "program");
    EXPECT_EQ(bundleAt(folder / "Vistrel.bundle")->version, "");
    write("Vistrel.bundle/Resources/Info-gnustep.plist", "damaged");
    EXPECT_EQ(bundleAt(folder / "Vistrel.bundle")->version, "");
}

} // namespace

} // namespace vistrel::tool
