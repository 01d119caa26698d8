#include "platform/cocoa/PropertyListGuard.h"

#include <algorithm>

namespace vistrel::cocoa {

bool isParsable(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    constexpr auto mostTags = 20'000;
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return text.starts_with("<?xml") && std::ranges::count(text, '<') <= mostTags;
}

} // namespace vistrel::cocoa
