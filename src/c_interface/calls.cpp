#include <span>

#include "c_interface/failures.h"
#include "c_interface/handles.h"
#include "c_interface/values.h"
#include "c_interface/variables.h"
#include "catalogue/catalogue.h"
#include "frame/argument_list.h"
#include "frame/utf8.h"

namespace tovera::c {
namespace {

/// Runs a member in its frame. What it has changed goes back to the caller's variables on every path.
ErrorRecord run(Object& object, MemberId member, unsigned flags, std::span<const tovera_value> given,
                tovera_value* result) {
    if (given.size() > mostParameters) raise(ErrorNumber::WrongArgumentCount);
    Variables variables;
    ArgumentList arguments;
    ErrorRecord failure;
    for (const auto& value : given) arguments.add([&] { return variables.argument(value); });
    Variant value;
    const auto kinds =
        static_cast<CallKind>(flags & (TOVERA_METHOD | TOVERA_READ | TOVERA_WRITE | TOVERA_ASSIGN));
    const auto code = object.invoke(member, kinds, arguments.all(), value, failure);
    if (failure.code == ReturnCode::Success) failure.code = code;
    variables.giveBack(flags);
    if (result) put(*result, value, flags);
    return failure;
}

MemberId memberNamed(Object& object, const char* name) {
    if (const auto member = object.memberNamed(fromUtf8(name))) return *member;
    raise(ErrorNumber::NoSuchMember);
}

/// A call with its failure told; the body finds the member.
template <class Find>
std::int32_t call(tovera_object* handle, Find findMember, unsigned flags,
                  std::span<const tovera_value> arguments, tovera_value* result, tovera_failure* failure) {
    auto made = tovera_of_type(TOVERA_EMPTY);
    const auto number = guarded(failure, [&]() -> std::int32_t {
        if (!handle || !handle->object) raise(ErrorNumber::ObjectRequired);
        requireOwnThread(handle);
        // A callback of the host may release the handle in the middle of the call.
        const auto object = handle->object;
        const auto host = handle->host;
        const auto record = run(*object, findMember(*object), flags, arguments, result ? &made : nullptr);
        if (record.code != ReturnCode::Success) return tell(failure, record);
        if (failure) *failure = {0, 0, ErrorRecord::noArgument, nullptr, nullptr};
        return 0;
    });
    if (result) *result = made;
    return number;
}

}  // namespace
}  // namespace tovera::c

using namespace tovera;

tovera_object* tovera_create(tovera_host* host, const char* name, tovera_failure* failure) {
    tovera_object* made = nullptr;
    c::guarded(failure, [&] {
        auto maker = host ? host->platform : nullptr;
        auto object = createComponent(name, maker ? maker->platform() : home());
        made = std::make_unique<tovera_object>(std::move(object), std::move(maker)).release();
        return c::tell(failure, {});
    });
    return made;
}

void tovera_retain(tovera_object* object) {
    object->references.fetch_add(1, std::memory_order_relaxed);
}

void tovera_release(tovera_object* object) {
    if (!object || object->references.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
    const std::unique_ptr<tovera_object> last(object);
}

int32_t tovera_member_named(tovera_object* object, const char* name, int32_t* member) {
    return c::guarded(nullptr, [&] {
        if (!object || !object->object) raise(ErrorNumber::ObjectRequired);
        c::requireOwnThread(object);
        *member = c::memberNamed(*object->object, name);
        return 0;
    });
}

int32_t tovera_invoke(tovera_object* object, int32_t member, unsigned flags, const tovera_value* arguments,
                      size_t count, tovera_value* result, tovera_failure* failure) {
    return c::call(
        object, [=](Object&) { return member; }, flags, {arguments, count}, result, failure);
}

int32_t tovera_call(tovera_object* object, const char* name, unsigned flags, const tovera_value* arguments,
                    size_t count, tovera_value* result, tovera_failure* failure) {
    return c::call(
        object, [=](Object& target) { return c::memberNamed(target, name); }, flags, {arguments, count},
        result, failure);
}
