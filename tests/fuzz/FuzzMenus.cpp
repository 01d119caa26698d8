#include "Broken.h"
#include "HostLife.h"

#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>

/// A main menu of any shape: the block goes where the model says, and the commands find their
/// marks.
namespace vistrel {
namespace {

literal::Item itemFrom(FuzzedDataProvider& input) {
    switch (input.ConsumeIntegralInRange(0, 4)) {
    case 0:
        return zoom;
    case 1:
        return separator;
    case 2:
        return {.title = "Zoom"};
    case 3:
        return {.title = "", .zooms = true};
    default:
        return {.title = input.ConsumeRandomLengthString(6)};
    }
}

literal::TopItem topItemFrom(FuzzedDataProvider& input) {
    const auto title = input.ConsumeRandomLengthString(6);
    if (input.ConsumeIntegralInRange(0, 5) == 0)
        return {title, std::nullopt};
    literal::Menu menu;
    menu.name = input.ConsumeBool() ? "NSWindowsMenu" : input.ConsumeRandomLengthString(6);
    for (auto count = input.ConsumeIntegralInRange(0, 12); count > 0; --count)
        menu.items.push_back(itemFrom(input));
    return {title, menu};
}

MainMenu menusFrom(FuzzedDataProvider& input) {
    MainMenu menus;
    for (auto count = input.ConsumeIntegralInRange(0, 6); count > 0; --count)
        menus.push_back(topItemFrom(input));
    return menus;
}

void live(FuzzedDataProvider& input) {
    const auto menus = menusFrom(input);
    const Shape shape{.name = "any",
                      .menus = [menus] { return menus; },
                      .separatorsHaveOwnClass = input.ConsumeBool(),
                      .spotlight = input.ConsumeBool()};
    Random random([&input] { return input.ConsumeIntegral<std::uint64_t>(); });
    HostLife life(shape, random);
    auto differences = life.start();
    for (int step = 0; differences.empty() && step < 20 && input.remaining_bytes() > 0; ++step)
        differences = life.step();
    if (!differences.empty())
        broken("core and model agree", life.history() + "What differs:\n" + differences);
}

} // namespace
} // namespace vistrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    vistrel::live(input);
    return 0;
}
