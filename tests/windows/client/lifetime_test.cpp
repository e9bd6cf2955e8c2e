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
    expectNoLeak("type information", [&] {
        Pointer<ITypeInfo> info;
        dates->GetTypeInfo(0, 0, info.out());
    });
}

TEST(Lifetime, TheTypeLibraryIsLoadedOnceAndLeftBeforeUnloading) {
    const auto& component = Component::loaded();
    const std::size_t fewerThanOfALibrary = 50;
    EXPECT_TRUE(component.canUnloadNow());
    const auto before = blocksInUse();
    {
        const auto dates = component.create<Cls_Date, IDispatch>();
        Pointer<ITypeInfo> info;
        EXPECT_EQ(dates->GetTypeInfo(0, 0, info.out()), S_OK);
    }
    EXPECT_GT(blocksInUse(), before + fewerThanOfALibrary) << "kept for the next use";
    EXPECT_TRUE(component.canUnloadNow());
    EXPECT_LT(blocksInUse(), before + fewerThanOfALibrary);
}

/// Thread-local indexes of the process that nobody has taken.
std::size_t freeIndexes() {
    std::vector<DWORD> taken;
    for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) taken.push_back(index);
    for (const DWORD index : taken) TlsFree(index);
    return taken.size();
}

/// A copy of the component that nobody else loads.
class Copy {
  public:
    Copy() { CopyFileW(Component::loaded().file().c_str(), file_.c_str(), FALSE); }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    ~Copy() { DeleteFileW(file_.c_str()); }

    /// One life of the component, with a call that fails and one of the platform.
    void liveOnce() const {
        const HMODULE module = LoadLibraryW(file_.c_str());
        const auto entry = [&](const char* name) {
            return reinterpret_cast<void (*)()>(GetProcAddress(module, name));
        };
        const auto find =
            reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(entry("DllGetClassObject"));
        const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(entry("DllCanUnloadNow"));
        const auto create = [&]<class Interface>(REFCLSID classId, Pointer<Interface>& made) {
            Pointer<IClassFactory> factory;
            ASSERT_EQ(find(classId, IID_IClassFactory, factory.outAny()), S_OK);
            ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface), made.outAny()), S_OK);
        };
        {
            Pointer<_Cls_Date> dates;
            Pointer<_Cls_InitREG> registry;
            create(__uuidof(Cls_Date), dates);
            create(__uuidof(Cls_InitREG), registry);
            long seconds = 0;
            EXPECT_TRUE(FAILED(dates->Chrono(-2147483647 - 1, 2147483647, &seconds)));
            Value folder;
            EXPECT_EQ(registry->RetourneCheminWindows(folder.textOut()), S_OK);
            Pointer<ITypeInfo> info;
            EXPECT_EQ(dates->GetTypeInfo(0, 0, info.out()), S_OK);
            SetErrorInfo(0, nullptr);
        }
        EXPECT_EQ(canUnload(), S_OK);
        EXPECT_TRUE(FreeLibrary(module));
    }

  private:
    const std::wstring file_ = Component::loaded().file() + L".copy.dll";
};

DWORD WINAPI run(void* work) {
    (*static_cast<std::function<void()>*>(work))();
    return 0;
}

void inAnotherThread(std::function<void()> work) {
    HANDLE thread = CreateThread(nullptr, 0, run, &work, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

TEST(Lifetime, ManyLivesOfTheComponentLeaveNothingBehind) {
    const Copy copy;
    expectNoLeak("lives", [&] { copy.liveOnce(); });
    DWORD handlesBefore = 0, handles = 0;
    const auto blocks = blocksInUse();
    const auto indexes = freeIndexes();
    GetProcessHandleCount(GetCurrentProcess(), &handlesBefore);
    for (int life = 0; life < 5000; ++life) copy.liveOnce();
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    EXPECT_EQ(freeIndexes(), indexes);
    EXPECT_LT(blocksInUse(), blocks + 100);
    EXPECT_LE(handles, handlesBefore + 2);
}

TEST(Lifetime, ThreadsTakeTheirMemoryWithThem) {
    const auto factory = Component::loaded().factory(__uuidof(Cls_Date));
    expectNoLeak("threads", [&] {
        inAnotherThread([&] {
            long seconds = 0;
            Pointer<_Cls_Date> dates;
            factory->CreateInstance(nullptr, __uuidof(_Cls_Date), dates.outAny());
            EXPECT_TRUE(FAILED(dates->Chrono(-2147483647 - 1, 2147483647, &seconds)));
            SetErrorInfo(0, nullptr);
        });
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
