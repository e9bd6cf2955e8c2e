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
    using Outcome = Value;
    using ParameterList = std::tuple<Parameters...>;
};

template <class C, class Done, class... Parameters>
struct SplitAssigned;
template <class C, class... Done, class T>
struct SplitAssigned<C, std::tuple<Done...>, Result<T>&> {
    using Class = C;
    using Value = T;
    using Outcome = Result<T>;
    using ParameterList = std::tuple<Done...>;
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

/// What a member is called through, of which the signature is known where it was made only.
struct Entry {};

/// A member function as a plain one of its signature: what binds the arguments of a call is then made once a
/// signature, not once a member. The instance is an object of the member's class.
template <class Outcome, class... Parameters>
struct EntryOf : Entry {
    using Value = Outcome;

    template <auto Function>
    static Value enter(void* instance, Parameters&&... arguments) {
        auto& self = *static_cast<typename MemberFunction<decltype(Function)>::Class*>(instance);
        if constexpr (std::is_same_v<Value, NoResult>) {
            (self.*Function)(std::forward<Parameters>(arguments)...);
            return {};
        } else {
            return (self.*Function)(std::forward<Parameters>(arguments)...);
        }
    }

    void operator()(void* instance, Result<Value>& assigned, Parameters&&... arguments) const {
        assigned = call(instance, std::forward<Parameters>(arguments)...);
    }

    Value (*call)(void* instance, Parameters&&... arguments);
};

/// The same for a member that assigns its result itself.
template <class T, class... Parameters>
struct EntryOf<Result<T>, Parameters...> : Entry {
    using Value = T;

    template <auto Function>
    static void enter(void* instance, Result<T>& assigned, Parameters&&... arguments) {
        auto& self = *static_cast<typename MemberFunction<decltype(Function)>::Class*>(instance);
        (self.*Function)(std::forward<Parameters>(arguments)..., assigned);
    }

    void operator()(void* instance, Result<T>& assigned, Parameters&&... arguments) const {
        call(instance, assigned, std::forward<Parameters>(arguments)...);
    }

    void (*call)(void* instance, Result<T>& assigned, Parameters&&... arguments);
};

}  // namespace tovera
