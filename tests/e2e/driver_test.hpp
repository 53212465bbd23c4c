// What every end-to-end test begins and ends with: a data root of its own and one program in it.
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

// Names the line of the test in failures that are noticed inside the driver.
inline testing::ScopedTrace trace(const Where& where)
{
    return testing::ScopedTrace(where.file_name(), static_cast<int>(where.line()), "from here");
}

// Polls until `get()` gives `expected`. A failure shows both and ends the test: nothing after it would mean
// much.
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
    // A failed test leaves its data root and a picture of the screen behind.
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
    // A Book named 手帖.bok with that many pages, "一" "二" ... in box 1, opened.
    std::filesystem::path open_numbered_book(std::size_t page_count);
    // Types at the start of box 1 and waits for the star in the title of that Book.
    void write_first(const std::wstring& text, const Where& where = Where::current());
    // Closes the window as its user does and expects a good end.
    void close();

    // Answers the next box after comparing it: its text, its icon and, by the button used, its kind.
    void answer_box(const std::wstring& text, Icon icon, int button, const Where& where = Where::current());
    // The two boxes that end a program that could not open its Book.
    void expect_fatal_start(const std::wstring& message, const Where& where = Where::current());

    // The user's hands, each when the program takes what they do.
    void type_text(std::wstring_view text) const;
    void press(WORD key) const { chord({ key }); }
    void chord(std::initializer_list<WORD> keys) const;
    void click(POINT screen) const;
    void double_click(POINT screen) const;
    void right_click(POINT screen) const;
    // Presses at one place and lets the button go at another.
    void drag(POINT from, POINT to) const;
    void turn_wheel(POINT screen, int notches) const;

    // Waits for a page with this text in box 1. The last line break is no matter: a page just loaded has one,
    // a page just saved has none.
    void expect_page(const std::wstring& box1, const Where& where = Where::current()) const;

private:
    std::unique_ptr<DataRoot> root_;
    std::unique_ptr<Program> program_;
};

// How a Book written by `make_page` and loaded again shows in boxes 1 and 3.
std::wstring as_loaded(const std::wstring& text);
// One digit as a Japanese numeral, to tell pages apart.
std::wstring numeral(std::size_t number);

} // namespace e2e
