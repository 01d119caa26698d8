#include "ContractTest.h"

#include <limits>

namespace vistrel {
namespace {

class FilesContract : public ContractTest {
  protected:
    void write(const Dictionary& dictionary) { files().writeDictionary(dictionary, path); }

    [[nodiscard]] std::optional<Dictionary> read() { return files().readDictionary(path); }

    const std::string folder = host->folder();
    const std::string path = folder + "/Settings.plist";
};

TEST_F(FilesContract, ExpandALeadingTilde) {
    const auto home = files().expandTilde("~");
    EXPECT_TRUE(home.starts_with('/'));
    EXPECT_EQ(files().expandTilde("~/Library/Application Support/Vistrel/"),
              home + "/Library/Application Support/Vistrel");
    EXPECT_EQ(files().expandTilde("/a~/b"), "/a~/b");
}

TEST_F(FilesContract, MakeAFolderAndThoseAboveIt) {
    const auto deep = folder + "/one/two with blank/three";
    EXPECT_FALSE(files().fileExists(deep));
    files().createDirectory(deep);
    EXPECT_TRUE(files().fileExists(deep));
    EXPECT_TRUE(files().fileExists(folder + "/one"));
}

TEST_F(FilesContract, MakeNoFolderBelowAFile) {
    write({{"a", 1}});
    files().createDirectory(path + "/below");
    EXPECT_FALSE(files().fileExists(path + "/below"));
    EXPECT_EQ(read(), (Dictionary{{"a", 1}}));
}

TEST_F(FilesContract, HaveNoDictionaryWhereThereIsNoFile) {
    EXPECT_FALSE(files().fileExists(path));
    EXPECT_EQ(read(), std::nullopt);
}

TEST_F(FilesContract, HaveNoDictionaryInAFolder) {
    EXPECT_EQ(files().readDictionary(folder), std::nullopt);
}

TEST_F(FilesContract, HaveNoDictionaryInADamagedFile) {
    host->makeDamagedFile(path);
    EXPECT_TRUE(files().fileExists(path));
    EXPECT_EQ(read(), std::nullopt);
}

TEST_F(FilesContract, ReadBackWhatWasWritten) {
    const Dictionary everything{
        {"true", true},
        {"false", false},
        {"one", 1},
        {"lowest", std::numeric_limits<std::int64_t>::min()},
        {"highest", std::numeric_limits<std::int64_t>::max()},
        {"whole real", 2.0},
        {"real", 0.1},
        {"small real", 1.0 / 3 * 1e-12},
        {"large real", 1.7976931348623157e308},
        {"text", "a <b> & \"c\" 'd' ½⅓… 😀\nnext\ttab"},
        {"blanks", "  around  "},
        {"empty text", ""},
        {"date", Date{700000000}},
        {"early date", Date{-700000000}},
        {"data", Data{std::byte{0}, std::byte{127}, std::byte{255}}},
        {"empty data", Data{}},
        {"array", Array{1, "1", true, Array{}, Dictionary{}}},
        {"dictionary", Dictionary{{"k", Dictionary{{"k", Array{Array{1}}}}}}},
        {"", "empty key"},
        {"key with <>&", 1},
    };
    for (const auto& [key, value] : everything.entries()) {
        const Dictionary one{{key, value}};
        write(one);
        EXPECT_EQ(read(), one) << key;
    }
    write(everything);
    EXPECT_EQ(read(), everything);
}

TEST_F(FilesContract, ReplaceTheWholeFile) {
    write({{"a", 1}, {"b", 2}});
    write({{"c", 3}});
    EXPECT_EQ(read(), (Dictionary{{"c", 3}}));
}

TEST_F(FilesContract, WriteNothingWhereTheFolderIsMissing) {
    const auto missing = folder + "/missing/Settings.plist";
    files().writeDictionary({{"a", 1}}, missing);
    EXPECT_FALSE(files().fileExists(missing));
    EXPECT_FALSE(files().fileExists(folder + "/missing"));
}

TEST_F(FilesContract, WriteNothingOverAFolder) {
    files().createDirectory(path);
    write({{"a", 1}});
    EXPECT_TRUE(files().fileExists(path));
    EXPECT_EQ(read(), std::nullopt);
}

} // namespace
} // namespace vistrel
