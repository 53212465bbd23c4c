#include "look/wnd/settingwnd.hpp"
#include "core/command_ids.hpp"
#include "core/passed_object.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/group_frame.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include <algorithm>
#include <span>
#include <uxtheme.h>

namespace look {

namespace command = core::command;

namespace {

constexpr ToolFrame frame{ settings_client_size, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0 };

void fill_combo(ovlib::ComboBox& combo, std::span<const SettingItem> items, std::int32_t value)
{
    SetWindowTheme(combo.hwnd(), L"", L"");
    for (const SettingItem& item : items)
        combo.add(item.text, item.value);
    combo.select(clamped_value(items, value) - items.front().value);
    combo.set_min_visible(static_cast<int>(items.size()));
}

std::int32_t chosen_value(
    const ovlib::ComboBox& combo, std::span<const SettingItem> items, std::int32_t without_choice)
{
    const int selected = combo.hwnd() ? combo.selected() : CB_ERR;
    return selected < 0 ? without_choice : clamped_value(items, combo.item_data(selected));
}

} // namespace

SettingWnd::SettingWnd(ovlib::Wnd* parent)
    : ToolWindow(parent, 0, frame)
    , gif_check_(this, setting_gif_autoplay)
    , search_check_(this, setting_file_search)
    , wrap_check_(this, setting_wrap_text)
    , ime_check_(this, setting_auto_imm)
    , backup_check_(this, setting_auto_backup)
    , cache_check_(this, setting_clear_cache)
    , sort_combo_(this, setting_sort_key, CBS_DROPDOWNLIST)
    , tab_combo_(this, setting_tab_label_box, CBS_DROPDOWNLIST)
    , ok_button_(this, command::close_window)
{
}

std::wstring SettingWnd::class_info(WNDCLASSEXW& info)
{
    ToolWindow::class_info(info);
    return ovlib::window_class_name(L"settingwnd", 158);
}

std::optional<SettingsChoice> SettingWnd::ask(const SettingsChoice& shown, const std::wstring& mail_address)
{
    shown_ = shown;
    link_text_ = mail_address;
    result_.reset();
    show(true);
    run();
    return std::exchange(result_, std::nullopt);
}

bool SettingWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_COMMAND:
        return on_command(LOWORD(message.wparam), HIWORD(message.wparam));
    case WM_PAINT:
        return on_paint();
    case WM_SETCURSOR:
        return on_set_cursor(message);
    case WM_LBUTTONDOWN:
        return on_press(ovlib::mouse_point(message));
    case WM_DESTROY:
        corner_ = { rect().left, rect().top };
        return ToolWindow::on_message(message);
    default:
        return ToolWindow::on_message(message);
    }
}

std::array<SettingWnd::CheckRow, 6> SettingWnd::checks()
{
    return {
        CheckRow{ &gif_check_, &SettingsChoice::gif_autoplay },
        CheckRow{ &search_check_, &SettingsChoice::file_search },
        CheckRow{ &wrap_check_, &SettingsChoice::wrap_text },
        CheckRow{ &ime_check_, &SettingsChoice::auto_imm },
        CheckRow{ &backup_check_, &SettingsChoice::auto_backup },
        CheckRow{ &cache_check_, &SettingsChoice::clear_cache },
    };
}

// In Tab order, row by row. A control that cannot be created is left out, and its value stays.
bool SettingWnd::make_controls()
{
    const SettingsLayout at = settings_layout();
    add_controls({
        { &gif_check_, L"GIF の自動再生", at.gif_check },
        { &ime_check_, L"テキスト入力時にTIPを有効化", at.ime_check },
        { &search_check_, L"ファイルの自動探索の有効化", at.search_check },
        { &backup_check_, L"Bookのロード時にバックアップを作成", at.backup_check },
        { &wrap_check_, L"テキストを右端で折り返す", at.wrap_check },
        { &cache_check_, L"アプリ終了時にブラウザキャッシュを削除", at.cache_check },
        { &sort_combo_, L"", at.sort_combo },
        { &tab_combo_, L"", at.tab_combo },
        { &ok_button_, L"OK", at.ok_button },
    });
    ok_button_.set_rounded(false); // the corners would show the colour of the panel on the strip
    fill();
    place_link();
    return true;
}

void SettingWnd::fill()
{
    for (const auto& [check, value] : checks()) {
        check->set_checked(shown_.*value);
        if (!check->hwnd())
            continue;
        check->apply_theme();
        check->fit_to_text();
    }
    fill_combo(sort_combo_, sort_items(), shown_.sort_key);
    fill_combo(tab_combo_, tab_items(), shown_.tab_label_box);
}

SettingsChoice SettingWnd::choice()
{
    SettingsChoice made = shown_;
    for (const auto& [check, value] : checks())
        made.*value = check->is_checked();
    made.sort_key = chosen_value(sort_combo_, sort_items(), shown_.sort_key);
    made.tab_label_box = chosen_value(tab_combo_, tab_items(), shown_.tab_label_box);
    return made;
}

// The link is as wide as its text, as far as there is room.
void SettingWnd::place_link()
{
    const ovlib::ClientDC dc{ *this };
    HFONT const font = shared_font(SharedFont::ui_9);
    const platform::Rect line = settings_layout().mail;
    const platform::Size text = text_size(dc, font, link_text_.c_str());
    const int left = line.left + text_size(dc, font, mail_label).width;
    link_ = { left, line.top, std::min(left + text.width, line.right), line.top + text.height };
}

void SettingWnd::on_opening()
{
    set_text(settings_title);
    if (corner_)
        move(*corner_, false);
    else
        center(parent(), false);
}

bool SettingWnd::on_enter()
{
    send_command(command::close_window, 0, 0);
    return true;
}

bool SettingWnd::on_command(int id, int code)
{
    if (id == setting_sort_key || id == setting_tab_label_box)
        return code == CBN_SELCHANGE;
    if (code != BN_CLICKED)
        return false;
    if (id == command::close_window) {
        result_ = choice();
        send(WM_CLOSE, 0, 0);
        return true;
    }
    const auto rows = checks();
    const auto row =
        std::ranges::find(rows, id, [](const CheckRow& each) { return each.first->control_id(); });
    if (row == rows.end())
        return false;
    row->first->toggle();
    return true;
}

bool SettingWnd::on_set_cursor(ovlib::WndMessage& message) const
{
    if (LOWORD(message.lparam) != HTCLIENT || !link_.contains(ovlib::to_point(cursor_pos())))
        return false;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    message.result = TRUE;
    return true;
}

bool SettingWnd::on_press(platform::Point point)
{
    if (!link_.contains(point) || !parent())
        return false;
    const std::wstring address = link_text_; // a box is shown if it fails, and this window may be destroyed
    const core::PassedObject passed{ address };
    parent()->send_command(command::write_mail, 0, passed.lparam());
    return true;
}

bool SettingWnd::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    const SIZE client = client_size();
    ovlib::BackBuffer buffer;
    if (!buffer.create(client.cx, client.cy))
        return true;
    ovlib::fill_rect(buffer, ground(), client_rect());
    for (const StripPart& part : strip_parts(settings_layout().strip, ground()))
        ovlib::fill_rect(buffer, part.color, ovlib::to_rect(part.area));
    draw(buffer.dc());
    buffer.copy_to(dc);
    return true;
}

void SettingWnd::draw(const ovlib::DC& dc) const
{
    const SettingsLayout at = settings_layout();
    HFONT const font = shared_font(SharedFont::ui_9);
    draw_group(dc, at.book_frame, page_settings_caption);
    draw_label(dc, font, at.sort_label, sort_label);
    draw_label(dc, font, at.tab_label, tab_label);
    draw_label(dc, font, { at.mail.left, at.mail.top }, mail_label);
    ovlib::GDI::TextStream stream{ dc };
    stream.font = font;
    stream.color = palette().link_text;
    stream.back_mode = TRANSPARENT;
    stream.flags |= DT_END_ELLIPSIS;
    stream.draw(link_text_, ovlib::to_rect(link_));
}

} // namespace look
