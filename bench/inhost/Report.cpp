#include "Report.h"

#include <chrono>
#include <cstdlib>
#include <fstream>

namespace vistrel::bench {

std::int64_t now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
}

void report(std::string_view word, std::initializer_list<std::int64_t> numbers) {
    const char* const path = std::getenv("VTR_BENCH_REPORT");
    if (path == nullptr)
        return;
    std::ofstream file(path, std::ios::app);
    file << word;
    for (const auto number : numbers)
        file << ' ' << number;
    file << '\n';
}

} // namespace vistrel::bench
