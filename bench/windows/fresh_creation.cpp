// Usage: fresh_creation FILE CLASS: loads a component's file and makes an object of one of its classes, as
// the first thing that this process does, and prints how many microseconds that took.
#include "timing.h"

int wmain(int argc, wchar_t** argv) {
    using tovera::client::microseconds;
    CLSID classId;
    if (argc != 3 || CLSIDFromString(argv[2], &classId) != S_OK) return 2;
    CoInitialize(nullptr);

    const double start = microseconds();
    const HMODULE file = LoadLibraryW(argv[1]);
    const auto getClassObject = reinterpret_cast<decltype(&DllGetClassObject)>(
        reinterpret_cast<void (*)()>(file ? GetProcAddress(file, "DllGetClassObject") : nullptr));
    if (!getClassObject) return 1;
    void* factory = nullptr;
    void* object = nullptr;
    if (FAILED(getClassObject(classId, IID_IClassFactory, &factory))) return 1;
    if (FAILED(static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IDispatch, &object)))
        return 1;
    const double taken = microseconds() - start;

    static_cast<IDispatch*>(object)->Release();
    static_cast<IClassFactory*>(factory)->Release();
    std::printf("%.0f\n", taken);
    return 0;
}
