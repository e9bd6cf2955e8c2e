#pragma once

#include <cstring>

#include "automation/dispatch_call.h"
#include "automation/failures.h"
#include "automation/standard_slots.h"

// The slots of a dual interface, one function for each row of the class table, in the calling convention and
// with the types that the published interface gives it.
namespace tovera {

/// How a value of the frame is passed by slot.
template <class T, VARTYPE Tag>
struct PassedAs {
    using Type = T;
    static constexpr VARTYPE tag = Tag;
};

// clang-format off
template <class T> struct SlotType;
template <> struct SlotType<Bstr> : PassedAs<BSTR, VT_BSTR> {};
template <> struct SlotType<Variant> : PassedAs<VARIANT, VT_VARIANT> {};
template <> struct SlotType<VariantBool> : PassedAs<VARIANT_BOOL, VT_BOOL> {};
template <> struct SlotType<Date> : PassedAs<DATE, VT_DATE> {};
template <> struct SlotType<UI1> : PassedAs<BYTE, VT_UI1> {};
template <> struct SlotType<I2> : PassedAs<SHORT, VT_I2> {};
template <> struct SlotType<I4> : PassedAs<LONG, VT_I4> {};
template <> struct SlotType<R4> : PassedAs<FLOAT, VT_R4> {};
template <> struct SlotType<R8> : PassedAs<DOUBLE, VT_R8> {};
template <> struct SlotType<ObjectRef> : PassedAs<IDispatch*, VT_DISPATCH> {};
template <> struct SlotType<StringArray> : PassedAs<SAFEARRAY*, VT_ARRAY | VT_BSTR> {};
// clang-format on

/// A declared parameter on its way from a slot to the call.
template <class Declared>
struct SlotParameter {
    using Traits = ParameterTraits<Declared>;
    using Value = SlotType<typename Traits::Value>;
    static constexpr bool byValue = Traits::mode == Mode::ByValue;
    using Type = std::conditional_t<byValue, typename Value::Type, typename Value::Type*>;

    static bool isRefused(const Type& argument) {
        if constexpr (Traits::mode == Mode::ByReference) {
            return argument == nullptr;
        } else {
            return false;
        }
    }

    /// A `VARIANT` that borrows what it holds. A null address stands for an argument left out.
    static VARIANT packed(const Type& argument) {
        if constexpr (std::is_same_v<Type, VARIANT>) {
            return argument;
        } else {
            VARIANT packed{};
            std::memcpy(&packed.byref, &argument, sizeof argument);
            packed.vt = static_cast<VARTYPE>(Value::tag | (byValue ? 0 : VT_BYREF));
            if constexpr (Traits::mode == Mode::Optional) {
                if (!argument) {
                    packed.vt = VT_ERROR;
                    packed.scode = DISP_E_PARAMNOTFOUND;
                }
            }
            return packed;
        }
    }
};

/// A call by slot, of all members of one signature: the object, the slot, the parameters in their order, and
/// the address of the result. A call with a null address doesn't reach the member, and gives the default
/// result like any other that fails.
template <class Value, class... Parameters>
struct SlotCall {
    static_assert(sizeof...(Parameters) <= mostParameters);
    using Result = typename SlotType<Value>::Type;

    [[gnu::noinline]] static HRESULT run(DualInterface* self, std::size_t slot,
                                         typename SlotParameter<Parameters>::Type... arguments,
                                         Result* result) noexcept {
        if (!result) return refuseNullAddress();
        if ((SlotParameter<Parameters>::isRefused(arguments) || ...)) {
            *result = {};
            return refuseNullAddress();
        }
        const std::array<VARIANT, sizeof...(Parameters)> packed{
            SlotParameter<Parameters>::packed(arguments)...};
        return callBySlot(*self->object, slot, packed, std::as_writable_bytes(std::span(result, 1)));
    }
};

template <class... Parameters>
struct SlotCall<NoResult, Parameters...> {
    static_assert(sizeof...(Parameters) <= mostParameters);

    [[gnu::noinline]] static HRESULT run(DualInterface* self, std::size_t slot,
                                         typename SlotParameter<Parameters>::Type... arguments) noexcept {
        if ((SlotParameter<Parameters>::isRefused(arguments) || ...)) return refuseNullAddress();
        const std::array<VARIANT, sizeof...(Parameters)> packed{
            SlotParameter<Parameters>::packed(arguments)...};
        return callBySlot(*self->object, slot, packed, {});
    }
};

/// The function in a slot: all that it adds to the call of its signature is which slot it is.
template <std::size_t I, class Value, class Parameters>
struct SlotFunction;

template <std::size_t I, class Value, class... Parameters>
struct SlotFunction<I, Value, std::tuple<Parameters...>> {
    static HRESULT STDMETHODCALLTYPE call(DualInterface* self,
                                          typename SlotParameter<Parameters>::Type... arguments,
                                          typename SlotType<Value>::Type* result) noexcept {
        return SlotCall<Value, Parameters...>::run(self, I, arguments..., result);
    }
};

template <std::size_t I, class... Parameters>
struct SlotFunction<I, NoResult, std::tuple<Parameters...>> {
    static HRESULT STDMETHODCALLTYPE call(DualInterface* self,
                                          typename SlotParameter<Parameters>::Type... arguments) noexcept {
        return SlotCall<NoResult, Parameters...>::run(self, I, arguments...);
    }
};

template <class C, std::size_t I>
Slot slotFunction() {
    using F = typename std::tuple_element_t<I, std::remove_const_t<decltype(ClassTable<C>::members)>>::F;
    return reinterpret_cast<Slot>(&SlotFunction<I, typename F::Value, typename F::ParameterList>::call);
}

/// The slots of the class's dual interface, the standard ones first.
template <class C>
const Slot* dualSlots() {
    constexpr auto members = std::tuple_size_v<decltype(ClassTable<C>::members)>;
    static const auto slots = []<std::size_t... I>(std::index_sequence<I...>) {
        std::array<Slot, standardSlots + members> made{};
        std::ranges::copy(standardSlotFunctions(), made.begin());
        ((made[standardSlots + I] = slotFunction<C, I>()), ...);
        return made;
    }
    (std::make_index_sequence<members>());
    return slots.data();
}

}  // namespace tovera
