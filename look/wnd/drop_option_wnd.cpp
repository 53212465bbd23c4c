#include "look/wnd/drop_option_wnd.hpp"
#include "core/command_ids.hpp"
#include "look/drop_option_layout.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace look {

namespace command = core::command;

namespace {

constexpr ToolFrame frame{ {}, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0 };

} // namespace

DropOptionWnd::DropOptionWnd(ovlib::Wnd* parent)
    : ToolWindow(parent, 0, frame)
    , files_button_(this, command::add_dropped_files)
    , pages_button_(this, command::add_dropped_pages)
{
}

std::wstring DropOptionWnd::class_info(WNDCLASSEXW& info)
{
    ToolWindow::class_info(info);
    return ovlib::window_class_name(L"drop_option_wnd", 34);
}

// The size of the whole window is fixed, not that of its client area.
void DropOptionWnd::create_params(CREATESTRUCTW& params)
{
    ToolWindow::create_params(params);
    params.cx = drop_option_size.width;
    params.cy = drop_option_size.height;
}

int DropOptionWnd::ask(platform::Point center)
{
    choice = 0;
    center_ = center;
    const ovlib::WndWatch alive{ this };
    show(true);
    if (is_open())
        run();
    return alive ? choice : 0;
}

bool DropOptionWnd::on_message(ovlib::WndMessage& message)
{
    if (message.message == WM_COMMAND)
        return on_command(LOWORD(message.wparam), HIWORD(message.wparam));
    return ToolWindow::on_message(message);
}

bool DropOptionWnd::make_controls()
{
    const bool are_made = add_controls({
        { &files_button_, L"このページにファイルを追加", {} },
        { &pages_button_, L"ファイルごとにページを作成", {} },
    });
    make_button(files_button_, L"add_files.png");
    make_button(pages_button_, L"add_pages.png");
    return are_made;
}

void DropOptionWnd::make_button(ImageButton& button, const wchar_t* picture)
{
    button.set_align(SheetAlign::left);
    button.load_res_image(picture);
}

void DropOptionWnd::lay_out(platform::Size client)
{
    const DropOptionLayout at = drop_option_layout(client);
    files_button_.set_rect(ovlib::to_rect(at.files_button), true);
    pages_button_.set_rect(ovlib::to_rect(at.pages_button), true);
}

void DropOptionWnd::on_opening()
{
    const platform::Rect place =
        ovlib::centered(drop_option_size, { center_.x, center_.y, center_.x, center_.y });
    move(place.left, place.top, false);
}

bool DropOptionWnd::on_shortcut(std::uint64_t key, bool is_repeated)
{
    const auto is_digit = [pressed = static_cast<int>(key)](
                              int digit) { return pressed == '0' + digit || pressed == VK_NUMPAD0 + digit; };
    if (!is_digit(1) && !is_digit(2))
        return false;
    if (!is_repeated)
        send_command(is_digit(1) ? command::add_dropped_files : command::add_dropped_pages, 0, 0);
    return true;
}

bool DropOptionWnd::on_command(int id, int code)
{
    choice = code == BN_CLICKED ? id : 0;
    if (code == BN_CLICKED)
        send(WM_CLOSE, 0, 0);
    return true;
}

} // namespace look
