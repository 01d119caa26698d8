#include "ContractTest.h"

namespace vistrel {
namespace {

class DefaultsContract : public ContractTest {
  protected:
    void TearDown() override { host->removeDefault("vtrContractKey"); }

    void store(const PropertyList& value) { host->storeDefault("vtrContractKey", value); }

    [[nodiscard]] std::optional<PropertyList> stored() {
        return defaults().objectForKey("vtrContractKey");
    }
};

TEST_F(DefaultsContract, AnswerZeroFalseAndNothingWithoutAValue) {
    EXPECT_EQ(defaults().integerForKey("vtrContractKey"), 0);
    EXPECT_FALSE(defaults().boolForKey("vtrContractKey"));
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(DefaultsContract, KeepAnIntegerAnInteger) {
    defaults().setInteger(1, "vtrContractKey");
    EXPECT_EQ(stored(), PropertyList(1));
    defaults().setInteger(-4294967297, "vtrContractKey");
    EXPECT_EQ(stored(), PropertyList(-4294967297));
    EXPECT_EQ(defaults().integerForKey("vtrContractKey"), -4294967297);
}

TEST_F(DefaultsContract, KeepABooleanABoolean) {
    defaults().setBool(true, "vtrContractKey");
    EXPECT_EQ(stored(), PropertyList(true));
    defaults().setBool(false, "vtrContractKey");
    EXPECT_EQ(stored(), PropertyList(false));
}

const std::vector<PropertyList> everyType{
    true,
    0,
    -4294967297,
    2.5,
    "text ½",
    "{{212, 140}, {960, 720}}",
    "100 %@ \\ \"quoted\"\n",
    Date{86400},
    Data{std::byte{0}, std::byte{255}},
    Array{1, "two", false},
    Dictionary{{"key", Array{Dictionary{{"deep", 1}}}}},
};

TEST_F(DefaultsContract, ReturnEveryTypeAsTheHostHasStoredIt) {
    for (const auto& value : everyType) {
        store(value);
        EXPECT_EQ(stored(), value);
    }
}

TEST_F(DefaultsContract, ReturnEveryTypeAsItWasSet) {
    for (const auto& value : everyType) {
        defaults().setObject(value, "vtrContractKey");
        EXPECT_EQ(stored(), value);
    }
}

TEST_F(DefaultsContract, ConvertNumbersAndTextsAndNothingElse) {
    const std::vector<PropertyList> values{
        true,
        7,
        -1,
        2.9,
        "2",
        " -5",
        "YES",
        "x3",
        "",
        Date{1},
        Data{std::byte{1}},
        Array{1},
        Dictionary{{"1", 1}},
        "99999999999999999999",
    };
    for (const auto& value : values) {
        store(value);
        EXPECT_EQ(defaults().integerForKey("vtrContractKey"), integerValue(&value));
        EXPECT_EQ(defaults().boolForKey("vtrContractKey"), boolValue(&value));
    }
}

} // namespace
} // namespace vistrel
