#include "AllocationCounter.h"
#include "Commands.h"

#include "platform/posix/PropertyListXML.h"

#include <benchmark/benchmark.h>

/// What the core costs by itself, on the memory platform.

namespace vistrel {
namespace {

/// Reports the allocations of one round beside its time.
class Allocations {
  public:
    explicit Allocations(benchmark::State& state) : state_(state) {}

    ~Allocations() {
        state_.counters["allocations"] = benchmark::Counter(
            static_cast<double>(allocationsSoFar() - before_), benchmark::Counter::kAvgIterations);
    }

    Allocations(const Allocations&) = delete;
    Allocations& operator=(const Allocations&) = delete;

  private:
    benchmark::State& state_;
    std::size_t before_ = allocationsSoFar();
};

void runCommand(benchmark::State& state, Action command) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    fill(it, state.range(0));
    it.load();
    const Allocations counted(state);
    for (auto _ : state)
        ((*it.corvane.m).*command)();
    state.SetComplexityN(state.range(0));
}

void startUp(benchmark::State& state) {
    std::size_t allocations = 0;
    for (auto _ : state) {
        state.PauseTiming();
        memory::MemoryDesktop desktop;
        TestHost it(desktop);
        fill(it, state.range(0));
        const auto before = allocationsSoFar();
        state.ResumeTiming();
        it.load();
        allocations += allocationsSoFar() - before;
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
}

BENCHMARK(startUp)->RangeMultiplier(10)->Range(10, 10'000);

void settingsLoad(benchmark::State& state) {
    memory::MemoryDesktop desktop;
    memory::MemoryHost host(desktop);
    host.calls.isRecording = false;
    Settings settings;
    const Allocations counted(state);
    for (auto _ : state)
        settings.load(host.fileManager(), host.userDefaults());
}

BENCHMARK(settingsLoad);

void settingsFileFromXML(benchmark::State& state) {
    const auto text = posix::xmlFromPropertyList(defaultSettings()).value();
    const Allocations counted(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(posix::propertyListFromXML(text));
}

BENCHMARK(settingsFileFromXML);

[[maybe_unused]] const bool areAdded = [] {
    for (const auto& [name, command] : commands)
        benchmark::RegisterBenchmark(name, runCommand, command)
            ->RangeMultiplier(10)
            ->Range(10, 10'000)
            ->Complexity(benchmark::oN);
    return true;
}();

} // namespace
} // namespace vistrel
