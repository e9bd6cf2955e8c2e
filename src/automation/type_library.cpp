#include "automation/type_library.h"

#include "automation/failures.h"
#include "platform/windows/exclusive.h"
#include "platform/windows/module.h"

namespace tovera {
namespace {

/// The loaded type library, for the objects of all threads.
SRWLOCK lock = SRWLOCK_INIT;
ITypeLib* loaded = nullptr;

}  // namespace

HRESULT findTypeInfo(const GUID& id, ITypeInfo** found) noexcept {
    try {
        const Exclusive exclusive(lock);
        const HRESULT status = loaded ? S_OK : LoadTypeLibEx(ownFileName().c_str(), REGKIND_NONE, &loaded);
        return SUCCEEDED(status) ? loaded->GetTypeInfoOfGuid(id, found) : status;
    } catch (...) {
        return statusOfCurrentException();
    }
}

void releaseTypeLibrary() noexcept {
    const Exclusive exclusive(lock);
    if (loaded) std::exchange(loaded, nullptr)->Release();
}

}  // namespace tovera
