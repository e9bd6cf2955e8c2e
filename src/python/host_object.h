#pragma once

namespace tovera::python {

/// Makes the attributes of Python's objects members for the component, their names matched without regard to
/// case: callables are called, and the elements of an object that can be walked through are its controls.
void useHostObjects();

}  // namespace tovera::python
