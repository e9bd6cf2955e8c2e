#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <windows.h>

#include "client/com.h"

namespace tovera::client {

/// Microseconds since an arbitrary moment.
inline double microseconds() {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER now{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return 1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Prints the best times of two rivals, which return microseconds. The best of many short rounds is what the
/// machine does when nothing else disturbs it. The rounds of the two alternate.
template <class First, class Second>
void compare(const char* what, int rounds, First first, Second second) {
    double ours = first();
    double theirs = second();
    for (int round = 1; round < rounds; ++round) {
        ours = std::min(ours, first());
        theirs = std::min(theirs, second());
    }
    std::printf("%-42s %10.3f us %10.3f us %6.2f times as fast\n", what, ours, theirs, theirs / ours);
}

/// A file beside this program.
inline std::wstring besideThisProgram(const wchar_t* name) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(L'\\') + 1) + name;
}

/// A new object of a class, straight from the file of its component.
inline Pointer<IDispatch> createFrom(const std::wstring& file, REFCLSID classId) {
    const auto getClassObject = reinterpret_cast<decltype(&DllGetClassObject)>(
        reinterpret_cast<void (*)()>(GetProcAddress(LoadLibraryW(file.c_str()), "DllGetClassObject")));
    Pointer<IClassFactory> factory;
    Pointer<IDispatch> object;
    getClassObject(classId, IID_IClassFactory, factory.outAny());
    factory->CreateInstance(nullptr, IID_IDispatch, object.outAny());
    return object;
}

void measureLateBinding();
void measureFormSaving();

}  // namespace tovera::client
