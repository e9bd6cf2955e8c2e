#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "client/invocation.h"

// What the system's own players make of the commands: the device writes what it plays into a file.
namespace tovera::client {
namespace {

constexpr int rate = 44100;
constexpr double loudness = 12000;

void append(std::string& bytes, std::uint32_t number, std::size_t size) {
    bytes.append(reinterpret_cast<const char*>(&number), size);
}

/// A WAV file of one tone.
void writeWav(const std::filesystem::path& path, double seconds) {
    const auto frames = static_cast<std::uint32_t>(seconds * rate);
    std::string bytes = "RIFF";
    append(bytes, 36 + 2 * frames, 4);
    bytes += "WAVEfmt ";
    for (const auto& [number, size] :
         {std::pair<unsigned, unsigned>{16, 4}, {1, 2}, {1, 2}, {rate, 4}, {2 * rate, 4}, {2, 2}, {16, 2}})
        append(bytes, number, size);
    bytes += "data";
    append(bytes, 2 * frames, 4);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const auto sample = std::lround(loudness * std::sin(2 * std::numbers::pi * 440 * i / rate));
        append(bytes, static_cast<std::uint32_t>(sample), 2);
    }
    std::ofstream(path, std::ios::binary) << bytes;
}

/// What has come out once nothing follows, from the first to the last audible sample.
std::vector<std::int16_t> heard() {
    const std::filesystem::path file = "heard.raw";
    std::uintmax_t size = 0;
    std::error_code none;
    for (int quiet = 0, tries = 0; quiet < 10 && tries < 200; ++tries) {
        Sleep(100);
        const auto now = std::filesystem::file_size(file, none);
        quiet = now == size && !none && now > 0 ? quiet + 1 : 0;
        size = now;
    }
    std::vector<std::int16_t> samples(none ? 0 : static_cast<std::size_t>(size / 2));
    std::ifstream(file, std::ios::binary)
        .read(reinterpret_cast<char*>(samples.data()), static_cast<std::streamsize>(samples.size() * 2));
    const auto isAudible = [](int sample) { return std::abs(sample) > 300; };
    const auto first = std::find_if(samples.begin(), samples.end(), isAudible);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), isAudible).base();
    return first < last ? std::vector(first, last) : std::vector<std::int16_t>();
}

TEST(Heard, AWavFromItsStartToItsEnd) {
    std::filesystem::create_directories(L"C:\\client");
    writeWav(L"C:\\client\\la.wav", 1.5);
    const auto multimedia = Component::loaded().create<Cls_Multimedia, IDispatch>();
    expectResult(multimedia.get(), L"CarteSonPresente", {}, Value::truth(true));
    expectResult(multimedia.get(), L"JouerUnWav", {L"C:\\client\\la.wav"}, {});
    const auto samples = heard();
    EXPECT_NEAR(static_cast<double>(samples.size()) / rate, 1.5, 0.05);
    double squares = 0;
    for (const double sample : samples) squares += sample * sample;
    EXPECT_NEAR(std::sqrt(squares / static_cast<double>(samples.size())), loudness / std::numbers::sqrt2,
                loudness / 50);
}

}  // namespace
}  // namespace tovera::client
