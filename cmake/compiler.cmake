# A compiler cache is used where one is installed. Precompiled headers need the two kinds of sloppiness; the base folder lets
# several checkouts beside each other share what they compiled. Without CCACHE_DEPEND two headers that differ in comments
# only count as the same. The compiler recognises headers with #pragma once by their bytes, so that a precompiled header
# made from the one would make it read the other a second time.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    cmake_path(GET PROJECT_SOURCE_DIR PARENT_PATH checkouts)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_NOHASHDIR=1
        CCACHE_DEPEND=1 CCACHE_BASEDIR=${checkouts} ${CCACHE})
endif()

# Headers that nearly every file of a target reads: compiled once for the target.
set(common_headers <algorithm> <array> <cstdint> <functional> <memory> <optional> <span> <string> <string_view> <vector>)
set(window_headers ${common_headers} <windows.h> <commctrl.h> <shlobj.h> <ovlib/gui/gdiplus.hpp>)
set(test_headers ${common_headers} <gtest/gtest.h> <gmock/gmock.h>)

# One interface target carries what every target of the project is compiled with.
add_library(pagewick_compiler INTERFACE)
target_compile_features(pagewick_compiler INTERFACE cxx_std_20)
target_include_directories(pagewick_compiler INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)

if(MSVC)
    target_compile_options(pagewick_compiler INTERFACE /W4 /WX /utf-8 /permissive- /EHsc)
    # The C library's own bounds-checked functions exist nowhere else.
    target_compile_definitions(pagewick_compiler INTERFACE _CRT_SECURE_NO_WARNINGS)
    # Static, so that a program is one file that needs nothing but the system.
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
    # GoogleTest asks for policies older than that setting, and would be built with another runtime.
    set(CMAKE_POLICY_DEFAULT_CMP0091 NEW)
else()
    target_compile_options(pagewick_compiler INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The cache sees a precompiled header only with it.
        target_compile_options(pagewick_compiler INTERFACE -fpch-preprocess)
        if(MINGW)
            # GCC takes an inline function for its own copy and keeps values in registers that this copy spares. The linker
            # may choose the copy of another file, compiled with other options, that does not.
            target_compile_options(pagewick_compiler INTERFACE -fno-ipa-ra)
        endif()
    else()
        # Cheap here, and dear among the static checks.
        target_compile_options(pagewick_compiler INTERFACE
            -Wreserved-identifier -Wzero-as-null-pointer-constant -Wempty-body -Wdangling -Wunreachable-code)
    endif()
endif()

if(WIN32)
    target_compile_definitions(pagewick_compiler INTERFACE
        UNICODE _UNICODE NOMINMAX STRICT _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()

if(MINGW)
    # As every compiler of the system marks its programs: an older version gets borders and scrolling of its time.
    target_link_options(pagewick_compiler INTERFACE
        -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,0)
endif()

# Resources that hold a manifest. Visual Studio's linker would make a second one and refuse both.
function(pagewick_resources target)
    target_sources(${target} PRIVATE ${ARGN})
    set_source_files_properties(${ARGN} PROPERTIES OBJECT_DEPENDS
        "${PROJECT_SOURCE_DIR}/app/wnd/pagewick.ico;${PROJECT_SOURCE_DIR}/app/wnd/pagewick.manifest")
    if(MSVC)
        target_link_options(${target} PRIVATE /MANIFEST:NO)
    endif()
endfunction()

# A program with an entry in wide characters, which Visual Studio's linker finds unasked.
function(pagewick_wide_entry target)
    if(MINGW)
        target_link_options(${target} PRIVATE -municode)
    endif()
endfunction()

if(PAGEWICK_SANITIZE)
    target_compile_options(pagewick_compiler INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(pagewick_compiler INTERFACE -fsanitize=address,undefined)
endif()
if(PAGEWICK_FUZZ)
    target_compile_options(pagewick_compiler INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_link_options(pagewick_compiler INTERFACE -fsanitize=address,undefined)
endif()
