#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

#include "frame/object.h"
#include "frame/parameters.h"

namespace tovera {

/// A result that a member assigns before its last step, declared as its last parameter: a number or truth
/// value assigned before a failure is kept. A member that returns its result has assigned none when it fails.
template <class T>
struct Result {
    T value{};
    Result& operator=(T&& assigned) {
        value = std::move(assigned);
        return *this;
    }
    Result& operator=(const T& assigned) {
        value = assigned;
        return *this;
    }
};

/// The result of a member that has none.
struct NoResult {};

/// Numbers and truth values keep what was assigned before a failure; texts, `VARIANT`s, objects go back to
/// their default.
template <class T>
inline constexpr bool keptOnFailure =
    std::is_arithmetic_v<T> || std::is_same_v<T, VariantBool> || std::is_same_v<T, Date>;

/// A reference on an object for the time of a call, so that it can't vanish under its own member.
class KeptAlive {
  public:
    explicit KeptAlive(Object& object) : object_(object) { object_.addRef(); }
    KeptAlive(const KeptAlive&) = delete;
    KeptAlive& operator=(const KeptAlive&) = delete;
    ~KeptAlive() { object_.release(); }

  private:
    Object& object_;
};

/// The frame round a member: arms the failure frame, holds the object, starts the result at its default,
/// runs the logic, drops the object, and only then hands the result over. The record is filled on failure.
template <class R, class Logic>
ReturnCode runInFrame(Object& self, Logic&& logic, R& result, ErrorRecord& failure) noexcept {
    Result<R> assigned;
    auto code = ReturnCode::Success;
    {
        const KeptAlive held(self);
        try {
            std::forward<Logic>(logic)(assigned);
        } catch (...) {
            failure = recordOfCurrentException();
            code = failure.code;
            if constexpr (!keptOnFailure<R>) assigned.value = R{};
        }
    }
    result = std::move(assigned.value);
    return code;
}

/// What a member function declares: its class, result and parameters, a `Result` parameter taken apart.
template <class Function>
struct MemberFunction;

template <class C, class R, class... Parameters>
struct SplitResult {
    using Class = C;
    using Value = std::conditional_t<std::is_void_v<R>, NoResult, R>;
    using ParameterList = std::tuple<Parameters...>;
    static constexpr bool assigns = false;
};

template <class C, class Done, class... Parameters>
struct SplitAssigned;
template <class C, class... Done, class T>
struct SplitAssigned<C, std::tuple<Done...>, Result<T>&> {
    using Class = C;
    using Value = T;
    using ParameterList = std::tuple<Done...>;
    static constexpr bool assigns = true;
};
template <class C, class... Done, class First, class... Rest>
requires(sizeof...(Rest) > 0) struct SplitAssigned<C, std::tuple<Done...>, First, Rest...>
    : SplitAssigned<C, std::tuple<Done..., First>, Rest...> {
};

template <class... Parameters>
inline constexpr bool endsWithResult = false;
template <class T>
inline constexpr bool endsWithResult<Result<T>&> = true;
template <class First, class... Rest>
requires(sizeof...(Rest) > 0) inline constexpr bool endsWithResult<First, Rest...> = endsWithResult<Rest...>;

template <class C, class R, class... Parameters>
struct MemberFunction<R (C::*)(Parameters...)>
    : std::conditional_t<endsWithResult<Parameters...>, SplitAssigned<C, std::tuple<>, Parameters...>,
                         SplitResult<C, R, Parameters...>> {};
template <class C, class R, class... Parameters>
struct MemberFunction<R (C::*)(Parameters...) const> : MemberFunction<R (C::*)(Parameters...)> {};

/// Runs a member function on an instance inside the frame of its object.
template <auto Function, class... Arguments>
ReturnCode runMember(Object& self, typename MemberFunction<decltype(Function)>::Class& instance,
                     typename MemberFunction<decltype(Function)>::Value& result, ErrorRecord& failure,
                     Arguments&&... arguments) noexcept {
    using F = MemberFunction<decltype(Function)>;
    return runInFrame(
        self,
        [&](Result<typename F::Value>& assigned) {
            if constexpr (F::assigns) {
                (instance.*Function)(std::forward<Arguments>(arguments)..., assigned);
            } else if constexpr (std::is_same_v<typename F::Value, NoResult>) {
                (instance.*Function)(std::forward<Arguments>(arguments)...);
            } else {
                assigned = (instance.*Function)(std::forward<Arguments>(arguments)...);
            }
        },
        result, failure);
}

}  // namespace tovera
