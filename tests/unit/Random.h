#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

namespace vistrel {

/// The distributions of the standard library differ from one to another; a seed must not.
class Random {
  public:
    /// `source` answers any number at all, each time it is asked.
    explicit Random(std::function<std::uint64_t()> source) : source_(std::move(source)) {}

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(source_() % limit); }

    int between(int first, int last) {
        const auto count = static_cast<std::size_t>(last - first) + 1;
        return first + static_cast<int>(below(count));
    }

    bool oneIn(std::size_t count) { return below(count) == 0; }

    /// A number in the range, half of them whole.
    double number(int first, int last) {
        const double whole = between(first, last);
        return oneIn(2) ? whole : whole + static_cast<double>(below(1000)) / 1000;
    }

    template <typename T, std::size_t size> T pick(const std::array<T, size>& values) {
        return values[below(size)];
    }

  private:
    std::function<std::uint64_t()> source_;
};

} // namespace vistrel
