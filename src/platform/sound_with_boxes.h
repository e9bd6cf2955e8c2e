#pragma once

#include "frame/services.h"
#include "platform/sound.h"

namespace tovera {

/// The sound of the home, for a host with message boxes of its own: failures are told in these.
class SoundWithBoxes : public Sound {
  public:
    SoundWithBoxes(Sound& home, Services& services) : home_(home), services_(services) {}

    I4 mciSendStringA(const AnsiText& command, AnsiText& reply, I4 replyLength, I4 callback) override {
        return home_.mciSendStringA(command, reply, replyLength, callback);
    }
    I4 mciExecute(const AnsiText& command) override {
        AnsiText noReply{{}, true};
        const I4 code = home_.mciSendStringA(command, noReply, 0, 0);
        if (code != 0) services_.messageBox(home_.failureText(code), messageFlags::plain, u"MCI");
        return code == 0 ? 1 : 0;
    }
    I4 waveOutGetNumDevs() override { return home_.waveOutGetNumDevs(); }
    bool isPlaying() override { return home_.isPlaying(); }
    Bstr failureText(I4 code) override { return home_.failureText(code); }

  private:
    Sound& home_;
    Services& services_;
};

}  // namespace tovera
