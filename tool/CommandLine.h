#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vistrel::tool {

struct SwitchOptions {
    std::vector<std::string> applications;
    bool dryRun = false;
};

struct RunOptions {
    std::string application;
    std::vector<std::string> arguments;
    bool dryRun = false;
};

struct StatusOptions {
    bool json = false;
};

struct DoctorOptions {
    /// Empty for none.
    std::string application;
    /// How long the application may take.
    int seconds = 20;
    bool json = false;
};

struct SettingsOptions {
    std::vector<std::string> applications;
    bool json = false;
};

struct PurgeOptions {
    bool dryRun = false;
};

/// What the user typed.
struct CommandLine {
    /// The first word, which says what to do.
    std::string word;
    /// Where the bundles are, if not where this program expects them.
    std::string bundles;
    SwitchOptions change;
    RunOptions run;
    StatusOptions status;
    DoctorOptions doctor;
    SettingsOptions settings;
    PurgeOptions purge;
};

/// Reads the command line. nullopt when there is nothing more to do: help or a message has been
/// printed, and `exitCode` is what to end with.
std::optional<CommandLine> readCommandLine(int count, const char* const* arguments, int& exitCode);

} // namespace vistrel::tool
