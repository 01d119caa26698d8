#include "core/Path.h"

namespace vistrel {

std::string appendingPathComponent(std::string_view folder, std::string_view component) {
    while (folder.ends_with('/'))
        folder.remove_suffix(1);
    while (component.starts_with('/'))
        component.remove_prefix(1);
    return std::string(folder) + '/' + std::string(component);
}

} // namespace vistrel
