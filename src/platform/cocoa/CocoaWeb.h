#pragma once

#include "platform/Platform.h"

namespace vistrel::cocoa {

/// The web as Foundation reaches it.
class CocoaWeb final : public Web {
  public:
    void removeAllCachedResponses() override;
    [[nodiscard]] std::optional<std::string> textAtURL(const std::string& url) override;
};

} // namespace vistrel::cocoa
