#pragma once

#include "platform/Platform.h"

namespace vistrel::cocoa {

/// The desktop that Cocoa knows of.
class CocoaWorkspace final : public Workspace {
  public:
    [[nodiscard]] std::string activeApplicationName() const override;
    void openURL(const std::string& url) override;
    void launch(const std::string& path, const std::vector<std::string>& arguments) override;
};

} // namespace vistrel::cocoa
