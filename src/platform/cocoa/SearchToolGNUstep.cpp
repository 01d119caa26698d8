#include "platform/cocoa/SearchToolGNUstep.h"

#include "platform/posix/DetachedProcess.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace vistrel::cocoa::gnustep {

namespace {

using Command = std::vector<std::string>;

bool isProgram(const std::string& path) {
    struct stat status {};

    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

/// The first program called `name` below `folders`, empty when there is none. Relative folders do
/// not count: what the current one holds is nobody's choice of a search tool.
std::string find(std::string_view name, std::string_view folders) {
    while (!folders.empty()) {
        const auto folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folders.size(), folder.size() + 1));
        auto path = std::string(folder).append("/").append(name);
        if (folder.starts_with('/') && isProgram(path))
            return path;
    }
    return {};
}

/// A tool that is not installed makes no command.
Command command(std::string program, std::vector<std::string> arguments) {
    if (program.empty())
        return {};
    arguments.insert(arguments.begin(), std::move(program));
    return arguments;
}

/// `before` and the text, or nothing when there is no text to pass.
std::vector<std::string> query(std::string_view before, std::string_view text) {
    if (text.empty())
        return {};
    if (before.empty())
        return {std::string(text)};
    return {std::string(before), std::string(text)};
}

Command preferredTool(std::string_view text, std::string_view name, const SearchPlaces& places) {
    if (name.empty())
        return {};
    auto path = std::string(name);
    if (!name.starts_with('/'))
        return command(find(name, places.programs), query({}, text));
    return isProgram(path) ? command(std::move(path), query({}, text)) : Command{};
}

Command krunner(std::string_view text, const SearchPlaces& places) {
    return command(find("krunner", places.programs), query("--", text));
}

/// Whether `name` is one of the names of the desktop, which are separated by colons.
bool isDesktop(std::string_view name, std::string_view desktop) {
    const auto all = std::string(":").append(desktop).append(":");
    return all.find(std::string(":").append(name).append(":")) != std::string::npos;
}

/// The property is used because the shell's own method for its search field answers none but a few
/// programs of the desktop.
Command overview(const SearchPlaces& places) {
    if (!isDesktop("GNOME", places.desktop))
        return {};
    return command(find("gdbus", places.programs),
                   {"call", "--session", "--dest", "org.gnome.Shell", "--object-path",
                    "/org/gnome/Shell", "--method", "org.freedesktop.DBus.Properties.Set",
                    "org.gnome.Shell", "OverviewActive", "<true>"});
}

Command appFinder(const SearchPlaces& places) {
    return command(find("xfce4-appfinder", places.programs), {});
}

Command rofi(std::string_view text, const SearchPlaces& places) {
    std::vector<std::string> arguments{"-show", "drun"};
    for (auto& argument : query("-filter", text))
        arguments.push_back(std::move(argument));
    return command(find("rofi", places.programs), std::move(arguments));
}

Command finder(const SearchPlaces& places) {
    auto path = find("MDFinder", places.programs);
    if (path.empty())
        path = find("MDFinder.app/MDFinder", places.applications);
    return command(std::move(path), {});
}

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

SearchPlaces SearchPlaces::ofProcess() {
    return {.programs = environment("PATH"),
            .applications = environment("HOME") +
                            "/GNUstep/Applications"
                            ":/usr/local/lib/GNUstep/Applications:/usr/lib/GNUstep/Applications",
            .desktop = environment("XDG_CURRENT_DESKTOP")};
}

std::vector<std::string> searchCommand(std::string_view text, std::string_view preferred,
                                       const SearchPlaces& places) {
    for (auto& command : {preferredTool(text, preferred, places), krunner(text, places),
                          overview(places), appFinder(places), rofi(text, places), finder(places)})
        if (!command.empty())
            return command;
    return {};
}

std::optional<std::string> showSearchWindow(std::string_view text, std::uint32_t /*options*/,
                                            std::string_view preferred) {
    const auto command = searchCommand(text, preferred, SearchPlaces::ofProcess());
    if (command.empty())
        return "No search tool is installed: none of krunner, GNOME, xfce4-appfinder, rofi, "
               "MDFinder, and no VTRSearchTool in the defaults.";
    if (!posix::startDetached(command))
        return "The search tool " + command.front() + " could not be started.";
    return std::nullopt;
}

} // namespace vistrel::cocoa::gnustep
