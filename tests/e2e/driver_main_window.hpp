// What a user reaches in the main window with a mouse, by the places where it lies.
#pragma once
#include "app/main_layout.hpp"
#include "driver_menu.hpp"
#include "driver_test.hpp"
#include "look/theme.hpp"

namespace e2e {

inline constexpr auto leave_question = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

class MainWindowTest : public EndToEnd {
protected:
    // Until the window has taken a click, the window manager may still be placing it.
    void settle() { program().click_on(box(core::command::box_1)); }
    void open_settled(const std::filesystem::path& book)
    {
        open(book);
        settle();
    }
    // A Book of that many numbered pages.
    std::filesystem::path open_numbered(std::size_t page_count)
    {
        auto file = open_numbered_book(page_count);
        settle();
        return file;
    }
    void restart()
    {
        close();
        start().wait_for_window();
        settle();
    }
    void click_control(int id) { click(box(id).center()); }
    // The tick comes on the screen a while after the click, and so does that of another page.
    void expect_checked(int id, bool is_on, const Where& where = Where::current());
    // By a click; the check stands the other way before.
    void toggle_check(int id, bool on, const Where& where = Where::current());
    void expect_color(look::Color color, POINT place, const Where& where = Where::current()) const;

    POINT on_screen(int x, int y) const;
    POINT middle(const app::Rect& rect) const;
    // With the boundary where a Book without one has it.
    app::MainLayout layout() const;
    // Between the columns, where no control is.
    POINT background() const;
    // A place of that tab of `count` which no other tab covers.
    POINT tab_place(std::size_t number, std::size_t count) const;
    POINT thumb_place(std::size_t position, std::size_t count) const;

    // Opened by a click.
    PopupMenu book_menu(bool has_edits);
    PopupMenu main_menu(std::int32_t order_mode = 2700);
    PopupMenu tab_menu(std::size_t number, std::size_t count);

    // A window of the program beside the main one; not `exists()` while there is none to see.
    Window side_window(const std::wstring& class_name) const;
    bool has_banner() const { return banner().exists(); }
    void expect_banner(const Where& where = Where::current()) const;
    Window banner() const;
    Window history_window() const { return side_window(L"ovlib_historywnd[53]"); }

    void go_to_first(const std::wstring& box1, const Where& where = Where::current());
    // Box 1 of that many pages, the one in view first, turned with the button beside the slider. No two pages
    // in a row may read the same.
    std::vector<std::wstring> read_on(std::size_t page_count);
    // Replaces what a box holds by typing.
    void retype(int id, const std::wstring& text, const Where& where = Where::current());

private:
    // Told from the screen in the standard theme: a tick is dark, an empty box is light.
    bool is_checked(int id) const;
};

} // namespace e2e
