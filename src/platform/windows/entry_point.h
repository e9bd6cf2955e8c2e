#pragma once

#include <array>
#include <atomic>
#include <string_view>

#include "frame/crossing.h"
#include "frame/last_error.h"
#include "platform/windows/system.h"

// A function of the system is bound by name at its first call. It is named once, by its own declaration:
//
//     I4 GetDoubleClickTime() override { return callEntryPoint<&::GetDoubleClickTime>(user32); }
namespace tovera {

// The libraries that hold the entry points.
inline constexpr const wchar_t* advapi32 = L"advapi32";
inline constexpr const wchar_t* kernel32 = L"kernel32";
inline constexpr const wchar_t* odbc32 = L"odbc32";
inline constexpr const wchar_t* user32 = L"user32";

/// Finds an entry point by name. A library that can't be loaded raises error 53, an entry point that it
/// hasn't got 453. A library once loaded stays.
FARPROC findEntryPoint(const wchar_t* library, const char* name);

namespace detail {

/// A function's name, which a compiler tells only in the text that it makes of a template's arguments:
/// "... [with auto Function = GetTickCount; ...]", or "... [Function = &GetTickCount]".
template <auto Function>
consteval auto nameOfFunction() {
    constexpr std::string_view text = __PRETTY_FUNCTION__;
    constexpr std::string_view mark = "Function = ";
    constexpr auto first = text.find_first_not_of('&', text.find(mark) + mark.size());
    constexpr auto length = text.find_first_of(";]", first) - first;
    std::array<char, length + 1> name{};
    text.copy(name.data(), length, first);
    return name;
}

/// What a function of the system is given for an argument of a port: texts by their address, numbers in the
/// width that it declares.
template <class Declared, class Argument>
Declared passedAs(Argument&& argument) {
    if constexpr (OneOf<Argument, AnsiText>) {
        return reinterpret_cast<Declared>(argument.addressOrNull());
    } else if constexpr (std::is_integral_v<Declared>) {
        return static_cast<Declared>(argument);
    } else {
        return argument;
    }
}

template <auto Function, class R, class... Declared, class... Arguments>
R callBound(R(__stdcall*)(Declared...), const wchar_t* library, Arguments&&... arguments) {
    using Bound = R(__stdcall*)(Declared...);
    static constinit std::atomic<Bound> bound =
        nullptr;  // objects of several threads may be the first to call
    static constexpr auto name = nameOfFunction<Function>();
    auto function = bound.load(std::memory_order_relaxed);
    if (!function) {
        function = reinterpret_cast<Bound>(reinterpret_cast<void*>(findEntryPoint(library, name.data())));
        bound.store(function, std::memory_order_relaxed);
    }
    const R result = function(passedAs<Declared>(std::forward<Arguments>(arguments))...);
    lastError() = static_cast<I4>(GetLastError());
    return result;
}

}  // namespace detail

/// Calls a function of the system; afterwards the thread's last error is saved. Numbers come back as `I4`.
template <auto Function, class... Arguments>
auto callEntryPoint(const wchar_t* library, Arguments&&... arguments) {
    const auto result = detail::callBound<Function>(Function, library, std::forward<Arguments>(arguments)...);
    if constexpr (std::is_integral_v<decltype(result)>) {
        return static_cast<I4>(result);
    } else {
        return result;
    }
}

/// The size that goes with a buffer.
inline DWORD roomIn(const AnsiText& buffer) {
    return static_cast<DWORD>(buffer.bytes.size());
}

}  // namespace tovera
