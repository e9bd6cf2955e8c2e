#include <windows.h>

// The compiler's start-up code asks whether a shared libgcc is loaded, which this component never uses. There
// are systems that look for its file on the whole path then, at each loading of the component.
namespace {

HMODULE WINAPI notLoaded(LPCSTR) {
    return nullptr;
}

}  // namespace

// The name that the linker gives the wrapped import; of 32 bits it has an underscore more and the arguments'
// size.
#ifdef _WIN64
extern "C" decltype(&GetModuleHandleA) const wrapped asm("__wrap___imp_GetModuleHandleA");
#else
extern "C" decltype(&GetModuleHandleA) const wrapped asm("___wrap__imp__GetModuleHandleA@4");
#endif
decltype(&GetModuleHandleA) const wrapped = &notLoaded;
