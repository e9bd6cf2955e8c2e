# The Python package: build/<preset>/python/tovera. It is left out where Python's headers are not installed. The system's
# Python is taken unless another one is named; with the stable interface the module serves later ones as well.
if(NOT DEFINED Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python3_EXECUTABLE /usr/bin/python3)
endif()
find_package(Python3 3.11 COMPONENTS Interpreter Development.Module QUIET)
if(NOT Python3_Development.Module_FOUND)
    message(STATUS "The Python package is left out: no headers of Python 3.11 or later (package python3-dev)")
    return()
endif()

file(GLOB python_module CONFIGURE_DEPENDS src/python/*.cpp)
file(GLOB python_files CONFIGURE_DEPENDS src/python/tovera/*.py src/python/tovera/py.typed)
set(python_package ${CMAKE_BINARY_DIR}/python/tovera)
add_library(tovera_python MODULE ${python_module})
if(TOVERA_SANITIZE)
    # The exception that ends a thread is no object, but is caught by reference.
    set_source_files_properties(${python_module} PROPERTIES COMPILE_OPTIONS -fno-sanitize=null)
endif()
target_compile_definitions(tovera_python PRIVATE Py_LIMITED_API=0x030B0000)
target_include_directories(tovera_python SYSTEM PRIVATE ${Python3_INCLUDE_DIRS})
target_link_libraries(tovera_python PRIVATE tovera_c tovera_options)
set_target_properties(tovera_python PROPERTIES
    OUTPUT_NAME _tovera PREFIX "" SUFFIX .abi3.so CXX_VISIBILITY_PRESET hidden
    LIBRARY_OUTPUT_DIRECTORY ${python_package})
if(TOVERA_WHEEL)
    set_target_properties(tovera_python PROPERTIES INSTALL_RPATH $ORIGIN)
endif()

# The stubs are made by the module itself, which under the sanitizers can't be loaded just so.
set(python_stubs ${Python3_EXECUTABLE} -B ${CMAKE_SOURCE_DIR}/tools/python/stubs.py ${CMAKE_BINARY_DIR}/python)
if(TOVERA_SANITIZE)
    set(python_stubs ${CMAKE_COMMAND} -E true)
endif()
add_custom_command(TARGET tovera_python POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy ${python_files} ${python_package}
    COMMAND ${python_stubs})
set_property(TARGET tovera_python APPEND PROPERTY
    LINK_DEPENDS ${python_files} ${CMAKE_SOURCE_DIR}/tools/python/stubs.py)

set(TOVERA_PYTHON_FOLDER lib/python3/dist-packages CACHE STRING "Where Python packages are installed")
install(TARGETS tovera_python LIBRARY DESTINATION ${TOVERA_PYTHON_FOLDER}/tovera COMPONENT python)
install(FILES ${python_files} ${python_package}/__init__.pyi
    DESTINATION ${TOVERA_PYTHON_FOLDER}/tovera COMPONENT python)
