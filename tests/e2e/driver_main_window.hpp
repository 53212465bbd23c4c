// The main window for tests that use it by mouse: its controls at their positions.
#pragma once
#include "app/main_layout.hpp"
#include "app/menus.hpp"
#include "driver_menu.hpp"
#include "driver_test.hpp"
#include "look/theme.hpp"

namespace e2e {

inline constexpr auto leave_question = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

class MainWindowTest : public EndToEnd {
protected:
    // Waits until the window receives a click: before that, the window manager may still be placing it.
    void settle() { program().click_on(box(core::command::box_1)); }
    void open_settled(const std::filesystem::path& book)
    {
        open(book);
        settle();
    }
    // Opens a Book with this many numbered pages.
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
    // Waits for the tick, which appears on the screen some time after the click or the page turn.
    void expect_checked(int id, bool is_on, const Where& where = Where::current());
    // Clicks a check box that is in the opposite state.
    void toggle_check(int id, bool on, const Where& where = Where::current());
    void expect_color(look::Color color, POINT place, const Where& where = Where::current()) const;

    POINT on_screen(int x, int y) const;
    POINT middle(const app::Rect& rect) const;
    // The layout with the boundary of a Book that has none set.
    app::MainLayout layout() const;
    // A point between the columns, where no control is.
    POINT background() const;
    // A point of tab `number` of `count` that no other tab covers.
    POINT tab_place(std::size_t number, std::size_t count) const;
    POINT thumb_place(std::size_t position, std::size_t count) const;

    // The Book menu, opened by a click.
    PopupMenu book_menu(bool has_edits);
    PopupMenu main_menu(std::int32_t order_mode = 2700);
    PopupMenu main_menu(const app::MainMenuState& state);
    PopupMenu tab_menu(std::size_t number, std::size_t count);

    // A visible secondary window of the program; its exists() is false if there is none.
    Window side_window(const std::wstring& class_name) const;
    bool has_banner() const { return banner().exists(); }
    void expect_banner(const Where& where = Where::current()) const;
    Window banner() const;
    Window history_window() const { return side_window(L"ovlib_historywnd[53]"); }
    Window palette_window() const { return side_window(L"ovlib_palettewnd[75]"); }
    Window viewer() const { return side_window(L"ovlib_viewer[1]"); }
    Window settings_window() const { return side_window(L"ovlib_settingwnd[158]"); }

    void go_to_first(const std::wstring& box1, const Where& where = Where::current());
    // Returns the texts of box 1 of this many pages, starting with the current one, turning with the button
    // beside the slider. Consecutive pages must have different texts.
    std::vector<std::wstring> read_on(std::size_t page_count);
    // Replaces the text of a box by typing.
    void retype(int id, const std::wstring& text, const Where& where = Where::current());

private:
    // Recognised from the screen in the standard theme: a tick is dark, an empty box is light.
    bool is_checked(int id) const;
};

} // namespace e2e
