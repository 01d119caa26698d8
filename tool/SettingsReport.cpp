#include "tool/SettingsReport.h"

#include "core/Rect.h"
#include "core/Settings.h"
#include "core/Shortcut.h"
#include "tool/Enabling.h"
#include "tool/ValueText.h"

#include <algorithm>
#include <array>

namespace vistrel::tool {

namespace {

constexpr std::array shortcuts{&restoreShortcut, &centerShortcut, &fullscreenShortcut,
                               &menuShortcut};

std::string countsAs(const KnownSetting& setting, const PropertyList& value) {
    switch (setting.kind) {
    case ValueKind::integer:
        return std::to_string(integerValue(&value));
    case ValueKind::boolean:
        return boolValue(&value) ? "yes" : "no";
    case ValueKind::text:
        return "none";
    }
    return {};
}

/// A number may be stored as a text, as `defaults write` does it, and a boolean as a number.
bool isUsual(const KnownSetting& setting, const PropertyList& value) {
    const auto* text = std::get_if<std::string>(&value);
    switch (setting.kind) {
    case ValueKind::integer:
        return std::holds_alternative<std::int64_t>(value) ||
               (text != nullptr && *text == countsAs(setting, value));
    case ValueKind::boolean:
        return std::holds_alternative<bool>(value) || std::holds_alternative<std::int64_t>(value) ||
               (text != nullptr &&
                std::ranges::count(std::array{"YES", "NO", "1", "0"}, *text) > 0);
    case ValueKind::text:
        return text != nullptr;
    }
    return false;
}

/// A setting that is not stored, or has no effect, is told so by what is beside it.
class Flags {
  public:
    Flags(const Dictionary& forAll, const Dictionary& own) : forAll_(forAll), own_(own) {}

    /// For a value in the defaults of an application.
    std::vector<std::string> of(const KnownSetting& setting, std::string_view key,
                                const PropertyList& value) {
        flags_.clear();
        sayType(setting, value);
        if (setting.place == SettingPlace::file)
            sayCopied(setting, value);
        else if (key == "kuiMode" && integerValue(forAll_.find("globalSettingsIndex")) != 0)
            say("Without effect: globalSettingsIndex decides for all applications.");
        else if (setting.isFamily)
            sayFrame(setting, key, value);
        else
            sayShortcut(key);
        return flags_;
    }

    /// For a value in the file.
    std::vector<std::string> ofFile(const KnownSetting& setting, const PropertyList& value) {
        flags_.clear();
        sayType(setting, value);
        if (setting.key == "spotlightBOOLIndex" && !boolValue(forAll_.find("spotlightBOOL")))
            say("Without effect: spotlightBOOL is off.");
        return flags_;
    }

  private:
    void say(std::string flag) { flags_.push_back(std::move(flag)); }

    void sayType(const KnownSetting& setting, const PropertyList& value) {
        if (!isUsual(setting, value))
            say("A " + std::string(typeName(value)) + " where " + wanted(setting.kind) +
                " belongs: it counts as " + countsAs(setting, value) + ".");
    }

    static std::string wanted(ValueKind kind) {
        constexpr std::array names{"an integer", "a boolean", "a text"};
        return names.at(static_cast<std::size_t>(kind));
    }

    void sayCopied(const KnownSetting& setting, const PropertyList& value) {
        const auto* coming = forAll_.find(setting.key);
        if (coming != nullptr && countsAs(setting, *coming) != countsAs(setting, value))
            say("Replaced at the next start, by what holds for all applications: " +
                countsAs(setting, *coming) + ".");
    }

    void sayFrame(const KnownSetting& setting, std::string_view key, const PropertyList& value) {
        const auto* text = std::get_if<std::string>(&value);
        const auto frame = text != nullptr ? rectFromText(*text) : Rect{};
        if (text != nullptr && (frame.width <= 0 || frame.height <= 0))
            say("It is no frame of a window.");
        const bool forOneSetup = key != setting.key;
        if (forOneSetup != boolValue(forAll_.find("vtrDisplaySetupBool")))
            say(forOneSetup ? "Without effect: vtrDisplaySetupBool is off."
                            : "Without effect: vtrDisplaySetupBool is on.");
    }

    void sayShortcut(std::string_view key) {
        for (const auto* shortcut : shortcuts) {
            if (key != shortcut->keyTextKey && key != shortcut->toggleIndexKey)
                continue;
            if (!boolValue(own_.find("ownShortCuts")))
                say("Without effect: ownShortCuts is off.");
            else if (key == shortcut->toggleIndexKey && own_.find(shortcut->keyTextKey) == nullptr)
                say("Without effect: there is no " + std::string(shortcut->keyTextKey) + ".");
        }
    }

    const Dictionary& forAll_;
    const Dictionary& own_;
    std::vector<std::string> flags_;
};

std::vector<ReportedSetting> reportFile(const SettingsFile& file, const Dictionary& effective) {
    std::vector<ReportedSetting> lines;
    Flags flags(effective, effective);
    for (const auto& setting : knownSettings()) {
        if (setting.place != SettingPlace::file)
            continue;
        const auto* stored = file.values.find(setting.key);
        const auto& counted = *effective.find(setting.key);
        ReportedSetting line{.key = std::string(setting.key),
                             .effective = counted,
                             .meaning = setting.meaning(&counted)};
        if (stored != nullptr) {
            line.value = *stored;
            line.flags = flags.ofFile(setting, *stored);
        } else if (file.state == SettingsFile::State::read) {
            line.flags = {"Missing: it counts as " + countsAs(setting, counted) + "."};
        }
        lines.push_back(std::move(line));
    }
    for (const auto& [key, value] : file.values.entries()) {
        const auto* known = findSetting(key);
        if (known == nullptr || known->place != SettingPlace::file) {
            lines.push_back(
                {.key = key,
                 .value = value,
                 .meaning = "Vistrel looks for no such key in the file, and keeps it."});
        }
    }
    return lines;
}

/// In the order of the table, and of their names where several belong to one row.
std::vector<ReportedSetting> reportDomain(const Dictionary& values, const Dictionary& effective) {
    std::vector<ReportedSetting> lines;
    Flags flags(effective, values);
    for (const auto& setting : knownSettings()) {
        const auto first = static_cast<std::ptrdiff_t>(lines.size());
        for (const auto& [key, value] : values.entries()) {
            if (findSetting(key) == &setting) {
                lines.push_back({.key = key,
                                 .value = value,
                                 .meaning = setting.meaning(&value),
                                 .flags = flags.of(setting, key, value)});
            }
        }
        std::ranges::sort(lines.begin() + first, lines.end(), {}, &ReportedSetting::key);
    }
    return lines;
}

} // namespace

SettingsReport settingsReport(const SettingsFile& file, const StoredDefaults& stored,
                              const std::vector<std::string>& applications) {
    const auto effective = effectiveSettings(file);
    SettingsReport report{.file = file, .forAll = reportFile(file, effective)};
    const auto isWanted = [&applications](const std::string& name) {
        return applications.empty() || std::ranges::count(applications, name) > 0;
    };
    for (const auto& [name, reason] : stored.unreadable)
        if (isWanted(name))
            report.domains.push_back({.name = name, .problem = reason});
    for (const auto& [name, values] : stored.domains) {
        if (!isWanted(name))
            continue;
        SettingsReport::Domain domain{.name = name, .settings = reportDomain(values, effective)};
        if (!domain.settings.empty() || !applications.empty())
            report.domains.push_back(std::move(domain));
    }
    for (const auto& name : applications)
        if (std::ranges::count(report.domains, name, &SettingsReport::Domain::name) == 0)
            report.domains.push_back({.name = name});
    return report;
}

} // namespace vistrel::tool
