#pragma once

#include <string_view>

namespace vistrel::posix {

/// Whether `text` is UTF-8 throughout: no overlong form, no surrogate, nothing beyond U+10FFFF, no
/// character that is cut off. A zero byte and a byte order mark are characters like any other.
bool isUTF8(std::string_view text);

} // namespace vistrel::posix
