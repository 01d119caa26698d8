#include "core/PropertyList.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <type_traits>

namespace vistrel {

namespace {

using Limits = std::numeric_limits<std::int64_t>;

std::string_view withoutLeading(std::string_view text, std::string_view characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
    return text;
}

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

std::int64_t integerFromText(std::string_view text) {
    text = withoutLeading(text, whiteSpace);
    const bool negative = text.starts_with('-');
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return negative ? Limits::min() : Limits::max();
    return value;
}

bool boolFromText(std::string_view text) {
    text = withoutLeading(text, whiteSpace);
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    text = withoutLeading(text, "0");
    return text.find_first_of("YyTt123456789") == 0;
}

std::int64_t integerFromReal(double value) {
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(Limits::max()))
        return Limits::max();
    if (value <= static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<std::int64_t>(value);
}

} // namespace

Dictionary::Dictionary(std::initializer_list<Entry> entries) {
    for (const auto& [key, value] : entries)
        set(key, value);
}

const PropertyList* Dictionary::find(std::string_view key) const {
    const auto position = positions_.find(key);
    return position == positions_.end() ? nullptr : &entries_[position->second].second;
}

void Dictionary::set(std::string_view key, PropertyList value) {
    const auto [position, isNew] = positions_.try_emplace(std::string(key), entries_.size());
    if (isNew)
        entries_.emplace_back(key, std::move(value));
    else
        entries_[position->second].second = std::move(value);
}

bool operator==(const Dictionary& a, const Dictionary& b) {
    return a.entries_.size() == b.entries_.size() &&
           std::ranges::all_of(a.entries_, [&b](const Dictionary::Entry& entry) {
               const auto* other = b.find(entry.first);
               return other != nullptr && *other == entry.second;
           });
}

std::int64_t integerValue(const PropertyList* value) {
    if (value == nullptr)
        return 0;
    return std::visit(
        [](const auto& held) -> std::int64_t {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string>)
                return integerFromText(held);
            else if constexpr (std::is_same_v<Held, double>)
                return integerFromReal(held);
            else if constexpr (std::is_integral_v<Held>)
                return static_cast<std::int64_t>(held);
            else
                return 0;
        },
        *value);
}

std::int32_t intValue(const PropertyList* value) {
    constexpr std::int64_t lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t highest = std::numeric_limits<std::int32_t>::max();
    const auto integer = integerValue(value);
    const bool isIntegerNumber = value != nullptr && !std::holds_alternative<std::string>(*value) &&
                                 !std::holds_alternative<double>(*value);
    return static_cast<std::int32_t>(isIntegerNumber ? integer
                                                     : std::clamp(integer, lowest, highest));
}

bool boolValue(const PropertyList* value) {
    if (value == nullptr)
        return false;
    return std::visit(
        [](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string>)
                return boolFromText(held);
            else if constexpr (std::is_arithmetic_v<Held>)
                return held != 0;
            else
                return false;
        },
        *value);
}

} // namespace vistrel
