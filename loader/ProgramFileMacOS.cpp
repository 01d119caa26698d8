#include "ProgramFile.h"

#include <unistd.h>

namespace vistrel::loader {

bool isWholeProgram(const std::string& path) {
    // The system checks every page of a signed program itself, and refuses rather than crashes.
    return ::access(path.c_str(), R_OK) == 0;
}

} // namespace vistrel::loader
