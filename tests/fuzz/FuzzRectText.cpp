#include "Broken.h"

#include "core/Rect.h"

#include <cmath>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>

/// Any text read as a rectangle, and any rectangle written as a text.
namespace vistrel {
namespace {

void readAndWrite(const std::string& text) {
    const auto rect = rectFromText(text);
    for (const auto value : {rect.x, rect.y, rect.width, rect.height})
        if (!std::isfinite(value))
            broken("a text is read as finite numbers", text);
    if (!(rectFromText(textFromRect(rect)) == rect))
        broken("what was read is written so that it reads back exactly", text);
}

void writeAndRead(const Rect& rect) {
    const auto finite = [](double value) { return std::isfinite(value) ? value : 0; };
    const Rect expected{finite(rect.x), finite(rect.y), finite(rect.width), finite(rect.height)};
    const auto text = textFromRect(rect);
    if (!(rectFromText(text) == expected))
        broken("a rectangle reads back exactly, what is no number as zero", text);
}

} // namespace
} // namespace vistrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    if (input.ConsumeBool())
        vistrel::writeAndRead(
            {input.ConsumeFloatingPoint<double>(), input.ConsumeFloatingPoint<double>(),
             input.ConsumeFloatingPoint<double>(), input.ConsumeFloatingPoint<double>()});
    else
        vistrel::readAndWrite(input.ConsumeRemainingBytesAsString());
    return 0;
}
