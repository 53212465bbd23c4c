#include "popups.hpp"
#include "core/command_ids.hpp"
#include "look/theme.hpp"
#include "tests/support/gui_menu.hpp"

namespace gallery {

namespace {

namespace command = core::command;
using ovlib::menu_item;
using ovlib::menu_separator;

constexpr POINT banner_place{ 1310, 40 }; // in client coordinates, like all of these
constexpr POINT tip_place{ 1330, 160 };
constexpr POINT menu_place{ 1310, 250 };
constexpr int submenu_row = 4;

ovlib::MenuRows menu_rows()
{
    ovlib::MenuRow tick = menu_item(1, L"印");
    tick.mark = ovlib::MenuMark::check;
    ovlib::MenuRow standard = menu_item(2, L"既定の項目");
    standard.is_default = true;
    return {
        menu_item(command::open_book, L"開く"),
        menu_item(command::save_always, L"保存", false),
        menu_item(command::save_book_as, L"名前を付けて保存"),
        menu_separator(),
        ovlib::submenu(L"画像の補間モード",
            ovlib::radio_items(command::first_interpolation_command, { L"既定", L"低品質", L"高品質" },
                command::first_interpolation_command + 1),
            true, command::file_removal_menu),
        ovlib::submenu(L"使えない下位メニュー", { menu_item(3, L"なし") }, false),
        menu_separator(),
        tick,
        standard,
        menu_item(command::delete_page, L"このページを削除"),
        menu_item(command::show_palette, L"色 / フォント"),
        menu_item(command::show_settings, L"設定"),
    };
}

POINT on_screen(const ovlib::Wnd& wnd, POINT point)
{
    ClientToScreen(wnd.hwnd(), &point);
    return point;
}

} // namespace

Popups::Popups(GalleryWnd& wnd)
    : wnd_(wnd)
    , banner_(&wnd)
    , tip_(&wnd)
{
    menu_.add_rows(menu_rows(), &wnd.menu_pictures());
    banner_.create(L"");
    tip_.create(L"");
    tip_.set_font(shared_font(SharedFont::ui_9));
}

void Popups::show()
{
    const look::ThemePalette& colors = look::palette();
    tip_.set_colors({ colors.list_text, colors.box_back, colors.panel_line });
    tip_.show(L"ヒント\r\n二行目 (A & B)", on_screen(wnd_, tip_place));
    banner_.show(L"「猫」はこれ以上見つかりません");
    banner_.move(on_screen(wnd_, banner_place), true);
    wnd_.open_lists();
}

void Popups::wait_for_banner() const
{
    gui::pump_until([&] { return banner_.fade().state() == look::BannerFade::State::staying; });
}

void Popups::hide()
{
    tip_.show(L"", {});
    banner_.show(L"");
}

void Popups::open_menu()
{
    menu_.show_at(wnd_, 0, on_screen(wnd_, menu_place));
}

void Popups::with_menu_open(const std::function<void()>& look)
{
    gui::MenuDriver user{ [&](const gui::ShownMenu& menu) {
        menu.step_to(submenu_row);
        gui::press_key(VK_RIGHT);
        menu.inner().wait();
        look();
    } };
    open_menu();
}

} // namespace gallery
