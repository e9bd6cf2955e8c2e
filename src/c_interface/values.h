#pragma once

#include "c_interface/tovera.h"
#include "frame/variant.h"

// Values across the interface, in both directions. What a value refers to is copied.
namespace tovera::c {

/// A value that isn't a reference; raises error 13 for one, and for a type that there isn't. An
/// object has to be one of this thread.
Variant plainValue(const tovera_value& value);

/// Puts a value where a caller wants it, with texts as the flags say. References are followed, and what can't
/// be had for want of memory raises `std::bad_alloc`, with an empty value there.
void put(tovera_value& target, const Variant& value, unsigned flags);

/// An object of another thread raises the failure 0x8001010E.
void requireOwnThread(const tovera_object* handle);

/// The object of a handle, nothing for a null one; and a handle of its own for an object.
ObjectRef objectOf(const tovera_object* handle);
tovera_object* handleOf(const ObjectRef& object);

}  // namespace tovera::c
