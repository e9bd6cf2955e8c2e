#pragma once

#include "frame/error.h"
#include "platform/windows/system.h"

// How a failure reaches the caller.
namespace tovera {

/// Of a call by slot: the return code, with the thread's error record set to number, description and source.
HRESULT reportBySlot(const ErrorRecord& failure, const IID& interfaceId) noexcept;

/// Of a call by slot with a null address, which has no record: none of an earlier failure is to be taken for
/// it.
HRESULT refuseNullAddress() noexcept;

/// Of a call through `Invoke`: the exception record, or the standard's code for an argument at fault.
HRESULT reportByName(const ErrorRecord& failure, EXCEPINFO* exception) noexcept;

/// The code of the exception being handled, for calls that have no record.
HRESULT statusOfCurrentException() noexcept;

}  // namespace tovera
