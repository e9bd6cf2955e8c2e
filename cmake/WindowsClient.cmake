# add_client(PROGRAM SOURCE...): a client of the component, as hosts are. It knows its file, its registration and the
# header that comes with it, and nothing of its sources.
function(add_client program)
    add_executable(${program} ${ARGN})
    target_include_directories(${program} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/tests/windows)
    target_include_directories(${program} SYSTEM PRIVATE ${CMAKE_BINARY_DIR})
    target_link_libraries(${program} PRIVATE ole32 oleaut32 uuid)
    target_compile_options(${program} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Werror -Wno-restrict)
    target_compile_definitions(${program} PRIVATE UNICODE WINVER=0x0600 _WIN32_WINNT=0x0600)
    target_link_options(${program} PRIVATE -static)
    add_dependencies(${program} type_library)
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
endfunction()
