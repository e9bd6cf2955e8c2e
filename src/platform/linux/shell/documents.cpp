#include "platform/linux/shell/documents.h"

#include <array>
#include <elf.h>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

#include "frame/bstr.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/shell/opening.h"
#include "platform/shell32.h"

namespace tovera {
namespace {

constexpr I4 found = 33;

enum class FileKind { Document, Program, ProgramOfOthers };

/// The machine that the running programs are made for: that of this very program.
Elf64_Half ownMachine() {
    static const auto machine = [] {
        Elf64_Ehdr header{};
        const FileDescriptor own(open("/proc/self/exe", O_RDONLY | O_CLOEXEC));
        return pread(own.get(), &header, sizeof header, 0) < 0 ? Elf64_Half{EM_NONE} : header.e_machine;
    }();
    return machine;
}

FileKind kindOf(const std::string& path) {
    const auto facts = factsOfTarget(path);
    if (!facts || !S_ISREG(facts->st_mode)) return FileKind::Document;
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    std::array<char, sizeof(Elf64_Ehdr)> start{};
    const auto count = pread(file.get(), start.data(), start.size(), 0);
    const std::string_view bytes(start.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
    constexpr std::size_t placeOfMachine = offsetof(Elf64_Ehdr, e_machine);  // the same with 32 bits
    if (bytes.starts_with(ELFMAG) && bytes.size() > placeOfMachine + 1) {
        const auto machine =
            static_cast<Elf64_Half>(static_cast<unsigned char>(bytes[placeOfMachine]) |
                                    static_cast<unsigned char>(bytes[placeOfMachine + 1]) << 8U);
        if (machine != ownMachine()) return FileKind::ProgramOfOthers;
    } else if (bytes.starts_with("MZ")) {
        return FileKind::ProgramOfOthers;
    } else if (!bytes.starts_with("#!")) {
        return FileKind::Document;
    }
    return access(path.c_str(), X_OK) == 0 ? FileKind::Program : FileKind::Document;
}

bool isFolder(const std::string& path) {
    const auto facts = factsOfTarget(path);
    return facts && S_ISDIR(facts->st_mode);
}

}  // namespace

FoundOpener findOpener(std::u16string_view document, std::u16string_view folder) {
    if (!folder.empty() && !isFolder(foundHostPath(folder))) return {findCodes::folderNotFound, {}};
    if (document.empty()) return {findCodes::fileNotFound, {}};
    const Bstr whole = folder.empty() ? Bstr(document) : join(folder, u"\\", document);
    const auto path = foundHostPath(whole);
    if (path.empty() || !isFolder(folderOf(path))) return {findCodes::folderNotFound, {}};
    if (!factsOfTarget(path)) return {findCodes::fileNotFound, {}};
    const auto kind = kindOf(path);
    if (kind == FileKind::Program)
        return {found, std::filesystem::absolute(path).lexically_normal().string()};
    const auto opener = openerOf(path);
    if (opener && !opener->executable.empty()) return {found, opener->executable};
    return {kind == FileKind::ProgramOfOthers ? findCodes::badFormat : findCodes::noAssociation, {}};
}

}  // namespace tovera
