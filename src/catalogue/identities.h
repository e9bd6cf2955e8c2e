#pragma once

#include <string>
#include <string_view>

#include "frame/object.h"

// The published identities: one block of values that differ in their first group only, fixed for all classes
// and records, whether this build has them or not.
namespace tovera {

/// The type library itself.
InterfaceId libraryId();
/// A class by its name ("Cls_Date"), its interface ("_Cls_Date"), or a record.
InterfaceId identityOf(std::string_view name);

/// The form of the registry and of IDL, without braces.
std::string idText(const InterfaceId& id);

}  // namespace tovera
