# What `cmake --install` gives: library, headers, program, and the package files for CMake and pkg-config.
include(CMakePackageConfigHelpers)

install(TARGETS tovera EXPORT tovera-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS tovera_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tovera
    FILES_MATCHING PATTERN "*.h"
    PATTERN "cli" EXCLUDE PATTERN "automation" EXCLUDE
    PATTERN "platform/linux" EXCLUDE PATTERN "platform/windows" EXCLUDE)
install(EXPORT tovera-targets NAMESPACE tovera:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tovera)

configure_package_config_file(cmake/tovera-config.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/tovera-config.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tovera)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/tovera-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tovera-config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/tovera-config-version.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tovera)

# Found relative to its own place, so that the package can be installed under any prefix.
file(RELATIVE_PATH TOVERA_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/tovera.pc.in ${CMAKE_CURRENT_BINARY_DIR}/tovera.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tovera.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES docs/tovera.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES scripts/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tovera)
