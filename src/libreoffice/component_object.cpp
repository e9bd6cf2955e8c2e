#include "libreoffice/component_object.h"

#include <array>
#include <optional>

#include "libreoffice/failures.h"
#include "libreoffice/values.h"

namespace tovera::office {
namespace {

/// More than any member has.
constexpr sal_Int32 mostArguments = 8;

bool isByReference(const tovera_member& member, std::size_t argument) {
    return argument < member.parameter_count && member.parameters[argument].mode != TOVERA_BY_VALUE;
}

}  // namespace

const Member& ComponentObject::memberNamed(const OUString& name) {
    if (latest_ && name.pData == latestName_.pData) return *latest_;
    const auto* const member = members_.find(name);
    if (!member) raise(Number::NoSuchMember);
    latestName_ = name;
    return *(latest_ = member);
}

Any ComponentObject::call(const tovera_member& member, unsigned flags, const Sequence<Any>& arguments,
                          Sequence<sal_Int16>* outIndexes, Sequence<Any>* outValues) {
    const auto count = arguments.getLength();
    if (count > mostArguments) raise(Number::WrongArgumentCount);
    std::array<std::optional<Given>, mostArguments> given;
    std::array<tovera_value, mostArguments> values;
    for (sal_Int32 i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        auto& argument = given[at].emplace(*objects_, arguments[i]);
        values[at] = isByReference(member, at) ? argument.asVariable() : argument.value();
    }
    // The object may be let go of in the middle of its own call.
    const auto objects = objects_;
    const auto self = Handle::shared(handle_.get());
    Value result;
    Failure failure;
    if (tovera_invoke(self.get(), member.id, flags, values.data(), static_cast<std::size_t>(count), &result,
                      &failure) != 0)
        raise(failure);
    for (sal_Int32 i = 0; outIndexes && i < count; ++i) {
        const auto& argument = given[static_cast<std::size_t>(i)];
        if (!argument->isChanged()) continue;
        const auto next = outIndexes->getLength();
        outIndexes->realloc(next + 1);
        outValues->realloc(next + 1);
        outIndexes->getArray()[next] = static_cast<sal_Int16>(i);
        outValues->getArray()[next] = toOffice(*objects, argument->value());
    }
    return toOffice(*objects, result);
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
