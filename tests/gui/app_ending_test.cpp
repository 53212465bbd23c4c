// The end of the window and of the process.
#include "app/wnd/startup.hpp"
#include "look/wnd/fonts.hpp"
#include "platform/file.hpp"
#include "platform/process_log.hpp"
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_links.hpp"
#include "tests/support/gui_silent_share.hpp"
#include <array>

namespace {

namespace command = core::command;

constexpr auto stuck_entry = L"\\\\silent\\share\\a.png";
constexpr auto log_name = L"\\process.log";
constexpr DWORD longest_wait = 10'000; // milliseconds
constexpr DWORD time_to_end = 45'000; // more than the limit, for a busy machine

class Ending : public gui::AppWindow {
protected:
    static book::Book book_with_stuck_work()
    {
        book::Book book = book_of({ page(L"1\r\n") });
        book.pages[0].files = { stuck_entry };
        return book;
    }
};

TEST_F(Ending, DeletesTheSharedFonts)
{
    std::array<HFONT, look::shared_font_count> fonts{};
    open({ page(L"1\r\n") });
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        fonts[i] = look::shared_font(static_cast<look::SharedFont>(i));
        ASSERT_EQ(GetObjectType(fonts[i]), static_cast<DWORD>(OBJ_FONT)) << i;
    }
    close();
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        EXPECT_EQ(GetObjectType(fonts[i]), 0u) << i;
        EXPECT_EQ(look::shared_font(static_cast<look::SharedFont>(i)), nullptr) << i;
    }
}

TEST_F(Ending, GivesUpStuckWorkAfterTenSecondsAndSavesBookAndSettings)
{
    const gui::ComOnThread com;
    {
        const gui::StuckShare share;
        open(book_with_stuck_work());
        ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
        type(command::box_1, L"x");
        const DWORD begin = GetTickCount();
        window().send(WM_CLOSE, 0, 0);
        EXPECT_GE(GetTickCount() - begin, longest_wait) << "the work may still end in time";
        EXPECT_LT(GetTickCount() - begin, time_to_end);
        EXPECT_EQ(window().hwnd(), nullptr);
        EXPECT_FALSE(window().end_background_work());
        EXPECT_LT(GetTickCount() - begin, time_to_end) << "it is not waited for twice";
        EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
        EXPECT_TRUE(platform::exists(core::settings_file(core::folders())));
    }
    EXPECT_TRUE(gui::poll_until([&] { return window().end_background_work(); }));
}

HWND main_window_of_this_process()
{
    DWORD owner = 0;
    HWND const found = FindWindowW(L"ovlib_appwnd[310]", nullptr);
    GetWindowThreadProcessId(found, &owner);
    return owner == GetCurrentProcessId() ? found : nullptr;
}

constexpr UINT never_ended = 77;

// Edits the first page like a user and closes the program while its work is stuck. It must end in time.
void edit_and_close()
{
    const auto is_shown = [] { return IsWindowVisible(main_window_of_this_process()) != FALSE; };
    if (gui::SilentShare::asked.wait(time_to_end) && gui::poll_until(is_shown)) {
        HWND const window = main_window_of_this_process();
        HWND const box = GetDlgItem(window, command::box_1);
        SendMessageW(box, EM_SETSEL, 0, 0);
        SendMessageW(box, WM_CHAR, L'x', 1);
        PostMessageW(window, WM_CLOSE, 0, 0);
        Sleep(time_to_end);
    }
    TerminateProcess(GetCurrentProcess(), never_ended);
}

// Runs the whole program in a separate process, which must end alone with the exit code of a normal run.
void run_program_with_stuck_work(const std::wstring& root)
{
    std::filesystem::remove_all(ovlib::WinApp::data_root); // of this process, which will not use it again
    ovlib::WinApp::data_root = root;
    ovlib::WinApp::process_log().set_path(root + log_name);
    const gui::StuckShare share;
    std::thread{ edit_and_close }.detach();
    app::run_application();
    TerminateProcess(GetCurrentProcess(), never_ended);
}

// A death test runs again in the dying process, so it passes the path of the data on to it.
class EndingDeathTest : public Ending {
protected:
    static constexpr auto variable = L"PAGEWICK_TEST_ENDING_ROOT";

    static std::wstring handed_on()
    {
        std::array<wchar_t, 1024> text{};
        const DWORD length = GetEnvironmentVariableW(variable, text.data(), static_cast<DWORD>(text.size()));
        return { text.data(), length };
    }
};

TEST_F(EndingDeathTest, EndsInSpiteOfStuckWorkWithBookAndSettingsSaved)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    if (handed_on().empty()) {
        ASSERT_TRUE(book_with_stuck_work().save_to(file(L"手帖.bok")));
        set_history({ file(L"手帖.bok") });
        SetEnvironmentVariableW(variable, core::folders().data_root.c_str());
    }
    EXPECT_EXIT(run_program_with_stuck_work(handed_on()), testing::ExitedWithCode(0), "");
    SetEnvironmentVariableW(variable, nullptr);
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
    EXPECT_TRUE(platform::exists(core::settings_file(core::folders())));
    EXPECT_TRUE(platform::exists(core::folders().data_root + log_name));
}

} // namespace
