#include "frame/object.h"

namespace tovera {

void ObjectRef::retain() const noexcept {
    if (object_) object_->addRef();
}

void ObjectRef::release() const noexcept {
    object_->release();
}

std::unique_ptr<Enumerator> Object::elements() {
    raise(ErrorNumber::NotEnumerable);
}

ObjectRef Object::query(const InterfaceId&) {
    raise(ErrorNumber::NoSuchInterface);
}

Variant invokeMember(const ObjectRef& object, std::u16string_view name, CallKind kind,
                     std::span<Variant> arguments) {
    if (!object) raise(ErrorNumber::ObjectRequired);
    const auto member = object->memberNamed(name);
    if (!member) raise(ErrorNumber::NoSuchMember);
    Variant result;
    ErrorRecord failure;
    const auto code = object->invoke(*member, kind, arguments, result, failure);
    if (code == ReturnCode::Success) return result;
    if (failure.code == ReturnCode::Success) failure.code = code;
    failure.raise();
}

Variant readMember(const ObjectRef& object, std::u16string_view name) {
    return invokeMember(object, name, CallKind::Method | CallKind::Read, {});
}

void writeMember(const ObjectRef& object, std::u16string_view name, Variant value) {
    invokeMember(object, name, CallKind::Write, {&value, 1});
}

}  // namespace tovera
