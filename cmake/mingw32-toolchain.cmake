# 32-bit Windows, with Debian's mingw-w64.
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-toolchain.cmake)
