#pragma once

#include "core/PropertyList.h"

#include <nlohmann/json.hpp>
#include <string>

namespace vistrel::tool {

using Json = nlohmann::ordered_json;

/// A value of a property list. Data and dates, for which JSON has no form, become texts.
Json toJson(const PropertyList& value);

/// Prints a report for programs: indented, and with a replacement for bytes that are no UTF-8.
void print(const Json& report);

} // namespace vistrel::tool
