// Shutdown: closing, settings, the end of the user's logon.
#include "driver_test.hpp"
#include <regex>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class Ending : public EndToEnd {
protected:
    fs::path edit_a_book()
    {
        const fs::path file = open_numbered_book(2);
        write_first(L"あ");
        return file;
    }
    void expect_saved_without_a_question(const fs::path& file)
    {
        EXPECT_EQ(program().exit_code(), 0u);
        EXPECT_EQ(load_book(file).pages[0].text[0], L"あ一\r\n");
    }
};

std::string settings(const DataRoot& root)
{
    return file_bytes(root.settings_file());
}

} // namespace

TEST_F(Ending, ClosingTheWindowSavesTheEditWithoutAQuestion)
{
    const fs::path file = edit_a_book();
    main_window().post(WM_CLOSE);
    expect_saved_without_a_question(file);
}

TEST_F(Ending, AltF4SavesTheEditWithoutAQuestion)
{
    const fs::path file = edit_a_book();
    chord({ VK_MENU, VK_F4 });
    expect_saved_without_a_question(file);
}

TEST_F(Ending, TheQuitCommandClosesTheWindow)
{
    const fs::path file = edit_a_book();
    main_window().post_command(core::command::close_program);
    expect_saved_without_a_question(file);
}

TEST_F(Ending, ClosingWhileAQuestionIsOpenSavesTheEditAndEnds)
{
    const fs::path file = edit_a_book();
    main_window().post_command(core::command::next_page);
    program().wait_for_box();
    main_window().post(WM_CLOSE);
    expect_saved_without_a_question(file);
}

TEST_F(Ending, ClosingWritesTheSettings)
{
    open_numbered_book(1);
    EXPECT_FALSE(fs::exists(root().settings_file()));
    close();
    EXPECT_EQ(settings(root()),
        "[COMMON]\r\nVIEWDATA=0 0 0 0 2101\r\nINTERPOLATION=5005\r\nBROWSERZOOMFAC=100\r\n"
        "ICHAT=0\r\nCLEARCACHE=0\r\nAUTOBACKUP=0\r\nAUTOIMM=0\r\n");
}

TEST_F(Ending, SettingsOfTheFileAreKept)
{
    write_bytes(root().settings_file(),
        "[COMMON]\r\nVIEWDATA=10 20 30 40\r\nINTERPOLATION=123\r\nBROWSERZOOMFAC=75\r\n"
        "ICHAT=2\r\nCLEARCACHE=7\r\nAUTOBACKUP=0\r\nAUTOIMM=1\r\n");
    open_numbered_book(1);
    close();
    EXPECT_EQ(settings(root()),
        "[COMMON]\r\nVIEWDATA=10 20 30 40 2101\r\nINTERPOLATION=123\r\nBROWSERZOOMFAC=75\r\n"
        "ICHAT=2\r\nCLEARCACHE=1\r\nAUTOBACKUP=0\r\nAUTOIMM=1\r\n");
}

TEST_F(Ending, TheProcessLogStaysSilent)
{
    open_numbered_book(1);
    close();
    EXPECT_FALSE(fs::exists(root().log_file()));
}

TEST_F(Ending, TheEndOfALogonWritesItsFileAndNoBook)
{
    const fs::path file = edit_a_book();
    const std::string before = file_bytes(file);
    write_bytes(root().log_file(), std::string(4000, 'x'));
    main_window().send(WM_ENDSESSION, 1, 0);

    const std::string log = file_bytes(root().log_file());
    EXPECT_EQ(log.size() % 2, 0u);
    const std::wregex expected(
        L"-- Pagewick --\r\nThe last modifications were saved\\.\r\n@ WM_ENDSESSION\r\n\r\n"
        L"\\d+/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d");
    EXPECT_TRUE(std::regex_match(utf16_text(log), expected));
    EXPECT_EQ(file_bytes(file), before);
    EXPECT_EQ(title(), L"手帖 *");
    EXPECT_FALSE(fs::exists(root().settings_file()));
}

TEST_F(Ending, ACancelledEndOfALogonWritesNothing)
{
    const fs::path file = edit_a_book();
    make_old(file);
    main_window().send(WM_ENDSESSION, 0, 0);
    EXPECT_FALSE(fs::exists(root().log_file()));
    EXPECT_TRUE(is_old(file));
}
