#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <numbers>
#include <optional>
#include <thread>
#include <vector>

#include "frame/utf8.h"
#include "multimedia/cls_multimedia.h"
#include "platform/linux/own_display.h"
#include "platform/linux/temporary_folder.h"
#include "platform/sound.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

using namespace std::chrono_literals;

constexpr int rate = 44100;
constexpr double loudness = 20000;
constexpr double levelOfTone = loudness / std::numbers::sqrt2;

std::string wavOf(double seconds) {
    const auto frames = static_cast<std::uint32_t>(seconds * rate);
    std::string data;
    for (std::uint32_t i = 0; i < frames; ++i) {
        const auto sample =
            static_cast<std::int16_t>(loudness * std::sin(2 * std::numbers::pi * 440 * i / rate));
        data.append(reinterpret_cast<const char*>(&sample), sizeof sample);
    }
    const auto number = [](std::uint32_t value, std::size_t size) {
        return std::string(reinterpret_cast<const char*>(&value), size);
    };
    const auto size = static_cast<std::uint32_t>(data.size());
    return "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) + number(1, 2) +
           number(rate, 4) + number(2 * rate, 4) + number(2, 2) + number(16, 2) + "data" + number(size, 4) +
           data;
}

/// A sound server of the test's own, whose only device plays into nothing, and a recorder of what it plays.
struct Heard : ::testing::Test {
    void SetUp() override {
        for (const auto* const program : {"pulseaudio", "parec", "pactl", "sox"})
            if (!machineHas(program)) GTEST_SKIP() << program << " isn't installed";
        setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
        setenv("PULSE_SERVER", ("unix:" + (folder / "pulse.socket")).c_str(), 1);
        server.emplace(std::vector<std::string>{
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "-L",
            "module-null-sink sink_name=ears rate=44100", "-L",
            "module-native-protocol-unix auth-anonymous=1 socket=" + (folder / "pulse.socket")});
        ASSERT_TRUE(comesTrue([] { return std::system("pactl info >/dev/null 2>&1") == 0; }));
    }
    void TearDown() override {
        server.reset();
        unsetenv("PULSE_SERVER");
        runtime.empty() ? unsetenv("XDG_RUNTIME_DIR") : setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    }

    /// Records while work runs; the seconds from the first to the last audible sample, whose level is kept.
    template <class Work>
    double secondsHeard(Work&& work) {
        const auto file = folder / "heard.raw";
        RunningProgram recorder({"parec", "--device=ears.monitor", "--format=s16le", "--channels=1",
                                 "--rate=44100", "--latency-msec=20", file});
        EXPECT_TRUE(comesTrue([&] { return contentOf(file).size() > 4000; }));
        work();
        std::this_thread::sleep_for(300ms);  // what is on its way
        recorder.end();
        const auto bytes = contentOf(file);
        std::vector<std::int16_t> samples(bytes.size() / 2);
        std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
        const auto isLoud = [](int sample) { return std::abs(sample) > 2000; };
        const auto first = std::ranges::find_if(samples, isLoud);
        const auto last = std::find_if(samples.rbegin(), samples.rend(), isLoud);
        double squares = 0;
        int heard = 0;  // a busy machine leaves gaps between
        for (const double sample : samples) {
            if (std::abs(sample) < loudness / 50) continue;
            squares += sample * sample;
            ++heard;
        }
        level = heard > 0 ? std::sqrt(squares / heard) : 0;
        return first == samples.end() ? 0 : static_cast<double>(last.base() - first) / rate;
    }
    static bool ends() {
        return comesTrue([] { return !homeSound().isPlaying(); });
    }
    Bstr fileOf(const std::string& name, double seconds) {
        std::ofstream(folder / name, std::ios::binary) << wavOf(seconds);
        return Bstr(fromUtf8(folder / name));
    }

    double level = 0;
    const char* const before = std::getenv("XDG_RUNTIME_DIR");
    std::string runtime = before ? before : "";
    TemporaryFolder folder;
    std::optional<RunningProgram> server;
    Cls_Multimedia object;
};

TEST_F(Heard, AWavPlaysToItsEnd) {
    EXPECT_EQ(object.CarteSonPresente(), True);
    const auto file = fileOf("la.wav", 1.0);
    const auto seconds = secondsHeard([&] {
        object.JouerUnWav(file);
        EXPECT_TRUE(homeSound().isPlaying()) << "the call returns at once";
        EXPECT_TRUE(ends());
    });
    EXPECT_NEAR(level, levelOfTone, levelOfTone / 20);
    EXPECT_GT(seconds, 0.9);
    EXPECT_LT(seconds, 3.0);
}

TEST_F(Heard, AnMp3GoesOnWhereItWasStopped) {
    fileOf("la.wav", 2.0);
    const auto mp3 = folder / "la.mp3";
    if (std::system(("sox " + (folder / "la.wav") + " " + mp3 + " 2>/dev/null").c_str()) != 0)
        GTEST_SKIP() << "sox writes no MP3 here";
    const Bstr file(fromUtf8(mp3));
    const auto heard = [&](auto&& work) { return secondsHeard(work); };
    const auto first = heard([&] {
        object.OuvrirMP3(file, {});
        object.JouerMP3();
        std::this_thread::sleep_for(800ms);
        object.PauseMP3();
        EXPECT_TRUE(ends());
    });
    EXPECT_EQ(heard([] { std::this_thread::sleep_for(500ms); }), 0.0) << "paused is quiet";
    const auto rest = heard([&] {
        object.JouerMP3();
        EXPECT_TRUE(ends());
    });
    EXPECT_NEAR(level, levelOfTone, levelOfTone / 10);
    EXPECT_GT(first, 0.2);
    EXPECT_GT(rest, 0.2);
    EXPECT_GT(first + rest, 1.7);
    EXPECT_LT(first + rest, 4.0);
    EXPECT_EQ(heard([&] {
                  object.JouerMP3();
                  object.StopMP3();
                  object.JouerMP3();  // nothing is open any more
                  std::this_thread::sleep_for(500ms);
              }) < 0.5,
              true);
}

}  // namespace
}  // namespace tovera::testing
