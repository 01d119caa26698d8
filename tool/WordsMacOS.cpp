#include "tool/Console.h"
#include "tool/Words.h"

namespace vistrel::tool {

namespace {

int isForGNUstep(const std::string& word) {
    return fail(word + " is for GNUstep: macOS has no list of bundles that it loads into others.");
}

} // namespace

int change(Switch to, const SwitchOptions& /*options*/, const std::string& /*bundles*/) {
    return isForGNUstep(to == Switch::on ? "enable" : "disable");
}

int run(const RunOptions& /*options*/, const std::string& /*bundles*/) {
    return isForGNUstep("run");
}

int status(const StatusOptions& /*options*/, const std::string& /*bundles*/) {
    return isForGNUstep("status");
}

int doctor(const DoctorOptions& /*options*/, const std::string& /*bundles*/) {
    return isForGNUstep("doctor");
}

int settings(const SettingsOptions& /*options*/) {
    return isForGNUstep("settings");
}

} // namespace vistrel::tool
