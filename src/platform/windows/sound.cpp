#include "platform/sound.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/system_sound.h"

namespace tovera {
namespace {

constexpr const wchar_t* winmm = L"winmm";

class WindowsSound : public Sound {
    I4 mciSendStringA(const AnsiText& command, AnsiText& reply, I4 replyLength, I4 /*callback*/) override {
        return callEntryPoint<&::mciSendStringA>(winmm, command, reply, replyLength, nullptr);
    }
    I4 mciExecute(const AnsiText& command) override { return callEntryPoint<&::mciExecute>(winmm, command); }
    I4 waveOutGetNumDevs() override { return callEntryPoint<&::waveOutGetNumDevs>(winmm); }
};

}  // namespace

Sound& homeSound() {
    static WindowsSound port;
    return port;
}

}  // namespace tovera
