# The Windows home: the portable logic with the real ports, and the component.
enable_language(RC)

# A component of this kind stays small: sections let the linker drop what nobody calls. Of 32 bits, hosts call with a
# stack that is aligned to 4 bytes only, and names of functions bear an underscore and the size of their arguments.
target_compile_options(tovera_options INTERFACE -Os -ffunction-sections -fdata-sections)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(tovera_options INTERFACE -mstackrealign)
    set(kill_at --kill-at)
    set(of_the_linker "_")
    set(wrapped_import _imp__GetModuleHandleA@4)
else()
    set(wrapped_import __imp_GetModuleHandleA)
endif()

# The Automation library costs as much to load as all the rest, and an object is made without it.
set(automation_library ${CMAKE_BINARY_DIR}/liboleaut32_at_first_call.a)
set(automation_functions ${CMAKE_CURRENT_SOURCE_DIR}/src/platform/windows/oleaut32.def)
set(bound_functions ${CMAKE_BINARY_DIR}/oleaut32.def)
file(READ ${automation_functions} definitions)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    string(REGEX REPLACE "@[0-9]+" "" definitions "${definitions}")
endif()
file(CONFIGURE OUTPUT ${bound_functions} CONTENT "${definitions}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${automation_functions})
add_custom_command(OUTPUT ${automation_library}
    COMMAND ${CMAKE_DLLTOOL} ${kill_at} --temp-prefix oleaut32_at_first_call
        --input-def ${bound_functions} --output-delaylib ${automation_library}
    DEPENDS ${bound_functions})
add_custom_target(automation_library DEPENDS ${automation_library})
# What a function does before the library is loaded is found through a table only, which keeps nothing alive.
file(STRINGS ${automation_functions} calls_before_loading REGEX "@")
list(TRANSFORM calls_before_loading STRIP)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(TRANSFORM calls_before_loading REPLACE "@.*" "")
endif()
list(TRANSFORM calls_before_loading PREPEND "LINKER:--undefined,${of_the_linker}")

file(GLOB layer CONFIGURE_DEPENDS src/platform/windows/*.cpp)
add_library(tovera_logic STATIC ${logic} ${layer})
add_dependencies(tovera_logic automation_library)
# Before ole32, which has some of the same functions, but on newer systems only.
target_link_libraries(tovera_logic PUBLIC tovera_options ${automation_library} ole32 uuid advapi32 gdi32)
target_link_options(tovera_logic INTERFACE ${calls_before_loading})
target_compile_definitions(tovera_logic PUBLIC
    WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0600 _WIN32_WINNT=0x0600)

# What every call runs through is worth its size.
file(GLOB call_path CONFIGURE_DEPENDS src/frame/*.cpp src/catalogue/*.cpp src/automation/*.cpp
    src/platform/windows/variants.cpp src/platform/windows/incoming_values.cpp
    src/platform/windows/caller_variables.cpp)
set_source_files_properties(${call_path} PROPERTIES COMPILE_OPTIONS -O3)

include(TypeLibrary)

file(GLOB shell CONFIGURE_DEPENDS src/automation/*.cpp)
add_library(tovera_component MODULE ${shell} src/automation/tovera.rc src/automation/tovera.def)
target_link_libraries(tovera_component PRIVATE tovera_logic)
add_dependencies(tovera_component type_library)
set_property(SOURCE src/automation/tovera.rc APPEND PROPERTY OBJECT_DEPENDS ${TOVERA_TYPE_LIBRARY})
set_property(SOURCE src/automation/tovera.rc APPEND PROPERTY INCLUDE_DIRECTORIES ${CMAKE_BINARY_DIR})
# The same sources give the same bytes: nothing in the file tells when it was made. Aligned to pages, the file
# is mapped at loading instead of being read. The wrapped import is that of no_shared_libgcc.cpp.
target_link_options(tovera_component PRIVATE -static -s
    LINKER:--wrap,${wrapped_import},--kill-at,--enable-stdcall-fixup,--gc-sections,--dynamicbase,--nxcompat,--no-insert-timestamp,--file-alignment,4096)
set_target_properties(tovera_component PROPERTIES
    OUTPUT_NAME TOVERA PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
include(Program)
target_link_options(tovera_program PRIVATE -static -s LINKER:--gc-sections,--dynamicbase,--nxcompat,--no-insert-timestamp)
include(Package)
