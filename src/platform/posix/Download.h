#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace vistrel::posix {

/// How long a whole download may take: as long as the platform's own requests wait.
inline constexpr std::chrono::milliseconds downloadTimeout = std::chrono::seconds(60);

/// The text at `url`, byte for byte, from the server itself and not from any cache. Waits for it
/// for no longer than `timeout` in all. Redirections are followed; the environment's proxies are
/// used.
///
/// nullopt when there is no text of at most 1 MiB to be had: `url` or where it leads to is neither
/// http nor https, the server cannot be reached or answers an error, the text is incomplete or no
/// UTF-8, libcurl is not installed. No connection, thread or open file is left behind.
std::optional<std::string> downloadText(const std::string& url,
                                        std::chrono::milliseconds timeout = downloadTimeout);

} // namespace vistrel::posix
