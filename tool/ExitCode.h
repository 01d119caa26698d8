#pragma once

/// What the tool's end tells scripts.
namespace vistrel::tool::exitcode {

inline constexpr int done = 0;
/// It could not be done. A message says why.
inline constexpr int failed = 1;
/// The words and options make no sense.
inline constexpr int wrongUsage = 2;
/// Only a part could be reported: there was no display, no bundle, or the application did not
/// answer.
inline constexpr int incomplete = 3;

} // namespace vistrel::tool::exitcode
