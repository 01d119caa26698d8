#pragma once

#include "core/Corvane.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace vistrel {

/// The class-level half of the controller: what there is once per host process.
class CorvaneClass {
  public:
    /// Called by the platform when the bundle has been loaded. Makes the one controller and, when
    /// the host is eligible, has it install the menu. A second call does nothing.
    void load(Platform& platform);

    /// Whether the bundle may install itself in this host: not when the host's identifier is a
    /// member of `doesntWork`. A host without an identifier is eligible.
    bool bundleWorksHere(Platform& platform);

    /// The single controller, or nullptr before load().
    std::unique_ptr<Corvane> m;

    /// Identifiers of the hosts that the bundle stays out of. Made at the first question, and made
    /// empty: no host is excluded, the means to do so is kept.
    std::optional<std::set<std::string, std::less<>>> doesntWork;
};

} // namespace vistrel
