#pragma once

#include "platform/posix/Descriptor.h"

#include <string>

namespace vistrel::posix {

/// An empty file beside another one, made to take its place.
///
/// Its name is always the same, so what is left of a writer that was killed is taken up by the next
/// one. A lock tells whether its writer is still at work; whoever comes meanwhile gets a file with
/// a name of its own, because nobody may wait for somebody else's application.
class TemporaryFile {
  public:
    /// isOpen() tells whether there is one.
    explicit TemporaryFile(std::string target);

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    TemporaryFile(TemporaryFile&&) = delete;
    TemporaryFile& operator=(TemporaryFile&&) = delete;

    /// Removes the file, unless it has taken the target's place.
    ~TemporaryFile();

    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    [[nodiscard]] int number() const { return file_.number(); }

    /// Gives the file the target's name; the target's old content is gone with that. Answers
    /// whether it could be done.
    bool takePlace();

  private:
    bool openShared();
    bool openOwn();

    std::string target_;
    std::string path_;
    Descriptor file_;
    bool isInPlace_ = false;
};

} // namespace vistrel::posix
