#include "platform/posix/CurlLibrary.h"

#include <dlfcn.h>

namespace vistrel::posix {

namespace {

/// Looks `name` up in `library`. Answers whether it is there.
template <typename Function> bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

} // namespace

std::optional<CurlLibrary> CurlLibrary::load(std::initializer_list<const char*> names) {
    for (const char* const name : names) {
        void* const library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        CurlLibrary curl{};
        if (library != nullptr && find(library, "curl_easy_init", curl.easyInit) &&
            find(library, "curl_easy_setopt", curl.easySetopt) &&
            find(library, "curl_easy_perform", curl.easyPerform) &&
            find(library, "curl_easy_getinfo", curl.easyGetinfo) &&
            find(library, "curl_easy_cleanup", curl.easyCleanup) &&
            find(library, "curl_slist_append", curl.slistAppend) &&
            find(library, "curl_slist_free_all", curl.slistFreeAll))
            return curl;
    }
    return std::nullopt;
}

} // namespace vistrel::posix
