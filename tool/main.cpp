#include "tool/CommandLine.h"
#include "tool/Console.h"
#include "tool/ExitCode.h"
#include "tool/Words.h"

#include <exception>

namespace vistrel::tool {

namespace {

int obey(const CommandLine& line) {
    if (line.word == "enable")
        return change(Switch::on, line.change, line.bundles);
    if (line.word == "disable")
        return change(Switch::off, line.change, line.bundles);
    if (line.word == "run")
        return run(line.run, line.bundles);
    if (line.word == "status")
        return status(line.status, line.bundles);
    if (line.word == "doctor")
        return doctor(line.doctor, line.bundles);
    if (line.word == "settings")
        return settings(line.settings);
    return purge(line.purge);
}

} // namespace

} // namespace vistrel::tool

int main(int count, char** arguments) {
    using namespace vistrel::tool;
    try {
        int exitCode = exitcode::done;
        const auto line = readCommandLine(count, arguments, exitCode);
        return line ? obey(*line) : exitCode;
    } catch (const std::exception& exception) {
        return fail(exception.what());
    }
}
