#include "platform/posix/UTF8.h"

#include <gtest/gtest.h>

#include <string>

namespace vistrel::posix {
namespace {

using namespace std::string_view_literals;

TEST(UTF8Test, AcceptsTheFirstAndTheLastCharacterOfEachLength) {
    for (const auto text :
         {""sv, "\0"sv, "\x7F"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv, "\xED\x9F\xBF"sv,
          "\xEE\x80\x80"sv, "\xEF\xBF\xBF"sv, "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv})
        EXPECT_TRUE(isUTF8(text)) << testing::PrintToString(text);
}

TEST(UTF8Test, AcceptsByteOrderMarksAndZeroBytesAnywhere) {
    EXPECT_TRUE(isUTF8("\xEF\xBB\xBF"
                       "1.1.2\0\xEF\xBB\xBF"sv));
}

TEST(UTF8Test, RejectsOverlongForms) {
    for (const auto text : {"\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x80\x80"sv, "\xE0\x9F\xBF"sv,
                            "\xF0\x80\x80\x80"sv, "\xF0\x8F\xBF\xBF"sv})
        EXPECT_FALSE(isUTF8(text)) << testing::PrintToString(text);
}

TEST(UTF8Test, RejectsSurrogates) {
    for (const auto text : {"\xED\xA0\x80"sv, "\xED\xBF\xBF"sv, "\xED\xA0\xBD\xED\xB8\x80"sv})
        EXPECT_FALSE(isUTF8(text)) << testing::PrintToString(text);
}

TEST(UTF8Test, RejectsNumbersBeyondTheLastCharacter) {
    for (const auto text : {"\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xF8\x88\x80\x80\x80"sv,
                            "\xFC\x84\x80\x80\x80\x80"sv, "\xFE"sv, "\xFF"sv})
        EXPECT_FALSE(isUTF8(text)) << testing::PrintToString(text);
}

TEST(UTF8Test, RejectsWhatIsCutOff) {
    for (const auto text : {"\xC2"sv, "\xE2\x80"sv, "\xF0\x90\x80"sv, "\xE2\x80 "sv, "\xC2\x41"sv})
        EXPECT_FALSE(isUTF8(text)) << testing::PrintToString(text);
}

TEST(UTF8Test, RejectsContinuationsOfNothing) {
    EXPECT_FALSE(isUTF8("1.1.2\x80"));
    EXPECT_FALSE(isUTF8("\xBF"));
}

TEST(UTF8Test, LooksAtLongTextsToTheirEnd) {
    std::string text;
    while (text.size() < 100000)
        text += "1\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_TRUE(isUTF8(text));
    EXPECT_FALSE(isUTF8(text + '\xFF'));
    EXPECT_FALSE(isUTF8(text.substr(0, text.size() - 1)));
}

} // namespace
} // namespace vistrel::posix
