#pragma once

#include <vector>

#include "client/component.h"

// What the embedded type library tells of the component.
namespace tovera::client {

struct Parameter {
    std::string name;  ///< of a property the one that its slot for reading has, so none for the value
    VARTYPE type;
    bool byReference, optional;
};

/// A function of an interface.
struct Member {
    std::string name, help;
    INVOKEKIND kind;
    std::vector<Parameter> parameters;
    VARTYPE result;
};

class Library {
  public:
    Library();

    ITypeLib* operator->() const { return library_.get(); }
    const TLIBATTR& attributes() const { return attributes_; }

    /// A description by its identity, told as the distance from the library's own; nothing when there is
    /// none.
    Pointer<ITypeInfo> at(unsigned distance) const;

  private:
    Pointer<ITypeLib> library_;
    TLIBATTR attributes_{};
};

/// The identities in the order in which they are given out, the first one at distance 1.
extern const std::vector<std::string> publishedNames;

struct Documentation {
    std::string name, help;
};
Documentation documentationOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL);
TYPEATTR attributesOf(ITypeInfo* info);

/// The side of a dual interface whose functions stand in slot order.
Pointer<ITypeInfo> dualSide(ITypeInfo* dispatchSide);
std::vector<Member> membersOf(ITypeInfo* dualSide);

/// A type in the words of the reference pages.
std::string typeName(VARTYPE type);
/// The type of a field or parameter, that of the elements with VT_ARRAY for an array.
VARTYPE typeOf(const TYPEDESC& type);

}  // namespace tovera::client
