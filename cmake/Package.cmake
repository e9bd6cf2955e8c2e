# What Windows users get, from the build of either bitness: the component and its manifest in a folder of their own, and
# what serves both. scripts/package-windows makes one zip of the two.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(component_folder x64)
else()
    set(component_folder x86)
endif()
install(TARGETS tovera_component LIBRARY DESTINATION ${component_folder})
install(TARGETS tovera_program RUNTIME DESTINATION ${component_folder})
install(FILES ${CMAKE_BINARY_DIR}/TOVERA.manifest DESTINATION ${component_folder})
install(FILES ${CMAKE_BINARY_DIR}/KADRELDLL.h DESTINATION .)
install(FILES examples/windows/register.cmd examples/windows/unregister.cmd examples/windows/LISEZMOI.txt
    DESTINATION .)
install(DIRECTORY examples/windows/ DESTINATION examples
    PATTERN "*.cmd" EXCLUDE PATTERN "LISEZMOI.txt" EXCLUDE)
install(FILES docs/windows.md DESTINATION docs)
install(DIRECTORY docs/reference DESTINATION docs)
