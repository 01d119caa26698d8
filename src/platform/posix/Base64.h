#pragma once

#include "core/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace vistrel::posix {

/// The bytes in the base-64 form of RFC 4648, without line breaks.
std::string base64FromData(const Data& data);

/// The bytes that `text` stands for. White space in it does not count. nullopt when it holds any
/// other character, or ends in the middle of a byte.
std::optional<Data> dataFromBase64(std::string_view text);

} // namespace vistrel::posix
