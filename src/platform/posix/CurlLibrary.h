#pragma once

#include <curl/curl.h>

#include <initializer_list>
#include <optional>

namespace vistrel::posix {

/// The functions of libcurl that a download needs.
///
/// They are looked up when they are needed instead of being linked: the library brings more than
/// twenty others along, which would be loaded into every host, and most hosts never download
/// anything. Looking up seven functions needs less than a loadable module of our own, which would
/// have to be found beside the bundle's program and might be cut off like it.
struct CurlLibrary {
    decltype(&::curl_easy_init) easyInit;
    decltype(&::curl_easy_setopt) easySetopt;
    decltype(&::curl_easy_perform) easyPerform;
    decltype(&::curl_easy_getinfo) easyGetinfo;
    decltype(&::curl_easy_cleanup) easyCleanup;
    decltype(&::curl_slist_append) slistAppend;
    decltype(&::curl_slist_free_all) slistFreeAll;

    /// The builds of the library that will do. The one that uses GnuTLS comes first: GNUstep has
    /// GnuTLS in memory already.
    static constexpr std::initializer_list<const char*> builds = {"libcurl-gnutls.so.4",
                                                                  "libcurl.so.4"};

    /// The first of `names` that can be loaded, which then stays loaded. nullopt when none can.
    static std::optional<CurlLibrary> load(std::initializer_list<const char*> names = builds);
};

} // namespace vistrel::posix
