#include "tool/SettingsFile.h"

#include "core/Path.h"
#include "core/Settings.h"
#include "platform/posix/PropertyListFile.h"
#include "platform/posix/PropertyListXML.h"
#include "platform/posix/RegularFile.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

/// For a file that applications could not read.
std::string whyUnreadable(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(path, error))
        return "It is a folder.";
    if (!fs::is_regular_file(path, error))
        return "It is no regular file.";
    if (::access(path.c_str(), R_OK) != 0)
        return "You are not permitted to read it.";
    if (fs::file_size(path, error) > posix::largestPropertyListFile)
        return "It is larger than 1 MiB.";
    const auto text = posix::readRegularFile(path, posix::largestPropertyListFile);
    if (text && posix::propertyListFromXML(*text))
        return "It holds no dictionary.";
    return "It is no XML property list, or a damaged one.";
}

} // namespace

SettingsFile readSettingsFile(const std::string& home) {
    const auto below = std::string(settingsFolder.substr(settingsFolder.find('/')));
    SettingsFile file{
        .path = appendingPathComponent(appendingPathComponent(home, below), settingsFile)};
    std::error_code error;
    // A link to nothing is no file to an application either.
    if (!fs::exists(file.path, error) && !error)
        return file;
    if (auto values = posix::readPropertyListFile(file.path)) {
        file.state = SettingsFile::State::read;
        file.values = std::move(*values);
    } else {
        file.state = SettingsFile::State::unreadable;
        file.problem = whyUnreadable(file.path);
    }
    return file;
}

Dictionary effectiveSettings(const SettingsFile& file) {
    if (file.state == SettingsFile::State::absent)
        return defaultSettings();
    Dictionary effective;
    for (const auto& setting : globalSettings) {
        const auto* value = file.values.find(setting.key);
        if (setting.kind == SettingKind::integer)
            effective.set(setting.key, std::int64_t{intValue(value)});
        else
            effective.set(setting.key, boolValue(value));
    }
    return effective;
}

} // namespace vistrel::tool
