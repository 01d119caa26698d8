#include "tool/ValueText.h"

#include <array>
#include <cstdio>

#include "platform/posix/DateText.h"

namespace vistrel::tool {

namespace {

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        if (c == '\n')
            result += "\\n";
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f)
            result += '?';
        else
            result += c;
    }
    return result + '"';
}

struct Text {
    std::string operator()(bool value) const { return value ? "yes" : "no"; }

    std::string operator()(std::int64_t value) const { return std::to_string(value); }

    std::string operator()(std::uint64_t value) const { return std::to_string(value); }

    std::string operator()(double value) const {
        std::array<char, 32> digits{};
        std::snprintf(digits.data(), digits.size(), "%g", value);
        return digits.data();
    }

    std::string operator()(const std::string& value) const { return quoted(value); }

    std::string operator()(const Date& value) const { return posix::textFromDate(value); }

    std::string operator()(const Data& value) const {
        return std::to_string(value.size()) + " bytes";
    }

    std::string operator()(const Array& values) const {
        std::string text;
        for (const auto& value : values)
            text += (text.empty() ? "" : ", ") + valueText(value);
        return "(" + text + ")";
    }

    std::string operator()(const Dictionary& values) const {
        std::string text;
        for (const auto& [key, value] : values.entries())
            text += (text.empty() ? "" : "; ") + quoted(key) + " = " + valueText(value);
        return "{" + text + "}";
    }
};

} // namespace

std::string valueText(const PropertyList& value) {
    return std::visit(Text{}, value);
}

std::string valueText(const std::optional<PropertyList>& value) {
    return value ? valueText(*value) : "none";
}

std::string_view typeName(const PropertyList& value) {
    constexpr std::array<std::string_view, 9> names{
        "boolean", "integer", "integer", "real", "text", "date", "data", "list", "dictionary"};
    static_assert(names.size() == std::variant_size_v<PropertyList::variant>);
    return names.at(value.index());
}

} // namespace vistrel::tool
