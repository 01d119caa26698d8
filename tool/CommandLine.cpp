#include "tool/CommandLine.h"

#include "tool/ExitCode.h"
#include "tool/Version.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

namespace vistrel::tool {

namespace {

constexpr auto exitCodes =
    "Ends with 0 when it is done, 1 when it failed, 2 for wrong usage, and 3\n"
    "when it could report a part only.";

using Arguments = std::vector<std::string>;

/// The library does not know that what follows APP belongs to the application.
class Formatter : public CLI::Formatter {
  public:
    Formatter() {
        label("SUBCOMMAND", "COMMAND");
        column_width(28);
    }

    [[nodiscard]] std::string make_usage(const CLI::App* word, std::string name) const override {
        if (word->get_name() == "run")
            return "Usage: " + name + " [OPTIONS] APP [ARG...]\n";
        return CLI::Formatter::make_usage(word, name);
    }
};

CLI::App& addWord(CLI::App& tool, const std::string& name, const std::string& summary,
                  const std::string& details) {
    auto* const word = tool.add_subcommand(name, summary);
    word->group("Commands");
    word->footer(details + "\n\n" + exitCodes);
    return *word;
}

void addApplications(CLI::App& word, Arguments& applications, const std::string& what) {
    word.add_option("--app", applications, what)
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->take_all();
}

void addJSON(CLI::App& word, bool& json) {
    word.add_flag("--json", json, "Report as JSON");
}

void addSwitch(CLI::App& word, SwitchOptions& options) {
    addApplications(word, options.applications,
                    "Only this application; may be given several times");
    word.add_flag("--dry-run", options.dryRun, "Print what would change, and change nothing");
}

void addSwitches(CLI::App& tool, SwitchOptions& options) {
    const std::string names = "NAME is the name of an application's process, such as TextEdit, or "
                              "the path\nof its .app. ";
    addSwitch(addWord(tool, "enable", "Load Vistrel into applications from their next start on",
                      names + "Without --app, every application is meant; those that were\n"
                              "switched off by name stay so until they are enabled by name."),
              options);
    addSwitch(addWord(tool, "disable", "Load it no longer",
                      names + "Without --app, everything that enable has added to your\n"
                              "defaults is taken out again."),
              options);
}

void addRun(CLI::App& tool, RunOptions& options) {
    addWord(tool, "run", "Start an application with Vistrel in it, just this once",
            "APP is the name of an application or the path of its .app. What follows it is\n"
            "passed on. Ends as the application does; no default is changed.")
        .add_flag("--dry-run", options.dryRun,
                  "Print the command, one argument a line, instead of executing it");
}

void addReports(CLI::App& tool, CommandLine& line) {
    addJSON(addWord(tool, "status", "Tell where Vistrel is installed, enabled and running",
                    "Running are those of your own processes that have it in memory."),
            line.status.json);

    auto& doctor =
        addWord(tool, "doctor", "Collect what the report of a fault needs",
                "With APP, that application is started once more for a moment: a window of it\n"
                "may show up, and it is ended without asking and without saving anything.\n"
                "Without a display the rest is reported all the same.");
    doctor.add_option("APP", line.doctor.application,
                      "The application to look into, by its name or the path of its .app");
    doctor.add_option("--timeout", line.doctor.seconds, "How long it may take to start (20)")
        ->type_name("SECONDS")
        ->check(CLI::Range(1, 3600).description(""));
    addJSON(doctor, line.doctor.json);

    auto& settings =
        addWord(tool, "settings", "Print the settings and what they mean",
                "Those of the file for all applications, and those of each application that\n"
                "has any in its defaults. Nothing is ever written.");
    addApplications(settings, line.settings.applications,
                    "Only this application's; may be given several times");
    addJSON(settings, line.settings.json);
}

void addPurge(CLI::App& tool, PurgeOptions& options) {
    addWord(tool, "purge", "Delete everything that Vistrel has saved",
            "That is the settings file, and Vistrel's settings in the defaults of the\n"
            "applications that it has run in, saved window frames among them. It stays\n"
            "enabled where it is; see disable.")
        .add_flag("--dry-run", options.dryRun, "Print what would be deleted, and delete nothing");
}

/// The position of the next argument that is no option of ours.
std::size_t nextWord(const Arguments& arguments, std::size_t position) {
    while (position < arguments.size() && arguments[position].starts_with('-')) {
        if (arguments[position] == "--")
            return position + 1;
        position += arguments[position] == "--bundles" ? 2 : 1;
    }
    return std::min(position, arguments.size());
}

/// Takes APP and everything behind it off a command line with the word "run": it is passed on as
/// it stands, also where it looks like an option of ours.
void takeCommand(Arguments& arguments, RunOptions& run) {
    const auto word = nextWord(arguments, 0);
    if (word == arguments.size() || arguments[word] != "run")
        return;
    const auto application = nextWord(arguments, word + 1);
    if (application == arguments.size())
        return;
    const auto first = arguments.begin() + static_cast<std::ptrdiff_t>(application);
    run.application = *first;
    run.arguments.assign(first + 1, arguments.end());
    arguments.erase(first, arguments.end());
}

std::string messageOf(const CLI::App& tool, const CLI::ParseError& error) {
    const auto unknown = tool.remaining();
    if (tool.get_subcommands().empty() && !unknown.empty())
        return "There is no command " + unknown.front();
    if (error.get_name() == "RequiredError" && tool.get_subcommands().empty())
        return "A command is required";
    return error.what();
}

int tell(const CLI::App& tool, const CLI::ParseError& error) {
    if (error.get_exit_code() == exitcode::done)
        return tool.exit(error);
    const auto words = tool.get_subcommands();
    std::cerr << "vistrel: " << messageOf(tool, error) << ".\nTry: vistrel "
              << (words.empty() ? "" : words.front()->get_name() + " ") << "--help\n";
    return exitcode::wrongUsage;
}

} // namespace

std::optional<CommandLine> readCommandLine(int count, const char* const* arguments, int& exitCode) {
    CommandLine line;
    CLI::App tool("Switches Vistrel on and off, shows what it does and why it does not.",
                  "vistrel");
    tool.formatter(std::make_shared<Formatter>());
    tool.set_help_flag("--help", "Print this help");
    tool.set_version_flag("--version", std::string("vistrel ") + version, "Print the version");
    tool.add_option("--bundles", line.bundles,
                    "Where the bundles are, if not where this program expects them")
        ->type_name("FOLDER");
    tool.footer(exitCodes);
    tool.require_subcommand(1);
    tool.fallthrough();
    addSwitches(tool, line.change);
    addRun(tool, line.run);
    addReports(tool, line);
    addPurge(tool, line.purge);
    Arguments words(arguments + 1, arguments + count);
    takeCommand(words, line.run);
    try {
        std::ranges::reverse(words);
        tool.parse(words);
        line.word = tool.get_subcommands().front()->get_name();
        if (line.word == "run" && line.run.application.empty())
            throw CLI::RequiredError("APP");
    } catch (const CLI::ParseError& error) {
        exitCode = tell(tool, error);
        return std::nullopt;
    }
    return line;
}

} // namespace vistrel::tool
