#include "platform/home_services.h"
#include "platform/windows/com_pointer.h"
#include "platform/windows/incoming_values.h"
#include "platform/windows/launch.h"
#include "platform/windows/module.h"
#include "platform/windows/regional.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

/// The screen's device, for its resolution.
class Screen {
  public:
    Screen() : device_(GetDC(nullptr)) {}
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { ReleaseDC(nullptr, device_); }

    /// There are 1440 twips in an inch.
    I4 twipsPerPixel(int dotsPerInch) const {
        const int dots = GetDeviceCaps(device_, dotsPerInch);
        return dots > 0 ? 1440 / dots : 15;
    }

  private:
    HDC device_;
};

/// Characters that only look like others have no ANSI form. With UTF-8 for ANSI, all have one.
DWORD ansiFlags() {
    return GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
}

/// The services of this home, on the system's own.
class WindowsServices : public Services {
  public:
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;
    R8 launch(const Bstr& commandLine, WindowStyle style) override;
    ObjectRef createObject(std::u16string_view progId) override;
    ComponentFacts facts() override;
    ScreenFacts screen() override;
    RegionalSettings regionalSettings() override;
    std::string toAnsi(std::u16string_view text) override;
    std::u16string fromAnsi(std::string_view bytes) override;
    void pumpMessages() override;
};

I4 WindowsServices::messageBox(const Bstr& text, I4 flags, const Bstr& title) {
    return MessageBoxW(GetActiveWindow(), wide(text).c_str(), wide(title).c_str(), static_cast<UINT>(flags));
}

R8 WindowsServices::launch(const Bstr& commandLine, WindowStyle style) {
    return launchProgram(commandLine, style);
}

ObjectRef WindowsServices::createObject(std::u16string_view progId) {
    const auto name = wide(progId);
    CLSID classId;
    ComPointer<IDispatch> created;
    HRESULT status = CLSIDFromProgID(name.c_str(), &classId);
    if (SUCCEEDED(status)) {
        void* found = nullptr;
        status = CoCreateInstance(classId, nullptr, CLSCTX_SERVER, IID_IDispatch, &found);
        *created.out() = static_cast<IDispatch*>(found);
    }
    if (FAILED(status) || !created) raise(ErrorNumber::CannotCreateObject);
    return objectOf(created.get());
}

ComponentFacts WindowsServices::facts() {
    const auto file = ownFileName();
    const auto name = file.find_last_of(L'\\') + 1;
    ComponentFacts facts;
    facts.folder = utf16(std::wstring_view(file).substr(0, name ? name - 1 : 0));
    const auto stem = file.substr(name, file.find_last_of(L'.') - name);
    facts.fileName = utf16(stem);
    facts.moduleHandle = static_cast<I4>(reinterpret_cast<std::intptr_t>(ownModule()));
    return facts;
}

ScreenFacts WindowsServices::screen() {
    const Screen screen;
    ScreenFacts facts;
    facts.twipsPerPixelX = screen.twipsPerPixel(LOGPIXELSX);
    facts.twipsPerPixelY = screen.twipsPerPixel(LOGPIXELSY);
    facts.screenWidthTwips = GetSystemMetrics(SM_CXSCREEN) * facts.twipsPerPixelX;
    facts.screenHeightTwips = GetSystemMetrics(SM_CYSCREEN) * facts.twipsPerPixelY;
    return facts;
}

RegionalSettings WindowsServices::regionalSettings() {
    return userRegionalSettings();
}

std::string WindowsServices::toAnsi(std::u16string_view text) {
    const auto* const units = reinterpret_cast<const wchar_t*>(text.data());
    const auto count = static_cast<int>(text.size());
    if (count == 0) return {};
    const DWORD flags = ansiFlags();
    const int size = WideCharToMultiByte(CP_ACP, flags, units, count, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, flags, units, count, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::u16string WindowsServices::fromAnsi(std::string_view bytes) {
    const auto count = static_cast<int>(bytes.size());
    if (count == 0) return {};
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, nullptr, 0);
    std::u16string text(static_cast<std::size_t>(size), u'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, reinterpret_cast<wchar_t*>(text.data()), size);
    return text;
}

void WindowsServices::pumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        // The host's own loop is to end, not this one. Taken out and put back, it would end each wait for
        // input.
        if (message.message == WM_QUIT) return;
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

Services& homeServices() {
    static WindowsServices services;
    return services;
}

}  // namespace tovera
