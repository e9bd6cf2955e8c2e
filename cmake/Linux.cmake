# Headers of libraries that are bound at run time: what isn't here is built without.
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
    foreach(library gio-unix-2.0 gstreamer-1.0)
        pkg_check_modules(headers_${library} QUIET ${library})
        target_include_directories(tovera_options SYSTEM INTERFACE ${headers_${library}_INCLUDE_DIRS})
    endforeach()
endif()

# The native home: the library and the program.
file(GLOB layer CONFIGURE_DEPENDS src/platform/linux/*.cpp src/platform/linux/*/*.cpp)
add_library(tovera STATIC ${logic} ${layer})
add_library(tovera::tovera ALIAS tovera)
target_link_libraries(tovera PRIVATE $<BUILD_INTERFACE:tovera_options> PUBLIC ${CMAKE_DL_LIBS})
target_compile_features(tovera PUBLIC cxx_std_20)
target_include_directories(tovera PUBLIC
    $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/src>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)


include(CInterface)
include(LibreOffice)
include(Program)
include(Python)

# The generators of texts made from the class table.
file(GLOB reference_sources CONFIGURE_DEPENDS tools/reference/*.cpp)
add_executable(reference_pages ${reference_sources})
target_include_directories(reference_pages PRIVATE tools)
target_link_libraries(reference_pages PRIVATE tovera tovera_options)
file(GLOB interface_sources CONFIGURE_DEPENDS tools/interface/*.cpp)
add_executable(interface_texts ${interface_sources})
target_include_directories(interface_texts PRIVATE tools)
target_link_libraries(interface_texts PRIVATE tovera tovera_options)

include(Install)
