#pragma once

#include "python/errors.h"

namespace tovera::python {

/// A call into the component. It keeps what objects and functions of Python raise in the middle of it: the
/// exception comes out of the call as it is, if the member lets the failure through.
class Call {
  public:
    /// Throws `Raised`, a RecursionError, for too many within each other.
    Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call();

    /// Raises what the call has ended with, and throws `Raised`; nothing where it has ended well.
    void end(std::int32_t number, const Failure& failure) {
        if (number != 0 || kept_) endBadly(number, failure);
    }

    /// Keeps the exception that is raised at present in the innermost call of the thread and tells the
    /// component of it. One that `mustComeOut` is raised even if the member goes on.
    static std::int32_t keepRaised(tovera_failure* failure, bool mustComeOut = false) noexcept;

  private:
    void endBadly(std::int32_t number, const Failure& failure);

    Call* outer_;
    int depth_;
    Ref kept_;
    unsigned mark_ = 0;  ///< in the source of the failure that the component was told of
    bool mustComeOut_ = false;
};

}  // namespace tovera::python
