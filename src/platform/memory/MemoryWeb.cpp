#include "platform/memory/MemoryWeb.h"

namespace vistrel::memory {

void MemoryWeb::removeAllCachedResponses() {
    log_.record("removeAllCachedResponses");
}

std::optional<std::string> MemoryWeb::textAtURL(const std::string& url) {
    log_.record("textAtURL ", url);
    if (answers.empty())
        return std::nullopt;
    auto answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

} // namespace vistrel::memory
