#pragma once

#include "platform/Platform.h"

namespace vistrel::cocoa {

/// The user's files through Foundation.
class CocoaFileManager final : public FileManager {
  public:
    [[nodiscard]] std::string expandTilde(std::string_view path) const override;
    [[nodiscard]] bool fileExists(const std::string& path) const override;
    void createDirectory(const std::string& path) override;
    [[nodiscard]] std::optional<Dictionary> readDictionary(const std::string& path) const override;
    void writeDictionary(const Dictionary& dictionary, const std::string& path) override;
};

} // namespace vistrel::cocoa
