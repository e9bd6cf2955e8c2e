#include "automation/type_library.h"

#include "automation/failures.h"
#include "platform/windows/module.h"

namespace tovera {

HRESULT findTypeInfo(const GUID& id, ITypeInfo** found) noexcept {
    try {
        ComPointer<ITypeLib> library;
        const HRESULT status = LoadTypeLibEx(ownFileName().c_str(), REGKIND_NONE, library.out());
        return SUCCEEDED(status) ? library->GetTypeInfoOfGuid(id, found) : status;
    } catch (...) {
        return statusOfCurrentException();
    }
}

}  // namespace tovera
