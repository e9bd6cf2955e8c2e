/* A first use from C: create by ProgID, call by name, a variable by reference, a failure, message boxes of one's own. */
#include <stdio.h>
#include <string.h>
#include <tovera/tovera.h>

static void print(const tovera_value* value) {
    if (value->type == TOVERA_UTF8) printf("%.*s\n", (int)value->as.utf8.length, value->as.utf8.bytes);
    if (value->type == TOVERA_R4) printf("%g\n", (double)value->as.r4);
    if (value->type == TOVERA_R8) printf("%g\n", value->as.r8);
}

static int32_t show(void* data, const char* text, int32_t flags, const char* title) {
    (void)data, (void)flags;
    printf("<%s> %s\n", title, text);
    return 1;
}

int main(void) {
    tovera_value result;
    tovera_failure failure;

    /* A property, and a number in words. */
    tovera_object* words = tovera_create(NULL, "KADRELDLL.Cls_Conversion", NULL);
    tovera_value currency = tovera_of_utf8("euro", 4);
    tovera_call(words, "IntituleMonnaie", TOVERA_WRITE, &currency, 1, NULL, NULL);
    tovera_value amount[] = {tovera_of_i4(71), tovera_of_bool(1)};
    tovera_call(words, "ConvertirNombreEnLettre", TOVERA_METHOD | TOVERA_AS_UTF8, amount, 2, &result, NULL);
    print(&result);
    tovera_clear(&result);

    /* A call with too many arguments. */
    tovera_value surplus[] = {tovera_of_i4(1), tovera_of_bool(0), tovera_of_i4(3)};
    if (tovera_call(words, "ConvertirNombreEnLettre", TOVERA_METHOD, surplus, 3, NULL, &failure) != 0)
        printf("%d: %s\n", (int)failure.number, failure.description);
    tovera_failure_clear(&failure);
    tovera_release(words);

    /* A variable by reference. */
    tovera_object* angles = tovera_create(NULL, "Cls_Math", NULL);
    tovera_value angle = tovera_of_r8(100), reference = tovera_by_reference(&angle);
    tovera_call(angles, "MesurePrincipale", TOVERA_METHOD, &reference, 1, &result, NULL);
    print(&angle);
    tovera_clear(&angle);
    tovera_clear(&result);
    tovera_release(angles);

    /* Message boxes of the host. */
    const tovera_services services = {sizeof services, show, NULL, NULL};
    tovera_host* host = tovera_host_new(&services, NULL);
    tovera_object* registry = tovera_create(host, "Cls_InitREG", NULL);
    tovera_value path = tovera_of_utf8("SOFTWARE\\Tovera", strlen("SOFTWARE\\Tovera"));
    tovera_value name = tovera_of_utf8("x", 1);
    tovera_value arguments[] = {path, name};
    tovera_call(registry, "LireREG_STRING", TOVERA_METHOD | TOVERA_AS_UTF8, arguments, 2, &result, NULL);
    tovera_clear(&result);
    tovera_release(registry);
    tovera_host_free(host);
    return 0;
}
