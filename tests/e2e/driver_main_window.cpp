#include "driver_main_window.hpp"
#include "controls/check_box_layout.hpp"
#include "driver_screen.hpp"
#include "look/page_slider.hpp"
#include "look/tab_strip.hpp"
#include <algorithm>

namespace e2e {

namespace command = core::command;

bool MainWindowTest::is_checked(int id) const
{
    constexpr int frame = 3;
    constexpr std::uint8_t dark = 64;
    const RECT item = box(id).rect();
    const platform::Rect square = ovlib::check_box_rect({ item.left, item.top, item.right, item.bottom });
    for (int x = square.left + frame; x < square.right - frame; ++x) {
        const auto column = column_on_screen({ x, square.top + frame }, square.height() - 2 * frame);
        if (std::ranges::any_of(
                column, [](COLORREF color) { return ovlib::Color{ color }.luminance() < dark; }))
            return true;
    }
    return false;
}

POINT MainWindowTest::on_screen(int x, int y) const
{
    POINT point{ x, y };
    ClientToScreen(main_window().handle(), &point);
    return point;
}

POINT MainWindowTest::middle(const app::Rect& rect) const
{
    return on_screen((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

app::MainLayout MainWindowTest::layout() const
{
    RECT client{};
    GetClientRect(main_window().handle(), &client);
    return app::main_layout({ client.right, client.bottom });
}

POINT MainWindowTest::background() const
{
    const app::MainLayout at = layout();
    const app::Rect& box = at.boxes.third;
    return on_screen((box.right + at.file_pane.left) / 2, box.top + box.height() / 4);
}

POINT MainWindowTest::tab_place(std::size_t number, std::size_t count) const
{
    const app::Rect strip = layout().tabs;
    const auto tabs = look::tab_rects(count, { strip.width(), strip.height() });
    const app::Rect& tab = tabs.at(number - 1);
    const int right = number < count ? std::min(tab.right, tabs[number].left) : tab.right;
    return on_screen(strip.left + (tab.left + right) / 2, strip.top + tab.height() / 2);
}

POINT MainWindowTest::thumb_place(std::size_t position, std::size_t count) const
{
    const app::Rect slider = layout().slider;
    constexpr int margin = 8;
    const app::Rect track = look::page_slider_track({ margin, 0, slider.width() - margin, slider.height() });
    const int run = track.width() - 1;
    const int x = track.left + run * static_cast<int>(position) / static_cast<int>(count - 1);
    return on_screen(slider.left + x, (slider.top + slider.bottom) / 2);
}

PopupMenu MainWindowTest::book_menu(bool has_edits)
{
    return { program(), app::book_menu(has_edits), [this] { click_control(command::show_book_menu); } };
}

PopupMenu MainWindowTest::main_menu(std::int32_t order_mode)
{
    return main_menu({ .order_mode = order_mode });
}

PopupMenu MainWindowTest::main_menu(const app::MainMenuState& state)
{
    return { program(), app::main_menu(state), [this] { right_click(background()); } };
}

PopupMenu MainWindowTest::tab_menu(std::size_t number, std::size_t count)
{
    const POINT tab = tab_place(number, count);
    return { program(), look::tab_menu(), [this, tab] { right_click(tab); } };
}

Window MainWindowTest::side_window(const std::wstring& class_name) const
{
    const std::vector<Window> windows = top_windows(program().process_id());
    const auto found = std::ranges::find(windows, class_name, &Window::class_name);
    return found == windows.end() ? Window{} : *found;
}

// The banner is the only window that is never activated.
Window MainWindowTest::banner() const
{
    const std::vector<Window> windows = top_windows(program().process_id());
    const auto found = std::ranges::find_if(windows, [](Window window) {
        const LONG style = GetWindowLongW(window.handle(), GWL_EXSTYLE);
        return (style & WS_EX_NOACTIVATE) != 0 && window.class_name().starts_with(L"ovlib_");
    });
    return found == windows.end() ? Window{} : *found;
}

void MainWindowTest::expect_checked(int id, bool is_on, const Where& where)
{
    expect_soon(
        is_on, [&] { return is_checked(id); }, where);
}

void MainWindowTest::toggle_check(int id, bool on, const Where& where)
{
    expect_checked(id, !on, where);
    click_control(id);
    expect_checked(id, on, where);
}

void MainWindowTest::expect_banner(const Where& where) const
{
    const auto traced = trace(where);
    require("the banner shows", [this] { return has_banner(); });
}

void MainWindowTest::expect_color(look::Color color, POINT place, const Where& where) const
{
    expect_soon(
        static_cast<COLORREF>(color.value), [&] { return color_on_screen(place); }, where);
}

void MainWindowTest::go_to_first(const std::wstring& box1, const Where& where)
{
    click_control(command::first_page);
    expect_page(box1, where);
}

std::vector<std::wstring> MainWindowTest::read_on(std::size_t page_count)
{
    const auto text = [this] { return box(command::box_1).text(); };
    std::vector<std::wstring> pages{ text() };
    while (pages.size() < page_count) {
        click_control(command::next_page);
        require("the next page shows", [&] { return text() != pages.back(); });
        pages.push_back(text());
    }
    for (std::wstring& page : pages)
        page.resize(std::min(page.size(), page.find(L"\r\n")));
    return pages;
}

void MainWindowTest::retype(int id, const std::wstring& text, const Where& where)
{
    program().click_into(box(id));
    box(id).select(0, static_cast<std::size_t>(-1));
    type_text(text);
    expect_soon(
        text, [&] { return box(id).text(); }, where);
}

} // namespace e2e
