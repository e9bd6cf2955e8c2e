#include "client/component.h"

namespace tovera::client {

Component::Component() : file_(MAX_PATH, L'\0') {
    // It lies beside this program.
    file_.resize(GetModuleFileNameW(nullptr, file_.data(), MAX_PATH));
    file_.replace(file_.find_last_of(L'\\') + 1, file_.npos, L"TOVERA.dll");
    module_ = LoadLibraryW(file_.c_str());
}

const Component& Component::loaded() {
    static const Component component;
    return component;
}

Pointer<IClassFactory> Component::factory(REFCLSID classId) const {
    Pointer<IClassFactory> found;
    EXPECT_EQ(classObject(classId, IID_IClassFactory, found.outAny()), S_OK);
    return found;
}

}  // namespace tovera::client
