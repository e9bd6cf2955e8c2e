#pragma once

#include <functional>
#include <string_view>

#include "frame/object_ref.h"

namespace tovera {

/// Makes an object of a class that a host offers.
using ObjectFactory = std::function<ObjectRef()>;

/// From now on objects of this ProgID, in whatever case, are made by the host, as the members do that need a
/// program's objects: `registerObject(u"Notes.Notessession", …)`. It goes before an object of the home's own;
/// an empty factory takes it back. Only for the home on Linux: on Windows the system itself keeps such
/// classes.
void registerObject(std::u16string_view progId, ObjectFactory factory);

}  // namespace tovera
