#include "platform/shell32.h"

#include "platform/linux/files/paths.h"
#include "platform/linux/shell/bin.h"
#include "platform/linux/shell/documents.h"
#include "platform/linux/shell/folder_picker.h"
#include "platform/linux/shell/special_folders.h"
#include "platform/linux/text/ansi_buffer.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

/// A place is the path of this system; one without a path has this mark.
constexpr std::string_view withoutPath = "-";
constexpr I4 unknownFolder = static_cast<I4>(0x80070057U);  // an invalid argument

/// A path as callers see it, whole or not at all.
I4 fillPath(AnsiText& buffer, const std::string& path) {
    const auto bytes = toAnsi1252(windowsPath(path));
    if (buffer.isNull || bytes.size() >= buffer.bytes.size()) return 0;
    fill(buffer, bytes);
    return 1;
}

class LinuxShell32 : public Shell32 {
    I4 FindExecutableA(const AnsiText& file, const AnsiText& directory, AnsiText& result) override {
        const auto opener = findOpener(textOf(file), textOf(directory));
        if (opener.code > findCodes::lastFailure && fillPath(result, opener.program) == 0)
            return findCodes::noAssociation;
        return opener.code;
    }
    ItemIdList SHBrowseForFolderA(const BrowseInfo& asked) override {
        return {chooseFolder(textOf(asked.lpszTitle), asked.hOwner)};
    }
    I4 SHGetPathFromIDListA(const ItemIdList& list, AnsiText& path) override {
        return list.isNull() || list.bytes == withoutPath ? 0 : fillPath(path, list.bytes);
    }
    I4 SHGetSpecialFolderLocation(I4 /*owner*/, I4 folder, ItemIdList& list) override {
        const auto found = specialFolder(folder);
        if (!found) return unknownFolder;
        list.bytes = found->path.empty() ? std::string(withoutPath) : found->path;
        return 0;
    }
    /// The one operation in use: the files of a list, each with its NUL, go to the bin.
    I4 SHFileOperationA(const ShFileOpStruct& operation) override {
        constexpr I4 invalid = 87;
        const bool toBin =
            operation.wFunc == shellFlags::deleteFiles && (operation.fFlags & shellFlags::allowUndo) != 0;
        if (!toBin) return invalid;
        I4 result = 0;
        std::string_view list = operation.pFrom.bytes;
        while (!list.empty() && list.front() != '\0') {
            const auto path = list.substr(0, list.find('\0'));
            if (const int error = putIntoBin(fromAnsi1252(path))) result = error;
            list.remove_prefix(std::min(path.size() + 1, list.size()));
        }
        return result;
    }
};

}  // namespace

Shell32& homeShell32() {
    static LinuxShell32 port;
    return port;
}

}  // namespace tovera
