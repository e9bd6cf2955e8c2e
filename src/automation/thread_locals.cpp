#include <cstdlib>
#include <cstring>

#include "platform/windows/exclusive.h"

// The compiler's thread-locals, its own library's among them, live below one index of the process. That
// library takes the index and each thread's memory for good. A component may be unloaded and loaded again
// many times, and a process has only 1,088 indexes, so the component has this function itself and frees all
// of it.
namespace {

using Word = std::size_t;

/// What the compiler makes for each variable; the first use gives it its number, counted from 1.
struct Variable {
    Word size;
    Word alignment;
    Word number;
    const void* initialValue;  ///< null for a variable whose bits begin as 0
};

/// The values of one thread by the variables' numbers, with the neighbours in the list of all threads.
struct ThreadValues {
    ThreadValues* previous;
    ThreadValues* next;
    Word count;
    void** values;
};

/// Nothing here may raise an exception, which needs a thread-local itself.
template <class T>
T* orAbort(T* allocated) {
    if (!allocated) std::abort();
    return allocated;
}

class ThreadLocals {
  public:
    constexpr ThreadLocals() = default;
    ThreadLocals(const ThreadLocals&) = delete;
    ThreadLocals& operator=(const ThreadLocals&) = delete;
    ~ThreadLocals() {
        while (threads_) forget(*threads_);
        if (index_ != TLS_OUT_OF_INDEXES) TlsFree(index_);
        index_ = TLS_OUT_OF_INDEXES;
    }

    void* addressOf(Variable& variable) {
        Word& number = variable.number;
        if (number == 0 || index_ == TLS_OUT_OF_INDEXES) prepare(number);
        auto& thread = currentThread();
        if (thread.count < number) grow(thread, number);
        void*& value = thread.values[number - 1];
        if (!value) value = make(variable);
        return value;
    }

    void endThread() {
        if (index_ == TLS_OUT_OF_INDEXES) return;
        const tovera::Exclusive exclusive(lock_);
        if (auto* const thread = static_cast<ThreadValues*>(TlsGetValue(index_))) forget(*thread);
    }

  private:
    void prepare(Word& number) {
        const tovera::Exclusive exclusive(lock_);
        if (number == 0) number = ++variables_;
        if (index_ == TLS_OUT_OF_INDEXES) index_ = TlsAlloc();
        if (index_ == TLS_OUT_OF_INDEXES) std::abort();
    }

    ThreadValues& currentThread() {
        if (auto* const known = static_cast<ThreadValues*>(TlsGetValue(index_))) return *known;
        auto* const made = orAbort(static_cast<ThreadValues*>(std::calloc(1, sizeof(ThreadValues))));
        TlsSetValue(index_, made);
        const tovera::Exclusive exclusive(lock_);
        made->next = threads_;
        if (threads_) threads_->previous = made;
        threads_ = made;
        return *made;
    }

    static void grow(ThreadValues& thread, Word count) {
        thread.values = orAbort(static_cast<void**>(std::realloc(thread.values, count * sizeof(void*))));
        std::memset(thread.values + thread.count, 0, (count - thread.count) * sizeof(void*));
        thread.count = count;
    }

    static void* make(const Variable& variable) {
        void* const made = orAbort(_aligned_malloc(variable.size, variable.alignment));
        if (variable.initialValue) {
            std::memcpy(made, variable.initialValue, variable.size);
        } else {
            std::memset(made, 0, variable.size);
        }
        return made;
    }

    void forget(ThreadValues& thread) {
        (thread.previous ? thread.previous->next : threads_) = thread.next;
        if (thread.next) thread.next->previous = thread.previous;
        for (Word i = 0; i < thread.count; ++i) _aligned_free(thread.values[i]);
        std::free(thread.values);
        std::free(&thread);
    }

    SRWLOCK lock_ = SRWLOCK_INIT;
    DWORD index_ = TLS_OUT_OF_INDEXES;
    Word variables_ = 0;
    ThreadValues* threads_ = nullptr;
};

/// Made before everything else, and so destroyed last at unloading: other objects' ends may use
/// thread-locals.
[[gnu::init_priority(101)]] ThreadLocals threadLocals;

}  // namespace

extern "C" void* __emutls_get_address(Variable* variable) {  // NOLINT: the compiler's name
    return threadLocals.addressOf(*variable);
}

/// The values of a thread end with it.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_THREAD_DETACH) threadLocals.endThread();
    return TRUE;
}
