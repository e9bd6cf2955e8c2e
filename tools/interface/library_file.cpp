#include "interface/library_file.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "catalogue/catalogue.h"
#include "catalogue/library_facts.h"
#include "frame/records.h"
#include "frame/utf8.h"
#include "interface/idl_text.h"
#include "platform/platform.h"

namespace tovera::tools {
namespace {

/// The parts of the file format that are touched here. All numbers are little-endian.
namespace format {
constexpr std::uint32_t signature = 0x5446534D;
constexpr std::size_t kind = 0x14;
constexpr std::uint32_t kindMask = 0xF;
constexpr std::uint32_t kind64Bits = 3;
constexpr std::size_t typeCount = 0x20;
constexpr std::size_t afterHeader = 0x54;  ///< an offset for each type, then the directory of segments
constexpr std::size_t segmentEntry = 16;   ///< offset, length, two reserved numbers
constexpr std::size_t typesSegment = 0;
constexpr std::size_t namesSegment = 7;
constexpr std::size_t textsSegment = 8;
constexpr std::size_t typeSize = 0x64;
// Within a type.
constexpr std::size_t members = 0x04;
constexpr std::size_t functionCount = 0x18;
constexpr std::size_t name = 0x34;
constexpr std::size_t help = 0x3C;
constexpr std::size_t slotsSize = 0x4E;
// Within a function's record.
constexpr std::size_t slotOffset = 0x0C;
// Within a name.
constexpr std::size_t nameLength = 8;
constexpr std::size_t nameText = 12;
// Of a text, a length of two bytes stands in front.
constexpr std::size_t textStart = 2;
constexpr std::size_t smallestText = 8;
}  // namespace format

/// Slots in front of the members.
constexpr std::size_t standardSlots = 7;

class LibraryFile {
  public:
    explicit LibraryFile(std::string bytes) : bytes_(std::move(bytes)) {
        if (read<std::uint32_t>(0) != format::signature) throw std::runtime_error("not a type library");
    }

    const std::string& bytes() const { return bytes_; }

    template <class T>
    T read(std::size_t place) const {
        T value{};
        if (place + sizeof value > bytes_.size()) throw std::runtime_error("a cut type library");
        std::memcpy(&value, bytes_.data() + place, sizeof value);
        return value;
    }
    template <class T>
    void write(std::size_t place, T value) {
        std::memcpy(bytes_.data() + place, &value, sizeof value);
    }
    void writeText(std::size_t place, std::string_view text) { bytes_.replace(place, text.size(), text); }

    /// The width of a slot, which is that of an address of the library's own system.
    std::size_t slotWidth() const {
        const auto kind = read<std::uint32_t>(format::kind) & format::kindMask;
        return kind == format::kind64Bits ? 8 : 4;
    }

    std::size_t segment(std::size_t number) const { return read<std::uint32_t>(entryOf(number)); }
    std::size_t segmentEnd(std::size_t number) const {
        return segment(number) + read<std::uint32_t>(entryOf(number) + 4);
    }

    std::string nameAt(std::size_t place) const {
        return bytes_.substr(place + format::nameText, read<std::uint8_t>(place + format::nameLength));
    }

    /// Where the description of a type stands.
    std::size_t typeNamed(std::string_view name) const {
        for (std::size_t i = 0; i < typeCount(); ++i) {
            const auto place = segment(format::typesSegment) + i * format::typeSize;
            const auto offset = read<std::uint32_t>(place + format::name);
            if (nameAt(segment(format::namesSegment) + offset) == name) return place;
        }
        throw std::runtime_error("no type " + std::string(name));
    }

  private:
    std::size_t typeCount() const { return read<std::uint32_t>(format::typeCount); }
    std::size_t entryOf(std::size_t segment) const {
        return format::afterHeader + typeCount() * 4 + segment * format::segmentEntry;
    }

    std::string bytes_;
};

/// Names are looked up by a hash that takes an accented letter for the plain one, so that only the letters
/// change.
void writeName(LibraryFile& file, std::string_view name) {
    const auto plain = plainName(name);
    if (plain == name) return;
    const auto ansi = home().services.toAnsi(fromUtf8(name));
    auto place = file.segment(format::namesSegment);
    while (place < file.segmentEnd(format::namesSegment)) {
        const auto present = file.nameAt(place);
        if (present == plain) return file.writeText(place + format::nameText, ansi);
        if (present == ansi) return;
        place += format::nameText + (present.size() + 3) / 4 * 4;
    }
    throw std::runtime_error("no name " + plain);
}

void writeLineFeeds(LibraryFile& file) {
    auto place = file.segment(format::textsSegment);
    while (place < file.segmentEnd(format::textsSegment)) {
        const auto length = file.read<std::uint16_t>(place);
        auto text = file.bytes().substr(place + format::textStart, length);
        std::ranges::replace(text, lineFeedMark, '\n');
        file.writeText(place + format::textStart, text);
        place += std::max(format::smallestText, (format::textStart + length + 3) / 4 * 4);
    }
}

/// The functions of an interface in their order, each at the place of its slot.
void writeSlots(LibraryFile& file, const ClassDescription& description) {
    const auto type = file.typeNamed("_" + std::string(description.name));
    auto record = file.read<std::uint32_t>(type + format::members) + std::size_t{4};
    for (std::size_t slot = 0; slot < description.members.size(); ++slot) {
        if (!description.members[slot].published) continue;
        file.write(record + format::slotOffset,
                   static_cast<std::uint16_t>((standardSlots + slot) * file.slotWidth()));
        record += file.read<std::uint16_t>(record);
    }
    const auto size = (standardSlots + description.members.size()) * file.slotWidth();
    file.write(type + format::slotsSize, static_cast<std::uint16_t>(size));
}

void writeRecordHelp(LibraryFile& file) {
    if (!findClass(classOfRecords)) return;
    const auto help = file.read<std::uint32_t>(file.typeNamed(classOfRecords) + format::help);
    for (const auto& record : publishedRecords())
        file.write(file.typeNamed(record.name) + format::help, help);
}

}  // namespace

std::string finishedLibrary(std::string bytes) {
    LibraryFile file(std::move(bytes));
    for (const auto& entry : catalogue()) {
        const auto& description = entry.description();
        writeSlots(file, description);
        for (const auto& member : description.members) {
            for (const auto& parameter : member.parameters) writeName(file, parameter.name);
        }
    }
    writeRecordHelp(file);
    writeLineFeeds(file);
    return file.bytes();
}

}  // namespace tovera::tools
