#include "c_interface/failures.h"
#include "c_interface/handles.h"
#include "c_interface/values.h"
#include "frame/utf8.h"

using namespace tovera;

int32_t tovera_copy_utf8(tovera_value* value, const char* bytes, size_t length) {
    return c::guarded(nullptr, [&] {
        c::put(*value, Bstr(fromUtf8({bytes, length})), TOVERA_AS_UTF8);
        return 0;
    });
}

int32_t tovera_copy_text(tovera_value* value, const char16_t* characters, size_t length) {
    return c::guarded(nullptr, [&] {
        c::put(*value, Bstr(std::u16string_view(characters, length)), 0);
        return 0;
    });
}

tovera_array* tovera_array_new(void) {
    tovera_array* made = nullptr;
    c::guarded(nullptr, [&] {
        made = std::make_unique<tovera_array>().release();
        return 0;
    });
    return made;
}

void tovera_array_free(tovera_array* array) {
    const std::unique_ptr<tovera_array> freed(array);
}

int32_t tovera_array_redim(tovera_array* array, int32_t lower, int32_t upper) {
    return c::guarded(nullptr, [&] {
        array->array.redim(lower, upper);
        return 0;
    });
}

void tovera_array_fix(tovera_array* array) {
    array->array = std::move(array->array).fixed();
}

int32_t tovera_array_bounds(const tovera_array* array, int32_t* lower, int32_t* upper) {
    return c::guarded(nullptr, [&] {
        *lower = array->array.lowerBound();
        *upper = array->array.upperBound();
        return 0;
    });
}

int32_t tovera_array_get(const tovera_array* array, int32_t index, unsigned flags, tovera_value* text) {
    return c::guarded(nullptr, [&] {
        c::put(*text, array->array.at(index), flags);
        return 0;
    });
}

int32_t tovera_array_set(tovera_array* array, int32_t index, const tovera_value* text) {
    return c::guarded(nullptr, [&] {
        const auto value = c::plainValue(*text);
        const auto* const characters = value.as<Bstr>();
        if (!characters) raise(ErrorNumber::TypeMismatch);
        array->array.at(index) = *characters;
        return 0;
    });
}
