#include "core/Rect.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace vistrel {

namespace {

bool startsNumber(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    if (!text.empty() && text.front() == '.')
        text.remove_prefix(1);
    return !text.empty() && isDigit(text.front());
}

/// Removes everything up to and including the first number from `text` and answers that number.
double takeNumber(std::string_view& text) {
    while (!text.empty() && !startsNumber(text))
        text.remove_prefix(1);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc{} && std::isfinite(value) ? value : 0;
}

void append(std::string& text, double value) {
    // The longest fixed form is that of the smallest denormal number, with 324 decimal places.
    std::array<char, 340> digits{};
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(),
                      std::isfinite(value) ? value : 0.0, std::chars_format::fixed);
    text.append(digits.data(), end);
}

} // namespace

std::int32_t truncated(double value) {
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    return std::isnan(value) ? 0 : static_cast<std::int32_t>(std::clamp(value, lowest, highest));
}

std::string textFromRect(const Rect& rect) {
    std::string text = "{{";
    append(text, rect.x);
    text += ", ";
    append(text, rect.y);
    text += "}, {";
    append(text, rect.width);
    text += ", ";
    append(text, rect.height);
    return text += "}}";
}

Rect rectFromText(std::string_view text) {
    Rect rect;
    rect.x = takeNumber(text);
    rect.y = takeNumber(text);
    rect.width = takeNumber(text);
    rect.height = takeNumber(text);
    return rect;
}

} // namespace vistrel
