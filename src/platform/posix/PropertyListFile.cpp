#include "platform/posix/PropertyListFile.h"

#include "platform/posix/PropertyListXML.h"
#include "platform/posix/RegularFile.h"

namespace vistrel::posix {

std::optional<Dictionary> readPropertyListFile(const std::string& path) {
    const auto text = readRegularFile(path, largestPropertyListFile);
    auto root = text ? propertyListFromXML(*text) : std::nullopt;
    auto* dictionary = root ? std::get_if<Dictionary>(&*root) : nullptr;
    return dictionary != nullptr ? std::optional(std::move(*dictionary)) : std::nullopt;
}

void writePropertyListFile(const Dictionary& dictionary, const std::string& path) {
    if (const auto text = xmlFromPropertyList(dictionary))
        replaceFile(path, *text);
}

} // namespace vistrel::posix
