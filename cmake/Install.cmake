# What `cmake --install` gives: the program for everyone, and library, headers and package files for developers.
include(CMakePackageConfigHelpers)

install(TARGETS tovera_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(FILES docs/tovera.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
install(FILES scripts/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tovera COMPONENT program)

# The archive for C++, and the interface for C as a shared library.
install(TARGETS tovera EXPORT tovera-targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
install(TARGETS tovera_c EXPORT tovera-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT dev
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES src/c_interface/tovera.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tovera COMPONENT dev)
install(CODE "execute_process(COMMAND \${CMAKE_COMMAND} -DFROM=${CMAKE_SOURCE_DIR}/src
    -DTO=\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}/tovera
    -P ${CMAKE_SOURCE_DIR}/cmake/InstallHeaders.cmake COMMAND_ERROR_IS_FATAL ANY)" COMPONENT dev)
install(EXPORT tovera-targets NAMESPACE tovera:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tovera COMPONENT dev)

configure_package_config_file(cmake/tovera-config.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/tovera-config.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tovera)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/tovera-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tovera-config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/tovera-config-version.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tovera COMPONENT dev)

# Found relative to its own place, so that the package can be installed under any prefix.
file(RELATIVE_PATH TOVERA_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(language tovera tovera-c)
    configure_file(cmake/${language}.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${language}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${language}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endforeach()

# Debian's packages: `cpack` in the build folder. Libraries that single members stand on are bound when they are called.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tovera)
set(CPACK_PACKAGE_CONTACT "TOVERA <tovera@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL program library dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "Utility functions with French names and messages
Numbers in French words, calendar, angles, registry and INI files, translation
files, desktop, network, encryption, data sources, sound, mouse and keyboard,
called by name from the shell.")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Utility functions with French names and messages (development)
The static library for C++, the headers for C++ and C, and the files for CMake
and pkg-config.")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "Utility functions with French names and messages (C library)
The library for programs in C and for languages that call C functions.")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME tovera)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libtovera${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/cmake/triggers)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libtovera${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME tovera-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(DPKG_SHLIBDEPS)
    set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
endif()
foreach(package PROGRAM LIBRARY)
    set(CPACK_DEBIAN_${package}_PACKAGE_RECOMMENDS "liblmdb0")
    set(CPACK_DEBIAN_${package}_PACKAGE_SUGGESTS
        "libglib2.0-0, libcurl4, libssl3, libgstreamer1.0-0, gstreamer1.0-plugins-good, libxcb1, libxcb-xfixes0, libxcb-xkb1, libxcb-randr0, libodbc2, odbc-mdbtools, samba")
endforeach()
if(TARGET tovera_python)
    list(APPEND CPACK_COMPONENTS_ALL python)
    set(CPACK_COMPONENT_PYTHON_DESCRIPTION "Utility functions with French names and messages (Python)
The package tovera for Python 3.11 and later.")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-tovera)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        "libtovera${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), python3 (>= 3.11)")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
        "${CMAKE_CURRENT_SOURCE_DIR}/cmake/python/postinst;${CMAKE_CURRENT_SOURCE_DIR}/cmake/python/prerm")
endif()
include(CPack)
