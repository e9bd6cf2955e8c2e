// Measures the component against the system's Scripting.Dictionary, which hosts use in the same way: a call
// with its name looked up each time, and the first creation in a process. Prints a table of ratios.
#include <vector>

#include "KADRELDLL.h"
#include "timing.h"

namespace tovera::client {
namespace {

constexpr CLSID dictionaryClass{0xEE09B103, 0x97E0, 0x11CF, {0x97, 0x8F, 0x00, 0xA0, 0x24, 0x63, 0xE0, 0x6F}};

struct LateBoundCall {
    IDispatch* object;
    std::wstring member;
    std::vector<Value> arguments;  ///< the last one first
    WORD kind;

    void make() {
        LPOLESTR name = member.data();
        DISPID id = 0;
        object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        DISPPARAMS parameters{const_cast<VARIANT*>(&arguments.front().get()), nullptr,
                              static_cast<UINT>(arguments.size()), 0};
        Value result;
        if (FAILED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result.out(), nullptr,
                                  nullptr)))
            std::printf("a call failed\n");
    }
};

double timeOf(LateBoundCall& call) {
    constexpr int calls = 2000;
    const double start = microseconds();
    for (int i = 0; i < calls; ++i) call.make();
    return (microseconds() - start) / calls;
}

double freshCreation(const std::wstring& file, REFCLSID classId) {
    LPOLESTR text = nullptr;
    StringFromCLSID(classId, &text);
    auto command = L"\"" + besideThisProgram(L"fresh_creation.exe") + L"\" \"" + file + L"\" " + text;
    CoTaskMemFree(text);
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    CreatePipe(&read, &write, &inherited, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = write;
    PROCESS_INFORMATION process{};
    CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    CloseHandle(write);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    char answer[32]{};
    DWORD length = 0;
    ReadFile(read, answer, sizeof answer - 1, &length, nullptr);
    CloseHandle(read);
    return std::atof(answer);
}

}  // namespace

void measureLateBinding() {
    const auto component = besideThisProgram(L"TOVERA.dll");
    wchar_t system[MAX_PATH]{};
    GetSystemDirectoryW(system, MAX_PATH);
    const auto scripting = std::wstring(system) + L"\\scrrun.dll";
    const auto dates = createFrom(component, __uuidof(Cls_Date));
    const auto dictionary = createFrom(scripting, dictionaryClass);

    LateBoundCall add{dictionary.get(), L"Add", {Value(1), Value(L"key")}, DISPATCH_METHOD};
    add.make();
    LateBoundCall item{dictionary.get(), L"Item", {Value(L"key")}, DISPATCH_PROPERTYGET};
    LateBoundCall chrono{dates.get(), L"Chrono", {Value(200), Value(100)}, DISPATCH_METHOD};
    constexpr int rounds = 40;
    constexpr int processes = 150;  // a process meets whatever else runs on the machine
    std::printf("%-42s %13s %13s\n", "", "TOVERA", "Dictionary");
    compare(
        "a call, its name looked up (Chrono, Item)", rounds, [&] { return timeOf(chrono); },
        [&] { return timeOf(item); });
    compare(
        "loading and creation in a fresh process", processes,
        [&] { return freshCreation(component, __uuidof(Cls_Date)); },
        [&] { return freshCreation(scripting, dictionaryClass); });
}

}  // namespace tovera::client
