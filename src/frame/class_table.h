#pragma once

#include <array>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "frame/method_frame.h"
#include "frame/name_index.h"

// The class table: each class describes itself once, in a specialisation of `ClassTable` with one row a
// member. Everything that a caller can see of the class is derived from these rows.
namespace tovera {

struct ParameterDescription {
    std::string_view name;  ///< UTF-8, as all names and help strings here
    Type type = Type::None;
    Mode mode = Mode::ByValue;
};

/// One member: types and modes come out of the signature of its function.
template <auto Function, CallKind Kind>
struct Row {
    using F = MemberFunction<decltype(Function)>;
    static constexpr auto function = Function;
    static constexpr CallKind kind = Kind;
    static constexpr std::size_t parameterCount = std::tuple_size_v<typename F::ParameterList>;

    std::string_view name;
    std::string_view help;
    std::array<std::string_view, parameterCount> parameterNames;
    bool published = true;

    constexpr auto parameters() const {
        return [this]<std::size_t... I>(std::index_sequence<I...>) {
            return std::array<ParameterDescription, parameterCount>{this->template describe<I>()...};
        }
        (std::make_index_sequence<parameterCount>());
    }

  private:
    template <std::size_t I>
    constexpr ParameterDescription describe() const {
        using Traits = ParameterTraits<std::tuple_element_t<I, typename F::ParameterList>>;
        static_assert(typeOf<typename Traits::Value> != Type::None,
                      "a parameter type that Automation has not");
        return {parameterNames[I], typeOf<typename Traits::Value>, Traits::mode};
    }
};

template <auto Function, class... Names>
constexpr auto method(std::string_view name, std::string_view help, Names... parameterNames) {
    return Row<Function, CallKind::Method>{name, help, {parameterNames...}};
}
template <auto Function>
constexpr auto propertyRead(std::string_view name, std::string_view help = {}) {
    return Row<Function, CallKind::Read>{name, help, {}};
}
template <auto Function>
constexpr auto propertyWrite(std::string_view name, std::string_view valueName, std::string_view help = {}) {
    return Row<Function, CallKind::Write>{name, help, {valueName}};
}
template <auto Function>
constexpr auto propertyAssign(std::string_view name, std::string_view valueName, std::string_view help = {}) {
    return Row<Function, CallKind::AssignReference>{name, help, {valueName}};
}
/// A slot of a property that takes its place in the interface, but that nobody is told of.
template <auto Function>
constexpr auto unpublishedWrite(std::string_view name, std::string_view valueName) {
    return Row<Function, CallKind::Write>{name, {}, {valueName}, false};
}

/// Specialised for each class: `name`, `help`, and `members`, a tuple of rows in slot order.
template <class C>
struct ClassTable;

struct MemberDescription;

/// Binds the arguments of a call to what a signature declares, and runs a member of that signature.
using Binding = ReturnCode (*)(const MemberDescription& member, Object& self, void* instance,
                               Services& services, std::span<Variant> arguments, Variant& result,
                               ErrorRecord& failure) noexcept;

struct MemberDescription {
    std::string_view name;
    std::string_view help;
    CallKind kind = CallKind::Method;
    MemberId id = 0;
    std::span<const ParameterDescription> parameters;
    Binding binding = nullptr;
    const Entry* entry = nullptr;  ///< an `EntryOf` the signature that the binding is made for
    Type result = Type::None;
    bool published = true;

    /// A call by name, with the class and member already found.
    ReturnCode invoke(Object& self, void* instance, Services& services, std::span<Variant> arguments,
                      Variant& given, ErrorRecord& failure) const noexcept {
        return binding(*this, self, instance, services, arguments, given, failure);
    }
};

struct ClassDescription {
    std::string_view name;
    std::string_view help;
    std::string progId;
    std::vector<MemberDescription> members;  ///< in slot order
    NameIndex names;                         ///< of a member's name, the index of its first slot
};

inline constexpr std::string_view libraryName = "KADRELDLL";

/// Dispatch identifiers: the base of the member's kind plus the index of its first slot.
inline constexpr MemberId firstMethodId = 0x60030000;
inline constexpr MemberId firstPropertyId = 0x68030000;

namespace detail {

template <class Outcome, class... Parameters>
ReturnCode bind(const MemberDescription& member, Object& self, void* instance, Services& services,
                std::span<Variant> arguments, Variant& result, ErrorRecord& failure) noexcept {
    auto binding = ErrorRecord::noArgument;
    const auto call = [&]<std::size_t... I>(std::index_sequence<I...>) {
        const Conversions convert(services);
        [[maybe_unused]] const auto at = [&](std::size_t i) {
            binding = static_cast<I4>(i);
            return i < arguments.size() ? &arguments[i] : nullptr;
        };
        return [&](Argument<Parameters>... bound) {
            binding = ErrorRecord::noArgument;
            using Entered = EntryOf<Outcome, Parameters...>;
            using Value = typename Entered::Value;
            Value value{};
            const auto code = runInFrame(
                self,
                [&](Result<Value>& assigned) {
                    static_cast<const Entered&> (*member.entry)(instance, assigned, bound.pass()...);
                },
                value, failure);
            (bound.writeBack(convert), ...);
            if constexpr (!std::is_same_v<Value, NoResult>) result = std::move(value);
            return code;
        }(Argument<Parameters>(at(I), convert)...);
    };
    try {
        if (arguments.size() > sizeof...(Parameters)) raise(ErrorNumber::WrongArgumentCount);
        return call(std::index_sequence_for<Parameters...>());
    } catch (...) {
        failure = recordOfCurrentException();
        failure.argument = binding;
        return failure.code;
    }
}

/// How a member function is called, from its signature.
template <auto Function, class Outcome, class Parameters>
struct Calling;
template <auto Function, class Outcome, class... Parameters>
struct Calling<Function, Outcome, std::tuple<Parameters...>> {
    using Entered = EntryOf<Outcome, Parameters...>;
    static constexpr Binding binding = &bind<Outcome, Parameters...>;
    static constexpr Entered entry{{}, &Entered::template enter<Function>};
};

template <class C, std::size_t I>
inline constexpr auto parametersOf = std::get<I>(ClassTable<C>::members).parameters();

template <class C, std::size_t I>
constexpr MemberDescription describeMember() {
    constexpr auto& row = std::get<I>(ClassTable<C>::members);
    using R = std::remove_cvref_t<decltype(row)>;
    MemberDescription member;
    member.name = row.name;
    member.help = row.help;
    member.kind = R::kind;
    member.result = typeOf<typename R::F::Value>;
    member.parameters = parametersOf<C, I>;
    using Call = Calling<R::function, typename R::F::Outcome, typename R::F::ParameterList>;
    member.binding = Call::binding;
    member.entry = &Call::entry;
    member.published = row.published;
    return member;
}

template <class C>
inline constexpr auto membersOf = []<std::size_t... I>(std::index_sequence<I...>) {
    return std::array{describeMember<C, I>()...};
}
(std::make_index_sequence<std::tuple_size_v<decltype(ClassTable<C>::members)>>());

/// The description of a class from its rows: the members get their identifiers, which the slots of one
/// property share, and their names an index.
ClassDescription describe(std::string_view name, std::string_view help,
                          std::span<const MemberDescription> members);

}  // namespace detail

/// The description of a class, made at its first use.
template <class C>
const ClassDescription& describe() {
    static const auto description =
        detail::describe(ClassTable<C>::name, ClassTable<C>::help, detail::membersOf<C>);
    return description;
}

}  // namespace tovera
