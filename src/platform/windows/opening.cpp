#include "platform/opening.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_opening.h"

namespace tovera {
namespace {

constexpr const wchar_t* shell32 = L"shell32";

class WindowsOpening : public Opening {
    I4 GetDesktopWindow() override { return numberOfHandle(callEntryPoint<&::GetDesktopWindow>(user32)); }
    I4 ShellExecuteA(I4 window, const AnsiText& verb, const AnsiText& file, const AnsiText& parameters,
                     const AnsiText& folder, I4 show) override {
        return numberOfHandle(callEntryPoint<&::ShellExecuteA>(shell32, handleOf<HWND>(window), verb, file,
                                                               parameters, folder, show));
    }
};

}  // namespace

Opening& homeOpening() {
    static WindowsOpening port;
    return port;
}

}  // namespace tovera
