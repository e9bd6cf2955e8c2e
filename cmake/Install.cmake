# What `cmake --install` gives: the program for everyone, and library, headers and package files for developers.
include(CMakePackageConfigHelpers)

install(TARGETS tovera_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(FILES docs/tovera.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
install(FILES scripts/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tovera COMPONENT program)

install(TARGETS tovera EXPORT tovera-targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
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
configure_file(cmake/tovera.pc.in ${CMAKE_CURRENT_BINARY_DIR}/tovera.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tovera.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

# Debian's packages: `cpack` in the build folder. Libraries that single members stand on are bound when they are called.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tovera)
set(CPACK_PACKAGE_CONTACT "TOVERA <tovera@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL program dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "Utility functions with French names and messages
Numbers in French words, calendar, angles, registry and INI files, translation
files, desktop, network, encryption, data sources, sound, mouse and keyboard,
called by name from the shell.")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Utility functions with French names and messages (C++ library)
The static library of tovera, its headers, and its files for CMake and
pkg-config.")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME tovera)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME tovera-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(DPKG_SHLIBDEPS)
    set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
endif()
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "liblmdb0")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS
    "libglib2.0-0, libcurl4, libssl3, libgstreamer1.0-0, gstreamer1.0-plugins-good, libxcb1, libxcb-xfixes0, libxcb-xkb1, libxcb-randr0, libodbc2, odbc-mdbtools, samba")
include(CPack)
