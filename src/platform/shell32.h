#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// A place of the shell, in the platform's own bytes; without any it is none.
struct ItemIdList {
    std::string bytes;
    bool isNull() const { return bytes.empty(); }
    friend bool operator==(const ItemIdList&, const ItemIdList&) = default;
};

/// What the folder picker is asked; the fields are those of the published record.
struct BrowseInfo {
    I4 hOwner = 0;
    ItemIdList pidlRoot;
    AnsiText pszDisplayName{{}, true};
    AnsiText lpszTitle{{}, true};
    I4 ulFlags = 0;
    I4 lpfn = 0;
    I4 lParam = 0;
    I4 iImage = 0;
};

/// What is to be done with files; the fields are those of the published record.
struct ShFileOpStruct {
    I4 hwnd = 0;
    I4 wFunc = 0;
    AnsiText pFrom{{}, true};
    AnsiText pTo{{}, true};
    I2 fFlags = 0;
    VariantBool fAnyOperationsAborted;
    I4 hNameMappings = 0;
    AnsiText lpszProgressTitle{{}, true};
};

/// Answers of `FindExecutableA` up to 32, which are failures.
namespace findCodes {
inline constexpr I4 fileNotFound = 2;
inline constexpr I4 folderNotFound = 3;
inline constexpr I4 badFormat = 11;
inline constexpr I4 noAssociation = 31;
inline constexpr I4 lastFailure = 32;
}  // namespace findCodes

/// Flags of the records.
namespace shellFlags {
inline constexpr I4 onlyFileSystemFolders = 1;
inline constexpr I4 deleteFiles = 3;
inline constexpr I2 allowUndo = 0x40;
}  // namespace shellFlags

/// Documents, folders and the recycle bin, of `shell32`.
struct Shell32 : Port<Shell32> {
    /// The program that opens a document. Above 32 on success, with the program's path and a NUL in the
    /// result.
    virtual I4 FindExecutableA(const AnsiText& file, const AnsiText& directory, AnsiText& result) {
        return missingEntryPoint(file, directory, result);
    }
    /// Lets the user choose a folder; none when he cancels.
    virtual ItemIdList SHBrowseForFolderA(const BrowseInfo& asked) {
        missingEntryPoint(asked);
        return {};
    }
    /// The path of a place; 0 for one without, and for none.
    virtual I4 SHGetPathFromIDListA(const ItemIdList& list, AnsiText& path) {
        return missingEntryPoint(list, path);
    }
    /// The place of a special folder; 0 on success.
    virtual I4 SHGetSpecialFolderLocation(I4 owner, I4 folder, ItemIdList& list) {
        return missingEntryPoint(owner, folder, list);
    }
    virtual I4 SHFileOperationA(const ShFileOpStruct& operation) { return missingEntryPoint(operation); }
};

Shell32& homeShell32();

}  // namespace tovera
