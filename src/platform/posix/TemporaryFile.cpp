#include "platform/posix/TemporaryFile.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace vistrel::posix {

namespace {

/// Whether `file` still has this name: its writer may have given it the target's before we locked
/// it.
bool isNamed(int file, const std::string& path) {
    struct stat open {};

    struct stat named {};

    return ::fstat(file, &open) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino && S_ISREG(open.st_mode);
}

} // namespace

TemporaryFile::TemporaryFile(std::string target) : target_(std::move(target)) {
    if (!openShared() && !openOwn())
        file_ = Descriptor();
}

TemporaryFile::~TemporaryFile() {
    if (isOpen() && !isInPlace_)
        ::unlink(path_.c_str());
}

bool TemporaryFile::takePlace() {
    isInPlace_ = ::rename(path_.c_str(), target_.c_str()) == 0;
    return isInPlace_;
}

bool TemporaryFile::openShared() {
    constexpr int flags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    constexpr ::mode_t ofItsUserAlone = 0600;
    path_ = target_ + ".new";
    file_ = Descriptor(::open(path_.c_str(), flags, ofItsUserAlone));
    return isOpen() && ::flock(number(), LOCK_EX | LOCK_NB) == 0 && isNamed(number(), path_) &&
           ::ftruncate(number(), 0) == 0 && ::fchmod(number(), ofItsUserAlone) == 0;
}

bool TemporaryFile::openOwn() {
    path_ = target_ + ".XXXXXX";
    file_ = Descriptor(::mkostemp(path_.data(), O_CLOEXEC));
    return isOpen();
}

} // namespace vistrel::posix
