#pragma once

#include "core/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

/// Property lists in their XML form. The same code on every system, because the systems' own are
/// not equally careful: with some of them a damaged file raises an exception, or a text or a number
/// does not come back as it was written.
namespace vistrel::posix {

/// The value that an XML property list holds. nullopt for a text that is not well-formed XML, is
/// nested more than 200 levels deep, declares entities of its own, or is no property list.
std::optional<PropertyList> propertyListFromXML(std::string_view text);

/// The XML form of `value`, which reads back as an equal value; dates keep whole seconds. nullopt
/// when the value holds a text with characters that XML has no place for.
std::optional<std::string> xmlFromPropertyList(const PropertyList& value);

} // namespace vistrel::posix
