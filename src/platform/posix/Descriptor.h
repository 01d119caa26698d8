#pragma once

#include <unistd.h>
#include <utility>

namespace vistrel::posix {

/// An open file, or none. Closes it at its end.
class Descriptor {
  public:
    /// Takes over `number`, as a system call has answered it: a negative one is no file.
    explicit Descriptor(int number = -1) : number_(number) {}

    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }

    [[nodiscard]] bool isOpen() const { return number_ >= 0; }

    [[nodiscard]] int number() const { return number_; }

  private:
    int number_;
};

} // namespace vistrel::posix
