#pragma once

#include <string_view>

namespace vistrel::cocoa {

/// Whether `text` may be handed to the platform's property-list parser: it is XML, and it has no
/// more elements than any settings have. The platform's parsers take other formats too, but not
/// safely from a file that anybody may have written, and deep nesting exhausts their stack.
bool isParsable(std::string_view text);

} // namespace vistrel::cocoa
