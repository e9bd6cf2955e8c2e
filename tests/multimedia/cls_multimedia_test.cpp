#include <gtest/gtest.h>

#include "multimedia/class_table.h"
#include "platform/drives.h"
#include "platform/sound.h"
#include "support/named_calls.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

/// Notes what it is sent, in the order of the calls.
struct RecordedSound : Sound {
    I4 mciSendStringA(const AnsiText& command, AnsiText& reply, I4 replyLength, I4 callback) override {
        sent.push_back(command.bytes + " <" + reply.bytes + '>' + std::to_string(replyLength + callback));
        return 263;  // nobody is told
    }
    I4 mciExecute(const AnsiText& command) override {
        sent.push_back(command.bytes);
        return 0;
    }
    I4 waveOutGetNumDevs() override { return devices; }

    std::vector<std::string> sent;
    I4 devices = 0;
};

/// A drive of each type, by letter.
struct KnownDrives : Drives {
    I4 GetDriveTypeA(const AnsiText& rootPath) override {
        ++asked;
        const std::string roots = "BACNDR";  // 1 to 6
        EXPECT_EQ(rootPath.bytes.substr(1), ":\\");
        const auto type = roots.find(rootPath.bytes[0]);
        return type == std::string::npos ? 0 : static_cast<I4>(type) + 1;
    }
    I4 GetVolumeInformationA(const AnsiText& rootPath, I4& serial, I4&, I4&) override {
        if (rootPath.bytes != "C:\\") return 0;
        serial = static_cast<I4>(0xCAFE1234U);
        return 1;
    }
    int asked = 0;
};

struct Multimedia : UserHome {
    VariantBool yes = True;
    VariantBool other = VariantBool::ofBits(1);
    RecordedSound sound;
    KnownDrives drives;
    Platform ours = platform.with(sound).with(drives);
    Cls_Multimedia object{ours};
};

TEST_F(Multimedia, CommandsAsTheyGoOut) {
    const std::string none(" <\0>0", 5);
    object.FermerCD();
    object.OuvrirCD();
    object.JouerUnWav(u"C:\\un \u00E9t\u00E9.wav");
    object.OuvrirMP3(u"C:\\a b.mp3", {});
    object.OuvrirMP3(u"x", other);
    object.OuvrirMP3(u"x", yes);
    object.PauseMP3();
    object.JouerMP3();
    object.StopMP3();
    EXPECT_EQ(sound.sent,
              (std::vector<std::string>{"Set cdaudio door closed wait" + none,
                                        "Set cdaudio door Open wait" + none, "play C:\\un \xE9t\xE9.wav",
                                        "Open C:\\a b.mp3 Alias Sonido <0>0", "Open x Alias Sonido <0>0",
                                        "Open x Alias Sonido <0>0", "Play sonido <0>0", "Stop sonido <0>0",
                                        "Play sonido <0>0", "Stop sonido <0>0", "Close sonido <0>0"}));
}

TEST_F(Multimedia, VolumeControlAndDevices) {
    ::testing::InSequence order;
    const auto minimised = WindowStyle::MinimizedFocus;
    EXPECT_CALL(services, launch(Bstr(u"sndvol32"), minimised));
    EXPECT_CALL(services, launch(Bstr(u"sndvol32 /t"), minimised)).Times(2);
    object.ReglageVolume(yes);
    object.ReglageVolume({});
    object.ReglageVolume(other);
    EXPECT_EQ(object.CarteSonPresente(), False);
    sound.devices = 2;
    EXPECT_EQ(object.CarteSonPresente(), True);
}

TEST_F(Multimedia, DrivesByTheirLetter) {
    const std::tuple<const char16_t*, I4> letters[] = {{u"B", 1}, {u"A", 2},      {u"C", 3},
                                                       {u"N", 4}, {u"D", 5},      {u"R", 6},
                                                       {u"c", 0}, {u"\u00E9", 0}, {u":", 0}};
    for (const auto& [letter, type] : letters) {
        EXPECT_EQ(object.TypePeripherique(letter), type);
        EXPECT_EQ(object.EstDisquette(letter), VariantBool(type == 2));
        EXPECT_EQ(object.EstDisqueDur(letter), VariantBool(type == 3));
        EXPECT_EQ(object.EstDisqueReseau(letter), VariantBool(type == 4));
        EXPECT_EQ(object.EstCDROM(letter), VariantBool(type == 5));
    }
    drives.asked = 0;
    for (const auto* refused : {u"", u"C:", u"C:\\", u"1", u"0", u"9"}) {
        EXPECT_EQ(object.TypePeripherique(refused), 0);
        EXPECT_EQ(object.EstDisqueDur(refused), False);
    }
    EXPECT_EQ(drives.asked, 0);
    const std::tuple<Bstr, I4, Bstr> serials[] = {
        {u"C:\\", static_cast<I4>(0xCAFE1234U), u"C:\\"}, {u"C", 0, u"C"}, {u"\u0416:\\", 0, u"J:\\"}};
    for (auto [root, serial, after] : serials) {
        EXPECT_EQ(object.NoSerieDisque(root), serial);
        EXPECT_EQ(root, after);
    }
}

TEST_F(Multimedia, RateOfAWavFile) {
    const auto rateOf = [&](const char* name, const std::string& bytes) {
        files.makeFile(name, std::string(24, '?') + bytes);
        return object.FrequenceFichierWAV(Bstr(fromUtf8("C:\\" + std::string(name))));
    };
    EXPECT_EQ(rateOf("a.WAV", "\x44\xAC\0\0"), -21436);
    EXPECT_EQ(rateOf("b.xwav", "\x80\xBB"), -17536);
    EXPECT_EQ(rateOf("c.wAv", "\x22\x56"), 22050);
    EXPECT_EQ(rateOf("d.wav", "\x07"), 7) << "the bytes that there are";
    EXPECT_EQ(rateOf("e.wav", ""), 0);
    EXPECT_EQ(rateOf("f.mp3", "\x44\xAC"), 0);
    EXPECT_EQ(object.FrequenceFichierWAV(u"C:\\neuf.wav"), 0);
    EXPECT_EQ(files.textOf("neuf.wav"), "");
    for (const auto& [path, error] : {std::pair(u"C:\\aucun\\a.wav", 76), std::pair(u"wa", 0)})
        EXPECT_EQ(errorOf([&, name = path] { object.FrequenceFichierWAV(name); }), error);
}

TEST_F(Multimedia, SizeOfTheScreen) {
    const std::tuple<I4, I4, I4, I4> rows[] = {// twips, twips in a pixel, pixels, error
                                               {15360, 15, 1024, 0},   {15359, 15, 1023, 0},
                                               {0, 15, 0, 0},          {32767 * 15, 15, 32767, 0},
                                               {32768 * 15, 15, 0, 6}, {15360, 0, 0, 11}};
    for (const auto& [twips, perPixel, pixels, error] : rows) {
        services.screenFacts.screenWidthTwips = twips;
        services.screenFacts.twipsPerPixelX = perPixel;
        services.screenFacts.screenHeightTwips = twips / 2;
        services.screenFacts.twipsPerPixelY = perPixel;
        I2 width = 0;
        EXPECT_EQ(errorOf([&] { width = object.ResolutionEcranX(); }), error);
        EXPECT_EQ(width, pixels);
        EXPECT_EQ(errorOf([&] { object.ResolutionEcranY(); }), error == 11 ? 11 : 0);
    }
}

TEST_F(Multimedia, CallsEveryMemberByName) {
    services.screenFacts.screenWidthTwips = services.screenFacts.screenHeightTwips = 15360;
    expectCallsOfEveryMethod<Cls_Multimedia>(ours, {gives(Empty(), u"FermerCD"),
                                                    gives(Empty(), u"OuvrirCD"),
                                                    gives(Empty(), u"JouerUnWav", u"a.wav"),
                                                    gives(Empty(), u"ReglageVolume"),
                                                    gives(Empty(), u"ReglageVolume", True),
                                                    gives(False, u"CarteSonPresente"),
                                                    gives(Empty(), u"OuvrirMP3", u"a"),
                                                    gives(Empty(), u"OuvrirMP3", u"a", True),
                                                    gives(Empty(), u"JouerMP3"),
                                                    gives(Empty(), u"StopMP3"),
                                                    gives(Empty(), u"PauseMP3"),
                                                    gives(I2{0}, u"FrequenceFichierWAV", u"a.mp3"),
                                                    gives(I4{0}, u"NoSerieDisque", u"C"),
                                                    gives(True, u"EstCDROM", u"D"),
                                                    gives(True, u"EstDisqueDur", u"C"),
                                                    gives(True, u"EstDisqueReseau", u"N"),
                                                    gives(True, u"EstDisquette", u"A"),
                                                    gives(I4{6}, u"TypePeripherique", u"R"),
                                                    gives(I2{1024}, u"ResolutionEcranX"),
                                                    gives(I2{1024}, u"ResolutionEcranY")});
}

}  // namespace
}  // namespace tovera::testing
