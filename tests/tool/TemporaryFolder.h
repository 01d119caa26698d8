#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace vistrel::tool {

/// A folder for the files of one test.
class TemporaryFolder : public testing::Test {
  protected:
    TemporaryFolder() {
        std::string name = testing::TempDir() + "vistrel-tool-XXXXXX";
        folder = ::mkdtemp(name.data());
    }

    ~TemporaryFolder() override { std::filesystem::remove_all(folder); }

    std::filesystem::path write(const std::filesystem::path& relative,
                                const std::string& content) const {
        const auto path = folder / relative;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

    /// An empty file that may be executed.
    std::filesystem::path program(const std::filesystem::path& relative) const {
        const auto path = write(relative, "");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }

    std::filesystem::path folder;
};

} // namespace vistrel::tool
