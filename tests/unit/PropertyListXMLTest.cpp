#include "platform/posix/PropertyListXML.h"
#include "platform/posix/Base64.h"
#include "platform/posix/DateText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vistrel::posix {
namespace {

std::optional<PropertyList> read(const std::string& root) {
    return propertyListFromXML("<?xml version=\"1.0\"?><plist version=\"1.0\">" + root +
                               "</plist>");
}

TEST(PropertyListXML, IsWrittenAsEverybodyElseWritesIt) {
    EXPECT_EQ(xmlFromPropertyList(Dictionary{{"a", true}, {"b", Array{1, "x"}}}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n"
              "\t<dict>\n"
              "\t\t<key>a</key>\n"
              "\t\t<true/>\n"
              "\t\t<key>b</key>\n"
              "\t\t<array>\n"
              "\t\t\t<integer>1</integer>\n"
              "\t\t\t<string>x</string>\n"
              "\t\t</array>\n"
              "\t</dict>\n"
              "</plist>\n");
}

struct Reading {
    const char* root;
    std::optional<PropertyList> value;
};

class PropertyListXMLReading : public testing::TestWithParam<Reading> {};

TEST_P(PropertyListXMLReading, TakesWhatIsAPropertyListAndNothingElse) {
    EXPECT_EQ(read(GetParam().root), GetParam().value) << GetParam().root;
}

constexpr auto largest = std::numeric_limits<std::uint64_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Texts, PropertyListXMLReading,
    testing::Values(
        Reading{"<true/>", true}, Reading{"<false></false>", false},
        Reading{"<integer> 7\n</integer>", 7}, Reading{"<integer>+7</integer>", 7},
        Reading{"<integer>-9223372036854775808</integer>",
                std::numeric_limits<std::int64_t>::min()},
        Reading{"<integer>18446744073709551615</integer>", largest},
        Reading{"<integer>18446744073709551616</integer>", std::nullopt},
        Reading{"<integer>0x1F</integer>", 31},
        Reading{"<integer> 0XffFFffFFffFFffFF </integer>", largest},
        Reading{"<integer>0x</integer>", std::nullopt},
        Reading{"<integer>0x-1</integer>", std::nullopt},
        Reading{"<integer>0x1G</integer>", std::nullopt},
        Reading{"<integer>0x10000000000000000</integer>", std::nullopt},
        Reading{"<integer></integer>", std::nullopt},
        Reading{"<integer>1x</integer>", std::nullopt},
        Reading{"<integer>+-1</integer>", std::nullopt}, Reading{"<real>-2.5e3</real>", -2500.0},
        Reading{"<real>one</real>", std::nullopt}, Reading{"<string/>", ""},
        Reading{"<string>a<![CDATA[<b>]]>&amp;&#189;</string>", "a<b>&½"},
        Reading{"<string>C:\\U0041</string>", "C:\\U0041"},
        Reading{"<string>a<!-- b --><?c d?>e</string>", "ae"},
        Reading{"<string>a<b>c</b></string>", std::nullopt},
        Reading{"<dict><key><true/></key><true/></dict>", std::nullopt},
        Reading{"<array><!-- none --> <true/> </array>", Array{true}},
        Reading{"<array><what/></array>", std::nullopt},
        Reading{"<dict><key>a</key></dict>", std::nullopt},
        Reading{"<dict><true/></dict>", std::nullopt},
        Reading{"<dict><key>a</key><true/><key>a</key><false/></dict>", Dictionary{{"a", false}}},
        Reading{"<data>\n\tAP8=\n</data>", Data{std::byte{0}, std::byte{255}}},
        Reading{"<data>AP8</data>", std::nullopt}, Reading{"<data>A===</data>", std::nullopt},
        Reading{"<data>====</data>", std::nullopt}, Reading{"<data>AA=A</data>", std::nullopt},
        Reading{"<date>2001-01-01T00:00:01Z</date>", Date{1}},
        Reading{"<date>yesterday</date>", std::nullopt}, Reading{"", std::nullopt},
        Reading{"text", std::nullopt}));

TEST(PropertyListXML, IsNothingWithoutAPlistElement) {
    for (const auto* text : {"", "<", "<dict/>", "<?xml version=\"1.0\"?>", "<plist>", "bplist00"})
        EXPECT_EQ(propertyListFromXML(text), std::nullopt) << text;
}

TEST(PropertyListXML, DeclaresNoEntities) {
    EXPECT_EQ(propertyListFromXML("<!DOCTYPE plist [<!ENTITY a \"aaaa\">]>"
                                  "<plist><string>&a;</string></plist>"),
              std::nullopt);
}

TEST(PropertyListXML, LosesNoEntityThatAFileElsewhereMayDeclare) {
    EXPECT_EQ(propertyListFromXML("<!DOCTYPE plist SYSTEM \"http://127.0.0.1/plist.dtd\">"
                                  "<plist><string>a&b;c</string></plist>"),
              std::nullopt);
}

TEST(PropertyListXML, IsNestedAtMost200Levels) {
    const auto nested = [](int levels) {
        std::string text;
        for (int level = 1; level < levels; ++level)
            text += "<array>";
        text += "<true/>";
        for (int level = 1; level < levels; ++level)
            text += "</array>";
        return text;
    };
    EXPECT_NE(read(nested(200)), std::nullopt);
    EXPECT_EQ(read(nested(201)), std::nullopt);
    EXPECT_EQ(read(nested(100000)), std::nullopt);
}

TEST(PropertyListXML, ReadsBackEveryKindOfNumber) {
    for (const PropertyList& value :
         {PropertyList(0.1), PropertyList(5e-324), PropertyList(1.7976931348623157e308),
          PropertyList(-0.0), PropertyList(largest), PropertyList(std::int64_t{-1}),
          PropertyList(std::numeric_limits<double>::infinity()),
          PropertyList(-std::numeric_limits<double>::infinity())})
        EXPECT_EQ(propertyListFromXML(xmlFromPropertyList(value).value()), value);
    const auto nan = propertyListFromXML(xmlFromPropertyList(std::nan("")).value());
    EXPECT_TRUE(std::isnan(std::get<double>(nan.value())));
}

TEST(PropertyListXML, ReadsBackEveryTextThatXMLCanHold) {
    for (const PropertyList text : {"", " ", "\r\n\t", "]]>", "&amp;", "'\"", "½⅓😀", "\\U0041"})
        EXPECT_EQ(propertyListFromXML(xmlFromPropertyList(text).value()), text);
}

TEST(PropertyListXML, HasNoPlaceForControlCharactersAndInvalidUTF8) {
    for (const std::string& text :
         {std::string("\x01"), std::string("a\0b", 3), std::string("\xFF"),
          // An overlong form, a surrogate, beyond the last character, cut off.
          std::string("\xC1\xBF"), std::string("\xED\xA0\x80"), std::string("\xF4\x90\x80\x80"),
          std::string("\xE2\x80"),
          // Numbers that are no characters, with which a file could not be read again.
          std::string("a\xEF\xBF\xBE"),
          std::string("\xEF\xBF\xBF"
                      "b")}) {
        EXPECT_EQ(xmlFromPropertyList(PropertyList(text)), std::nullopt);
        EXPECT_EQ(xmlFromPropertyList(Dictionary{{text, 1}}), std::nullopt);
        EXPECT_EQ(xmlFromPropertyList(Array{PropertyList(text)}), std::nullopt);
    }
}

TEST(Base64, FollowsTheTestVectorsOfRFC4648) {
    const std::vector<std::pair<std::string, std::string>> vectors{
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
    };
    for (const auto& [bytes, text] : vectors) {
        Data data;
        for (const char c : bytes)
            data.push_back(static_cast<std::byte>(c));
        EXPECT_EQ(base64FromData(data), text);
        EXPECT_EQ(dataFromBase64(text), data);
    }
    for (const auto* text : {"Zg", "Zg=", "Z===Zg==", "Zg==Zg==", "Z*==", "===", "=Zg="})
        EXPECT_EQ(dataFromBase64(text), std::nullopt) << text;
}

TEST(DateText, CountsFromTheReferenceDateBothWays) {
    const std::vector<std::pair<double, std::string>> dates{
        {0, "2001-01-01T00:00:00Z"},
        {-1, "2000-12-31T23:59:59Z"},
        {599627045, "2020-01-02T03:04:05Z"},
        {-978307200, "1970-01-01T00:00:00Z"},
        {-63113904000, "0001-01-01T00:00:00Z"},
    };
    for (const auto& [seconds, text] : dates) {
        EXPECT_EQ(textFromDate(Date{seconds}), text);
        EXPECT_EQ(dateFromText(text), Date{seconds});
    }
    EXPECT_EQ(textFromDate(Date{0.9}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(textFromDate(Date{-0.1}), "2000-12-31T23:59:59Z");
    EXPECT_EQ(textFromDate(Date{std::nan("")}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(textFromDate(Date{1e300}), "9999-12-31T23:59:59Z");
}

TEST(DateText, RefusesWhatIsNoDate) {
    for (const auto* text :
         {"", "2001", "2001-02-30T00:00:00Z", "2001-13-01T00:00:00Z", "2001-01-01T24:00:00Z",
          "2001-01-01T00:60:00Z", "2001-01-01T00:00:00", "2001-01-01T00:00:00Zz",
          "2001-1-01T00:00:00Z", "99999-01-01T00:00:00Z", "-001-01-01T00:00:00Z"})
        EXPECT_EQ(dateFromText(text), std::nullopt) << text;
}

} // namespace
} // namespace vistrel::posix
