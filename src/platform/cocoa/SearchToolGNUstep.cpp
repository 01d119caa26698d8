#include "platform/cocoa/SearchToolGNUstep.h"

#include "platform/posix/DetachedProcess.h"
#include "platform/posix/FindProgram.h"

#include <cstdlib>

namespace vistrel::cocoa::gnustep {

namespace {

using Command = std::vector<std::string>;
using posix::findProgram;

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
        return command(findProgram(name, places.programs), query({}, text));
    return posix::isProgram(path) ? command(std::move(path), query({}, text)) : Command{};
}

Command krunner(std::string_view text, const SearchPlaces& places) {
    return command(findProgram("krunner", places.programs), query("--", text));
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
    return command(findProgram("gdbus", places.programs),
                   {"call", "--session", "--dest", "org.gnome.Shell", "--object-path",
                    "/org/gnome/Shell", "--method", "org.freedesktop.DBus.Properties.Set",
                    "org.gnome.Shell", "OverviewActive", "<true>"});
}

Command appFinder(const SearchPlaces& places) {
    return command(findProgram("xfce4-appfinder", places.programs), {});
}

Command rofi(std::string_view text, const SearchPlaces& places) {
    std::vector<std::string> arguments{"-show", "drun"};
    for (auto& argument : query("-filter", text))
        arguments.push_back(std::move(argument));
    return command(findProgram("rofi", places.programs), std::move(arguments));
}

Command finder(const SearchPlaces& places) {
    auto path = findProgram("MDFinder", places.programs);
    if (path.empty())
        path = findProgram("MDFinder.app/MDFinder", places.applications);
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
