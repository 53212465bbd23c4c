// The fixture of every end-to-end test: a new data root and one program in it.
#pragma once
#include "core/command_ids.hpp"
#include "driver_data_root.hpp"
#include "driver_input.hpp"
#include "driver_program.hpp"
#include "driver_wait.hpp"
#include <gtest/gtest.h>
#include <memory>
#include <source_location>
#include <string>

namespace e2e {

inline constexpr DWORD failed_exit_code = 0xFFFFFFFF; // -1
inline constexpr auto closing_words = L"\r\nアプリケーションを終了します．";

using Where = std::source_location;

// Adds the line of the test to failures detected inside the driver.
inline testing::ScopedTrace trace(const Where& where)
{
    return testing::ScopedTrace(where.file_name(), static_cast<int>(where.line()), "from here");
}

// Polls until `get()` returns `expected`. A failure shows both and ends the test, because the rest would be
// meaningless.
template <class Expected, class Getter>
void expect_soon(const Expected& expected, Getter get, const Where& where = Where::current())
{
    const auto traced = trace(where);
    if (wait_until([&] { return get() == expected; }))
        return;
    EXPECT_EQ(get(), expected);
    throw DriverError("the expected state did not come");
}

class EndToEnd : public testing::Test {
protected:
    void SetUp() override;
    // Keeps the data root and a screenshot of a failed test.
    void TearDown() override;

    const DataRoot& root() const { return *root_; }
    Program& program() const { return *program_; }
    Window main_window() const { return program().find_window(); }
    Window box(int id) const { return main_window().child(id); }
    std::wstring title() const { return main_window().text(); }

    // Starts the program and returns at once.
    Program& start(const std::wstring& arguments = L"");
    // Puts the Book on top of an otherwise empty history, starts the program and waits for its window.
    Window open(const std::filesystem::path& book);
    // Opens a Book named 手帖.bok with this many pages, which have "一", "二" ... in box 1.
    std::filesystem::path open_numbered_book(std::size_t page_count);
    // Types at the start of box 1 and waits for the star in the title of that Book.
    void write_first(const std::wstring& text, const Where& where = Where::current());
    // Closes the window as a user would and expects the program to succeed.
    void close();

    // Checks text and icon of the next message box and presses this button, which checks its kind too.
    void answer_box(const std::wstring& text, Icon icon, int button, const Where& where = Where::current());
    // Expects the two message boxes of a program that ends because it cannot open its Book.
    void expect_fatal_start(const std::wstring& message, const Where& where = Where::current());

    // User input, each time after waiting until the program accepts it.
    void type_text(std::wstring_view text) const;
    void press(WORD key) const { chord({ key }); }
    void chord(std::initializer_list<WORD> keys) const;
    void click(POINT screen) const;
    void double_click(POINT screen) const;
    void right_click(POINT screen) const;
    // Presses the button at one point and releases it at another.
    void drag(POINT from, POINT to) const;
    void turn_wheel(POINT screen, int notches) const;

    // Waits for a page with this text in box 1. Ignores a line break at the end: a loaded page has one, a
    // page just saved has none.
    void expect_page(const std::wstring& box1, const Where& where = Where::current()) const;

private:
    std::unique_ptr<DataRoot> root_;
    std::unique_ptr<Program> program_;
};

// The text of boxes 1 and 3 after a page from make_page was saved and loaded again.
std::wstring as_loaded(const std::wstring& text);
// One digit as a Japanese numeral, to distinguish pages.
std::wstring numeral(std::size_t number);

} // namespace e2e
