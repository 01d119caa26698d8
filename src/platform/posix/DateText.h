#pragma once

#include "core/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace vistrel::posix {

/// A date as property lists write it: "2001-01-01T00:00:00Z". Fractions of a second are lost,
/// a year without four digits becomes the nearest with, and no number at all the reference date.
std::string textFromDate(const Date& date);

/// nullopt when `text` has another form or names a day or a time that does not exist.
std::optional<Date> dateFromText(std::string_view text);

} // namespace vistrel::posix
