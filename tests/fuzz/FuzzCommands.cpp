#include "Broken.h"
#include "HostLife.h"

#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>

/// Commands, users and the system in the order that the input gives, against the model.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vistrel;
    FuzzedDataProvider input(data, size);
    const auto& shape = shapes[input.ConsumeIntegralInRange<std::size_t>(0, shapes.size() - 1)];
    // Two bytes for each choice, so that the fuzzer can tell them apart.
    Random random([&input] { return std::uint64_t{input.ConsumeIntegral<std::uint16_t>()}; });
    HostLife life(shape, random);
    auto differences = life.start();
    while (differences.empty() && input.remaining_bytes() > 0)
        differences = life.step();
    if (!differences.empty())
        broken("core and model agree", life.history() + "What differs:\n" + differences);
    return 0;
}
