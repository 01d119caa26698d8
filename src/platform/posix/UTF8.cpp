#include "platform/posix/UTF8.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vistrel::posix {

namespace {

/// How many bytes a character has that begins with `first`; 0 when none does.
std::size_t lengthOf(unsigned char first) {
    if (first < 0x80)
        return 1;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    if (first < 0xE0)
        return 2;
    return first < 0xF0 ? 3 : 4;
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80;
}

/// Whether this number is a character, and needs all of `length` bytes.
bool isCharacter(std::uint32_t number, std::size_t length) {
    constexpr std::array<std::uint32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
    return number >= least.at(length) && number <= 0x10FFFF && !isSurrogate;
}

/// The length of the character at the beginning of `text`; 0 when there is none.
std::size_t characterAtBegin(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const auto length = lengthOf(first);
    if (length < 2 || length > text.size())
        return length == 1 ? 1 : 0;
    std::uint32_t number = first & (0x7FU >> length);
    for (const char next : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(next);
        if (!isContinuation(byte))
            return 0;
        number = number << 6U | (byte & 0x3FU);
    }
    return isCharacter(number, length) ? length : 0;
}

} // namespace

bool isUTF8(std::string_view text) {
    while (!text.empty()) {
        const auto length = characterAtBegin(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

} // namespace vistrel::posix
