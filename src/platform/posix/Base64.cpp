#include "platform/posix/Base64.h"

#include <cstdint>

namespace vistrel::posix {

namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string base64FromData(const Data& data) {
    std::string text;
    std::uint32_t bits = 0;
    int count = 0;
    for (const auto byte : data) {
        bits = (bits << 8U) | std::to_integer<std::uint32_t>(byte);
        for (count += 8; count >= 6; count -= 6)
            text += alphabet[(bits >> static_cast<unsigned>(count - 6)) & 63U];
    }
    if (count > 0)
        text += alphabet[(bits << static_cast<unsigned>(6 - count)) & 63U];
    while (text.size() % 4 != 0)
        text += '=';
    return text;
}

std::optional<Data> dataFromBase64(std::string_view text) {
    Data data;
    std::uint32_t bits = 0;
    int count = 0;
    int characters = 0;
    int padding = 0;
    for (const char c : text) {
        if (std::string_view(" \t\r\n").find(c) != std::string_view::npos)
            continue;
        ++characters;
        if (c == '=') {
            ++padding;
            continue;
        }
        const auto value = alphabet.find(c);
        if (padding > 0 || value == std::string_view::npos)
            return std::nullopt;
        bits = (bits << 6U) | static_cast<std::uint32_t>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            data.push_back(static_cast<std::byte>((bits >> static_cast<unsigned>(count)) & 255U));
        }
    }
    return characters % 4 == 0 && padding <= 2 ? std::optional(data) : std::nullopt;
}

} // namespace vistrel::posix
