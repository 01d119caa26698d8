#include "platform/posix/RegularFile.h"

#include "platform/posix/Descriptor.h"
#include "platform/posix/TemporaryFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vistrel::posix {

namespace {

bool readAll(int file, std::string& content) {
    std::size_t done = 0;
    while (done < content.size()) {
        const auto count = ::read(file, content.data() + done, content.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

bool writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const auto count = ::write(file, content.data(), content.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Where writing to `path` really leads: through symbolic links, also to a file that does not exist
/// yet. Empty when the links lead nowhere.
std::string targetOf(std::string path) {
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        std::string target(4096, '\0');
        const auto length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
            return path;
        target.resize(static_cast<std::size_t>(length));
        if (!target.starts_with('/'))
            target.insert(0, path, 0, path.rfind('/') + 1);
        path = std::move(target);
    }
    return {};
}

/// A new file keeps the permissions it was made with: its user's alone.
bool keepPermissions(int file, const std::string& path) {
    struct stat status {};

    return ::stat(path.c_str(), &status) != 0 || ::fchmod(file, status.st_mode & 07777U) == 0;
}

void flushFolderOf(const std::string& path) {
    const Descriptor folder(
        ::open(path.substr(0, path.rfind('/') + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.number());
}

} // namespace

std::optional<std::string> readRegularFile(const std::string& path, std::size_t limit) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));

    struct stat status {};

    if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::size_t>(status.st_size) > limit)
        return std::nullopt;
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    return readAll(file.number(), content) ? std::optional(std::move(content)) : std::nullopt;
}

bool replaceFile(const std::string& path, std::string_view content) {
    const auto target = targetOf(path);
    if (target.empty())
        return false;
    TemporaryFile file(target);
    const bool isReplaced = file.isOpen() && writeAll(file.number(), content) &&
                            keepPermissions(file.number(), target) && ::fsync(file.number()) == 0 &&
                            file.takePlace();
    if (isReplaced)
        flushFolderOf(target);
    return isReplaced;
}

} // namespace vistrel::posix
