#include <gtest/gtest.h>
#include <ole2.h>
#include <windows.h>

// The texts' allocator keeps freed blocks for later unless told not to, which would blur counts of memory.
static void keepNoFreedTexts() {
    if (auto* const function = GetProcAddress(LoadLibraryW(L"oleaut32.dll"), "SetOaNoCache"))
        reinterpret_cast<void(WINAPI*)()>(function)();
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    keepNoFreedTexts();
    OleInitialize(nullptr);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
