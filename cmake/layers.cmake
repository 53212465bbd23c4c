# Fails when a file includes a header of a higher layer. Run as a script: cmake -DSOURCE_DIR=... -P layers.cmake
#
#   windows of a subsystem   {app,book,media,web,look}/wnd/     may include everything
#   window library           include/ovlib/, ovlib/             no header of a subsystem
#   logic                    {app,book,media,web,look}/         no wnd/ header, no ovlib, no system header
#   controls                 controls/                          itself and platform
#   platform                 platform/                          itself only; win32/ may include the system
set(subsystem "(app|book|media|web|look)")
set(system_header "windows|windowsx|winuser|wingdi|commctrl|commdlg|objbase|ole2|shlobj|shlwapi|gdiplus|imm|dwmapi")
set(violations "")

function(forbid file pattern reason)
    file(STRINGS "${SOURCE_DIR}/${file}" lines REGEX "^[ \t]*#[ \t]*include")
    foreach(line IN LISTS lines)
        string(TOLOWER "${line}" lowered)
        if(lowered MATCHES "${pattern}")
            set(violations "${violations}\n  ${file}: ${line}: ${reason}" PARENT_SCOPE)
            return()
        endif()
    endforeach()
endfunction()

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}"
    "${SOURCE_DIR}/app/*.[ch]pp" "${SOURCE_DIR}/book/*.[ch]pp" "${SOURCE_DIR}/media/*.[ch]pp"
    "${SOURCE_DIR}/web/*.[ch]pp" "${SOURCE_DIR}/look/*.[ch]pp" "${SOURCE_DIR}/platform/*.[ch]pp"
    "${SOURCE_DIR}/controls/*.[ch]pp" "${SOURCE_DIR}/ovlib/*.[ch]pp" "${SOURCE_DIR}/include/*.[ch]pp" "${SOURCE_DIR}/tools/*.[ch]pp"
    "${SOURCE_DIR}/tests/logic/*.[ch]pp" "${SOURCE_DIR}/tests/fuzz/*.[ch]pp")
foreach(file IN LISTS files)
    if(file MATCHES "^${subsystem}/wnd/")
        continue()
    endif()
    if(file MATCHES "^(include/)?ovlib/")
        forbid("${file}" "[<\"]${subsystem}/" "the window library knows no subsystem")
        continue()
    endif()
    if(NOT file MATCHES "^platform/win32/" AND NOT file MATCHES "^tools/.*/win32/")
        forbid("${file}" "[<\"](${system_header})\\.h" "only windows, ovlib and platform/win32 see the system")
    endif()
    forbid("${file}" "[<\"]ovlib/" "logic knows no window library")
    forbid("${file}" "[<\"]${subsystem}/wnd/" "logic knows no window")
    if(file MATCHES "^controls/")
        forbid("${file}" "[<\"]${subsystem}/" "the arithmetic of controls knows no subsystem")
    endif()
    if(file MATCHES "^platform/")
        forbid("${file}" "[<\"](controls|app|book|media|web|look)/" "platform knows no logic")
    endif()
endforeach()
if(violations)
    message(FATAL_ERROR "Layers point upward:${violations}")
endif()
