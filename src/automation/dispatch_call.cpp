#include "automation/dispatch_call.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "automation/failures.h"
#include "platform/platform.h"
#include "platform/windows/caller_variables.h"

namespace tovera {
namespace {

/// The arguments of a call in their declared order, as addresses in the caller's list; null where left out.
class ArgumentOrder {
  public:
    HRESULT arrange(const DISPPARAMS& given, const MemberDescription& member, UINT* argumentAtFault) {
        const auto declared = member.parameters.size();
        const bool writes = allows(member.kind, CallKind::Write | CallKind::AssignReference);
        if ((given.cArgs && !given.rgvarg) || (given.cNamedArgs && !given.rgdispidNamedArgs))
            return E_INVALIDARG;
        if (given.cArgs > declared || given.cNamedArgs > given.cArgs) return DISP_E_BADPARAMCOUNT;
        for (UINT i = 0; i < given.cArgs; ++i) {
            auto place = static_cast<DISPID>(given.cArgs - 1 - i);
            if (i < given.cNamedArgs) place = given.rgdispidNamedArgs[i];
            if (writes && place == DISPID_PROPERTYPUT) place = static_cast<DISPID>(declared - 1);
            if (place < 0 || static_cast<std::size_t>(place) >= declared || at(place)) {
                if (argumentAtFault) *argumentAtFault = i;
                return DISP_E_PARAMNOTFOUND;
            }
            arguments_[static_cast<std::size_t>(place)] = &given.rgvarg[i];
        }
        return checkRequired(member.parameters, given.cNamedArgs != 0);
    }

    /// Where an argument stands in the caller's list.
    UINT positionOf(I4 argument, const DISPPARAMS& given) const {
        return static_cast<UINT>(arguments_[static_cast<std::size_t>(argument)] - given.rgvarg);
    }

    std::span<const VARIANT* const> inOrder(std::size_t count) const { return {arguments_.data(), count}; }

  private:
    const VARIANT* at(DISPID place) const { return arguments_[static_cast<std::size_t>(place)]; }

    HRESULT checkRequired(std::span<const ParameterDescription> parameters, bool named) const {
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            if (!arguments_[i] && parameters[i].mode != Mode::Optional)
                return named ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT;
        }
        return S_OK;
    }

    std::array<const VARIANT*, mostParameters> arguments_{};
};

/// One call of a member: the frame's form of its arguments, its result, and its failure.
struct MemberCall {
    Variant result;
    ErrorRecord failure;

    /// Runs the member; an argument may be null where it is left out. Variables of the caller that the member
    /// has changed hold their new values afterwards, after a failure as well.
    void run(AutomationObject& object, const MemberDescription& member,
             std::span<const VARIANT* const> given) noexcept {
        // An argument's object runs code of its own while it is looked at, and that may drop this one.
        const KeptAlive held(object);
        try {
            CallerVariables variables;
            ArgumentList arguments;
            for (const auto* const argument : given) {
                failure.argument = static_cast<I4>(arguments.all().size());
                arguments.add([&] { return argument ? variables.argument(*argument) : Variant::missing(); });
            }
            failure.argument = ErrorRecord::noArgument;
            member.invoke(object, object.instance(), home().services, arguments.all(), result, failure);
            variables.writeBack();
        } catch (...) {
            const auto argument = failure.argument;
            failure = recordOfCurrentException();
            failure.argument = argument;
        }
    }
};

/// Copies a result to its address; what can't be allocated is a failure, with nothing written.
template <class Copy>
void handOver(MemberCall& call, Copy&& copy) noexcept {
    try {
        copy(SystemVariant(call.result));
    } catch (...) {
        call.failure = recordOfCurrentException();
    }
}

}  // namespace

HRESULT callByName(AutomationObject& object, DISPID id, WORD kind, const DISPPARAMS& parameters,
                   CallOutcome outcome) noexcept {
    const auto* const member = memberAt(object.description(), id, static_cast<CallKind>(kind));
    if (!member) return DISP_E_MEMBERNOTFOUND;
    ArgumentOrder order;
    const HRESULT status = order.arrange(parameters, *member, outcome.argumentAtFault);
    if (FAILED(status)) return status;
    MemberCall call;
    call.run(object, *member, order.inOrder(member->parameters.size()));
    if (outcome.result) outcome.result->vt = VT_EMPTY;
    if (outcome.result && call.failure.code == ReturnCode::Success)
        handOver(call, [&](SystemVariant result) { *outcome.result = result.release(); });
    if (outcome.argumentAtFault && call.failure.argument != ErrorRecord::noArgument)
        *outcome.argumentAtFault = order.positionOf(call.failure.argument, parameters);
    return reportByName(call.failure, outcome.exception);
}

HRESULT callBySlot(AutomationObject& object, std::size_t slot, std::span<const VARIANT> arguments,
                   std::span<std::byte> result) noexcept {
    const auto& member = object.description().members[slot];
    const IID interfaceId = object.publishedClass().interfaceId;
    std::array<const VARIANT*, mostParameters> given{};
    std::ranges::transform(arguments, given.begin(), [](const VARIANT& argument) { return &argument; });
    MemberCall call;
    call.run(object, member, {given.data(), arguments.size()});
    std::ranges::fill(result, std::byte{});
    if (call.result.is<Empty>()) return reportBySlot(call.failure, interfaceId);
    handOver(call, [&](SystemVariant value) {
        VARIANT handedOver = value.release();
        const bool any = member.result == Type::Variant;
        std::memcpy(result.data(), any ? &handedOver : placeOf(handedOver, handedOver.vt), result.size());
    });
    return reportBySlot(call.failure, interfaceId);
}

}  // namespace tovera
