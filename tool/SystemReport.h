#pragma once

#include <string>
#include <vector>

namespace vistrel::tool {

/// A part of GNUstep or of the system, with its version. That is empty when it cannot be told.
struct Component {
    std::string name;
    std::string version;
};

/// GNUstep's libraries and installed back ends. `program` is one that uses AppKit: it says which
/// version of the library is meant.
std::vector<Component> reportGNUstep(const std::string& program);

/// The distribution, and the kernel with the machine.
std::vector<Component> reportSystem();

} // namespace vistrel::tool
