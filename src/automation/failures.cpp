#include "automation/failures.h"

#include <string>

#include "frame/class_table.h"
#include "platform/windows/com_pointer.h"
#include "platform/windows/texts.h"

namespace tovera {
namespace {

HRESULT statusOf(ReturnCode code) {
    return static_cast<HRESULT>(code);
}

/// Who failed: the object that says so, or the component.
Bstr sourceOf(const ErrorRecord& failure) {
    if (!failure.source.empty()) return failure.source;
    return std::u16string(libraryName.begin(), libraryName.end());
}

void setErrorInfo(const ErrorRecord& failure, const IID& interfaceId) {
    ComPointer<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.out()))) return;
    const auto set = [](const Bstr& text, auto&& setter) {
        const BSTR allocated = allocateText(text);
        setter(allocated);
        SysFreeString(allocated);
    };
    info->SetGUID(interfaceId);
    set(sourceOf(failure), [&](BSTR text) { info->SetSource(text); });
    set(failure.description, [&](BSTR text) { info->SetDescription(text); });
    if (const auto record = info.as<IErrorInfo>(IID_IErrorInfo)) SetErrorInfo(0, record.get());
}

/// What the standard has for an argument that is at fault; nothing for any other failure.
HRESULT argumentStatus(const ErrorRecord& failure) {
    if (failure.argument == ErrorRecord::noArgument) return S_OK;
    switch (static_cast<ErrorNumber>(numberOf(failure.code))) {
        case ErrorNumber::TypeMismatch:
            return DISP_E_TYPEMISMATCH;
        case ErrorNumber::Overflow:
            return DISP_E_OVERFLOW;
        case ErrorNumber::ArgumentNotOptional:
            return DISP_E_PARAMNOTOPTIONAL;
        default:
            return S_OK;
    }
}

}  // namespace

HRESULT reportBySlot(const ErrorRecord& failure, const IID& interfaceId) noexcept {
    if (failure.code == ReturnCode::Success) return S_OK;
    try {
        setErrorInfo(failure, interfaceId);
    } catch (...) {
        SetErrorInfo(0, nullptr);  // no memory for a record: the code stands alone
    }
    return statusOf(failure.code);
}

HRESULT refuseNullAddress() noexcept {
    SetErrorInfo(0, nullptr);
    return E_POINTER;
}

HRESULT reportByName(const ErrorRecord& failure, EXCEPINFO* exception) noexcept {
    if (failure.code == ReturnCode::Success) return S_OK;
    if (const HRESULT status = argumentStatus(failure); status != S_OK) return status;
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = statusOf(failure.code);
    try {
        exception->bstrSource = allocateText(sourceOf(failure));
        exception->bstrDescription = allocateText(failure.description);
    } catch (...) {
        // no memory for a text: the code stands alone
    }
    return DISP_E_EXCEPTION;
}

HRESULT statusOfCurrentException() noexcept {
    return statusOf(recordOfCurrentException().code);
}

}  // namespace tovera
