#pragma once

#include <curl/curl.h>

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of libcurl that a download calls. Either build of it serves.
struct CurlLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"libcurl.so.4", "libcurl-gnutls.so.4"};
    Bound<decltype(curl_global_init)> global_init{library, "curl_global_init"};
    Bound<decltype(curl_easy_init)> easy_init{library, "curl_easy_init"};
    Bound<decltype(curl_easy_setopt)> easy_setopt{library, "curl_easy_setopt"};
    Bound<decltype(curl_easy_perform)> easy_perform{library, "curl_easy_perform"};
    Bound<decltype(curl_easy_cleanup)> easy_cleanup{library, "curl_easy_cleanup"};
    Bound<decltype(curl_url)> url{library, "curl_url"};
    Bound<decltype(curl_url_set)> url_set{library, "curl_url_set"};
    Bound<decltype(curl_url_cleanup)> url_cleanup{library, "curl_url_cleanup"};
};

inline CurlLibrary& curl() {
    static CurlLibrary functions;
    return functions;
}

}  // namespace tovera
