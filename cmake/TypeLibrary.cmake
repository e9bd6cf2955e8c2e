# The published interface from the class table: IDL, type library, header for C++ clients, manifest. The texts
# come from a program of the build machine, made in a native build that is set up here when there is none.
set(TOVERA_HOST_BUILD ${CMAKE_SOURCE_DIR}/build/linux CACHE PATH "Native build that makes the interface's texts")
find_program(TOVERA_WIDL NAMES ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-widl i686-w64-mingw32-widl widl REQUIRED)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(library_kind --win64)
    set(architecture amd64)
else()
    set(library_kind --win32)
    set(architecture x86)
endif()

if(NOT EXISTS ${TOVERA_HOST_BUILD}/CMakeCache.txt)
    execute_process(COMMAND ${CMAKE_COMMAND} --preset linux -B ${TOVERA_HOST_BUILD}
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR} COMMAND_ERROR_IS_FATAL ANY)
endif()

set(texts ${TOVERA_HOST_BUILD}/interface_texts)
set(idl ${CMAKE_SOURCE_DIR}/tools/interface/idl)
# The compiler writes the time into the library, unless it is given one.
set(widl ${CMAKE_COMMAND} -E env WIDL_TIME_OVERRIDE=0 ${TOVERA_WIDL} ${library_kind} -I ${idl})

add_custom_target(interface_texts BYPRODUCTS ${texts}
    COMMAND ${CMAKE_COMMAND} --build ${TOVERA_HOST_BUILD} --target interface_texts
    COMMENT "Native build of the interface's texts" USES_TERMINAL)

set(made ${CMAKE_BINARY_DIR}/interface)
file(MAKE_DIRECTORY ${made})
set(TOVERA_TYPE_LIBRARY ${CMAKE_BINARY_DIR}/KADRELDLL.tlb)
add_custom_command(OUTPUT ${made}/stdole2.tlb
    COMMAND ${widl} -t -o ${made}/stdole2.tlb ${idl}/stdole2.idl
    DEPENDS ${idl}/stdole2.idl ${idl}/oaidl.idl)
add_custom_command(OUTPUT ${TOVERA_TYPE_LIBRARY}
    COMMAND ${texts} idl > ${made}/library.idl
    COMMAND ${widl} -N -t -L ${made} -o ${made}/compiled.tlb ${made}/library.idl
    COMMAND ${texts} finish ${made}/compiled.tlb ${TOVERA_TYPE_LIBRARY}
    DEPENDS interface_texts ${texts} ${made}/stdole2.tlb)
# Early-bound C++ clients are compiled against this header. It tells the name that its source was given by.
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/KADRELDLL.h
    COMMAND ${texts} header-idl > ${made}/KADRELDLL.idl
    COMMAND ${widl} -N -h -L . -o ../KADRELDLL.h KADRELDLL.idl
    WORKING_DIRECTORY ${made}
    DEPENDS interface_texts ${texts} ${made}/stdole2.tlb)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/TOVERA.manifest
    COMMAND ${texts} manifest ${architecture} > ${CMAKE_BINARY_DIR}/TOVERA.manifest
    DEPENDS interface_texts ${texts})
add_custom_target(type_library ALL
    DEPENDS ${TOVERA_TYPE_LIBRARY} ${CMAKE_BINARY_DIR}/KADRELDLL.h ${CMAKE_BINARY_DIR}/TOVERA.manifest)
