// Which control has the keyboard when the user types without clicking first.
#include "app/control_rows.hpp"
#include "driver_test.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

// A window of another program: this process is another program to the one under test.
class OtherProgram {
public:
    OtherProgram()
        : window_(CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 300, 200,
            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        if (!window_)
            throw DriverError("no window for the other program");
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() { DestroyWindow(window_); }

    void come_to_front() const
    {
        require("the other program is in front", [this] {
            SetForegroundWindow(window_);
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
            return GetForegroundWindow() == window_ && GetFocus() == window_;
        });
    }

private:
    HWND window_;
};

class Keyboard : public EndToEnd {
protected:
    // Adds a Book with two pages, both of which match a search for the first character.
    fs::path add_pages() const
    {
        return root().add_book(L"手帖.bok", { make_page(L"花 一"), make_page(L"花 二") });
    }
    fs::path open_pages()
    {
        auto file = add_pages();
        open(file);
        return file;
    }
    // Types without a click and expects the text in this field.
    void expect_typed_into(int field, const std::wstring& text, const Where& where = Where::current())
    {
        std::wstring expected = box(field).text();
        expected.insert(box(field).selection().first, text);
        type_text(text);
        expect_soon(
            expected, [&] { return box(field).text(); }, where);
    }
    void expect_title(const std::wstring& text, const Where& where = Where::current())
    {
        expect_soon(
            text, [&] { return title(); }, where);
    }
};

class KeyboardOfField : public Keyboard, public testing::WithParamInterface<int> {
protected:
    // Opens a Book, clicks the field and types in it.
    fs::path open_and_type()
    {
        auto file = open_pages();
        program().click_on(box(GetParam()));
        expect_typed_into(GetParam(), L"花");
        return file;
    }
};

} // namespace

TEST_F(Keyboard, IsInTheFirstBoxAtTheStart)
{
    const fs::path file = open_pages();
    expect_typed_into(command::box_1, L"春の");
    expect_title(L"手帖 *");
    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    EXPECT_EQ(load_book(file).pages[0].text[0], L"春の花 一\r\n");
}

TEST_F(Keyboard, IsInTheFirstBoxEvenWhenAMessageBoxCameBeforeTheWindow)
{
    root().write_history({ L"C:\\ない.bok", add_pages().wstring() });
    start();
    program().wait_for_box().answer(IDOK);
    program().wait_for_window();
    expect_typed_into(command::box_1, L"春の");
}

TEST_F(Keyboard, SavesByCtrlSAfterAMessageBox)
{
    const fs::path file = open_pages();
    expect_typed_into(command::box_1, L"春の");
    main_window().post_command(command::about);
    program().wait_for_box().answer(IDOK);
    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    EXPECT_EQ(load_book(file).pages[0].text[0], L"春の花 一\r\n");
}

TEST_F(Keyboard, IsInTheLastFieldAfterACancelledDialog)
{
    open_pages();
    program().click_on(box(command::box_3));
    main_window().post_command(command::open_book);
    program().wait_for_file_dialog().cancel();
    expect_typed_into(command::box_3, L"続き");
}

TEST_F(Keyboard, StaysInTheTextWhenButtonsAndCheckBoxesAreClicked)
{
    open_pages();
    program().click_on(box(command::box_3));
    click(box(command::next_page).center());
    expect_page(L"花 二");
    expect_typed_into(command::box_3, L"続き");
    click(box(command::toggle_ignore_case).center());
    expect_soon(box(command::box_3), [&] { return program().focus(); });
    expect_typed_into(command::box_3, L"の続き");
}

TEST_P(KeyboardOfField, StaysThereWhenThePageIsTurnedAndTheQuestionAnswered)
{
    open_and_type();
    if (GetParam() == command::search_box) {
        program().click_on(box(command::box_2));
        expect_typed_into(command::box_2, L"見出し");
        program().click_on(box(command::search_box));
    }
    expect_title(L"手帖 *");
    main_window().post_command(command::next_page);
    const MessageDialog question = program().wait_for_box();
    press('Y');
    question.wait_until_gone();
    expect_page(L"花 二");
    expect_typed_into(GetParam(), L"つづき");
}

TEST_P(KeyboardOfField, ReturnsFromAnotherProgram)
{
    open_and_type();
    const OtherProgram other;
    other.come_to_front();
    require("the program is no longer in front", [&] { return !program().is_active(main_window()); });
    program().wait_for_window();
    expect_typed_into(GetParam(), L"つづき");
}

TEST_P(KeyboardOfField, ReturnsAfterTheWindowWasMinimised)
{
    open_and_type();
    main_window().send(WM_SYSCOMMAND, SC_MINIMIZE);
    require("the window is an icon", [&] { return IsIconic(main_window().handle()) != FALSE; });
    main_window().send(WM_SYSCOMMAND, SC_RESTORE);
    program().wait_for_window();
    expect_typed_into(GetParam(), L"つづき");
}

INSTANTIATE_TEST_SUITE_P(EachField, KeyboardOfField, testing::ValuesIn(app::typing_fields));
