# The program, the same in both homes: what it is made of, and itself.
if(WIN32)
    set(program_home tovera_logic)
else()
    set(program_home tovera)
endif()
file(GLOB program CONFIGURE_DEPENDS src/cli/*.cpp)
list(FILTER program EXCLUDE REGEX "/main\\.cpp$")
add_library(tovera_cli STATIC ${program})
target_link_libraries(tovera_cli PUBLIC ${program_home} PRIVATE tovera_options)
add_executable(tovera_program src/cli/main.cpp)
target_link_libraries(tovera_program PRIVATE tovera_cli tovera_options)
set_target_properties(tovera_program PROPERTIES
    OUTPUT_NAME tovera RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
