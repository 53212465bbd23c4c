#include "look/wnd/palettewnd.hpp"
#include "core/command_ids.hpp"
#include "core/folders.hpp"
#include "core/passed_object.hpp"
#include "core/refresh.hpp"
#include "look/box_look.hpp"
#include "look/custom_colors.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/group_frame.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include <algorithm>
#include <bit>
#include <utility>
#include <uxtheme.h>

namespace look {

namespace command = core::command;

namespace {

constexpr ToolFrame frame{ {}, WS_POPUP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_CAPTION, WS_EX_APPWINDOW };

std::int64_t as_lparam(HWND hwnd)
{
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(hwnd));
}

LOGFONTW system_record(const book::LogFont& font)
{
    return std::bit_cast<LOGFONTW>(with_ended_name(font));
}

// The font dialog shows its font, so it gets no font that cannot be drawn.
book::LogFont first_font(const book::Book& book, std::size_t box)
{
    book::LogFont font = book.header.fonts[box];
    if (!is_usable_font(font))
        book::default_box_font(box, font);
    return font;
}

} // namespace

PaletteWnd::PaletteWnd(ovlib::Wnd* parent, book::Book* book, std::function<bool()> accepts_input)
    : ToolWindow(parent, command::palette_window, frame)
    , book_(book)
    , accepts_input_(std::move(accepts_input))
    , box_combo_(this, 2520, CBS_DROPDOWNLIST)
    , apply_check_(this, command::apply_theme_to_pages)
    , font_button_(this, command::set_box_font)
    , text_button_(this, 2503)
    , back_button_(this, 2504)
    , theme_button_(this, 6500)
    , close_button_(this, command::close_window)
    , font_dialog_(this)
    , color_dialog_(this)
{
}

std::wstring PaletteWnd::class_info(WNDCLASSEXW& info)
{
    ToolWindow::class_info(info);
    return ovlib::window_class_name(L"palettewnd", 75);
}

void PaletteWnd::create_params(CREATESTRUCTW& params)
{
    ToolWindow::create_params(params);
    params.cx = palette_size.width;
    params.cy = palette_size.height;
}

bool PaletteWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_COMMAND:
        return on_command(LOWORD(message.wparam), HIWORD(message.wparam));
    case WM_CLOSE:
        return on_close(message);
    case WM_PAINT:
        return on_paint();
    case WM_NCHITTEST:
        return move_by_background(message);
    default:
        return ToolWindow::on_message(message);
    }
}

bool PaletteWnd::make_controls()
{
    const PaletteLayout at = palette_layout();
    const bool are_made = add_controls({
        { &box_combo_, L"", at.box_combo },
        { &font_button_, L"フォント", at.font_button },
        { &text_button_, L"文字色", at.text_button },
        { &back_button_, L"背景色", at.back_button },
        { &theme_button_, L"テーマの変更", at.theme_button },
        { &apply_check_, L"既存のページにも適用", at.apply_check },
        { &close_button_, L"閉じる", at.close_button },
    });
    if (!are_made)
        return false;
    // Without a visual style the combo box has the colours of the theme.
    SetWindowTheme(box_combo_.hwnd(), L"", L"");
    box_combo_.set_font(shared_font(SharedFont::ui_8));
    for (const wchar_t* name : box_names)
        box_combo_.add(name);
    box_combo_.set_min_visible(static_cast<int>(box_names.size()));
    apply_check_.apply_theme();
    apply_check_.fit_to_text();
    load_custom_colors();
    return true;
}

void PaletteWnd::show(bool visible)
{
    const bool was_open = is_open();
    ToolWindow::show(visible);
    if (is_open() == was_open || !has_parent())
        return;
    for (std::size_t box = 0; box < book::box_count; ++box)
        parent()->send_command(command::repaint_box, static_cast<int>(box), as_lparam(hwnd()));
}

bool PaletteWnd::on_close(ovlib::WndMessage& message)
{
    const bool is_handled = ToolWindow::on_message(message);
    if (has_parent())
        parent()->send_command(command::request_refresh, 0, core::refresh::full_but_page);
    return is_handled;
}

void PaletteWnd::show_at_cursor(bool visible, std::size_t box)
{
    if (visible == is_open())
        return;
    first_box_ = box;
    show(visible);
}

void PaletteWnd::on_opening()
{
    set_text(palette_title);
    place_at_cursor(palette_offset);
    apply_check_.set_checked(false);
    box_combo_.select(static_cast<int>(first_box_));
}

bool PaletteWnd::on_command(int id, int code)
{
    if (code != BN_CLICKED)
        return false;
    if (id != command::close_window && !accepts_input_())
        return true;
    switch (id) {
    case 2503:
        choose_color(BoxColor::text);
        return true;
    case 2504:
        choose_color(BoxColor::back);
        return true;
    case command::set_box_font:
        choose_font();
        return true;
    case 6500:
        show_theme_menu();
        return true;
    case command::apply_theme_to_pages:
        apply_check_.toggle();
        return true;
    case command::close_window:
        send(WM_CLOSE, 0, 0);
        return true;
    default:
        if (id < command::first_theme || id > command::last_theme)
            return false;
        choose_theme(id);
        return true;
    }
}

std::size_t PaletteWnd::chosen_box() const
{
    return static_cast<std::size_t>(
        std::clamp(box_combo_.selected(), 0, static_cast<int>(book::box_count) - 1));
}

// The main window stays enabled, so another page or Book may be open when the dialog ends.
void PaletteWnd::choose_color(BoxColor which)
{
    book::Page* page = book_->current_page();
    if (!page)
        return;
    const std::size_t box = chosen_box();
    const PaletteSubject subject = palette_subject(*book_);
    const ovlib::WndWatch alive{ this };
    color_dialog_.set_color(Color{ color_of(*page, which, box) });
    bool is_chosen = false;
    {
        const InputHold hold{ *this };
        is_chosen = color_dialog_.show();
    }
    if (!alive || !is_chosen || !has_parent() || palette_subject(*book_) != subject)
        return;
    page = book_->current_page();
    color_of(*page, which, box) = color_dialog_.color().value;
    parent()->send_command(command::repaint_box, static_cast<int>(box), as_lparam(hwnd()));
}

// A font belongs to the Book, so it is also stored if another page is shown by then.
void PaletteWnd::choose_font()
{
    const std::size_t box = chosen_box();
    const std::uint64_t revision = book_->revision;
    const ovlib::WndWatch alive{ this };
    font_dialog_.set_font(system_record(first_font(*book_, box)));
    bool is_chosen = false;
    {
        const InputHold hold{ *this };
        is_chosen = font_dialog_.show();
    }
    if (!alive || !is_chosen || !has_parent() || book_->revision != revision)
        return;
    const LOGFONTW chosen = font_dialog_.font();
    book_->header.fonts[box] = std::bit_cast<book::LogFont>(chosen);
    const core::PassedObject passed{ chosen };
    parent()->send_command(command::set_box_font, static_cast<int>(box), passed.lparam());
}

void PaletteWnd::show_theme_menu()
{
    ovlib::Menu menu;
    menu.add_rows(theme_menu(palette().current_theme));
    menu.show(*this, 0);
}

void PaletteWnd::choose_theme(int theme)
{
    const ovlib::WndWatch alive{ this };
    const bool applies_to_pages = apply_check_.is_checked();
    if (applies_to_pages && !confirm_theme())
        return;
    parent()->send_command(theme, 0, as_lparam(hwnd()));
    if (applies_to_pages && alive && has_parent())
        parent()->send_command(command::apply_theme_to_pages, 0, as_lparam(hwnd()));
}

// An answer about another Book counts as no.
bool PaletteWnd::confirm_theme()
{
    const std::uint64_t revision = book_->revision;
    const ovlib::WndWatch alive{ this };
    const int answer = show_message(theme_question, MB_YESNO | MB_ICONQUESTION);
    return answer == IDYES && alive && has_parent() && book_->revision == revision;
}

platform::Rect PaletteWnd::combo_place() const
{
    RECT place{};
    GetWindowRect(box_combo_.hwnd(), &place);
    MapWindowPoints(nullptr, hwnd(), reinterpret_cast<POINT*>(&place), 2);
    return ovlib::from_rect(place);
}

bool PaletteWnd::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    const PaletteGroup group = palette_group(combo_place());
    draw_group(dc, group.frame, page_settings_caption);
    const int usual_width = text_size(dc, shared_font(SharedFont::ui_9), palette_label).width;
    draw_label(dc, shared_font(palette_label_font(usual_width)), group.label, palette_label);
    return true;
}

void PaletteWnd::load_custom_colors()
{
    if (has_custom_colors_)
        return;
    const CustomColors colors = read_custom_colors(core::custom_colors_file(core::folders()));
    std::ranges::copy(colors, color_dialog_.custom_colors().begin());
    has_custom_colors_ = true;
}

void PaletteWnd::store_custom_colors()
{
    load_custom_colors();
    CustomColors colors{};
    std::ranges::copy(color_dialog_.custom_colors(), colors.begin());
    write_custom_colors(core::custom_colors_file(core::folders()), colors);
}

} // namespace look
