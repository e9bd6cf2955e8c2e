#include "platform/linux/network/download.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>

#include "frame/last_error.h"
#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/file_url.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/network/progress_bar.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

// Answers, as the platform gives them for the same.
constexpr I4 fetched = 0;
constexpr I4 cannotBeFetched = static_cast<I4>(0x800C0008U);

/// A file of this machine, piece by piece. A pipe or a device is no such file.
bool copyFile(const std::string& path, NewFile& file) {
    const auto facts = factsOfTarget(path);
    if (!facts || !S_ISREG(facts->st_mode)) return false;
    const FileDescriptor source(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!source.isOpen()) return false;
    std::string buffer(std::size_t{256} * 1024, '\0');
    for (;;) {
        const auto count = read(source.get(), buffer.data(), buffer.size());
        if (count == 0) return true;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (file.append({buffer.data(), static_cast<std::size_t>(count)}) != 0) return false;
    }
}

class LinuxDownload : public Download {
  public:
    explicit LinuxDownload(const DownloadLimits& limits) : limits_(limits) {}

  private:
    I4 URLDownloadToFileA(I4 /*caller*/, const AnsiText& url, const AnsiText& file, I4 /*reserved*/,
                          I4 /*status*/) override {
        return fetch(textOf(url), foundHostPath(textOf(file))) ? fetched : cannotBeFetched;
    }
    void showProgress() override { isShown_ = true; }

    bool fetch(std::u16string_view url, const std::string& target) {
        NewFile file;
        lastError() = file.begin(target);
        if (url.empty() || lastError() != 0 || !fetchInto(url, file)) return false;
        lastError() = file.finish();
        return lastError() == 0;
    }
    bool fetchInto(std::u16string_view url, NewFile& file) {
        if (const auto path = pathOfUrl(url)) return copyFile(foundHostPath(*path), file);
        if (!isShown_ || !ProgressBar::hasTerminal()) return transfer(toUtf8(url), file, limits_, {});
        ProgressBar bar;
        return transfer(toUtf8(url), file, limits_, [&](auto... bytes) { bar.show(bytes...); });
    }

    DownloadLimits limits_;
    std::atomic<bool> isShown_ = false;
};

}  // namespace

std::unique_ptr<Download> makeDownload(const DownloadLimits& limits) {
    return std::make_unique<LinuxDownload>(limits);
}

Download& homeDownload() {
    static LinuxDownload port{DownloadLimits()};
    return port;
}

}  // namespace tovera
