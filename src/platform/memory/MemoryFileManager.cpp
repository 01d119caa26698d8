#include "platform/memory/MemoryFileManager.h"

namespace vistrel::memory {

namespace {

std::string withoutTrailingSlash(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

std::string parentOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/'));
}

} // namespace

std::string MemoryFileManager::expandTilde(std::string_view path) const {
    if (path == "~" || path.starts_with("~/"))
        return withoutTrailingSlash(desktop_.home + std::string(path.substr(1)));
    return withoutTrailingSlash(std::string(path));
}

bool MemoryFileManager::fileExists(const std::string& path) const {
    log_.record("fileExists ", path);
    return desktop_.folders.contains(withoutTrailingSlash(path)) || desktop_.files.contains(path);
}

void MemoryFileManager::createDirectory(const std::string& path) {
    log_.record("createDirectory ", path);
    const auto folder = withoutTrailingSlash(path);
    for (auto slash = folder.find('/', 1);; slash = folder.find('/', slash + 1)) {
        const auto part = folder.substr(0, slash);
        if (desktop_.unwritable.contains(part) || desktop_.files.contains(part))
            return;
        desktop_.folders.insert(part);
        if (slash == std::string::npos)
            return;
    }
}

std::optional<Dictionary> MemoryFileManager::readDictionary(const std::string& path) const {
    log_.record("readDictionary ", path);
    const auto file = desktop_.files.find(path);
    if (file == desktop_.files.end() || !file->second)
        return std::nullopt;
    const auto* dictionary = std::get_if<Dictionary>(&*file->second);
    return dictionary != nullptr ? std::optional(*dictionary) : std::nullopt;
}

void MemoryFileManager::writeDictionary(const Dictionary& dictionary, const std::string& path) {
    log_.record("writeDictionary ", path);
    const auto folder = parentOf(path);
    if (desktop_.folders.contains(folder) && !desktop_.unwritable.contains(folder) &&
        !desktop_.folders.contains(path))
        desktop_.files[path] = PropertyList(dictionary);
}

} // namespace vistrel::memory
