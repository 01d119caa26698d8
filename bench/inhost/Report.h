#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace vistrel::bench {

/// Nanoseconds of CLOCK_MONOTONIC, the clock that the stopwatch outside uses too.
std::int64_t now();

/// Appends a line to the file that VTR_BENCH_REPORT names: a word and numbers.
void report(std::string_view word, std::initializer_list<std::int64_t> numbers);

} // namespace vistrel::bench
