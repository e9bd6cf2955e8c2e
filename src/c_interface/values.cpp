#include "c_interface/values.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "c_interface/handles.h"
#include "frame/error.h"
#include "frame/services.h"
#include "frame/utf8.h"

namespace tovera::c {
namespace {

Bstr textOf(const tovera_value& value) {
    if (value.type == TOVERA_UTF8) {
        const auto& text = value.as.utf8;
        return text.bytes ? Bstr(fromUtf8({text.bytes, text.length})) : Bstr();
    }
    const auto& text = value.as.text;
    return text.characters ? Bstr(std::u16string_view(text.characters, text.length)) : Bstr();
}

/// A copy with a NUL behind its end, for those who like it.
template <class Character>
const Character* copyOf(std::basic_string_view<Character> text) {
    auto* const copy = static_cast<Character*>(std::malloc((text.size() + 1) * sizeof(Character)));
    if (!copy) throw std::bad_alloc();
    copy[text.copy(copy, text.size())] = Character{};
    return copy;
}

void putText(tovera_value& target, const Bstr& text, unsigned flags) {
    const bool asUtf8 = (flags & TOVERA_AS_UTF8) != 0;
    target = tovera_of_type(asUtf8 ? TOVERA_UTF8 : TOVERA_TEXT);
    if (text.isNull()) return;
    if (asUtf8) {
        const auto bytes = toUtf8(text);
        target.as.utf8 = {copyOf<char>(bytes), bytes.size()};
    } else {
        target.as.text = {copyOf<char16_t>(text), text.length()};
    }
    target.owned = 1;
}

/// How each kind of value is put.
struct Putter {
    tovera_value& target;
    unsigned flags;

    void operator()(Empty) const {}
    void operator()(Null) const { target.type = TOVERA_NULL; }
    void operator()(I2 number) const { set(TOVERA_I2, target.as.i2, number); }
    void operator()(I4 number) const { set(TOVERA_I4, target.as.i4, number); }
    void operator()(R4 number) const { set(TOVERA_R4, target.as.r4, number); }
    void operator()(R8 number) const { set(TOVERA_R8, target.as.r8, number); }
    void operator()(Date moment) const { set(TOVERA_DATE, target.as.r8, moment.days); }
    void operator()(VariantBool truth) const { set(TOVERA_BOOL, target.as.i2, truth.raw); }
    void operator()(UI1 number) const { set(TOVERA_UI1, target.as.ui1, number); }
    void operator()(ErrorCode error) const { set(TOVERA_ERROR, target.as.i4, error.code); }
    void operator()(const ExactNumber& number) const {
        target.type = TOVERA_EXACT;
        target.as.exact = {number.low, number.high, number.decimals, number.isNegative ? UI1{1} : UI1{0}};
    }
    void operator()(const Bstr& text) const { putText(target, text, flags); }
    void operator()(const ObjectRef& object) const {
        target = tovera_of_object(handleOf(object));
        target.owned = 1;
    }
    void operator()(const StringArray& array) const {
        target = tovera_of_array(std::make_unique<tovera_array>(tovera_array{array}).release());
        target.owned = 1;
    }
    void operator()(const Reference&) const {}  // followed before

  private:
    template <class T>
    void set(uint16_t type, T& place, T value) const {
        target.type = type;
        place = value;
    }
};

}  // namespace

Variant plainValue(const tovera_value& value) {
    switch (value.type) {
        case TOVERA_EMPTY:
            return {};
        case TOVERA_NULL:
            return Null{};
        case TOVERA_I2:
            return value.as.i2;
        case TOVERA_I4:
            return value.as.i4;
        case TOVERA_R4:
            return value.as.r4;
        case TOVERA_R8:
            return value.as.r8;
        case TOVERA_DATE:
            return Date{value.as.r8};
        case TOVERA_TEXT:
        case TOVERA_UTF8:
            return textOf(value);
        case TOVERA_OBJECT:
            requireOwnThread(value.as.object);
            return objectOf(value.as.object);
        case TOVERA_ERROR:
            return ErrorCode{value.as.i4};
        case TOVERA_BOOL:
            return VariantBool::ofBits(value.as.i2);
        case TOVERA_EXACT:
            return ExactNumber{value.as.exact.low, value.as.exact.high, value.as.exact.decimals,
                               value.as.exact.negative != 0};
        case TOVERA_UI1:
            return value.as.ui1;
        case TOVERA_ARRAY:
            return value.as.array ? value.as.array->array : StringArray();
        case TOVERA_MISSING:
            return Variant::missing();
        default:
            raise(ErrorNumber::TypeMismatch);
    }
}

void put(tovera_value& target, const Variant& value, unsigned flags) {
    target = tovera_of_type(TOVERA_EMPTY);
    if (value.is<Reference>()) return put(target, dereferenced(value), flags);
    if (value.isMissing())
        target.type = TOVERA_MISSING;
    else
        std::visit(Putter{target, flags}, value.value());
}

void requireOwnThread(const tovera_object* handle) {
    constexpr auto wrongThread = static_cast<ReturnCode>(static_cast<I4>(0x8001010EU));
    if (handle && !handle->isOfThisThread())
        throw AutomationError(wrongThread, u"Cet objet appartient à un autre fil d'exécution",
                              componentTitle);
}

ObjectRef objectOf(const tovera_object* handle) {
    return handle ? handle->object : ObjectRef();
}

tovera_object* handleOf(const ObjectRef& object) {
    return object ? std::make_unique<tovera_object>(object).release() : nullptr;
}

}  // namespace tovera::c

using namespace tovera;

void tovera_clear(tovera_value* value) {
    if (!value) return;
    const auto old = std::exchange(*value, tovera_of_type(TOVERA_EMPTY));
    if (!old.owned) return;
    switch (old.type) {
        case TOVERA_TEXT:
            return std::free(const_cast<char16_t*>(old.as.text.characters));
        case TOVERA_UTF8:
            return std::free(const_cast<char*>(old.as.utf8.bytes));
        case TOVERA_OBJECT:
            return tovera_release(old.as.object);
        case TOVERA_ARRAY:
            return tovera_array_free(old.as.array);
        default:
            return;
    }
}
