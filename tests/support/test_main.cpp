// The entry point of every test program. On Windows it ends the process with a distinct code after an
// unhandled fault: otherwise a crash could look like success, or wait forever in a dialog.
#if defined(PAGEWICK_SCREEN_CHECK)
#include "tests/support/screen_check.hpp"
#endif
#include <gtest/gtest.h>
#if defined(_WIN32)
#include <windows.h>
#include <cstdio>

namespace {

constexpr UINT crash_exit_code = 99;

LONG WINAPI report_crash(EXCEPTION_POINTERS* fault)
{
    std::fprintf(stderr, "FAILED: unhandled exception %08lx at %p\n",
        static_cast<unsigned long>(fault->ExceptionRecord->ExceptionCode),
        fault->ExceptionRecord->ExceptionAddress);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), crash_exit_code);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace
#endif

int main(int argc, char** argv)
{
#if defined(_WIN32)
    SetUnhandledExceptionFilter(report_crash);
#endif
    testing::InitGoogleTest(&argc, argv);
#if defined(PAGEWICK_SCREEN_CHECK)
    test_support::check_screen(test_support::ScreenCheck::PAGEWICK_SCREEN_CHECK);
#endif
    return RUN_ALL_TESTS();
}
