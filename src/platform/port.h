#pragma once

#include "frame/error.h"

namespace tovera {

/// A group of platform entry points that belong together for who uses them, with one virtual for each:
///
///     struct Timers : Port<Timers> { virtual I4 CloseHandle(I4 handle) { return missingEntryPoint(handle); }
///     };
///
/// A home derives its twin from it. What a twin doesn't override raises an error at the call, and only then.
template <class P>
struct Port {
    using Type = P;  ///< the port that a twin or a test's double stands for
    virtual ~Port() = default;
};

/// The answer of an entry point whose library a home hasn't got: error 53. It takes the arguments of the
/// entry point, so that they are named where they are documented.
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
