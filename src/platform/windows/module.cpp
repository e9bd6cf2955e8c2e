#include "platform/windows/module.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tovera {

HMODULE ownModule() {
    return reinterpret_cast<HMODULE>(&__ImageBase);
}

std::wstring ownFileName() {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const auto room = static_cast<DWORD>(name.size());
        const DWORD length = GetModuleFileNameW(ownModule(), name.data(), room);
        name.resize(length < room ? length : name.size() * 2);
        if (length < room) return name;
    }
}

}  // namespace tovera
