#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Sound and the CD tray, of `winmm`. Results are codes of the Media Control Interface, 0 for success.
struct Sound : Port<Sound> {
    /// Sends a command in words. The reply, if any is wanted, has this length.
    virtual I4 mciSendStringA(const AnsiText& command, AnsiText& reply, I4 replyLength, I4 callback) {
        return missingEntryPoint(command, reply, replyLength, callback);
    }
    /// Sends a command in words, and tells the user of a failure. Nonzero on success.
    virtual I4 mciExecute(const AnsiText& command) { return missingEntryPoint(command); }
    /// The number of devices that sound can come out of.
    virtual I4 waveOutGetNumDevs() { return missingEntryPoint(); }

    /// Whether what this process has started is still to be heard. Who is about to end may wait for it.
    virtual bool isPlaying() { return false; }
    /// A code in words for the user.
    virtual Bstr failureText(I4 /*code*/) { return {}; }
};

Sound& homeSound();

}  // namespace tovera
