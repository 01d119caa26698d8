#pragma once

#include <functional>
#include <vector>

namespace vistrel::memory {

/// The time of a desktop. It passes only when somebody lets it.
class MemoryClock {
  public:
    /// Keeps `call` until `seconds` have passed.
    void add(double seconds, std::function<void()> call);

    /// Lets `seconds` pass and makes every call that is due, in the order of their times, those
    /// added meanwhile too.
    void advance(double seconds);

  private:
    struct Pending {
        double time;
        std::function<void()> call;
    };

    double now_ = 0;
    std::vector<Pending> pending_;
};

} // namespace vistrel::memory
