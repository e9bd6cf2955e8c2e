#include "platform/windows/foreign_call.h"

#include <algorithm>
#include <vector>

#include "platform/windows/texts.h"

namespace tovera {
namespace {

/// An argument on its way out. A variable of ours goes as a variable of the system that holds its value, and
/// takes back what the member leaves there.
class OutgoingArgument {
  public:
    explicit OutgoingArgument(const Variant& argument) {
        const auto* const reference = argument.as<Reference>();
        held_ = SystemVariant(argument);
        if (reference) target_ = *reference;
        isReference_ = reference != nullptr;
    }

    /// What the member gets: the value, or the address of the variable. Valid while this object stays.
    VARIANT passed() {
        VARIANT argument = held_.get();
        if (!isReference_) return argument;
        const bool isAny = std::holds_alternative<Variant*>(target_);
        argument.byref = isAny ? static_cast<void*>(&held_.get()) : placeOf(held_.get(), held_.get().vt);
        argument.vt = static_cast<VARTYPE>(VT_BYREF | (isAny ? VARTYPE{VT_VARIANT} : held_.get().vt));
        return argument;
    }

    void giveTo(TakeBack takeBack) const {
        if (isReference_) takeBack(target_, held_.get());
    }

  private:
    SystemVariant held_;
    Reference target_;
    bool isReference_ = false;
};

/// The record of an exception, whose texts are freed.
class Exception {
  public:
    Exception() = default;
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception() {
        SysFreeString(info_.bstrSource);
        SysFreeString(info_.bstrDescription);
        SysFreeString(info_.bstrHelpFile);
    }
    EXCEPINFO* out() { return &info_; }

    [[noreturn]] void raise() {
        if (info_.pfnDeferredFillIn) info_.pfnDeferredFillIn(&info_);
        const auto code = info_.wCode != 0   ? codeOf(info_.wCode)
                          : info_.scode != 0 ? static_cast<ReturnCode>(info_.scode)
                                             : static_cast<ReturnCode>(DISP_E_EXCEPTION);
        throw AutomationError(code, textOf(info_.bstrDescription), textOf(info_.bstrSource));
    }

  private:
    EXCEPINFO info_{};
};

[[noreturn]] void raiseStatus(HRESULT status) {
    if (status == DISP_E_MEMBERNOTFOUND) raise(ErrorNumber::NoSuchMember);
    throw AutomationError(static_cast<ReturnCode>(status), {});
}

/// The arguments in the order that `Invoke` takes, the last one first.
std::vector<VARIANT> reversed(std::vector<OutgoingArgument>& arguments) {
    std::vector<VARIANT> passed;
    passed.reserve(arguments.size());
    std::for_each(arguments.rbegin(), arguments.rend(), [&](auto& a) { passed.push_back(a.passed()); });
    return passed;
}

}  // namespace

SystemVariant callForeign(IDispatch& object, DISPID member, CallKind kind, std::span<const Variant> arguments,
                          TakeBack takeBack) {
    std::vector<OutgoingArgument> outgoing(arguments.begin(), arguments.end());
    auto passed = reversed(outgoing);
    const bool writes = allows(kind, CallKind::Write | CallKind::AssignReference);
    DISPID written = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{passed.data(), writes ? &written : nullptr, static_cast<UINT>(passed.size()),
                          writes ? 1U : 0U};
    SystemVariant result;
    Exception exception;
    UINT wrong = 0;
    const HRESULT status =
        object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(kind), &parameters,
                      writes ? nullptr : &result.get(), exception.out(), &wrong);
    for (const auto& argument : outgoing) argument.giveTo(takeBack);
    if (status == DISP_E_EXCEPTION) exception.raise();
    if (FAILED(status)) raiseStatus(status);
    return result;
}

}  // namespace tovera
