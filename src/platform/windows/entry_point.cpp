#include "platform/windows/entry_point.h"

#include "frame/error.h"

namespace tovera {

FARPROC findEntryPoint(const wchar_t* library, const char* name) {
    const DWORD before = GetLastError();
    const HMODULE module = LoadLibraryW(library);
    if (!module) raise(ErrorNumber::FileNotFound);
    const FARPROC found = GetProcAddress(module, name);
    if (!found) {
        FreeLibrary(module);
        raise(ErrorNumber::EntryPointNotFound);
    }
    SetLastError(before);  // the function that is bound may be the one that tells it
    return found;
}

}  // namespace tovera
