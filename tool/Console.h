#pragma once

#include <string>
#include <string_view>

/// Where the tool's words go. Reports go to the standard output; these go to the standard error.
namespace vistrel::tool {

/// Why the tool could not do what it was asked to. Answers exitcode::failed.
int fail(std::string_view message);

/// What the user should know, although the tool goes on.
void warn(std::string_view message);

} // namespace vistrel::tool
