#include "tool/MenuReport.h"

#include <gmock/gmock.h>

namespace vistrel::tool {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

MenuRow item(std::string title, std::string key, ModifierMask mask, bool isOurs = false) {
    return {.title = std::move(title), .shortcut = {std::move(key), mask}, .isOurs = isOurs};
}

MenuRow menu(std::string title, std::vector<MenuRow> items) {
    return {.title = std::move(title), .items = std::move(items)};
}

/// The collisions of a host's item with one of ours that stands in a later menu.
std::vector<Collision> between(const Shortcut& theirs, const Shortcut& ours) {
    return collisions({menu("File", {item("New", theirs.key, theirs.mask)}),
                       menu("Window", {item("Center", ours.key, ours.mask, true)})});
}

TEST(ACollision, IsToldWithItsPathsAndItsWinner) {
    const auto found = collisions({
        menu("File", {item("New", "n", commandMask), item("Open", "o", commandMask)}),
        menu("Window", {menu("Arrange", {item("Center", "n", commandMask, true),
                                         item("Left", "[", controlMask, true)}),
                        item("Back", "[", controlMask)}),
    });
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].ours, "Window > Arrange > Center");
    EXPECT_EQ(found[0].theirs, "File > New");
    EXPECT_EQ(found[0].keys, "Command-N");
    EXPECT_TRUE(found[0].theirsWins);
    EXPECT_EQ(found[1].theirs, "Window > Back");
    EXPECT_FALSE(found[1].theirsWins);
}

TEST(ACollision, NeedsTheSameKeyAndTheSameModifiers) {
    EXPECT_THAT(between({"n", commandMask}, {"n", controlMask}), IsEmpty());
    EXPECT_THAT(between({"n", commandMask}, {"m", commandMask}), IsEmpty());
    EXPECT_THAT(between({"n", commandMask}, {"N", commandMask}), IsEmpty());
    EXPECT_THAT(between({"", commandMask}, {"", commandMask}), IsEmpty());
    EXPECT_EQ(between({"n", commandMask}, {"n", commandMask}).size(), 1U);
}

TEST(ACollision, IsThereForEveryCharacterOfReturn) {
    for (const auto* key : {"\r", "\n", "\x03"})
        EXPECT_EQ(between({key, optionMask}, {"\n", optionMask}).size(), 1U);
}

TEST(ACollision, CountsShiftWhereItDoesNotChooseTheCharacter) {
    EXPECT_EQ(between({"N", commandMask | shiftMask}, {"N", commandMask}).size(), 1U);
    EXPECT_THAT(between({"\n", controlMask}, {"\n", controlMask | shiftMask}), IsEmpty());
}

TEST(ACollision, IsNotWithinOneSide) {
    EXPECT_THAT(collisions({item("a", "x", 0), item("b", "x", 0)}), IsEmpty());
    EXPECT_THAT(collisions({item("a", "x", 0, true), item("b", "x", 0, true)}), IsEmpty());
}

TEST(AShortcut, IsWrittenAsInManuals) {
    EXPECT_EQ(shortcutText({"\n", controlMask | shiftMask}), "Control-Shift-Return");
    EXPECT_EQ(shortcutText({"f", commandMask | optionMask | controlMask}),
              "Control-Option-Command-F");
    EXPECT_EQ(shortcutText({"F", commandMask}), "Command-Shift-F");
    EXPECT_EQ(shortcutText({"F", commandMask | shiftMask}), "Shift-Command-F");
    EXPECT_EQ(shortcutText({" ", commandMask}), "Command-Space");
    EXPECT_EQ(shortcutText({"[", controlMask}), "Control-[");
    EXPECT_EQ(shortcutText({"é", 0}), "é");
    EXPECT_EQ(shortcutText({"", commandMask}), "");
}

TEST(OurPositions, AreThoseOfOurItemsAndOfWhatLeadsToThem) {
    EXPECT_THAT(ourPositions({item("Zoom", "", 0), MenuRow{.isSeparator = true},
                              menu("Arrange", {item("Center", "", 0, true)}),
                              item("Fullscreen", "", 0, true), menu("Theirs", {item("a", "", 0)})}),
                ElementsAre(2, 3));
    EXPECT_THAT(ourPositions({}), IsEmpty());
}

} // namespace

} // namespace vistrel::tool
