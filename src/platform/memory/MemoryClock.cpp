#include "platform/memory/MemoryClock.h"

#include <algorithm>
#include <utility>

namespace vistrel::memory {

void MemoryClock::add(double seconds, std::function<void()> call) {
    pending_.push_back({now_ + seconds, std::move(call)});
}

void MemoryClock::advance(double seconds) {
    const auto end = now_ + seconds;
    while (true) {
        const auto next = std::ranges::min_element(pending_, {}, &Pending::time);
        if (next == pending_.end() || next->time > end)
            break;
        now_ = next->time;
        const auto call = std::move(next->call);
        pending_.erase(next);
        call();
    }
    now_ = end;
}

} // namespace vistrel::memory
