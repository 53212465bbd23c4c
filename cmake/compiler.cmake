# One interface target carries what every target of the project is compiled with.
add_library(pagewick_compiler INTERFACE)
target_compile_features(pagewick_compiler INTERFACE cxx_std_20)
target_include_directories(pagewick_compiler INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)

if(MSVC)
    target_compile_options(pagewick_compiler INTERFACE /W4 /WX /utf-8 /permissive- /EHsc)
else()
    target_compile_options(pagewick_compiler INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()

if(WIN32)
    target_compile_definitions(pagewick_compiler INTERFACE
        UNICODE _UNICODE NOMINMAX STRICT _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()

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
