#include "core/CorvaneClass.h"

#include "platform/Platform.h"

namespace vistrel {

void CorvaneClass::load(Platform& platform) {
    if (m)
        return;
    m = std::make_unique<Corvane>(platform);
    if (bundleWorksHere(platform))
        m->insertMenu();
}

bool CorvaneClass::bundleWorksHere(Platform& platform) {
    if (!doesntWork)
        doesntWork.emplace();
    const auto identifier = platform.application().bundleIdentifier();
    return !identifier || !doesntWork->contains(*identifier);
}

} // namespace vistrel
