#include "core/Settings.h"

#include "core/Path.h"
#include "platform/Platform.h"

namespace vistrel {

namespace {

PropertyList valueOf(const Setting& setting, std::int32_t value) {
    if (setting.kind == SettingKind::integer)
        return std::int64_t{value};
    return value != 0;
}

std::shared_ptr<Dictionary> read(const FileManager& files, const std::string& path) {
    auto dictionary = files.readDictionary(path);
    return dictionary ? std::make_shared<Dictionary>(std::move(*dictionary)) : nullptr;
}

} // namespace

Dictionary defaultSettings() {
    Dictionary dictionary;
    for (const auto& setting : globalSettings)
        dictionary.set(setting.key, valueOf(setting, setting.defaultValue));
    return dictionary;
}

void Settings::load(FileManager& files, UserDefaults& defaults) {
    const auto folder = files.expandTilde(settingsFolder);
    if (!files.fileExists(folder))
        files.createDirectory(folder);
    setDataPath(appendingPathComponent(folder, settingsFile));
    setVTRData(files.fileExists(dataPath()) ? read(files, dataPath())
                                            : std::make_shared<Dictionary>(defaultSettings()));
    mirror(defaults);
}

void Settings::mirror(UserDefaults& defaults) const {
    for (const auto& setting : globalSettings) {
        const auto* value = data_ ? data_->find(setting.key) : nullptr;
        switch (setting.kind) {
        case SettingKind::integer:
            defaults.setInteger(intValue(value), setting.key);
            break;
        case SettingKind::booleanAsInteger:
            defaults.setInteger(boolValue(value) ? 1 : 0, setting.key);
            break;
        case SettingKind::boolean:
            defaults.setBool(boolValue(value), setting.key);
            break;
        }
    }
}

void Settings::save(FileManager& files, const UserDefaults& defaults) {
    if (!data_)
        return;
    for (const auto& setting : globalSettings) {
        const auto value = setting.kind == SettingKind::integer
                               ? static_cast<std::int32_t>(defaults.integerForKey(setting.key))
                               : static_cast<std::int32_t>(defaults.boolForKey(setting.key));
        data_->set(setting.key, valueOf(setting, value));
    }
    files.writeDictionary(*data_, dataPath_);
}

} // namespace vistrel
