#pragma once

#include <cstdint>

namespace vistrel {

/// The arguments of Carbon's SetSystemUIMode. Values and names are those of MacApplication.h.
struct SystemUIMode {
    std::uint32_t mode = 0;
    std::uint32_t options = 0;

    friend bool operator==(const SystemUIMode&, const SystemUIMode&) = default;
};

/// Menu bar and Dock shown: kUIModeNormal, no options.
inline constexpr SystemUIMode systemUINormal{.mode = 0, .options = 0};

/// Menu bar and Dock out of sight, back while the pointer is moved to them: kUIModeAllSuppressed
/// with kUIOptionAutoShowMenuBar.
inline constexpr SystemUIMode systemUIHidden{.mode = 4, .options = 1};

} // namespace vistrel
