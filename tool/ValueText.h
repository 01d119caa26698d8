#pragma once

#include "core/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace vistrel::tool {

/// A value in one line, as a user may read it: yes, 3, "text", ("a", "b").
std::string valueText(const PropertyList& value);

/// The same, and "none" for no value.
std::string valueText(const std::optional<PropertyList>& value);

/// "boolean", "integer", "real", "text", "date", "data", "list" or "dictionary".
std::string_view typeName(const PropertyList& value);

} // namespace vistrel::tool
