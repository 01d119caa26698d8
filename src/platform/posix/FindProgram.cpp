#include "platform/posix/FindProgram.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace vistrel::posix {

bool isProgram(const std::string& path) {
    struct stat status {};

    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

std::string findProgram(std::string_view name, std::string_view folders) {
    while (!folders.empty()) {
        const auto folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folders.size(), folder.size() + 1));
        auto path = std::string(folder).append("/").append(name);
        if (folder.starts_with('/') && isProgram(path))
            return path;
    }
    return {};
}

std::string findProgram(std::string_view name) {
    const char* const folders = std::getenv("PATH");
    return folders != nullptr ? findProgram(name, folders) : std::string();
}

} // namespace vistrel::posix
