#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"
#include "platform/memory/MemoryDesktop.h"

namespace vistrel::memory {

/// The user's files as one host sees them.
class MemoryFileManager final : public FileManager {
  public:
    MemoryFileManager(MemoryDesktop& desktop, CallLog& log) : desktop_(desktop), log_(log) {}

    [[nodiscard]] std::string expandTilde(std::string_view path) const override;
    [[nodiscard]] bool fileExists(const std::string& path) const override;
    void createDirectory(const std::string& path) override;
    [[nodiscard]] std::optional<Dictionary> readDictionary(const std::string& path) const override;
    void writeDictionary(const Dictionary& dictionary, const std::string& path) override;

  private:
    MemoryDesktop& desktop_;
    CallLog& log_;
};

} // namespace vistrel::memory
