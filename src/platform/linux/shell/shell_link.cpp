#include "platform/linux/shell/shell_link.h"

#include <array>
#include <cstdint>

#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

using namespace std::string_view_literals;

// Numbers stand with their lowest byte first.

constexpr std::string_view classId = "\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46"sv;
constexpr std::size_t headerSize = 0x4C;
constexpr std::size_t placeOfFlags = 0x14;

namespace flags {
constexpr std::uint32_t idList = 0x1;
constexpr std::uint32_t linkInfo = 0x2;
constexpr std::uint32_t name = 0x4;
constexpr std::uint32_t relativePath = 0x8;
constexpr std::uint32_t workingFolder = 0x10;
constexpr std::uint32_t arguments = 0x20;
constexpr std::uint32_t isUnicode = 0x80;
}  // namespace flags

/// Of the part that tells the target's place: its header with offsets of both paths, in ANSI and in Unicode.
constexpr std::uint32_t infoHeaderSize = 0x24;
constexpr std::uint32_t localPath = 1;

void addNumber(std::string& bytes, std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
}

void addUnits(std::string& bytes, std::u16string_view text) {
    for (const char16_t unit : text) addNumber(bytes, unit, 2);
}

/// A text with its length in front.
void addCounted(std::string& bytes, std::u16string_view text) {
    addNumber(bytes, static_cast<std::uint32_t>(text.size()), 2);
    addUnits(bytes, text);
}

/// A fixed disk without a name.
std::string volume() {
    constexpr std::uint32_t size = 0x11;
    constexpr std::uint32_t fixedDisk = 3;
    std::string bytes;
    for (const auto number : {size, fixedDisk, 0U, 0x10U}) addNumber(bytes, number, 4);
    return bytes + '\0';
}

std::string placeOf(std::u16string_view target) {
    const auto disk = volume();
    const auto ansi = toAnsi1252(target) + '\0';
    const auto path = infoHeaderSize + static_cast<std::uint32_t>(disk.size());
    const auto suffix = path + static_cast<std::uint32_t>(ansi.size());
    const auto widePath = suffix + 1;
    const auto wideSuffix = widePath + 2 * (static_cast<std::uint32_t>(target.size()) + 1);
    std::string bytes;
    for (const auto number :
         {wideSuffix + 2, infoHeaderSize, localPath, infoHeaderSize, path, 0U, suffix, widePath, wideSuffix})
        addNumber(bytes, number, 4);
    bytes += disk + ansi + '\0';
    addUnits(bytes, target);
    addNumber(bytes, 0, 2);  // behind the path
    addNumber(bytes, 0, 2);  // the empty suffix
    return bytes;
}

/// Reads from the front; what isn't there any more gives nothing, and shows in `failed`.
struct Reader {
    std::string_view bytes;
    bool failed = false;

    std::string_view take(std::size_t size) {
        failed = failed || size > bytes.size();
        const auto taken = bytes.substr(0, failed ? 0 : size);
        bytes.remove_prefix(taken.size());
        return taken;
    }
    std::uint32_t number(std::size_t size) {
        std::uint32_t number = 0;
        int place = 0;
        for (const char byte : take(size))
            number |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << (8 * place++);
        return number;
    }
    std::u16string units(std::size_t count) {
        std::u16string text;
        for (std::size_t i = 0; i < count && !failed; ++i) text += static_cast<char16_t>(number(2));
        return text;
    }
};

std::u16string ansiAt(std::string_view part, std::uint32_t place) {
    if (place == 0 || place >= part.size()) return {};
    return fromAnsi1252(part.substr(place, part.substr(place).find('\0')));
}

std::u16string wideAt(std::string_view part, std::uint32_t place) {
    std::u16string text;
    Reader reader{part.substr(std::min<std::size_t>(place, part.size()))};
    for (char16_t unit = 1; place != 0;) {
        unit = static_cast<char16_t>(reader.number(2));
        if (unit == 0 || reader.failed) break;
        text += unit;
    }
    return text;
}

std::u16string targetIn(std::string_view part) {
    Reader reader{part};
    std::array<std::uint32_t, 9> numbers{};
    for (auto& number : numbers) number = reader.number(4);
    const auto [size, header, kind, disk, path, network, suffix, widePath, wideSuffix] = numbers;
    if ((kind & localPath) == 0) return {};
    if (header >= infoHeaderSize && widePath != 0) return wideAt(part, widePath) + wideAt(part, wideSuffix);
    return ansiAt(part, path) + ansiAt(part, suffix);
}

}  // namespace

std::string linkBytes(const ShellLink& link) {
    constexpr std::uint32_t normalFile = 0x20;
    constexpr std::uint32_t normalWindow = 1;
    std::string bytes;
    addNumber(bytes, headerSize, 4);
    bytes += classId;
    addNumber(bytes, flags::linkInfo | flags::workingFolder | flags::arguments | flags::isUnicode, 4);
    addNumber(bytes, normalFile, 4);
    constexpr std::size_t timesSizeAndIcon = 3 * 8 + 4 + 4;
    bytes.append(timesSizeAndIcon, '\0');
    addNumber(bytes, normalWindow, 4);
    bytes.resize(headerSize);
    bytes += placeOf(link.target);
    addCounted(bytes, link.folder);
    addCounted(bytes, link.arguments);
    addNumber(bytes, 0, 4);  // nothing more
    return bytes;
}

std::optional<ShellLink> readLink(std::string_view bytes) {
    if (bytes.size() < headerSize || bytes.substr(4, classId.size()) != classId) return std::nullopt;
    const auto present = Reader{bytes.substr(placeOfFlags)}.number(4);
    Reader reader{bytes.substr(headerSize)};
    const auto has = [&](std::uint32_t flag) { return (present & flag) != 0; };
    const auto text = [&] {
        const auto count = reader.number(2);
        return has(flags::isUnicode) ? reader.units(count) : fromAnsi1252(reader.take(count));
    };
    ShellLink link;
    if (has(flags::idList)) reader.take(reader.number(2));
    if (has(flags::linkInfo)) {
        const auto size = Reader{reader.bytes}.number(4);
        link.target = targetIn(reader.take(size));
    }
    for (const auto skipped : {flags::name, flags::relativePath})
        if (has(skipped)) text();
    if (has(flags::workingFolder)) link.folder = text();
    if (has(flags::arguments)) link.arguments = text();
    if (reader.failed || link.target.empty()) return std::nullopt;
    return link;
}

}  // namespace tovera
