#pragma once

#include <string>
#include <string_view>

namespace vistrel {

/// `folder` and `component` joined by exactly one slash, however many of them the two bring along.
std::string appendingPathComponent(std::string_view folder, std::string_view component);

} // namespace vistrel
