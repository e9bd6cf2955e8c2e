#include <windows.h>

// The compiler's start-up code asks whether a shared libgcc is loaded, which this component never uses. There
// are systems that look for its file on the whole path then, at each loading of the component.
namespace {

HMODULE WINAPI notLoaded(LPCSTR) {
    return nullptr;
}

}  // namespace

extern "C" decltype(&GetModuleHandleA) const wrapped asm("___wrap__imp__GetModuleHandleA@4");
decltype(&GetModuleHandleA) const wrapped = &notLoaded;
