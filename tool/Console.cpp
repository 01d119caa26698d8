#include "tool/Console.h"

#include "tool/ExitCode.h"

#include <iostream>

namespace vistrel::tool {

int fail(std::string_view message) {
    std::cerr << "vistrel: " << message << '\n';
    return exitcode::failed;
}

void warn(std::string_view message) {
    std::cerr << "vistrel: warning: " << message << '\n';
}

} // namespace vistrel::tool
