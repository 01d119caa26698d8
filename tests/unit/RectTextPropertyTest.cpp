#include "core/Rect.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

/// What holds for every rectangle and every text, tried with a great many of them.
namespace vistrel {
namespace {

constexpr int randomRects = 300'000;
constexpr int randomTexts = 200'000;

using Limits = std::numeric_limits<double>;

std::vector<double> edgeValues() {
    std::vector<double> values{0.0,
                               Limits::min(),
                               Limits::max(),
                               Limits::denorm_min(),
                               Limits::epsilon(),
                               1.0 / 3,
                               0.1,
                               0.30000000000000004,
                               123456.7,
                               1234567,
                               9007199254740991,
                               9007199254740992,
                               9007199254740994};
    for (int exponent = -323; exponent <= 308; ++exponent)
        values.push_back(std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr));
    for (int exponent = -1074; exponent <= 1023; ++exponent)
        values.push_back(std::ldexp(1.0, exponent));
    const auto count = values.size();
    for (std::size_t index = 0; index < count; ++index) {
        const auto value = values[index];
        values.push_back(-value);
        values.push_back(std::nextafter(value, Limits::max()));
        values.push_back(std::nextafter(value, -Limits::max()));
    }
    std::erase_if(values, [](double value) { return !std::isfinite(value); });
    return values;
}

/// Also the sign of a zero counts.
bool isSame(const Rect& a, const Rect& b) {
    const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
    return bits(a.x) == bits(b.x) && bits(a.y) == bits(b.y) && bits(a.width) == bits(b.width) &&
           bits(a.height) == bits(b.height);
}

/// A finite number of any size, or one as a frame has it.
double randomValue(std::mt19937_64& random) {
    if (random() % 2 == 0)
        return static_cast<double>(static_cast<std::int64_t>(random() % 20'000'000) - 10'000'000) /
               1000;
    const auto value = std::bit_cast<double>(random());
    return std::isfinite(value) ? value : 0;
}

/// The fewest digits that read back as `value`, found by trying.
std::size_t fewestDigits(double value) {
    std::array<char, 40> text{};
    for (int digits = 1; digits < 17; ++digits) {
        std::snprintf(text.data(), text.size(), "%.*e", digits - 1, value);
        if (std::strtod(text.data(), nullptr) == value)
            return static_cast<std::size_t>(digits);
    }
    return 17;
}

/// The digits of the first number of `text`, without the zeroes on both sides that only give it
/// its size.
std::size_t significantDigits(const std::string& text) {
    auto number = text.substr(2, text.find(',') - 2);
    std::erase_if(number, [](char c) { return c == '-' || c == '.'; });
    const auto first = number.find_first_not_of('0');
    return first == number.npos ? 1 : number.find_last_not_of('0') - first + 1;
}

TEST(EveryRectText, OfAnEdgeValueReadsBackExactly) {
    for (const auto value : edgeValues()) {
        const Rect rect{value, -value, value, value};
        ASSERT_TRUE(isSame(rectFromText(textFromRect(rect)), rect)) << textFromRect(rect);
    }
}

TEST(EveryRectText, OfARandomRectReadsBackExactly) {
    std::mt19937_64 random(20090414);
    for (int count = 0; count < randomRects; ++count) {
        const Rect rect{randomValue(random), randomValue(random), randomValue(random),
                        randomValue(random)};
        ASSERT_TRUE(isSame(rectFromText(textFromRect(rect)), rect)) << textFromRect(rect);
    }
}

TEST(EveryRectText, HasNoDigitTooMany) {
    std::mt19937_64 random(1);
    for (int count = 0; count < 20'000; ++count) {
        const auto value = randomValue(random);
        // All the digits of a larger whole number are written, to the last exact one.
        if (std::abs(value) > 9007199254740992)
            continue;
        const auto text = textFromRect({value, 0, 0, 0});
        ASSERT_EQ(significantDigits(text), fewestDigits(value)) << text;
    }
}

TEST(EveryRectText, HasTheOnePatternAndNoExponent) {
    std::mt19937_64 random(2);
    for (int count = 0; count < 20'000; ++count) {
        auto text = textFromRect(
            {randomValue(random), randomValue(random), randomValue(random), randomValue(random)});
        ASSERT_EQ(text.find_first_not_of("0123456789.-{}, "), text.npos) << text;
        std::erase_if(text, [](char c) { return (c >= '0' && c <= '9') || c == '-' || c == '.'; });
        ASSERT_EQ(text, "{{, }, {, }}");
    }
}

TEST(EveryText, IsReadAsFourFiniteNumbers) {
    constexpr std::string_view alphabet = "0123456789.-+eE{}, \t\nxinfaNXY=;%@\x80\xff";
    std::mt19937_64 random(3);
    for (int count = 0; count < randomTexts; ++count) {
        std::string text(random() % 40, '\0');
        for (auto& c : text)
            c = random() % 50 == 0 ? static_cast<char>(random() % 256)
                                   : alphabet[random() % alphabet.size()];
        const auto rect = rectFromText(text);
        ASSERT_TRUE(std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) &&
                    std::isfinite(rect.height))
            << text;
    }
}

TEST(EveryText, CutOffAnywhereGivesTheNumbersBeforeTheCut) {
    const std::string whole = "{{212, 140}, {960, 720}}";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const auto rect = rectFromText(whole.substr(0, length));
        EXPECT_EQ(rect.x, length >= 5 ? 212 : length == 4 ? 21 : length == 3 ? 2 : 0);
        EXPECT_EQ(rect.height, length >= 22 ? 720 : length == 21 ? 72 : length == 20 ? 7 : 0);
    }
}

TEST(EveryText, OfAMillionCharactersIsRead) {
    EXPECT_EQ(rectFromText(std::string(1'000'000, '{') + "1 2 3 4"), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(rectFromText(std::string(1'000'000, '-')), Rect{});
    EXPECT_EQ(rectFromText(std::string(1'000'000, '0') + "7, 1"), (Rect{7, 1, 0, 0}));
}

} // namespace
} // namespace vistrel
