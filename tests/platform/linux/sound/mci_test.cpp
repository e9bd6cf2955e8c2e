#include "platform/linux/sound/mci.h"

#include <future>
#include <gtest/gtest.h>
#include <linux/cdrom.h>

#include "platform/linux/sound/sound_devices.h"
#include "platform/linux/sound/tray.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(MciCommands, AreReadAsWindowsReadsThem) {
    const auto none = std::optional<std::string>();
    const std::pair<const char*, MciCommand> rows[] = {
        {"Open C:\\a.mp3 Alias Sonido", {MciVerb::Open, "C:\\a.mp3", none, "Sonido"}},
        {" oPEN \"C:\\un deux.mp3\" type MPEGVideo alias \"le son\" ",
         {MciVerb::Open, "C:\\un deux.mp3", "MPEGVideo", "le son"}},
        {"open \"a\"alias b", {MciVerb::Open, "a", none, "b"}},
        {"Play sonido", {MciVerb::Play, "sonido"}},
        {"STOP\tsonido", {MciVerb::Stop, "sonido"}},
        {"close x", {MciVerb::Close, "x"}},
        {"Set cdaudio door Open wait", {MciVerb::Set, "cdaudio", none, none, true}},
        {"Set CDAUDIO Door CLOSED", {MciVerb::Set, "CDAUDIO", none, none, false}}};
    for (const auto& [text, expected] : rows) {
        MciCommand command;
        EXPECT_EQ(readMciCommand(text, command), 0) << text;
        EXPECT_EQ(command, expected) << text;
    }
    const std::pair<const char*, I4> refused[] = {{"", 267},
                                                  {"   ", 267},
                                                  {"rewind x", 261},
                                                  {"play", 292},
                                                  {"play \"\"", 292},
                                                  {"open C:\\a b.mp3 Alias S", 259},
                                                  {"open a alias", 269},
                                                  {"open a type", 269},
                                                  {"play x y", 259},
                                                  {"stop x wait", 259},
                                                  {"play \"x", 301},
                                                  {"set cdaudio", 269},
                                                  {"set cdaudio door", 269},
                                                  {"set cdaudio door ajar", 259},
                                                  {"set cdaudio time format", 259},
                                                  {"set cdaudio door open wait wait", 259}};
    for (const auto& [text, code] : refused) {
        MciCommand command;
        EXPECT_EQ(readMciCommand(text, command), code) << text;
    }
}

TEST(Mci, RefusesWhatDoesNotFit) {
    UserFolder user;
    user.makeFile("dossier/a.wav", "no sound");
    Mci mci;
    const std::pair<const char*, I4> rows[] = {{"play sonido", 281},
                                               {"stop sonido", 263},
                                               {"close sonido", 263},
                                               {"set x door open", 263},
                                               {"open C:\\none.mp3 alias s", 275},
                                               {"open B:\\a.mp3 alias s", 275},
                                               {"open C:\\dossier\\a.wav type sequencer", 263}};
    for (const auto& [command, code] : rows) EXPECT_EQ(mci.send(command), code) << command;
    EXPECT_FALSE(mci.isPlaying());
}

/// A player that tells what it was told.
struct ScriptedPlayer : Player {
    explicit ScriptedPlayer(std::string& told) : told_(told) {}
    ~ScriptedPlayer() override { told_ += "closed "; }
    void play() override { told_ += "play ", playing_ = true; }
    void stop() override { told_ += "stop ", playing_ = false; }
    bool isPlaying() const override { return playing_; }

  private:
    std::string& told_;
    bool playing_ = false;
};

TEST(Mci, TellsItsPlayers) {
    std::string told;
    Mci mci([&](const std::string& file, AtEnd atEnd, I4& code) -> std::unique_ptr<Player> {
        told += file + (atEnd == AtEnd::Closes ? " once " : " open ");
        code = file == "bad.mp3" ? mci::cannotBeOpened : mci::success;
        return code ? nullptr : std::make_unique<ScriptedPlayer>(told);
    });
    const std::tuple<const char*, I4, const char*> rows[] = {
        {"Open bad.mp3 Alias Sonido", 277, "bad.mp3 open "},
        {"Open a.mp3 Alias Sonido", 0, "a.mp3 open "},
        {"Open b.mp3 Alias SONIDO", 289, ""},
        {"Play sonido", 0, "play "},
        {"Stop sonido", 0, "stop "},
        {"Play sonido", 0, "play "},
        {"play a.wav", 0, "a.wav once play "},
        {"Close sonido", 0, "stop closed "},
        {"Close sonido", 263, ""},
        {"Play sonido", 281, ""}};
    for (const auto& [command, code, expected] : rows) {
        told.clear();
        EXPECT_EQ(mci.send(command), code) << command;
        EXPECT_EQ(told, expected) << command;
    }
    EXPECT_TRUE(mci.isPlaying());
}

TEST(Mci, AFileThatIsSlowHoldsUpNobodyElse) {
    std::string told;
    std::promise<void> isBegun;
    std::promise<void> isReady;
    Mci mci([&](const std::string& file, AtEnd, I4& code) {
        if (file == "slow.mp3") {
            isBegun.set_value();
            isReady.get_future().wait();
        }
        code = mci::success;
        return std::make_unique<ScriptedPlayer>(told);
    });
    auto slow = std::async(std::launch::async, [&] { return mci.send("open slow.mp3 alias sonido"); });
    isBegun.get_future().wait();
    auto other = std::async(std::launch::async, [&] {
        return mci.send("open quick.mp3 alias sonido") + mci.send("play sonido") + (mci.isPlaying() ? 0 : 1);
    });
    EXPECT_EQ(other.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    isReady.set_value();
    EXPECT_EQ(other.get(), 0);
    EXPECT_EQ(slow.get(), 289) << "the name has gone to the first that was ready";
}

TEST(Tray, RequestsInTheirOrder) {
    UserFolder user;
    std::vector<unsigned long> sent;
    int answer = 0;
    const auto record = [&](int drive, unsigned long request) {
        EXPECT_GE(drive, 0);
        sent.push_back(request);
        return answer;
    };
    const OpticalDrives drives{
        {user.onC("dev"), user.onC("block"), user.onC("cdrom")}, user.onC("mounts"), record};
    EXPECT_EQ(moveTray(true, drives), 263);
    user.makeFile("cdrom", "CD-ROM information, Id: x\n\ndrive name:\t\tsr10\tsr2\tsr1\ndrive speed:\t24\n");
    EXPECT_EQ(moveTray(true, drives), 263) << "drives that this process doesn't see";
    user.makeFile("dev/sr10");
    user.makeFile("dev/sr2");
    EXPECT_EQ(opticalDrives(drives.folders), (std::vector<std::string>{"sr2", "sr10"}));
    EXPECT_EQ(moveTray(true, drives), 0);
    EXPECT_EQ(moveTray(false, drives), 0);
    EXPECT_EQ(sent, (std::vector<unsigned long>{CDROM_LOCKDOOR, CDROMEJECT, CDROMCLOSETRAY}));
    answer = -1;
    EXPECT_EQ(moveTray(true, drives), 276);
}

TEST(SoundDevices, OfTheKernelWithoutAServer) {
    UserFolder user;
    setenv("PULSE_SERVER", ("unix:" + user.onC("none")).c_str(), 1);
    user.makeFile(
        "pcm",
        "00-00: A : A : playback 1 : capture 1\n00-03: HDMI : HDMI : playback 1\n01-00: M : M : capture 1\n");
    EXPECT_EQ(soundDevices(user.onC("pcm")), 2);
    EXPECT_EQ(soundDevices(user.onC("none")), 0);
    unsetenv("PULSE_SERVER");
}

}  // namespace
}  // namespace tovera::testing
