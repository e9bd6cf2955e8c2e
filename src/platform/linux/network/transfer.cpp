#include "platform/linux/network/transfer.h"

#include "frame/error.h"

#if __has_include(<curl/curl.h>)

#include <csignal>
#include <cstdlib>
#include <memory>
#include <strings.h>

#include "platform/linux/network/curl_library.h"

namespace tovera {
namespace {

constexpr long mostRedirections = 20;
constexpr long bufferSize = 256 * 1024;

struct Clean {
    void operator()(CURL* handle) const { curl().easy_cleanup(handle); }
    void operator()(CURLU* url) const { curl().url_cleanup(url); }
};
using Handle = std::unique_ptr<CURL, Clean>;
using Url = std::unique_ptr<CURLU, Clean>;

bool isReady() {
    static const bool ready = curl().global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return ready;
}

/// Keeps a line that the other side has closed from ending the process: not every build of the library does.
class PipeSignalHeld {
  public:
    PipeSignalHeld() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) != 0;
        pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }
    PipeSignalHeld(const PipeSignalHeld&) = delete;
    PipeSignalHeld& operator=(const PipeSignalHeld&) = delete;
    ~PipeSignalHeld() {
        constexpr timespec atOnce{};
        while (!wasPending_ && sigtimedwait(&signal_, nullptr, &atOnce) == SIGPIPE) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

  private:
    sigset_t signal_{};
    sigset_t before_{};
    bool wasPending_ = false;
};

std::size_t write(char* bytes, std::size_t size, std::size_t count, void* file) {
    const auto length = size * count;
    return static_cast<NewFile*>(file)->append({bytes, length}) == 0 ? length : 0;
}

int tell(void* progress, curl_off_t total, curl_off_t received, curl_off_t, curl_off_t) {
    (*static_cast<const TransferProgress*>(progress))(static_cast<std::uint64_t>(received),
                                                      static_cast<std::uint64_t>(total));
    return 0;
}

/// The options of a transfer. One that the library doesn't know would be silently without effect, so each
/// counts.
class Options {
  public:
    explicit Options(CURL* handle) : handle_(handle) {}

    template <class Value>
    Options& set(CURLoption option, Value value) {
        allSet_ = allSet_ && curl().easy_setopt(handle_, option, value) == CURLE_OK;
        return *this;
    }
    /// What the library's own programs take from a variable, where it is set.
    Options& setFrom(CURLoption option, const char* variable) {
        const char* const value = std::getenv(variable);
        return value && *value ? set(option, value) : *this;
    }
    bool allSet() const { return allSet_; }

  private:
    CURL* handle_;
    bool allSet_ = true;
};

bool isSecured(const std::string& url) {
    constexpr std::string_view scheme = "https:";
    return strncasecmp(url.c_str(), scheme.data(), scheme.size()) == 0;
}

}  // namespace

bool transfer(const std::string& text, NewFile& file, const DownloadLimits& limits,
              const TransferProgress& progress) {
    if (!isReady()) return false;
    const Url url(curl().url());
    const Handle handle(curl().easy_init());
    if (!url || !handle ||
        curl().url_set(url.get(), CURLUPART_URL, text.c_str(), unsigned{CURLU_URLENCODE}) != CURLUE_OK)
        return false;
    Options options(handle.get());
    options.set(CURLOPT_CURLU, url.get())
        .set(CURLOPT_PROTOCOLS_STR, "http,https,ftp,ftps")
        .set(CURLOPT_REDIR_PROTOCOLS_STR, isSecured(text) ? "https" : "http,https")
        .set(CURLOPT_FOLLOWLOCATION, 1L)
        .set(CURLOPT_MAXREDIRS, mostRedirections)
        .set(CURLOPT_FAILONERROR, 1L)
        .set(CURLOPT_ACCEPT_ENCODING, "")
        .set(CURLOPT_NOSIGNAL, 1L)
        .set(CURLOPT_CONNECTTIMEOUT, limits.connecting)
        .set(CURLOPT_LOW_SPEED_LIMIT, 1L)
        .set(CURLOPT_LOW_SPEED_TIME, limits.stalled)
        .set(CURLOPT_BUFFERSIZE, bufferSize)
        .set(CURLOPT_USERAGENT, "tovera/1.0")
        .set(CURLOPT_WRITEFUNCTION, &write)
        .set(CURLOPT_WRITEDATA, static_cast<void*>(&file))
        .setFrom(CURLOPT_CAINFO, "SSL_CERT_FILE")
        .setFrom(CURLOPT_CAPATH, "SSL_CERT_DIR");
    if (progress) {
        options.set(CURLOPT_NOPROGRESS, 0L)
            .set(CURLOPT_XFERINFOFUNCTION, &tell)
            .set(CURLOPT_XFERINFODATA, static_cast<const void*>(&progress));
    }
    const PipeSignalHeld held;
    return options.allSet() && curl().easy_perform(handle.get()) == CURLE_OK;
}

}  // namespace tovera

#else  // built without libcurl

namespace tovera {

bool transfer(const std::string&, NewFile&, const DownloadLimits&, const TransferProgress&) {
    raise(ErrorNumber::FileNotFound);
}

}  // namespace tovera

#endif
