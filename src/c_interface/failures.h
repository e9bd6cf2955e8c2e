#pragma once

#include "c_interface/tovera.h"
#include "frame/error.h"

namespace tovera::c {

/// Puts a record where a caller wants to be told of it, if anywhere, and gives its number.
std::int32_t tell(tovera_failure* failure, const ErrorRecord& record) noexcept;

/// The record of what a function of the host has told, or returned alone.
ErrorRecord recordOf(std::int32_t returned, const tovera_failure& failure);

/// A failure that a function of the host fills.
struct HostFailure : tovera_failure {
    HostFailure() : tovera_failure{0, 0, ErrorRecord::noArgument, nullptr, nullptr} {}
    HostFailure(const HostFailure&) = delete;
    HostFailure& operator=(const HostFailure&) = delete;
    ~HostFailure() { tovera_failure_clear(this); }
};

/// Runs what may raise a failure, and tells it: no exception leaves the interface.
template <class Body>
std::int32_t guarded(tovera_failure* failure, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return tell(failure, recordOfCurrentException());
    }
}

}  // namespace tovera::c
