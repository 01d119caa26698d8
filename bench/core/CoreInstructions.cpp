#include "Commands.h"

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <valgrind/callgrind.h>

// Has callgrind count what one part costs: core_instructions PART ITEMS ROUNDS, where PART is a
// command, startUp or settingsLoad. Started with --collect-atstart=no, it counts the rounds and
// nothing else.

namespace vistrel {
namespace {

template <typename Part> void count(Part part) {
    CALLGRIND_TOGGLE_COLLECT;
    part();
    CALLGRIND_TOGGLE_COLLECT;
}

void countStartUp(std::int64_t items, int rounds) {
    for (; rounds > 0; --rounds) {
        memory::MemoryDesktop desktop;
        TestHost it(desktop);
        fill(it, items);
        count([&] { it.load(); });
    }
}

void countSettingsLoad(int rounds) {
    memory::MemoryDesktop desktop;
    memory::MemoryHost host(desktop);
    host.calls.isRecording = false;
    Settings settings;
    for (; rounds > 0; --rounds)
        count([&] { settings.load(host.fileManager(), host.userDefaults()); });
}

void countCommand(Action command, std::int64_t items, int rounds) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    fill(it, items);
    it.load();
    for (; rounds > 0; --rounds)
        count([&] { ((*it.corvane.m).*command)(); });
}

/// Answers whether there is such a part.
bool countPart(std::string_view part, std::int64_t items, int rounds) {
    if (part == "startUp") {
        countStartUp(items, rounds);
        return true;
    }
    if (part == "settingsLoad") {
        countSettingsLoad(rounds);
        return true;
    }
    for (const auto& [name, command] : commands) {
        if (name != part)
            continue;
        countCommand(command, items, rounds);
        return true;
    }
    return false;
}

} // namespace
} // namespace vistrel

int main(int argc, char** argv) {
    if (argc == 4 && vistrel::countPart(argv[1], std::atoll(argv[2]), std::atoi(argv[3])))
        return 0;
    std::cerr << "core_instructions: PART ITEMS ROUNDS are missing, or there is no such part\n";
    return 2;
}
