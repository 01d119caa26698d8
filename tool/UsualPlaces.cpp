#include "tool/Applications.h"
#include "tool/UserDefaultsStore.h"

#include <cstdlib>
#include <sstream>

namespace vistrel::tool {

ApplicationPlaces usualPlaces() {
    ApplicationPlaces places{.folders = applicationFolders()};
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (folder.starts_with('/'))
            places.programs.push_back(folder);
    return places;
}

} // namespace vistrel::tool
