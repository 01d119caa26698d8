#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"

namespace vistrel::memory {

/// A desktop on which one application is in front and everything that is started succeeds.
class MemoryWorkspace final : public Workspace {
  public:
    explicit MemoryWorkspace(CallLog& log) : log_(log) {}

    [[nodiscard]] std::string activeApplicationName() const override;
    void openURL(const std::string& url) override;
    void launch(const std::string& path, const std::vector<std::string>& arguments) override;

    struct Launch {
        std::string path;
        std::vector<std::string> arguments;
    };

    std::string activeApplication = "Host";
    /// The programs that were started.
    std::vector<Launch> launched;

  private:
    CallLog& log_;
};

} // namespace vistrel::memory
