#pragma once

#include "frame/error.h"

namespace tovera {

/// The answer of a port's entry point that a home has no library for: error 53, at the call and only then.
/// It takes the arguments of the entry point, so that they are named where they are documented.
template <class... Arguments>
[[noreturn]] I4 missingLibrary(const Arguments&...) {
    raise(ErrorNumber::FileNotFound);
}

/// The same for an entry point that a library hasn't got: error 453.
template <class... Arguments>
[[noreturn]] I4 missingEntryPoint(const Arguments&...) {
    raise(ErrorNumber::EntryPointNotFound);
}

}  // namespace tovera
