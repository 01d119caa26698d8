#include "platform/memory/MemoryWorkspace.h"

namespace vistrel::memory {

std::string MemoryWorkspace::activeApplicationName() const {
    log_.record("activeApplicationName");
    return activeApplication;
}

void MemoryWorkspace::openURL(const std::string& url) {
    log_.record("openURL ", url);
}

void MemoryWorkspace::launch(const std::string& path, const std::vector<std::string>& arguments) {
    std::string line = path;
    for (const auto& argument : arguments)
        line.append(" [").append(argument).append("]");
    log_.record("launch ", line);
    launched.push_back({path, arguments});
}

} // namespace vistrel::memory
