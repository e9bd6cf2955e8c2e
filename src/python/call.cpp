#include "python/call.h"

namespace tovera::python {
namespace {

// Asked for at each call: the faster of the ways to find it.
[[gnu::tls_model("initial-exec")]] thread_local constinit Call* innermost = nullptr;

/// Calls within calls take more of the stack than Python's own limit allows for.
constexpr int deepest = 200;

/// KeyboardInterrupt and SystemExit are nothing that a member may ignore.
bool isOrdinary(PyObject* exception) {
    return PyErr_GivenExceptionMatches(exception, PyExc_Exception) != 0;
}

/// The failure of an exception that has been kept is known again by its source.
std::string sourceOf(unsigned mark) {
    return "Python " + std::to_string(mark);
}

}  // namespace

Call::Call() : outer_(innermost), depth_(outer_ ? outer_->depth_ + 1 : 1) {
    if (depth_ > deepest) {
        PyErr_SetString(PyExc_RecursionError, "calls of the component within each other");
        throw Raised();
    }
    innermost = this;
}

Call::~Call() {
    innermost = outer_;
}

void Call::endBadly(std::int32_t number, const Failure& failure) {
    const bool isSame = number != 0 && kept_ && failure.source && sourceOf(mark_) == failure.source;
    if (isSame || mustComeOut_) {
        putRaised(std::move(kept_));
        throw Raised();
    }
    if (number == 0) return;
    auto error = makeError(number, failure.description, failure.source);
    if (kept_) PyException_SetContext(error.get(), kept_.release());
    putRaised(std::move(error));
    throw Raised();
}

std::int32_t Call::keepRaised(tovera_failure* failure, bool mustComeOut) noexcept {
    try {
        auto exception = orWaitForTheEnd(takeRaised);
        const auto told = orWaitForTheEnd([&] { return toldOf(exception.get()); });
        if (!innermost) {
            putRaised(std::move(exception));
            orWaitForTheEnd([] { PyErr_WriteUnraisable(nullptr); });
            return tovera_failure_set(failure, told.number, told.description.c_str(), nullptr);
        }
        static unsigned count = 0;
        auto& call = *innermost;
        const auto mark = ++count;
        if (!call.mustComeOut_) {
            call.mustComeOut_ = mustComeOut || !isOrdinary(exception.get());
            call.kept_ = std::move(exception);
            call.mark_ = mark;
        }
        return tovera_failure_set(failure, told.number, told.description.c_str(), sourceOf(mark).c_str());
    } catch (...) {
        PyErr_Clear();
        return tovera_failure_set(failure, number::outOfMemory, nullptr, nullptr);
    }
}

}  // namespace tovera::python
