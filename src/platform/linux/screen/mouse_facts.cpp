#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <linux/input-event-codes.h>
#include <vector>

#include "platform/linux/screen/pointer.h"

// What is known of mice without a display, and what desktops tell of them.
namespace tovera {
namespace {

/// Words of a set of bits, as the system writes them: hexadecimal, the highest first.
std::vector<unsigned long> wordsOf(const std::filesystem::path& file) {
    std::ifstream in(file);
    in >> std::hex;
    std::vector<unsigned long> words;
    for (unsigned long word = 0; in >> word;) words.insert(words.begin(), word);
    return words;
}

I4 buttonsOf(const std::filesystem::path& capabilities) {
    constexpr unsigned bitsOfWord = 8 * sizeof(long);
    const auto keys = wordsOf(capabilities / "key");
    I4 count = 0;
    for (unsigned button = BTN_LEFT; button <= BTN_TASK; ++button) {
        const auto word = button / bitsOfWord;
        if (word < keys.size() && (keys[word] >> (button % bitsOfWord) & 1U) != 0) ++count;
    }
    return count;
}

/// A number as the owner of the settings has written it.
class SettingsReader {
  public:
    explicit SettingsReader(std::string_view bytes) : bytes_(bytes) {
        isBigEndian_ = !bytes_.empty() && bytes_[0] == 1;
        skip(8);  // the order of bytes, padding, and a serial number
    }
    bool isOk() const { return isOk_; }
    std::uint32_t number(std::size_t size) {
        const auto digits = text(size);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < digits.size(); ++i) {
            const auto byte = static_cast<std::uint8_t>(digits[isBigEndian_ ? i : digits.size() - 1 - i]);
            value = value << 8U | byte;
        }
        return value;
    }
    std::string_view text(std::size_t size) {
        isOk_ = isOk_ && size <= bytes_.size();
        const auto part = isOk_ ? bytes_.substr(0, size) : std::string_view();
        bytes_.remove_prefix(part.size());
        return part;
    }
    void skip(std::size_t size) { text(size); }

  private:
    std::string_view bytes_;
    bool isBigEndian_ = false;
    bool isOk_ = true;
};

constexpr std::size_t padded(std::size_t size) {
    return (size + 3) / 4 * 4;
}

}  // namespace

std::optional<I4> settingIn(std::string_view settings, std::string_view name) {
    enum Type : std::uint32_t { Integer, Text, Colour };
    SettingsReader reader(settings);
    for (auto left = reader.number(4); left > 0 && reader.isOk(); --left) {
        const auto type = reader.number(1);
        reader.skip(1);
        const auto length = reader.number(2);
        const auto found = reader.text(padded(length)).substr(0, length);
        reader.skip(4);  // the serial number of its last change
        if (type == Integer) {
            const auto value = reader.number(4);
            if (found == name && reader.isOk()) return static_cast<I4>(value);
        } else {
            reader.skip(type == Text ? padded(reader.number(4)) : 8);
        }
    }
    return std::nullopt;
}

std::optional<I4> mouseButtons(const std::string& inputDevices) {
    I4 most = 0;
    std::error_code ignored;
    for (const auto& device : std::filesystem::directory_iterator(inputDevices, ignored)) {
        const auto capabilities = device.path() / "capabilities";
        const auto moves = wordsOf(capabilities / "rel");
        if (std::ranges::any_of(moves, [](auto word) { return word != 0; }))
            most = std::max(most, buttonsOf(capabilities));
    }
    return most > 0 ? std::optional(most) : std::nullopt;
}

}  // namespace tovera
