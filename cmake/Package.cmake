# The zip for Windows users: the component, how to register it, its description, and examples.
install(TARGETS tovera_component LIBRARY DESTINATION .)
install(FILES ${CMAKE_BINARY_DIR}/KADRELDLL.h ${CMAKE_BINARY_DIR}/TOVERA.manifest DESTINATION .)
install(FILES examples/windows/register.cmd examples/windows/unregister.cmd examples/windows/LISEZMOI.txt
    DESTINATION .)
install(DIRECTORY examples/windows/ DESTINATION examples
    PATTERN "*.cmd" EXCLUDE PATTERN "LISEZMOI.txt" EXCLUDE)
install(FILES docs/windows.md DESTINATION docs)
install(DIRECTORY docs/reference DESTINATION docs)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME TOVERA)
set(CPACK_PACKAGE_FILE_NAME TOVERA-${PROJECT_VERSION}-win32)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)
include(CPack)
