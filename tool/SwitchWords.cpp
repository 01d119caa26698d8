#include "tool/Applications.h"
#include "tool/Console.h"
#include "tool/EnabledText.h"
#include "tool/ExitCode.h"
#include "tool/Installation.h"
#include "tool/UserDefaultsStore.h"
#include "tool/Words.h"

#include <filesystem>
#include <iostream>

namespace vistrel::tool {

namespace {

void warnOfUnknown(const std::vector<std::string>& applications) {
    const auto places = usualPlaces();
    for (const auto& application : applications) {
        if (!findApplication(application, places))
            warn("There is no application " + application +
                 " at this time. Its name is taken as it is.");
    }
}

int carryOut(const SwitchPlan& plan, const LoadingDefaults& before, bool dryRun,
             DefaultsStore& store) {
    for (const auto& remark : plan.remarks)
        std::cout << remark << '\n';
    if (plan.changes.empty()) {
        std::cout << "Nothing to change. " << enabledText(before) << '\n';
        return exitcode::done;
    }
    if (!dryRun)
        if (const auto problem = apply(plan.changes, store))
            return fail(*problem);
    std::cout << (dryRun ? "Would change in your defaults:\n" : "Changed in your defaults:\n");
    for (const auto& change : plan.changes)
        std::cout << "  " << changeText(change) << '\n';
    if (!dryRun)
        std::cout << enabledText(plan.after) << " This holds from the next start of each on.\n";
    return exitcode::done;
}

} // namespace

int change(Switch to, const SwitchOptions& options, const std::string& bundles) {
    const auto names = processNames(options.applications);
    if (!names)
        return exitcode::wrongUsage;
    Loader loader{.exists = [](const std::string& path) {
        std::error_code error;
        return std::filesystem::exists(path, error);
    }};
    if (to == Switch::on) {
        const auto installation = findInstallation(ownProgram(), bundles);
        if (!installation)
            return fail(noInstallation);
        loader.path = installation->loader->path;
        warnOfUnknown(options.applications);
    }
    const auto store = userDefaults();
    const auto before = loadingDefaults(store->read());
    const auto plan = tool::plan(before, {.to = to, .applications = *names}, loader);
    for (const auto& problem : plan.problems)
        fail(problem);
    return plan.problems.empty() ? carryOut(plan, before, options.dryRun, *store)
                                 : exitcode::failed;
}

} // namespace vistrel::tool
