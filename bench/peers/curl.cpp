#include <cstdio>
#include <curl/curl.h>
#include <memory>

#include "peers/peers.h"

namespace bench {
namespace {

using Handle = std::unique_ptr<CURL, decltype([](CURL* handle) { curl_easy_cleanup(handle); })>;
using File = std::unique_ptr<FILE, decltype([](FILE* file) { std::fclose(file); })>;

/// As its users' first program has it: a handle, a URL and a file.
Loop download(std::string url, std::string path) {
    return loopOf([=] {
        const Handle handle(curl_easy_init());
        const File file(std::fopen(path.c_str(), "wb"));
        curl_easy_setopt(handle.get(), CURLOPT_URL, url.c_str());
        curl_easy_setopt(handle.get(), CURLOPT_WRITEDATA, file.get());
        return curl_easy_perform(handle.get());
    });
}

const Installed installed(curlDownload, download);

}  // namespace
}  // namespace bench
