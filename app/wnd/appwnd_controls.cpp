// The controls beside the boxes: when they are brought up to date, and what they do to the Book.
#include "app/file_actions.hpp"
#include "app/wnd/appwnd.hpp"
#include "book/page_order.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "look/page_slider.hpp"
#include <algorithm>

namespace app {

namespace refresh = core::refresh;

std::array<ovlib::Wnd*, typing_fields.size()> AppWnd::fields()
{
    return { &q_box_, &a_box_, &d_box_, &controls_.search_box() };
}

void AppWnd::order_fields()
{
    constexpr std::uint16_t group = 1;
    std::uint16_t index = 0;
    for (ovlib::Wnd* field : fields())
        field->set_tab_order(group, ++index);
}

void AppWnd::note_field_focus(int id)
{
    const auto found = std::ranges::find(typing_fields, id);
    if (found != typing_fields.end())
        last_field_ = static_cast<std::size_t>(found - typing_fields.begin());
}

// The system gives the keyboard to the frame when the window becomes active: at the start, after a box of its
// own and after another program. What is typed belongs to the text.
bool AppWnd::on_focus()
{
    if (is_closing_)
        return false;
    const auto all = fields();
    std::array<bool, typing_fields.size()> can_take{};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto style = static_cast<DWORD>(GetWindowLongW(all[i]->hwnd(), GWL_STYLE));
        can_take[i] = (style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
    }
    const std::optional<std::size_t> place = field_for_keyboard(last_field_, can_take);
    if (place)
        all[*place]->set_focus();
    return place.has_value();
}

void AppWnd::refresh_controls(core::View view)
{
    switch (view) {
    case core::View::file_pane:
        return refresh_file_pane();
    case core::View::file_combo:
        return refresh_file_combo();
    case core::View::tabs:
        return controls_.tabs().rebuild();
    case core::View::page_buttons:
        return controls_.show_buttons(page_buttons(book_, is_busy()));
    case core::View::folder_button:
        if (const auto has_folder = folder_button_lit(book_))
            controls_.show_folder(*has_folder);
        return;
    case core::View::slider:
        return controls_.slider().show_page(book_.pages.size(), book_.header.position);
    case core::View::status_bar:
        return controls_.status_bar().show_changes();
    default:
        return;
    }
}

void AppWnd::refresh_file_combo()
{
    core::set_current_directory(L"");
    if (const auto files = file_combo(book_, path_answers_))
        controls_.show_files(*files);
}

bool AppWnd::on_slider(const ovlib::WndMessage& message)
{
    look::MySlider& slider = controls_.slider();
    if (reinterpret_cast<HWND>(static_cast<std::intptr_t>(message.lparam)) != slider.hwnd())
        return false;
    const int code = LOWORD(message.wparam);
    const std::int32_t value = slider.value;
    switch (look::page_move(code, value, book_.header.position, book_.pages.size())) {
    case look::PageMove::none:
        break;
    case look::PageMove::show_again:
        commands_.run([this] { commands_.merge(static_cast<core::RefreshMask>(core::View::slider)); });
        break;
    case look::PageMove::turn:
        commands_.run([this, value] { turn_by_slider(static_cast<std::uint64_t>(value)); });
        break;
    }
    return true;
}

// A refused turn puts the slider back: with the page that stayed it must not show another one's place.
void AppWnd::turn_by_slider(std::uint64_t position)
{
    const bool may_turn = !is_loading_ && is_accepting_input() && leave_page();
    if (is_gone())
        return;
    if (!may_turn || !book::go_to(book_, position)) {
        controls_.slider().refuse_move(static_cast<std::int32_t>(book_.header.position));
        return;
    }
    step_page(0);
    commands_.merge(refresh::full);
}

core::Outcome AppWnd::on_toggle_search_check(const CommandInput& input)
{
    controls_.check(input.id)->toggle();
    step_page(0);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_search_changed(const CommandInput&)
{
    step_page(0);
    return core::Outcome::done;
}

// The box tells of its change by itself.
core::Outcome AppWnd::on_clear_search(const CommandInput&)
{
    controls_.search_box().set_text(L"");
    return core::Outcome::done;
}

core::Outcome AppWnd::on_search_selection(const CommandInput&)
{
    for (const look::MyBox* box : boxes()) {
        if (box->hwnd() == GetFocus() && box->has_selection())
            controls_.search_box().set_text(box->selected_text());
    }
    return core::Outcome::done;
}

core::Outcome AppWnd::on_file_combo(const CommandInput&)
{
    book::Page* page = book_.current_page();
    const int row = controls_.file_combo().selected();
    const bool chosen = page && row >= 0 && select_file(*page, static_cast<std::uint64_t>(row));
    return chosen ? core::Outcome::done : core::Outcome::failed;
}

} // namespace app
