#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vistrel::tool {

/// Where to look for applications.
struct ApplicationPlaces {
    /// Folders that hold .app folders, in the order in which they are searched.
    std::vector<std::string> folders;
    /// Folders with programs, such as those of PATH; an application is often linked into one.
    std::vector<std::string> programs;
};

/// GNUstep's folders and those of PATH.
ApplicationPlaces usualPlaces();

struct Application {
    /// The name of its process, under which its defaults are stored.
    std::string name;
    /// The absolute path of its program.
    std::string program;
};

/// The application of that name, with or without ".app", or at that path, whether it is an .app or
/// a program. nullopt when there is none.
std::optional<Application> findApplication(const std::string& nameOrPath,
                                           const ApplicationPlaces& places);

/// Whether a program uses AppKit, so that there is anything to load Vistrel into.
bool isCocoa(const Application& application);

/// An application that uses AppKit, or why it cannot be had, in a sentence.
struct FoundApplication {
    std::optional<Application> found;
    std::string problem;
};

FoundApplication findCocoaApplication(const std::string& nameOrPath,
                                      const ApplicationPlaces& places);

/// The name of the process of the application that is meant, whether there is one or not. nullopt
/// for what can be no such name.
std::optional<std::string> processName(const std::string& nameOrPath);

} // namespace vistrel::tool
