#include "platform/posix/DateText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <system_error>

namespace vistrel::posix {

namespace {

using namespace std::chrono;

constexpr sys_seconds referenceDate = sys_days(2001y / January / 1);

/// Takes a number of at least `digits` digits and the character behind it off `text`.
std::optional<int> take(std::string_view& text, std::size_t digits, char behind) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error != std::errc{} || value < 0 || length < digits || length == text.size() ||
        *end != behind)
        return std::nullopt;
    text.remove_prefix(length + 1);
    return value;
}

} // namespace

std::string textFromDate(const Date& date) {
    // The years that have four digits; others have no form that everybody reads.
    const auto earliest = sys_days(1y / January / 1) - referenceDate;
    const auto latest = sys_days(9999y / December / 31) + seconds(86399) - referenceDate;
    const auto count =
        std::isnan(date.secondsSinceReferenceDate)
            ? 0
            : std::clamp(date.secondsSinceReferenceDate, static_cast<double>(earliest.count()),
                         static_cast<double>(latest.count()));
    const auto time = referenceDate + seconds(static_cast<std::int64_t>(std::floor(count)));
    const auto midnight = floor<days>(time);
    const year_month_day day(midnight);
    const hh_mm_ss clock(time - midnight);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                  static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text.data();
}

std::optional<Date> dateFromText(std::string_view text) {
    const auto yearNumber = take(text, 4, '-');
    const auto monthNumber = yearNumber ? take(text, 2, '-') : std::nullopt;
    const auto dayNumber = monthNumber ? take(text, 2, 'T') : std::nullopt;
    const auto hour = dayNumber ? take(text, 2, ':') : std::nullopt;
    const auto minute = hour ? take(text, 2, ':') : std::nullopt;
    const auto second = minute ? take(text, 2, 'Z') : std::nullopt;
    if (!second || !text.empty() || *hour > 23 || *minute > 59 || *second > 60 || *yearNumber < 1 ||
        *yearNumber > 9999)
        return std::nullopt;
    const auto date = year(*yearNumber) / month(static_cast<unsigned>(*monthNumber)) /
                      day(static_cast<unsigned>(*dayNumber));
    if (!date.ok())
        return std::nullopt;
    const auto time = sys_days(date) + hours(*hour) + minutes(*minute) + seconds(*second);
    return Date{static_cast<double>((time - referenceDate).count())};
}

} // namespace vistrel::posix
