#include "Broken.h"

#include "platform/posix/PropertyListXML.h"

#include <cstdint>

/// Any bytes as a settings file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vistrel;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto value = posix::propertyListFromXML(text);
    if (!value)
        return 0;
    const auto written = posix::xmlFromPropertyList(*value);
    if (!written)
        broken("what was read can be written", text);
    const auto again = posix::propertyListFromXML(*written);
    if (!again)
        broken("what was written can be read", *written);
    const auto twice = posix::xmlFromPropertyList(*again);
    if (twice != written)
        broken("what was written once is written again in the same way", *written);
    return 0;
}
