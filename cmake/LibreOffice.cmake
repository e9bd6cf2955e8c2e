# The extension for LibreOffice, tovera.oxt. It is built where LibreOffice's development files are (libreoffice-dev), on
# this machine or in the root folder of another one: -DTOVERA_OFFICE_ROOT=FOLDER. Elsewhere it is left out.
set(TOVERA_OFFICE_ROOT "" CACHE PATH "Root folder of the system that has LibreOffice's development files")
set(office ${TOVERA_OFFICE_ROOT}/usr/lib/libreoffice)
set(office_headers ${TOVERA_OFFICE_ROOT}/usr/include/libreoffice)
set(office_libraries ${TOVERA_OFFICE_ROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE})
if(TOVERA_SANITIZE)
    return() # the office is not built for them
endif()
if(NOT EXISTS ${office}/sdk/bin/cppumaker.bin OR NOT EXISTS ${office}/program/types/offapi.rdb)
    message(STATUS "The LibreOffice extension is left out: no libreoffice-dev in ${TOVERA_OFFICE_ROOT}/usr")
    return()
endif()

# The names that extensions have for this kind of machine.
string(TOLOWER ${CMAKE_SYSTEM_PROCESSOR} TOVERA_OFFICE_PROCESSOR)
set(TOVERA_OFFICE_PLATFORM Linux_${TOVERA_OFFICE_PROCESSOR})
set(TOVERA_OFFICE_PLATFORM_NAME linux_${TOVERA_OFFICE_PROCESSOR})

# The types of the cell functions, and the headers of all types that the extension uses.
set(office_sources ${CMAKE_CURRENT_SOURCE_DIR}/src/libreoffice)
set(office_build ${CMAKE_CURRENT_BINARY_DIR}/libreoffice)
set(office_types ${office}/program/types.rdb ${office}/program/types/offapi.rdb)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${office_sources}/uno_types.txt)
file(STRINGS ${office_sources}/uno_types.txt wanted_types)
list(TRANSFORM wanted_types PREPEND "-T")
file(MAKE_DIRECTORY ${office_build}/headers ${office_build}/extension)
add_custom_command(OUTPUT ${office_build}/extension/cell_functions.rdb
    COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${office}/program ${office}/sdk/bin/unoidl-write.bin ${office_types}
            ${office_sources}/cell_functions.idl ${office_build}/extension/cell_functions.rdb
    DEPENDS ${office_sources}/cell_functions.idl VERBATIM)
add_custom_command(OUTPUT ${office_build}/headers.done
    COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${office}/program ${office}/sdk/bin/cppumaker.bin -Gc
            -O${office_build}/headers ${wanted_types} ${office_types} ${office_build}/extension/cell_functions.rdb
    COMMAND ${CMAKE_COMMAND} -E touch ${office_build}/headers.done
    DEPENDS ${office_build}/extension/cell_functions.rdb ${office_sources}/uno_types.txt VERBATIM)

# office_extension(LIBRARY SOURCE...): a component of the office.
function(office_extension library)
    add_library(${library} MODULE ${ARGN} ${office_build}/headers.done)
    set_target_properties(${library} PROPERTIES CXX_VISIBILITY_PRESET hidden BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "$ORIGIN")
    target_compile_definitions(${library} PRIVATE CPPU_ENV=gcc3 LINUX UNX GCC)
    # Some of the office's interfaces are called deprecated and have no successor.
    target_compile_options(${library} PRIVATE -Wno-deprecated-declarations)
    target_include_directories(${library} SYSTEM PRIVATE ${office_headers} ${office_build}/headers)
    target_link_libraries(${library} PRIVATE tovera_options ${office_libraries}/libuno_cppu.so.3
        ${office_libraries}/libuno_cppuhelpergcc3.so.3 ${office_libraries}/libuno_sal.so.3)
endfunction()

file(GLOB office_code CONFIGURE_DEPENDS ${office_sources}/*.cpp)
office_extension(tovera_office ${office_code})
set_target_properties(tovera_office PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${office_build}/extension)
target_link_libraries(tovera_office PRIVATE tovera_c)

# The extension: the component, the library that it stands on, and what tells the office about both.
foreach(file tovera.components CalcAddIns.xcu description.xml META-INF/manifest.xml)
    configure_file(${office_sources}/extension/${file} ${office_build}/extension/${file} @ONLY)
    list(APPEND extension_files ${file})
    list(APPEND extension_depends ${office_build}/extension/${file})
endforeach()
set(extension_library libtovera.so.${PROJECT_VERSION_MAJOR})
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/tovera.oxt
    COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:tovera_c> ${office_build}/extension/${extension_library}
    COMMAND ${CMAKE_COMMAND} -E chdir ${office_build}/extension ${CMAKE_COMMAND} -E tar cf ${CMAKE_BINARY_DIR}/tovera.oxt
            --format=zip ${extension_files} cell_functions.rdb libtovera_office.so ${extension_library}
    DEPENDS tovera_office tovera_c ${office_build}/extension/cell_functions.rdb ${extension_depends} VERBATIM)
add_custom_target(tovera_oxt ALL DEPENDS ${CMAKE_BINARY_DIR}/tovera.oxt)

if(TOVERA_TESTS)
    set(probe_sources ${CMAKE_CURRENT_SOURCE_DIR}/tests/libreoffice)
    set(probe_build ${office_build}/probe)
    office_extension(probe ${probe_sources}/probe.cpp)
    set_target_properties(probe PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${probe_build})
    configure_file(${probe_sources}/extension/probe.components ${probe_build}/probe.components COPYONLY)
    configure_file(${probe_sources}/extension/probe-manifest.xml ${probe_build}/META-INF/manifest.xml @ONLY)
    add_custom_command(OUTPUT ${office_build}/probe.oxt
        COMMAND ${CMAKE_COMMAND} -E chdir ${probe_build} ${CMAKE_COMMAND} -E tar cf ${office_build}/probe.oxt --format=zip
                probe.components META-INF/manifest.xml libprobe.so
        DEPENDS probe VERBATIM)
    # Steps of the program as Basic, for the transcripts.
    file(GLOB basic_steps_sources CONFIGURE_DEPENDS tools/basic_steps/*.cpp)
    add_executable(basic_steps ${basic_steps_sources})
    target_include_directories(basic_steps PRIVATE tools)
    target_link_libraries(basic_steps PRIVATE tovera_cli tovera_options)
    add_custom_target(tovera_oxt_probe ALL DEPENDS ${office_build}/probe.oxt)
endif()
