#include "tool/LoadedBundles.h"

#include "tool/Installation.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sys/stat.h>
#include <system_error>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view program = "/Vistrel.bundle/Vistrel";
constexpr std::string_view deleted = " (deleted)";

std::optional<pid_t> processNumber(const fs::path& folder) {
    const auto name = folder.filename().string();
    pid_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    return error == std::errc{} && end == name.data() + name.size() ? std::optional(number)
                                                                    : std::nullopt;
}

bool belongsTo(const fs::path& folder, uid_t user) {
    struct stat status {};

    return ::stat(folder.c_str(), &status) == 0 && status.st_uid == user;
}

/// The file that a line of "maps" names. Behind five columns without blanks.
std::string_view mappedFile(std::string_view line) {
    for (int column = 0; column < 5; ++column) {
        line.remove_prefix(std::min(line.find(' '), line.size()));
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    }
    return line;
}

/// By the file of its program, as the defaults are: the kernel's own name is cut short.
std::string nameOf(const fs::path& folder) {
    std::string command;
    std::ifstream file(folder / "cmdline", std::ios::binary);
    std::getline(file, command, '\0');
    return fs::path(command).filename();
}

std::optional<LoadedBundle> bundleIn(const fs::path& folder) {
    std::ifstream maps(folder / "maps");
    for (std::string line; std::getline(maps, line);) {
        auto file = mappedFile(line);
        const bool isReplaced = file.ends_with(deleted);
        if (isReplaced)
            file.remove_suffix(deleted.size());
        if (!file.ends_with(program))
            continue;
        LoadedBundle found{
            .name = nameOf(folder), .path = fs::path(file).parent_path(), .isReplaced = isReplaced};
        if (const auto bundle = isReplaced ? std::nullopt : bundleAt(found.path))
            found.version = bundle->version;
        return found;
    }
    return std::nullopt;
}

} // namespace

std::vector<LoadedBundle> loadedBundles(const std::string& processes, uid_t user) {
    std::vector<LoadedBundle> loaded;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(processes, error)) {
        const auto number = processNumber(entry.path());
        if (!number || !belongsTo(entry.path(), user))
            continue;
        if (auto found = bundleIn(entry.path())) {
            found->process = *number;
            loaded.push_back(std::move(*found));
        }
    }
    std::ranges::sort(loaded, {}, &LoadedBundle::process);
    return loaded;
}

} // namespace vistrel::tool
