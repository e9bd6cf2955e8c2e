#include "platform/download.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/system_network.h"

namespace tovera {
namespace {

constexpr const wchar_t* urlmon = L"urlmon";

class WindowsDownload : public Download {
    I4 URLDownloadToFileA(I4 /*caller*/, const AnsiText& url, const AnsiText& file, I4 reserved,
                          I4 /*status*/) override {
        return callEntryPoint<&::URLDownloadToFileA>(urlmon, nullptr, url, file, reserved, nullptr);
    }
};

}  // namespace

Download& homeDownload() {
    static WindowsDownload port;
    return port;
}

}  // namespace tovera
