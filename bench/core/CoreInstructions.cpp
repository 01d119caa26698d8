#include "Commands.h"

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <valgrind/callgrind.h>

// Has callgrind count what one command costs: core_instructions COMMAND ITEMS ROUNDS. Started with
// --collect-atstart=no, it counts the rounds and nothing else.
int main(int argc, char** argv) {
    using namespace vistrel;
    if (argc != 4) {
        std::cerr << "core_instructions: COMMAND ITEMS ROUNDS are missing\n";
        return 2;
    }
    for (const auto& [name, command] : commands) {
        if (std::strcmp(name, argv[1]) != 0)
            continue;
        memory::MemoryDesktop desktop;
        TestHost it(desktop);
        fill(it, std::atoll(argv[2]));
        it.load();
        ((*it.corvane.m).*command)();
        ((*it.corvane.m).*command)();
        CALLGRIND_TOGGLE_COLLECT;
        for (int round = std::atoi(argv[3]); round > 0; --round)
            ((*it.corvane.m).*command)();
        CALLGRIND_TOGGLE_COLLECT;
        return 0;
    }
    std::cerr << "core_instructions: there is no command " << argv[1] << '\n';
    return 2;
}
