# The interface for C and for the languages that call C functions: libtovera.so.1, with the home in it and nothing of C++
# to be seen from outside.
file(GLOB c_interface CONFIGURE_DEPENDS src/c_interface/*.cpp)
add_library(tovera_c SHARED ${c_interface})
add_library(tovera::c ALIAS tovera_c)
target_compile_definitions(tovera_c PRIVATE TOVERA_VERSION="${PROJECT_VERSION}")
target_link_libraries(tovera_c PRIVATE tovera tovera_options)
target_link_options(tovera_c PRIVATE -Wl,--version-script=${CMAKE_CURRENT_SOURCE_DIR}/src/c_interface/tovera.map)
set_target_properties(tovera_c PROPERTIES OUTPUT_NAME tovera VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/src/c_interface/tovera.map)
target_include_directories(tovera_c INTERFACE $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/src/c_interface>)
