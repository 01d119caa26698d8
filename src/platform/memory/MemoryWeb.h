#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"

#include <deque>

namespace vistrel::memory {

/// A web whose answers a test has laid out.
class MemoryWeb final : public Web {
  public:
    explicit MemoryWeb(CallLog& log) : log_(log) {}

    void removeAllCachedResponses() override;
    [[nodiscard]] std::optional<std::string> textAtURL(const std::string& url) override;

    /// The answers to the next downloads, whatever is asked for. After the last, downloads fail.
    std::deque<std::optional<std::string>> answers;

  private:
    CallLog& log_;
};

} // namespace vistrel::memory
