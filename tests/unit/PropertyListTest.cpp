#include "core/PropertyList.h"

#include <gtest/gtest.h>

#include <limits>

namespace vistrel {
namespace {

struct Reading {
    PropertyList value;
    std::int32_t asInt;
    std::int64_t asInteger;
    bool asBool;
};

class PropertyListReading : public testing::TestWithParam<Reading> {};

TEST_P(PropertyListReading, ConvertsAsFoundationDoes) {
    const auto& [value, asInt, asInteger, asBool] = GetParam();
    EXPECT_EQ(intValue(&value), asInt);
    EXPECT_EQ(integerValue(&value), asInteger);
    EXPECT_EQ(boolValue(&value), asBool);
}

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int32_t intLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t intHighest = std::numeric_limits<std::int32_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Numbers, PropertyListReading,
    testing::Values(Reading{true, 1, 1, true}, Reading{false, 0, 0, false}, Reading{3, 3, 3, true},
                    Reading{-1, -1, -1, true}, Reading{0, 0, 0, false},
                    Reading{4294967298, 2, 4294967298, true}, Reading{highest, -1, highest, true},
                    Reading{std::numeric_limits<std::uint64_t>::max(), -1, -1, true},
                    Reading{2.9, 2, 2, true}, Reading{-2.9, -2, -2, true}, Reading{0.5, 0, 0, true},
                    Reading{0.0, 0, 0, false}, Reading{1e300, intHighest, highest, true},
                    Reading{-1e300, intLowest, lowest, true},
                    Reading{std::numeric_limits<double>::quiet_NaN(), 0, 0, true}));

INSTANTIATE_TEST_SUITE_P(
    Texts, PropertyListReading,
    testing::Values(Reading{"2", 2, 2, true}, Reading{" \t-5x", -5, -5, true},
                    Reading{"+7", 7, 7, true}, Reading{"0", 0, 0, false},
                    Reading{"+-7", 0, 0, false}, Reading{"-0001", -1, -1, true},
                    Reading{"YES", 0, 0, true}, Reading{"true", 0, 0, true},
                    Reading{"y", 0, 0, true}, Reading{"T", 0, 0, true}, Reading{"NO", 0, 0, false},
                    Reading{"", 0, 0, false}, Reading{"x3", 0, 0, false},
                    Reading{"0.9", 0, 0, false},
                    Reading{"99999999999", intHighest, 99999999999, true},
                    Reading{"99999999999999999999", intHighest, highest, true},
                    Reading{"-99999999999999999999", intLowest, lowest, true}));

INSTANTIATE_TEST_SUITE_P(Others, PropertyListReading,
                         testing::Values(Reading{Array{1}, 0, 0, false},
                                         Reading{Dictionary{{"1", 1}}, 0, 0, false},
                                         Reading{Data{std::byte{1}}, 0, 0, false},
                                         Reading{Date{1}, 0, 0, false}));

TEST(PropertyListReading, ReadsNothingAsZero) {
    EXPECT_EQ(intValue(nullptr), 0);
    EXPECT_EQ(integerValue(nullptr), 0);
    EXPECT_FALSE(boolValue(nullptr));
}

TEST(PropertyListDictionary, ReplacesAValueAndKeepsItsPlace) {
    Dictionary dictionary{{"a", 1}, {"b", 2}};
    dictionary.set("a", "new");
    dictionary.set("c", 3);
    ASSERT_EQ(dictionary.entries().size(), 3U);
    EXPECT_EQ(dictionary.entries()[0].first, "a");
    EXPECT_EQ(*dictionary.find("a"), PropertyList("new"));
    EXPECT_EQ(dictionary.find("d"), nullptr);
}

TEST(PropertyListDictionary, IsEqualInAnyOrderButNotWithOtherTypes) {
    const Dictionary dictionary{{"a", 1}, {"b", true}};
    EXPECT_EQ(dictionary, (Dictionary{{"b", true}, {"a", 1}}));
    EXPECT_NE(dictionary, (Dictionary{{"a", 1}, {"b", 1}}));
    EXPECT_NE(dictionary, (Dictionary{{"a", 1}}));
    EXPECT_NE(dictionary, (Dictionary{{"a", 1}, {"c", true}}));
}

} // namespace
} // namespace vistrel
