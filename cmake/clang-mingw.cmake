# clang with the headers of Debian's mingw-w64: a second compiler for the Windows half. The static checks read its
# compile_commands.json; nothing is linked with it.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(gcc ${CMAKE_CXX_COMPILER})
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# clang does not find the C++ headers of the variant with POSIX threads. As system headers they are not checked.
execute_process(COMMAND ${gcc} -print-file-name=include/c++ OUTPUT_VARIABLE headers OUTPUT_STRIP_TRAILING_WHITESPACE)
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${headers} -isystem ${headers}/x86_64-w64-mingw32 -isystem ${headers}/backward")
