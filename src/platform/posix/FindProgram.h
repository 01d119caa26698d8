#pragma once

#include <string>
#include <string_view>

namespace vistrel::posix {

/// Whether `path` leads to a file that this user may execute.
bool isProgram(const std::string& path);

/// The path of the first program called `name` in `folders`, which are separated by colons as in
/// PATH. Empty when there is none. Relative folders do not count: what the current folder holds is
/// nobody's choice.
std::string findProgram(std::string_view name, std::string_view folders);

/// The same in the folders of the environment's PATH.
std::string findProgram(std::string_view name);

} // namespace vistrel::posix
