// An early-bound client: its calls go by slot, with the types of KADRELDLL.h.
//
//   i686-w64-mingw32-g++ -std=c++17 -I.. early_bound.cpp -o early_bound.exe -static -lole32 -loleaut32 -luuid
//
// With the resource of without_registration.rc linked in (i686-w64-mingw32-windres makes an object of it) the
// program finds TOVERA.dll and TOVERA.manifest beside itself, and nothing needs to be registered.
#include <cstdio>
#include <string>
#include <windows.h>

#include "KADRELDLL.h"

namespace {

/// Tells a failure with the text that the component gave for it.
int tell(HRESULT status) {
    IErrorInfo* record = nullptr;
    BSTR text = nullptr;
    if (GetErrorInfo(0, &record) == S_OK) {
        record->GetDescription(&text);
        record->Release();
    }
    std::printf("erreur %08lX : %ls\n", static_cast<unsigned long>(status), text ? text : L"");
    SysFreeString(text);
    return 1;
}

int run() {
    _Cls_Conversion* conversion = nullptr;
    HRESULT status = CoCreateInstance(__uuidof(Cls_Conversion), nullptr, CLSCTX_INPROC_SERVER,
                                      __uuidof(_Cls_Conversion), reinterpret_cast<void**>(&conversion));
    if (FAILED(status)) return tell(status);

    BSTR label = SysAllocString(L"euro");
    conversion->put_IntituleMonnaie(&label);
    double amount = 71;
    VARIANT_BOOL isAmount = VARIANT_TRUE;
    BSTR words = nullptr;
    status = conversion->ConvertirNombreEnLettre(&amount, &isAmount, &words);
    if (SUCCEEDED(status)) std::printf("%ls\n", words);
    SysFreeString(words);
    SysFreeString(label);

    // Hundredths that round to 100 have no words: the call fails, and says why.
    amount = 0.996;
    const HRESULT failure = conversion->ConvertirNombreEnLettre(&amount, &isAmount, &words);
    if (FAILED(failure)) tell(failure);
    conversion->Release();
    return FAILED(status);
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    const int result = run();
    CoUninitialize();
    return result;
}
