#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace vistrel {

/// Says which invariant does not hold, and ends the fuzzer, which keeps the input.
[[noreturn]] inline void broken(std::string_view invariant, std::string_view details = {}) {
    std::cerr << "BROKEN: " << invariant << '\n' << details << '\n';
    std::abort();
}

} // namespace vistrel
