#include "platform/sound.h"

#include <array>
#include <cstdlib>
#include <string>

#include "platform/windows/entry_point.h"
#include "platform/windows/system_sound.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

constexpr const wchar_t* winmm = L"winmm";

/// What a command in words answers; empty when it fails.
std::string answerTo(const std::string& command) {
    std::array<char, 260> answer{};
    const auto failed = callEntryPoint<&::mciSendStringA>(winmm, command.c_str(), answer.data(),
                                                          static_cast<UINT>(answer.size()), nullptr);
    return failed ? std::string() : answer.data();
}

/// A device's mode in words is one of the user's language, its number isn't.
bool plays(const std::string& device) {
    const auto id = callEntryPoint<&::mciGetDeviceIDA>(winmm, device.c_str());
    MCI_STATUS_PARMS status{};
    status.dwItem = MCI_STATUS_MODE;
    const auto failed = callEntryPoint<&::mciSendCommandA>(winmm, id, MCI_STATUS, MCI_STATUS_ITEM,
                                                           reinterpret_cast<DWORD_PTR>(&status));
    return failed == 0 && status.dwReturn == MCI_MODE_PLAY;
}

class WindowsSound : public Sound {
    I4 mciSendStringA(const AnsiText& command, AnsiText& reply, I4 replyLength, I4 /*callback*/) override {
        return callEntryPoint<&::mciSendStringA>(winmm, command, reply, replyLength, nullptr);
    }
    I4 mciExecute(const AnsiText& command) override { return callEntryPoint<&::mciExecute>(winmm, command); }
    I4 waveOutGetNumDevs() override { return callEntryPoint<&::waveOutGetNumDevs>(winmm); }
    Bstr failureText(I4 code) override {
        std::array<wchar_t, 256> text{};
        callEntryPoint<&::mciGetErrorStringW>(winmm, code, text.data(), static_cast<UINT>(text.size()));
        return Bstr(utf16(text.data()));
    }
    bool isPlaying() override {
        if (!GetModuleHandleW(winmm)) return false;  // nobody has asked for sound
        const int count = std::atoi(answerTo("sysinfo all quantity open").c_str());
        for (int i = 1; i <= count; ++i) {
            if (plays(answerTo("sysinfo all name " + std::to_string(i) + " open"))) return true;
        }
        return false;
    }
};

}  // namespace

Sound& homeSound() {
    static WindowsSound port;
    return port;
}

}  // namespace tovera
