// The popup menus: where they come up, and on what state.
#include "app/file_actions.hpp"
#include "app/menus.hpp"
#include "app/wnd/appwnd.hpp"
#include "core/data_root.hpp"
#include "core/settings.hpp"
#include "media/display_name.hpp"
#include "ovlib/gui/menu.hpp"
#include "platform/file.hpp"

namespace app {

namespace {

POINT mouse_on_screen()
{
    POINT point{};
    GetCursorPos(&point);
    return point;
}

} // namespace

void AppWnd::show_menu(const ovlib::MenuRows& rows, std::uint32_t flags, POINT point)
{
    ovlib::Menu menu;
    menu.add_rows(rows, &menu_pictures_);
    menu.show_at(*this, flags, point);
}

core::Outcome AppWnd::on_book_menu(const CommandInput&)
{
    POINT below{ layout_.book_button.left, layout_.book_button.bottom };
    ClientToScreen(hwnd(), &below);
    show_menu(book_menu(has_edits()), menu_flags::book, below);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_folder_menu(const CommandInput&)
{
    const book::Page* page = book_.current_page();
    if (!page)
        return core::Outcome::failed;
    show_menu(folder_menu(!page->reference_folder.empty()), menu_flags::folder, mouse_on_screen());
    return core::Outcome::done;
}

core::Outcome AppWnd::on_file_menu(const CommandInput&)
{
    const book::Page* page = book_.current_page();
    if (!page)
        return core::Outcome::failed;
    FileMenuState state;
    state.entry_count = page->files.size();
    state.interpolation_command = core::settings().interpolation_command;
    if (const std::wstring* entry = current_entry(*page)) {
        core::set_current_directory(L"");
        state.entry = *entry;
        state.entry_name = media::display_name(*entry);
        state.is_entry_file = platform::path_kind(*entry) == platform::PathKind::regular_file;
    }
    show_menu(file_menu(state), menu_flags::file, mouse_on_screen());
    return core::Outcome::done;
}

core::Outcome AppWnd::on_web_menu(const CommandInput&)
{
    show_menu(web_menu({}), menu_flags::web, mouse_on_screen());
    return core::Outcome::done;
}

// The system's own handling of the press would wait for the release and keep it.
bool AppWnd::on_background_press(const ovlib::WndMessage& message)
{
    return message.wparam == HTCAPTION;
}

bool AppWnd::on_background_release(const ovlib::WndMessage& message)
{
    if (message.wparam != HTCAPTION)
        return false;
    const MainMenuState state{ .is_busy = is_busy(), .order_mode = book_.header.order_mode };
    show_menu(main_menu(state), menu_flags::main, mouse_on_screen());
    return true;
}

} // namespace app
