#include "Broken.h"
#include "TestHost.h"

#include "core/Settings.h"
#include "platform/posix/PropertyListXML.h"

#include <array>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>

/// Settings of any type and value, in the file and in the host's defaults: load, open the settings
/// window, save, restore the frame.
namespace vistrel {
namespace {

constexpr std::array<const char*, 15> hostKeys{"kuiMode",
                                               "windowMode",
                                               "ownShortCuts",
                                               "restoreString",
                                               "centerString",
                                               "menuString",
                                               "fullscreenString",
                                               "restoreToggleIndex",
                                               "menuToggleIndex",
                                               "spotlightBOOL",
                                               "centerToggleIndex",
                                               "fullscreenToggleIndex",
                                               "vtrDisplaySetupBool",
                                               "vtr_savedWindowRect",
                                               "vtr_savedWindowRect1"};

PropertyList valueFrom(FuzzedDataProvider& input, int depth) {
    switch (input.ConsumeIntegralInRange(0, depth > 0 ? 8 : 6)) {
    case 0:
        return input.ConsumeBool();
    case 1:
        return input.ConsumeIntegral<std::int64_t>();
    case 2:
        return std::int64_t{input.ConsumeIntegralInRange(-2, 5)};
    case 3:
        return input.ConsumeIntegralInRange<std::uint64_t>(
            std::uint64_t{1} << 63U, std::numeric_limits<std::uint64_t>::max());
    case 4:
        return input.ConsumeFloatingPoint<double>();
    case 5:
        return input.ConsumeRandomLengthString(40);
    case 6:
        return Date{std::int64_t{input.ConsumeIntegral<std::int32_t>()} * 1.0};
    case 7: {
        Array values;
        for (auto count = input.ConsumeIntegralInRange(0, 3); count > 0; --count)
            values.push_back(valueFrom(input, depth - 1));
        return values;
    }
    default: {
        Dictionary values;
        for (auto count = input.ConsumeIntegralInRange(0, 3); count > 0; --count) {
            const auto key = input.ConsumeRandomLengthString(8);
            values.set(key, valueFrom(input, depth - 1));
        }
        return values;
    }
    }
}

Dictionary fileFrom(FuzzedDataProvider& input) {
    Dictionary file;
    for (const auto& setting : globalSettings)
        if (input.ConsumeBool())
            file.set(setting.key, valueFrom(input, 2));
    for (auto count = input.ConsumeIntegralInRange(0, 3); count > 0; --count)
        file.set("stranger" + std::to_string(count), valueFrom(input, 3));
    return file;
}

void checkMirror(const TestHost& it, const memory::MemoryUserDefaults& defaults) {
    for (const auto& setting : globalSettings) {
        const auto* value = defaults.values.find(setting.key);
        if (value == nullptr)
            broken("every global setting is copied into the host's defaults", setting.key);
        const auto* integer = std::get_if<std::int64_t>(value);
        const bool isRight = setting.kind == SettingKind::boolean
                                 ? std::holds_alternative<bool>(*value)
                                 : integer != nullptr && *integer == std::int32_t(*integer);
        if (!isRight)
            broken("a global setting is copied with its own type", setting.key);
        if (setting.kind == SettingKind::booleanAsInteger && *integer != 0 && *integer != 1)
            broken("a boolean that is stored as an integer is 0 or 1", setting.key);
    }
    if (it.fields().isFullscreen || it.fields().isFloating || it.fields().isLeft)
        broken("no mode is on at the start");
}

void checkSaved(const Dictionary& before, const Dictionary& after) {
    for (const auto& setting : globalSettings) {
        const auto* value = after.find(setting.key);
        if (value == nullptr)
            broken("all global settings are in a saved file", setting.key);
        const bool isRight = setting.kind == SettingKind::integer
                                 ? std::holds_alternative<std::int64_t>(*value)
                                 : std::holds_alternative<bool>(*value);
        if (!isRight)
            broken("a saved setting has its own type", setting.key);
    }
    for (const auto& [key, value] : before.entries())
        if (key.starts_with("stranger") && !(*after.find(key) == value))
            broken("what nobody here knows is saved as it was", key);
}

void checkXML(const Dictionary& dictionary) {
    const auto text = posix::xmlFromPropertyList(dictionary);
    if (text && !posix::propertyListFromXML(*text))
        broken("what is written as XML can be read", *text);
}

void live(FuzzedDataProvider& input) {
    const std::string path = "/home/user/Library/Application Support/Vistrel/Settings.plist";
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    it.addWindowMenuWithZoom();
    it.addFrontWindow();

    const auto file = fileFrom(input);
    desktop.folders.insert("/home/user/Library/Application Support/Vistrel");
    desktop.files[path] = PropertyList(file);
    for (const auto* key : hostKeys)
        if (input.ConsumeBool())
            it.setDefault(key, valueFrom(input, 1));

    it.load();
    checkMirror(it, it.host.userDefaults());
    it.corvane.m->preferences();
    checkMirror(it, it.host.userDefaults());
    for (const auto& setting : globalSettings)
        if (input.ConsumeBool())
            it.setDefault(setting.key, valueFrom(input, 1));
    it.host.resources().preferences->owner.savePreferences();
    const auto saved = std::get<Dictionary>(*desktop.files.at(path));
    checkSaved(file, saved);
    checkXML(saved);
    it.host.resources().preferences->owner.savePreferences();
    if (!(std::get<Dictionary>(*desktop.files.at(path)) == saved))
        broken("saving twice writes the same");

    it.corvane.m->restoreWind();
    it.corvane.m->saveWind();
    it.corvane.m->restoreWind();
    if (it.host.alerts.back().title != "Success!")
        broken("a frame that was saved can be restored", it.host.alerts.back().title);
}

} // namespace
} // namespace vistrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    vistrel::live(input);
    return 0;
}
