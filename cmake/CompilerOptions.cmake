# Warnings are errors, floats are the same in both homes, and the sanitizers on demand. Only our own targets
# get these options. Nobody reads errno or the floating-point
# flags, so that rounding needs no call. (g++ 12 warns of overlapping copies inside its own std::string:
# -Wno-restrict.)
add_library(tovera_options INTERFACE)
target_compile_options(tovera_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror -Wno-restrict -ffp-contract=off
    -fno-math-errno -fno-trapping-math -fno-semantic-interposition)
target_include_directories(tovera_options INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/src)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(tovera_options INTERFACE -msse2 -mfpmath=sse)
endif()
if(TOVERA_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(tovera_options INTERFACE ${sanitizers})
    target_link_options(tovera_options INTERFACE ${sanitizers})
endif()
if(TOVERA_FUZZ)
    # The warnings are those of the other compiler.
    target_compile_options(tovera_options INTERFACE -fsanitize=fuzzer-no-link -w)
endif()
