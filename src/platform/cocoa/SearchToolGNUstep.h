#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vistrel::cocoa::gnustep {

/// Where a search tool is looked for.
struct SearchPlaces {
    /// Folders of programs, as in PATH.
    std::string programs;
    /// Folders of the platform's applications, separated like those of programs.
    std::string applications;
    /// The names of the running desktop, as in XDG_CURRENT_DESKTOP.
    std::string desktop;

    /// Those of this process.
    static SearchPlaces ofProcess();
};

/// The program and its arguments that open the search tool of the user's desktop with `text` in it,
/// where that tool takes one. The first of these that is installed:
///
/// | tool                        | where                        | how the text is passed     |
/// |-----------------------------|------------------------------|----------------------------|
/// | `preferred`, if not empty   | absolute path, or in PATH    | only argument              |
/// | krunner                     | PATH                         | the query, after `--`      |
/// | the overview, through gdbus | PATH, while GNOME is running | not                        |
/// | xfce4-appfinder             | PATH                         | not                        |
/// | rofi                        | PATH                         | `-filter`                  |
/// | MDFinder                    | PATH, then the applications  | not                        |
///
/// Empty when none is installed.
std::vector<std::string> searchCommand(std::string_view text, std::string_view preferred,
                                       const SearchPlaces& places);

/// Opens the search tool of the user's desktop, as HISearchWindowShow of Carbon does, detached from
/// this process. `preferred` is the tool that the user wants: the name or the absolute path of a
/// program, or empty. No `options` are defined; they are taken for likeness. Answers the line to
/// write to the log when nothing could be opened.
std::optional<std::string> showSearchWindow(std::string_view text, std::uint32_t options,
                                            std::string_view preferred = {});

} // namespace vistrel::cocoa::gnustep
