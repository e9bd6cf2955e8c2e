#pragma once

#include <atomic>

#include "frame/last_error.h"
#include "platform/windows/system.h"

namespace tovera {

/// Finds an entry point by name. A library that can't be loaded raises error 53, an entry point that it
/// hasn't got 453. A library once loaded stays.
FARPROC findEntryPoint(const wchar_t* library, const char* name);

/// A platform function that is bound by name at its first call, declared with the type of the function:
///
///     EntryPoint<decltype(::GetKeyState)> getKeyState{L"user32", "GetKeyState"};
///
/// After each call the thread's last error is saved.
template <class Function>
class EntryPoint;

template <class R, class... Arguments>
class EntryPoint<R __stdcall(Arguments...)> {
  public:
    constexpr EntryPoint(const wchar_t* library, const char* name) : library_(library), name_(name) {}

    R operator()(Arguments... arguments) {
        auto function = bound_.load(std::memory_order_relaxed);
        if (!function) {
            function = reinterpret_cast<Bound>(reinterpret_cast<void*>(findEntryPoint(library_, name_)));
            bound_.store(function, std::memory_order_relaxed);
        }
        const R result = function(arguments...);
        lastError() = static_cast<I4>(GetLastError());
        return result;
    }

  private:
    using Bound = R(__stdcall*)(Arguments...);

    const wchar_t* library_;
    const char* name_;
    std::atomic<Bound> bound_ = nullptr;  // objects of several threads may be the first to call
};

}  // namespace tovera
