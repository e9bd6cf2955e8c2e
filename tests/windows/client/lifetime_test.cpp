#include <functional>

#include "client/form.h"
#include "client/invocation.h"

// Memory and references over many calls, and an object that loses its last reference during a call.
namespace tovera::client {
namespace {

/// Blocks in use, on all heaps of the process.
std::size_t blocksInUse() {
    std::vector<HANDLE> heaps(64);
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    std::size_t blocks = 0;
    for (HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (HeapWalk(heap, &entry)) blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        HeapUnlock(heap);
    }
    return blocks;
}

template <class Calls>
void expectNoLeak(const char* what, Calls calls) {
    constexpr std::size_t rounds = 200;
    for (int warmUp = 0; warmUp < 3; ++warmUp) calls();
    const auto before = blocksInUse();
    for (std::size_t round = 0; round < rounds; ++round) calls();
    EXPECT_LT(blocksInUse(), before + rounds / 2) << what;
}

TEST(Lifetime, ManyCallsLeaveNoMemoryBehind) {
    const auto& component = Component::loaded();
    const auto conversion = component.create<Cls_Conversion, IDispatch>();
    const auto dates = component.create<Cls_Date, _Cls_Date>();
    expectNoLeak("objects", [&] { component.create<Cls_Conversion, IDispatch>(); });
    expectNoLeak("calls by name", [&] {
        invoke(conversion.get(), L"IntituleMonnaie", {L"euro"}, DISPATCH_PROPERTYPUT);
        invoke(conversion.get(), L"ConvertirNombreEnLettre", {71, Value::truth(true)});
        Value source = L"a\u0416", target = L"##";
        invoke(conversion.get(), L"ConvertirOemAnsi",
               {source.referred(VT_VARIANT), target.referred(VT_BSTR)});
    });
    expectNoLeak("failing calls by name", [&] {
        for (const Value& refused : {Value(0.996), Value(L"abc")})
            invoke(conversion.get(), L"ConvertirNombreEnLettre", {refused, Value::truth(true)});
        invoke(conversion.get(), L"ConvertirNombreEnLettre", {1});
    });
    expectNoLeak("calls by slot", [&] {
        Value text, notAYear = L"abc";
        DATE date = 0;
        dates->SecondeEnHeure(90000, text.textOut());
        dates->Paques(notAYear.address(), &date);
        SetErrorInfo(0, nullptr);
    });
    const auto copy = component.file() + L".copy.dll";  // loaded by nobody else
    CopyFileW(component.file().c_str(), copy.c_str(), FALSE);
    expectNoLeak("loading and unloading", [&] { EXPECT_TRUE(FreeLibrary(LoadLibraryW(copy.c_str()))); });
    DeleteFileW(copy.c_str());
    expectNoLeak("type information", [&] {
        Pointer<ITypeInfo> info;
        dates->GetTypeInfo(0, 0, info.out());
    });
}

/// An argument that runs code of its client while it is looked at.
struct Watched : Form {
    using Form::Form;
    std::function<void()> lookedAt;
    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override {
        lookedAt();
        return Form::QueryInterface(interfaceId, found);
    }
};

TEST(Lifetime, LastReferenceDroppedWhileAnArgumentIsLookedAt) {
    const auto& component = Component::loaded();
    auto dates = component.create<Cls_Date, IDispatch>();
    Watched object(Form::Members{{L"Text", L"12"}});
    bool aliveDuringCall = true;
    object.lookedAt = [&] {
        dates.Reset();
        aliveDuringCall = aliveDuringCall && !component.canUnloadNow();
    };
    IDispatch* argument = object.dispatch();
    expectResult(dates.get(), L"SecondeEnHeure", {Value::reference(VT_DISPATCH, &argument)}, L"00:00:12");
    EXPECT_TRUE(aliveDuringCall);
    EXPECT_TRUE(component.canUnloadNow());
}

}  // namespace
}  // namespace tovera::client
