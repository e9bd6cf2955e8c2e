#pragma once

#include "automation/automation_object.h"
#include "frame/argument_list.h"

namespace tovera {

/// Where a caller through `Invoke` wants to be told the outcome; each address may be null.
struct CallOutcome {
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* argumentAtFault;
};

/// The call by name or number: finds the member, puts the arguments into their declared order, and runs it
/// through the class table.
HRESULT callByName(AutomationObject& object, DISPID member, WORD kind, const DISPPARAMS& parameters,
                   CallOutcome outcome) noexcept;

/// The call by slot: arguments stand in their declared order. The bytes of the result, none for a member that
/// has no result, get its value, or the default of its type on failure.
HRESULT callBySlot(AutomationObject& object, std::size_t slot, std::span<const VARIANT> arguments,
                   std::span<std::byte> result) noexcept;

}  // namespace tovera
