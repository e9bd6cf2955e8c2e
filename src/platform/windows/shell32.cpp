#include "platform/shell32.h"

#include <cstring>
#include <memory>

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_shell.h"

namespace tovera {
namespace {

constexpr const wchar_t* shell32 = L"shell32";

struct FreeList {
    void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};
/// A list that the shell has handed over.
using OwnedList = std::unique_ptr<ITEMIDLIST, FreeList>;

/// The bytes of a list: items that begin with their own size, and an empty one at the end.
ItemIdList valueOf(const OwnedList& list) {
    if (!list) return {};
    const auto* const first = reinterpret_cast<const char*>(list.get());
    std::size_t size = 0;
    for (USHORT item = 1; item != 0; size += item) std::memcpy(&item, first + size, sizeof item);
    return {std::string(first, size + sizeof(USHORT))};
}

const ITEMIDLIST* listOf(const ItemIdList& value) {
    return value.isNull() ? nullptr : reinterpret_cast<const ITEMIDLIST*>(value.bytes.data());
}

class WindowsShell32 : public Shell32 {
    I4 FindExecutableA(const AnsiText& file, const AnsiText& directory, AnsiText& result) override {
        return numberOfHandle(callEntryPoint<&::FindExecutableA>(shell32, file, directory, result));
    }
    ItemIdList SHBrowseForFolderA(const BrowseInfo& asked) override {
        BROWSEINFOA info{};
        info.hwndOwner = handleOf<HWND>(asked.hOwner);
        info.pidlRoot = listOf(asked.pidlRoot);
        info.lpszTitle = asked.lpszTitle.addressOrNull();
        info.ulFlags = static_cast<UINT>(asked.ulFlags);
        return valueOf(OwnedList(callEntryPoint<&::SHBrowseForFolderA>(shell32, &info)));
    }
    I4 SHGetPathFromIDListA(const ItemIdList& list, AnsiText& path) override {
        return callEntryPoint<&::SHGetPathFromIDListA>(shell32, listOf(list), path);
    }
    I4 SHGetSpecialFolderLocation(I4 owner, I4 folder, ItemIdList& list) override {
        ITEMIDLIST* found = nullptr;
        const auto status =
            callEntryPoint<&::SHGetSpecialFolderLocation>(shell32, handleOf<HWND>(owner), folder, &found);
        list = valueOf(OwnedList(found));
        return status;
    }
    I4 SHFileOperationA(const ShFileOpStruct& operation) override {
        SHFILEOPSTRUCTA asked{};
        asked.hwnd = handleOf<HWND>(operation.hwnd);
        asked.wFunc = static_cast<UINT>(operation.wFunc);
        asked.pFrom = operation.pFrom.addressOrNull();
        asked.pTo = operation.pTo.addressOrNull();
        asked.fFlags = static_cast<FILEOP_FLAGS>(operation.fFlags);
        return callEntryPoint<&::SHFileOperationA>(shell32, &asked);
    }
};

}  // namespace

Shell32& homeShell32() {
    static WindowsShell32 port;
    return port;
}

}  // namespace tovera
