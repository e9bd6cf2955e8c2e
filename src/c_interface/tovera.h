#ifndef TOVERA_TOVERA_H
#define TOVERA_TOVERA_H

/* The component for C, and for whatever calls C functions: classes are created by ProgID, described, and
 * their members called by name or identifier.
 *
 *     tovera_object* date = tovera_create(NULL, "KADRELDLL.Cls_Date", NULL);
 *     tovera_value year = tovera_of_i4(2027), easter;
 *     if (tovera_call(date, "Paques", TOVERA_METHOD, &year, 1, &easter, NULL) == 0) ...
 *     tovera_clear(&easter);
 *     tovera_release(date);
 *
 * Names, help texts, messages and failures are UTF-8 that ends with a NUL. Texts as values have a length and
 * are UTF-16 or UTF-8, as the caller likes.
 *
 * What a value refers to belongs to who made it. The library copies what it is given, and never frees it.
 * What it puts into a value itself is marked as owned, and `tovera_clear` frees exactly that. */

#include <stddef.h>
#include <stdint.h>
#include <uchar.h>

#if defined(__GNUC__)
#define TOVERA_API __attribute__((visibility("default")))
#else
#define TOVERA_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- values ---- */

/* An object of the component or of the host; counted. */
typedef struct tovera_object tovera_object;
/* A one-dimensional array of texts. */
typedef struct tovera_array tovera_array;

/* What a value is; the numbers are Automation's own where it has one. */
enum tovera_type {
    TOVERA_EMPTY = 0,
    TOVERA_NULL = 1,
    TOVERA_I2 = 2,
    TOVERA_I4 = 3,
    TOVERA_R4 = 4,
    TOVERA_R8 = 5,
    TOVERA_DATE = 7,     /* `r8`: days from 30 December 1899 */
    TOVERA_TEXT = 8,     /* `text`: UTF-16 */
    TOVERA_OBJECT = 9,   /* `object`; NULL is nothing */
    TOVERA_ERROR = 10,   /* `i4` */
    TOVERA_BOOL = 11,    /* `i2`: -1 is true and 0 false */
    TOVERA_VARIANT = 12, /* in descriptions only: any of these */
    TOVERA_EXACT = 14,   /* `exact`: a number of up to 96 bits with decimals */
    TOVERA_UI1 = 17,
    TOVERA_UTF8 = 30,                /* `utf8`: a text as well */
    TOVERA_ARRAY = 0x2008,           /* `array` */
    TOVERA_TYPED_REFERENCE = 0x4000, /* `reference`: a variable that keeps the type it has */
    TOVERA_REFERENCE = 0x400C,       /* `reference`: a variable that takes any type */
    TOVERA_MISSING = 0x800A,         /* an argument left out */
    TOVERA_NOTHING = 0x7FFF          /* in descriptions only: a member without result */
};

typedef struct tovera_value {
    uint16_t type;  /* an enum tovera_type */
    uint16_t owned; /* set by the library: `tovera_clear` frees what the value refers to */
    uint32_t reserved;
    union {
        int16_t i2;
        int32_t i4;
        float r4;
        double r8;
        uint8_t ui1;
        struct {
            const char16_t* characters; /* NULL is the null text */
            size_t length;              /* in units of 16 bits */
        } text;
        struct {
            const char* bytes;
            size_t length;
        } utf8;
        struct {
            uint64_t low;
            uint32_t high;
            uint8_t decimals;
            uint8_t negative;
        } exact;
        tovera_object* object;
        tovera_array* array;
        struct tovera_value* reference; /* a variable of the caller, which outlives the call */
    } as;
} tovera_value;

/* Frees what the library has put into a value, and makes it empty. Any value may be cleared, more than once.
 */
TOVERA_API void tovera_clear(tovera_value* value);

static inline tovera_value tovera_of_type(uint16_t type) {
    tovera_value value = {0, 0, 0, {0}};
    value.type = type;
    return value;
}
static inline tovera_value tovera_of_i4(int32_t number) {
    tovera_value value = tovera_of_type(TOVERA_I4);
    value.as.i4 = number;
    return value;
}
static inline tovera_value tovera_of_r8(double number) {
    tovera_value value = tovera_of_type(TOVERA_R8);
    value.as.r8 = number;
    return value;
}
static inline tovera_value tovera_of_date(double days) {
    tovera_value value = tovera_of_type(TOVERA_DATE);
    value.as.r8 = days;
    return value;
}
static inline tovera_value tovera_of_bool(int truth) {
    tovera_value value = tovera_of_type(TOVERA_BOOL);
    value.as.i2 = (int16_t)(truth ? -1 : 0);
    return value;
}
static inline tovera_value tovera_of_utf8(const char* bytes, size_t length) {
    tovera_value value = tovera_of_type(TOVERA_UTF8);
    value.as.utf8.bytes = bytes;
    value.as.utf8.length = length;
    return value;
}
static inline tovera_value tovera_of_text(const char16_t* characters, size_t length) {
    tovera_value value = tovera_of_type(TOVERA_TEXT);
    value.as.text.characters = characters;
    value.as.text.length = length;
    return value;
}
static inline tovera_value tovera_of_object(tovera_object* object) {
    tovera_value value = tovera_of_type(TOVERA_OBJECT);
    value.as.object = object;
    return value;
}
static inline tovera_value tovera_of_array(tovera_array* array) {
    tovera_value value = tovera_of_type(TOVERA_ARRAY);
    value.as.array = array;
    return value;
}
/* A variable passed by reference: the call changes it, and may put an owned value in its place. */
static inline tovera_value tovera_by_reference(tovera_value* variable) {
    tovera_value value = tovera_of_type(TOVERA_REFERENCE);
    value.as.reference = variable;
    return value;
}
static inline tovera_value tovera_by_typed_reference(tovera_value* variable) {
    tovera_value value = tovera_by_reference(variable);
    value.type = TOVERA_TYPED_REFERENCE;
    return value;
}

/* A copy that the value owns, for what a host's function gives as its result. 0, or 7 without memory. */
TOVERA_API int32_t tovera_copy_utf8(tovera_value* value, const char* bytes, size_t length);
TOVERA_API int32_t tovera_copy_text(tovera_value* value, const char16_t* characters, size_t length);

/* ---- arrays of texts ---- */

/* An array that has not been dimensioned; NULL without memory. */
TOVERA_API tovera_array* tovera_array_new(void);
TOVERA_API void tovera_array_free(tovera_array* array);
/* New bounds, both included, with all elements null. 0, 9 (impossible bounds), 10 (fixed) or 7. */
TOVERA_API int32_t tovera_array_redim(tovera_array* array, int32_t lower, int32_t upper);
/* From now on the bounds are fixed. */
TOVERA_API void tovera_array_fix(tovera_array* array);
/* 0, or 9 for an array that has not been dimensioned. */
TOVERA_API int32_t tovera_array_bounds(const tovera_array* array, int32_t* lower, int32_t* upper);
/* An element as a text of its own, UTF-16 or (with TOVERA_AS_UTF8) UTF-8; 0, 9 (outside the bounds) or 7. */
TOVERA_API int32_t tovera_array_get(const tovera_array* array, int32_t index, unsigned flags,
                                    tovera_value* text);
/* Any value that is a text. 0, 9, 7, or 13 for what isn't a text. */
TOVERA_API int32_t tovera_array_set(tovera_array* array, int32_t index, const tovera_value* text);

/* ---- failures ---- */

typedef struct tovera_failure {
    int32_t number;    /* the Automation error, or the whole code of what isn't one; 0 is success */
    int32_t code;      /* the failure code (HRESULT) */
    int32_t argument;  /* the argument at fault before the member ran, from 0; else -1 */
    char* description; /* NULL where there is none */
    char* source;
} tovera_failure;

/* Frees the texts and makes it a success. Functions that take a failure fill it anew; it may be NULL there.
 */
TOVERA_API void tovera_failure_clear(tovera_failure* failure);
/* For functions of the host: tells a failure by its number and texts; those may be NULL. Gives `number`. */
TOVERA_API int32_t tovera_failure_set(tovera_failure* failure, int32_t number, const char* description,
                                      const char* source);
/* The component's own sentence for an error number; NULL where it has none. */
TOVERA_API const char* tovera_description_of(int32_t number);

/* ---- calls ---- */

/* Ways of calling a member, to be combined; a late-bound read is TOVERA_METHOD | TOVERA_READ. */
enum tovera_call_flags {
    TOVERA_METHOD = 1,
    TOVERA_READ = 2,
    TOVERA_WRITE = 4,
    TOVERA_ASSIGN = 8,     /* assign by reference */
    TOVERA_AS_UTF8 = 0x100 /* texts come back as UTF-8 instead of UTF-16 */
};

typedef struct tovera_host tovera_host;

/* A new object of the class with this ProgID, or class name alone. NULL, with a failure told, where there is
 * none (429). The services of the object are the host's; NULL stands for those of the system. */
TOVERA_API tovera_object* tovera_create(tovera_host* host, const char* name, tovera_failure* failure);
TOVERA_API void tovera_retain(tovera_object* object);
/* NULL may be released. The last release may come from any thread, while nobody uses the object or what it
 * holds. */
TOVERA_API void tovera_release(tovera_object* object);

/* The identifier of a member, its name in any case; 0, or 438 where the object hasn't got it. */
TOVERA_API int32_t tovera_member_named(tovera_object* object, const char* name, int32_t* member);

/* Calls a member, and gives the failure's number, or 0. Arguments stand in their order, a written value last.
 * The result is set on every path and is the caller's to clear; it is none of the arguments, and NULL where
 * it isn't wanted. Variables by reference have their new values afterwards, after a failure as well. An
 * object belongs to the thread that made it: elsewhere the call fails with the code 0x8001010E. */
TOVERA_API int32_t tovera_invoke(tovera_object* object, int32_t member, unsigned flags,
                                 const tovera_value* arguments, size_t count, tovera_value* result,
                                 tovera_failure* failure);
/* The same by name. */
TOVERA_API int32_t tovera_call(tovera_object* object, const char* name, unsigned flags,
                               const tovera_value* arguments, size_t count, tovera_value* result,
                               tovera_failure* failure);

/* ---- objects of the host ---- */

typedef struct tovera_interface_id {
    uint32_t data1;
    uint16_t data2;
    uint16_t data3;
    uint8_t data4[8];
} tovera_interface_id;

/* What a form, a control or a session of the host can do. Each function gets the data that the object was
 * made with. A function that fails gives an error number after `tovera_failure_set`; it must not leave by an
 * exception or a jump. */
typedef struct tovera_object_functions {
    size_t size;    /* sizeof(tovera_object_functions) */
    unsigned flags; /* TOVERA_AS_UTF8: the values that its functions get are so */
    /* The last reference has gone. May be NULL. */
    void (*drop)(void* data);
    /* The identifier of a member, its name in any case; 0 or 438. Identifier 0 is the default member. */
    int32_t (*member_named)(void* data, const char* name, int32_t* member);
    /* Calls a member. The arguments are the library's; a TOVERA_REFERENCE may be assigned to. The result is
     * copied, then cleared. */
    int32_t (*invoke)(void* data, int32_t member, unsigned flags, tovera_value* arguments, size_t count,
                      tovera_value* result, tovera_failure* failure);
    /* A walk through the elements of a collection, for `next` and `end`; NULL, with a failure told, where
     * there can be none. The three may be NULL: then the object is no collection (451). */
    void* (*elements)(void* data, tovera_failure* failure);
    /* The next element; 1 where there is one, 0 behind the last one, -1 with a failure told. */
    int (*next)(void* walk, tovera_value* element, tovera_failure* failure);
    void (*end)(void* walk);
    /* The object through another of its interfaces, with a reference of its own; NULL where it hasn't got it
     * (430). The function may be NULL: then it has none. */
    tovera_object* (*query)(void* data, const tovera_interface_id* interface_id);
} tovera_object_functions;

/* An object of the host, with one reference; NULL without memory. The functions outlive it. */
TOVERA_API tovera_object* tovera_object_new(const tovera_object_functions* functions, void* data);
/* The data of an object that was made with these functions; NULL for any other. */
TOVERA_API void* tovera_object_data(const tovera_object* object, const tovera_object_functions* functions);

/* ---- services of the host ---- */

/* What the host does for the objects that it creates. A function that is NULL is the system's. */
typedef struct tovera_services {
    size_t size; /* sizeof(tovera_services) */
    /* Shows a box with an OK button and gives the number of the pressed button (1); a negative number leaves
     * the box to the system. `flags` are 0, 16 (stop) or 64 (information). */
    int32_t (*message_box)(void* data, const char* text, int32_t flags, const char* title);
    /* One pass over the events that wait for the thread; while a member waits it is called every 20 ms. 0, or
     * the number of an error that ends the member. */
    int32_t (*pump)(void* data);
    /* An object by ProgID, with a reference of its own; NULL where the host hasn't got it, then the system is
     * asked. */
    tovera_object* (*create_object)(void* data, const char* prog_id);
} tovera_services;

/* NULL without memory. Functions and data outlive the host and the objects made by it. */
TOVERA_API tovera_host* tovera_host_new(const tovera_services* services, void* data);
/* The objects made by it live on. NULL may be freed. */
TOVERA_API void tovera_host_free(tovera_host* host);

/* ---- descriptions ---- */

enum tovera_mode { TOVERA_BY_VALUE = 0, TOVERA_BY_REFERENCE = 1, TOVERA_OPTIONAL = 2 };

typedef struct tovera_parameter {
    const char* name;
    uint16_t type; /* an enum tovera_type */
    uint16_t mode; /* an enum tovera_mode; optional ones are by reference as well */
} tovera_parameter;

typedef struct tovera_member {
    const char* name;
    const char* help;
    const char* signature; /* in words: `Paques(annee: VARIANT by reference): DATE` */
    int32_t id;
    uint16_t kind;   /* TOVERA_METHOD, TOVERA_READ, TOVERA_WRITE or TOVERA_ASSIGN; those of one property have
                        one id */
    uint16_t result; /* an enum tovera_type */
    size_t parameter_count;
    const tovera_parameter* parameters;
} tovera_member;

typedef struct tovera_class {
    const char* name;
    const char* prog_id;
    const char* help;
    size_t member_count;
    const tovera_member* const* members; /* in the order of their publication */
} tovera_class;

/* The classes in the order of their publication; valid for the life of the process. */
TOVERA_API const tovera_class* const* tovera_classes(size_t* count);
/* The class with this ProgID, or class name alone, in any case; NULL where there is none. */
TOVERA_API const tovera_class* tovera_find_class(const char* name);
/* The version of the library: "1.0.0". */
TOVERA_API const char* tovera_version(void);

#ifdef __cplusplus
}
#endif

#endif
