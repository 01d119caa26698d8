#include "core/Rect.h"

#include <gtest/gtest.h>

#include <limits>

namespace vistrel {
namespace {

TEST(RectText, HasWholeNumbersWithoutADecimalPoint) {
    EXPECT_EQ(textFromRect({212, 140, 960, 720}), "{{212, 140}, {960, 720}}");
    EXPECT_EQ(textFromRect({-100, 0, 100000, 1e6}), "{{-100, 0}, {100000, 1000000}}");
}

TEST(RectText, HasTheShortestFractionsThatReadBackExactly) {
    EXPECT_EQ(textFromRect({0.1, -0.5, 1280.0 / 3, 1e-7}),
              "{{0.1, -0.5}, {426.6666666666667, 0.0000001}}");
}

TEST(RectText, WritesWhatIsNoNumberAsZero) {
    const auto nan = std::numeric_limits<double>::quiet_NaN();
    const auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(textFromRect({nan, infinity, -infinity, 1}), "{{0, 0}, {0, 1}}");
}

struct Reading {
    const char* text;
    Rect rect;
};

class RectReading : public testing::TestWithParam<Reading> {};

TEST_P(RectReading, TakesFourNumbersInOrder) {
    EXPECT_EQ(rectFromText(GetParam().text), GetParam().rect);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RectReading,
    testing::Values(Reading{"{{212, 140}, {960, 720}}", {212, 140, 960, 720}},
                    Reading{"{{0, 0}, {0, 0}}", {}}, Reading{"", {}}, Reading{"hello", {}},
                    Reading{"{{1.5, -2}, {3e2, .25}}", {1.5, -2, 300, 0.25}},
                    Reading{"{x = 240; y = 455; width = 556; height = 445}", {240, 455, 556, 445}},
                    Reading{"7 8", {7, 8, 0, 0}}, Reading{"{{1, 2}, {3", {1, 2, 3, 0}},
                    Reading{"+1 -+2 --3 4 5", {1, 2, -3, 4}},
                    Reading{"{{1e999, 2}, {nan, inf}}", {0, 2, 0, 0}},
                    Reading{"- . e 1", {1, 0, 0, 0}}));

} // namespace
} // namespace vistrel
