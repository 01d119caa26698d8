#pragma once

#include "core/Rect.h"

#include <sstream>
#include <string>
#include <vector>

namespace vistrel {

inline std::ostream& operator<<(std::ostream& out, const Rect& rect) {
    return out << textFromRect(rect);
}

namespace memory {

/// The requests a host received from the core, one line each, in their order.
class CallLog {
  public:
    /// Adds a line made of `parts`. Records nothing, and allocates nothing, while switched off.
    template <typename... Parts> void record(const Parts&... parts) {
        if (!isRecording)
            return;
        std::ostringstream line;
        line << std::boolalpha;
        (line << ... << parts);
        lines.push_back(line.str());
    }

    bool isRecording = true;
    std::vector<std::string> lines;
};

} // namespace memory

} // namespace vistrel
