#include "libreoffice/office_object.h"

#include <new>

#include "libreoffice/failures.h"

namespace tovera::office {
namespace {

constexpr int32_t outOfMemory = 7;

OfficeObject& objectOf(void* data) {
    return *static_cast<OfficeObject*>(data);
}

/// Runs what an object of the office does; tells what it raises.
template <class Work>
int32_t guarded(tovera_failure* failure, Work work) noexcept {
    try {
        work();
        return 0;
    } catch (const css::uno::Exception&) {
        return tellCurrentException(failure);
    } catch (const std::bad_alloc&) {
        return tovera_failure_set(failure, outOfMemory, nullptr, nullptr);
    } catch (...) {
        return tovera_failure_set(failure, static_cast<int32_t>(Number::OfAnObject), nullptr, nullptr);
    }
}

void drop(void* data) {
    guarded(nullptr, [=] { delete &objectOf(data); });
}

int32_t memberNamed(void* data, const char* name, int32_t* member) {
    const auto number = guarded(nullptr, [=] { *member = objectOf(data).memberNamed(fromUtf8(name)); });
    return number == 0 ? 0 : static_cast<int32_t>(Number::NoSuchMember);
}

int32_t invoke(void* data, int32_t member, unsigned flags, tovera_value* arguments, size_t count,
               tovera_value* result, tovera_failure* failure) {
    return guarded(failure, [=] { objectOf(data).invoke(member, flags, arguments, count, *result); });
}

void* elements(void* data, tovera_failure* failure) {
    std::unique_ptr<Walk> walk;
    guarded(failure, [&] { walk = objectOf(data).elements(); });
    return walk.release();
}

int next(void* walk, tovera_value* element, tovera_failure* failure) {
    bool found = false;
    if (guarded(failure, [&] { found = static_cast<Walk*>(walk)->next(*element); }) != 0) return -1;
    return found ? 1 : 0;
}

void end(void* walk) {
    guarded(nullptr, [=] { delete static_cast<Walk*>(walk); });
}

tovera_object* query(void* data, const tovera_interface_id* interfaceId) {
    Handle found;
    guarded(nullptr, [&] { found = objectOf(data).query(*interfaceId); });
    return found.release();
}

constexpr tovera_object_functions functions{
    sizeof(tovera_object_functions), 0, drop, memberNamed, invoke, elements, next, end, query};

}  // namespace

std::unique_ptr<Walk> OfficeObject::elements() {
    raise(Number::NotACollection);
}

Handle handleOf(std::unique_ptr<OfficeObject> object) {
    Handle made(tovera_object_new(&functions, object.get()));
    if (!made) throw std::bad_alloc();
    static_cast<void>(object.release());
    return made;
}

OfficeObject* officeObjectOf(const tovera_object* handle) {
    return static_cast<OfficeObject*>(tovera_object_data(handle, &functions));
}

}  // namespace tovera::office
