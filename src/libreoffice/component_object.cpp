#include "libreoffice/component_object.h"

#include <array>
#include <optional>

#include "libreoffice/failures.h"
#include "libreoffice/values.h"

namespace tovera::office {
namespace {

/// More than any member has.
constexpr sal_Int32 mostArguments = 8;

uint16_t typeOf(const tovera_member& member, std::size_t argument) {
    return argument < member.parameter_count ? member.parameters[argument].type : uint16_t{TOVERA_VARIANT};
}

bool isByReference(const tovera_member& member, std::size_t argument) {
    return argument < member.parameter_count && member.parameters[argument].mode != TOVERA_BY_VALUE;
}

using GivenArguments = std::array<std::optional<Given>, mostArguments>;

/// Hands over what the call has made of its variables. Basic takes the first value for the first argument and
/// so on, whatever the indexes say, so that those in front of a changed one go back as they came.
void giveBack(Objects& objects, const Sequence<Any>& arguments, const GivenArguments& given,
              Sequence<sal_Int16>& indexes, Sequence<Any>& values) {
    sal_Int32 count = 0;
    for (sal_Int32 i = 0; i < arguments.getLength(); ++i) {
        if (given[static_cast<std::size_t>(i)]->isChanged()) count = i + 1;
    }
    if (count == 0) return;
    indexes.realloc(count);
    values.realloc(count);
    for (sal_Int32 i = 0; i < count; ++i) {
        const auto& argument = *given[static_cast<std::size_t>(i)];
        indexes.getArray()[i] = static_cast<sal_Int16>(i);
        values.getArray()[i] = argument.isChanged() ? toOffice(objects, argument.value()) : arguments[i];
    }
}

}  // namespace

const Member& ComponentObject::memberNamed(const OUString& name) const {
    const auto* const member = members_.find(name);
    if (!member) raise(Number::NoSuchMember);
    return *member;
}

Any ComponentObject::call(const tovera_member& member, unsigned flags, const Sequence<Any>& arguments,
                          Sequence<sal_Int16>* outIndexes, Sequence<Any>* outValues) {
    const auto count = arguments.getLength();
    if (count > mostArguments) raise(Number::WrongArgumentCount);
    GivenArguments given;
    std::array<tovera_value, mostArguments> values;
    for (sal_Int32 i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        auto& argument = given[at].emplace(*objects_, arguments[i], typeOf(member, at));
        values[at] = isByReference(member, at) ? argument.asVariable() : argument.value();
    }
    // The object may be let go of in the middle of its own call.
    const Reference<XInterface> self(static_cast<cppu::OWeakObject*>(this));
    Value result;
    Failure failure;
    if (tovera_invoke(handle_.get(), member.id, flags, values.data(), static_cast<std::size_t>(count),
                      &result, &failure) != 0)
        raise(failure);
    if (outIndexes) giveBack(*objects_, arguments, given, *outIndexes, *outValues);
    return toOffice(*objects_, result);
}

Any ComponentObject::invoke(const OUString& name, const Sequence<Any>& arguments,
                            Sequence<sal_Int16>& outIndexes, Sequence<Any>& outValues) {
    const auto& member = memberNamed(name);
    if (member.method) return call(*member.method, TOVERA_METHOD, arguments, &outIndexes, &outValues);
    if (member.read) return call(*member.read, TOVERA_READ, arguments, &outIndexes, &outValues);
    raise(Number::NoSuchMember);
}

void ComponentObject::setValue(const OUString& name, const Any& value) {
    const auto& member = memberNamed(name);
    const bool isObject = value.getValueTypeClass() == css::uno::TypeClass_INTERFACE;
    const auto* const wanted = member.assign && (isObject || !member.write) ? member.assign : member.write;
    if (!wanted) raise(Number::NoSuchMember);
    call(*wanted, wanted->kind, listOf(value), nullptr, nullptr);
}

Any ComponentObject::getValue(const OUString& name) {
    const auto& member = memberNamed(name);
    if (!member.read) raise(Number::NoSuchMember);
    return call(*member.read, TOVERA_READ, {}, nullptr, nullptr);
}

sal_Bool ComponentObject::hasMethod(const OUString& name) {
    const auto* const member = members_.find(name);
    return member && member->method;
}

sal_Bool ComponentObject::hasProperty(const OUString& name) {
    const auto* const member = members_.find(name);
    return member && !member->method;
}

OUString ComponentObject::getExactName(const OUString& approximateName) {
    const auto* const member = members_.find(approximateName);
    return member ? member->name : OUString();
}

OUString ComponentObject::getImplementationName() {
    return fromUtf8(members_.described().prog_id);
}

sal_Bool ComponentObject::supportsService(const OUString& name) {
    return name == getImplementationName();
}

Sequence<OUString> ComponentObject::getSupportedServiceNames() {
    return listOf(getImplementationName());
}

}  // namespace tovera::office
