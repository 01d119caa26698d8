#pragma once

#include <string>
#include <vector>

namespace vistrel::posix {

/// Starts the program at the path `arguments[0]` with these arguments, as a stranger to this
/// process: in a session of its own, nobody's zombie, with nothing open but the null device, no
/// signal blocked and none handled or ignored. Everything it needs is passed as it stands, never
/// through a shell. Answers whether it was started; whether it could be executed is not waited for.
bool startDetached(const std::vector<std::string>& arguments);

} // namespace vistrel::posix
