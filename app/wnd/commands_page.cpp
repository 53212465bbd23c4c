// Commands on pages, the boxes and the search.
#include "app/file_actions.hpp"
#include "app/menus.hpp"
#include "app/page_actions.hpp"
#include "app/wnd/main_commands.hpp"
#include "app/wnd/popup_menu.hpp"
#include "core/command_ids.hpp"
#include "look/page_slider.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace app {

void show_main_menu(MainParts& parts)
{
    const MainMenuState state{ .is_busy = parts.talk.is_busy(),
        .accepts_input = parts.talk.is_accepting_input(),
        .is_palette_open = parts.palette.is_open(),
        .is_file_list_editor_open = parts.file_list_editor.is_open(),
        .order_mode = parts.session.book().header.order_mode };
    show_menu(parts, main_menu(state), menu_flags::main, ovlib::mouse_on_screen());
}

namespace {

// After a refused turn the slider goes back to the position of the page that is still shown.
void turn_by_slider(MainParts& parts, std::uint64_t position)
{
    const bool may_turn = parts.talk.is_accepting_input();
    const bool has_turned = may_turn && go_to_position(parts.session, position) == core::Outcome::done;
    if (!has_turned && parts.window.is_window())
        parts.controls.slider().refuse_move(static_cast<std::int32_t>(parts.session.book().header.position));
}

} // namespace

void on_slider_move(MainParts& parts, int code)
{
    look::MySlider& slider = parts.controls.slider();
    const book::Book& book = parts.session.book();
    const std::int32_t value = slider.value;
    switch (look::page_move(code, value, book.header.position, book.pages.size())) {
    case look::PageMove::none:
        break;
    case look::PageMove::show_again:
        parts.session.run(
            [&parts] { parts.session.merge(static_cast<core::RefreshMask>(core::View::slider)); });
        break;
    case look::PageMove::turn:
        // During a load `run` does nothing, so the slider is put back here.
        if (parts.session.is_loading())
            slider.refuse_move(static_cast<std::int32_t>(book.header.position));
        parts.session.run([&parts, value] { turn_by_slider(parts, static_cast<std::uint64_t>(value)); });
        break;
    }
}

namespace commands {

namespace command = core::command;
using core::Outcome;

Outcome turn_page(MainParts& parts, const CommandInput& input)
{
    return app::turn_page(parts.session, input.id == command::next_page ? 1 : -1);
}

Outcome go_to_end_page(MainParts& parts, const CommandInput& input)
{
    return input.id == command::first_page ? go_to_first_page(parts.session) : go_to_last_page(parts.session);
}

Outcome go_to_tab(MainParts& parts, const CommandInput& input)
{
    return app::go_to_tab(parts.session, static_cast<std::uint64_t>(input.lparam));
}

Outcome change_order(MainParts& parts, const CommandInput& input)
{
    return app::change_order(parts.session, input.id);
}

Outcome toggle_mark(MainParts& parts, const CommandInput&)
{
    return app::toggle_mark(parts.session);
}

Outcome toggle_tracking(MainParts& parts, const CommandInput& input)
{
    return app::toggle_tracking(parts.session, input.id);
}

Outcome toggle_tab(MainParts& parts, const CommandInput&)
{
    return app::toggle_tab(parts.session, parts.controls.tabs().chosen_color().value);
}

Outcome remove_tab(MainParts& parts, const CommandInput& input)
{
    return app::remove_tab(
        parts.session, static_cast<std::uintptr_t>(input.lparam), parts.controls.tabs().chosen_color().value);
}

Outcome add_page(MainParts& parts, const CommandInput& input)
{
    return app::add_page(parts.session, input.id);
}

Outcome add_dropped_pages(MainParts& parts, const CommandInput&)
{
    const std::vector<std::wstring> paths = parts.drops.take_paths();
    const Outcome outcome = add_pages_of_files(parts.session, paths);
    if (outcome == Outcome::done)
        parts.links.start_shortcut_creation_async(paths);
    return outcome;
}

Outcome delete_page(MainParts& parts, const CommandInput&)
{
    return app::delete_page(parts.session);
}

Outcome note_box_change(MainParts& parts, const CommandInput&)
{
    parts.session.box_changed();
    return Outcome::done;
}

Outcome renew_edited_mark(MainParts& parts, const CommandInput&)
{
    parts.session.renew_edited_mark();
    return Outcome::done;
}

// Changing the text makes the search box send its own command, which renews the hits.
Outcome search_selection(MainParts& parts, const CommandInput&)
{
    const std::wstring selected = parts.desk.focused_selection();
    if (!selected.empty())
        parts.controls.search_box().set_text(selected);
    return Outcome::done;
}

Outcome toggle_search_check(MainParts& parts, const CommandInput& input)
{
    parts.controls.check(input.id)->toggle();
    return note_search_change(parts, input);
}

Outcome clear_search(MainParts& parts, const CommandInput&)
{
    parts.controls.search_box().set_text(L"");
    return Outcome::done;
}

Outcome note_search_change(MainParts& parts, const CommandInput&)
{
    parts.session.renew_hits();
    parts.results.refill(book::RefillCause::query_changed);
    return Outcome::done;
}

// Opening the window also fills it.
Outcome toggle_results(MainParts& parts, const CommandInput&)
{
    parts.session.renew_hits();
    parts.results.show(!parts.results.is_open());
    return Outcome::done;
}

// The message carries an address, and only that of the window's own hit is used.
Outcome choose_result(MainParts& parts, const CommandInput& input)
{
    const book::SearchHit chosen = parts.results.chosen();
    const auto own = reinterpret_cast<std::intptr_t>(&parts.results.chosen());
    if (input.lparam != 0 && input.lparam != own)
        return Outcome::failed;
    parts.desk.select_hit(input.lparam != 0 ? &chosen : nullptr);
    return input.lparam != 0 ? select_file_of_hit(parts.session, chosen) : Outcome::failed;
}

} // namespace commands

} // namespace app
