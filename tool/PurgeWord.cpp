#include "tool/Console.h"
#include "tool/EnabledText.h"
#include "tool/ExitCode.h"
#include "tool/Purge.h"
#include "tool/SettingsFile.h"
#include "tool/UserDefaultsStore.h"
#include "tool/Words.h"

#include <filesystem>
#include <iostream>
#include <system_error>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

/// The file, what a killed host may have left beside it, and their folder if nothing else is in it.
std::error_code removeFile(const fs::path& file) {
    std::error_code error;
    fs::remove(file.string() + ".new", error);
    fs::remove(file, error);
    std::error_code isNotEmpty;
    if (!error)
        fs::remove(file.parent_path(), isNotEmpty);
    return error;
}

} // namespace

int purge(const PurgeOptions& options) {
    const auto store = userDefaults();
    const auto stored = store->read();
    const auto changes = tool::purge(stored);
    const auto file = readSettingsFile(homeFolder());
    const bool hasFile = file.state != SettingsFile::State::absent;
    if (changes.empty() && !hasFile) {
        std::cout << "Nothing to remove: Vistrel has saved nothing.\n";
        return exitcode::done;
    }
    if (!options.dryRun) {
        if (const auto problem = apply(changes, *store))
            return fail(*problem);
        if (const auto error = removeFile(file.path))
            return fail(file.path + " cannot be removed: " + error.message() + ".");
    }
    std::cout << (options.dryRun ? "Would remove:\n" : "Removed:\n");
    if (hasFile)
        std::cout << "  " << file.path << '\n';
    for (const auto& change : changes)
        std::cout << "  " << changeText(change) << '\n';
    return exitcode::done;
}

} // namespace vistrel::tool
