#include "core/Corvane.h"

#include "platform/Platform.h"

namespace vistrel {

std::string Corvane::savedFrameKey() const {
    return "vtr_savedWindowRect" + screensString;
}

void Corvane::startRestore() {
    countScreens();
    const auto saved = platform_.userDefaults().objectForKey(savedFrameKey());
    if (const auto* text = saved ? std::get_if<std::string>(&*saved) : nullptr)
        application().keyWindow().setFrameAnimated(rectFromText(*text));
}

} // namespace vistrel
