#include "tool/Applications.h"
#include "tool/Console.h"
#include "tool/ExitCode.h"
#include "tool/Installation.h"
#include "tool/LaunchArguments.h"
#include "tool/UserDefaultsStore.h"
#include "tool/Words.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <unistd.h>

namespace vistrel::tool {

namespace {

int execute(std::vector<std::string> command) {
    std::vector<char*> pointers;
    pointers.reserve(command.size() + 1);
    for (auto& argument : command)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    ::execv(pointers[0], pointers.data());
    return fail(command.front() + " cannot be started: " + std::strerror(errno) + ".");
}

} // namespace

int run(const RunOptions& options, const std::string& bundles) {
    const auto application = findCocoaApplication(options.application, usualPlaces());
    if (!application.found)
        return fail(application.problem);
    const auto installation = findInstallation(ownProgram(), bundles);
    if (!installation)
        return fail(noInstallation);
    const auto defaults = loadingDefaults(userDefaults()->read());
    std::vector<std::string> command{application.found->program};
    for (const auto& argument :
         launchArguments(defaults, application.found->name, installation->loader->path))
        command.push_back(argument);
    command.insert(command.end(), options.arguments.begin(), options.arguments.end());
    if (!options.dryRun)
        return execute(std::move(command));
    for (const auto& argument : command)
        std::cout << argument << '\n';
    return exitcode::done;
}

} // namespace vistrel::tool
