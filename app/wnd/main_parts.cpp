// Construction of the parts, and the table from each view to the function that refreshes it.
#include "app/wnd/main_parts.hpp"
#include "app/file_actions.hpp"
#include "app/page_views.hpp"
#include "app/wnd/app_bitmaps.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include <algorithm>
#include <array>

namespace app {

namespace {

using core::View;

void show_page(MainParts& parts)
{
    parts.session.show_current_page();
    parts.results.refill(book::RefillCause::page_shown);
}

void show_file_pane(MainParts& parts)
{
    if (!parts.file_view.show_selected_file() || !parts.window.is_window())
        return;
    for (const Rect& place : { parts.layout.file_counter, file_note(parts.layout).area }) {
        const RECT rect = ovlib::to_rect(place);
        InvalidateRect(parts.window.hwnd(), &rect, FALSE);
    }
    UpdateWindow(parts.window.hwnd());
}

void show_file_combo(MainParts& parts)
{
    core::set_current_directory(L"");
    if (const auto files = file_combo(parts.session.book(), parts.path_answers))
        parts.controls.show_files(*files);
}

// What was typed stays until it is applied or dropped.
void show_file_list(MainParts& parts)
{
    if (parts.file_list_editor.is_open() && !parts.file_list_editor.is_modified())
        parts.file_list_editor.load_page();
}

// Without a page nothing may be typed, because there is no page to store it.
void show_box_state(MainParts& parts)
{
    const book::Book& book = parts.session.book();
    const bool read_only = parts.talk.is_busy() || !book.current_page();
    if (parts.desk.set_state(read_only, book.header.wrap_text != 0, parts.session.shown_page()))
        parts.session.note_content_change();
    parts.file_list_editor.set_read_only(read_only);
}

void show_folder_button(MainParts& parts)
{
    if (const auto has_folder = folder_button_lit(parts.session.book()))
        parts.controls.show_folder(*has_folder);
}

void show_slider(MainParts& parts)
{
    const book::Book& book = parts.session.book();
    parts.controls.slider().show_page(book.pages.size(), book.header.position);
}

struct ViewRow {
    View view;
    void (*show)(MainParts&);
};

constexpr std::array view_rows{
    ViewRow{ View::page, show_page },
    ViewRow{ View::file_pane, show_file_pane },
    ViewRow{ View::file_combo, show_file_combo },
    ViewRow{ View::file_list_editor, show_file_list },
    ViewRow{ View::tabs, [](MainParts& parts) { parts.controls.tabs().rebuild(); } },
    ViewRow{ View::book_editor,
        [](MainParts& parts) { parts.book_editor.update(book::BookEditor::KeepRange::no); } },
    ViewRow{ View::history_enabled, [](MainParts& parts) { parts.talk.enable_history(); } },
    ViewRow{ View::box_state, show_box_state },
    ViewRow{ View::page_buttons,
        [](MainParts& parts) {
            parts.controls.show_buttons(page_buttons(parts.session.book(), parts.talk.is_busy()));
        } },
    ViewRow{ View::folder_button, show_folder_button },
    ViewRow{ View::slider, show_slider },
    ViewRow{ View::status_bar, [](MainParts& parts) { parts.controls.status_bar().show_changes(); } },
};

constexpr bool has_row_for_each_view()
{
    return std::ranges::equal(view_rows, core::service_order, {}, &ViewRow::view);
}
static_assert(has_row_for_each_view(), "each view is served, in the order of service");

} // namespace

MainParts::MainParts(ovlib::BaseWnd& main_window)
    : window(main_window)
    , session({ desk, talk, [this](View view) { serve(view); }, [this] { path_answers.forget(); },
                  [this] { results.refill(book::RefillCause::content_changed); } },
          core::history_file(core::folders()))
    , controls(&window, &session.book())
    , file_list_editor(&window, 0,
          { [this] { return session.shown_page(); },
              [this] { run([this] { return apply_typed_list(session) == core::Outcome::done; }); },
              [this] { return run([this] { return may_change_list(session); }); } })
    , desk(&window, controls, file_list_editor, [this] { return book_editor.traces_selection(); })
    , results(&window, 0,
          { session.book(), desk, [this] { return on_screen(layout.file_pane); },
              [this](const book::SearchHit& hit) { focus_place_of(hit); },
              [this](const std::function<void()>& action) { session.run(action); } })
    , talk(window, session.book().path, session.history(), file_list_editor,
          { [this] { links.start_shortcut_creation_async(); },
              [this](
                  const std::vector<std::wstring>& files) { links.start_shortcut_creation_async(files); } })
    , links(window, talk, session.book())
    , menu_pictures(app_bitmap)
    , file_view(&window, &session.book(), path_answers, menu_pictures)
    , background(window, desk, [this](int y) { session.book().header.divider = y; })
    , palette(&window, &session.book(), [this] { return talk.is_accepting_input() && !session.is_loading(); })
    , settings(&window)
    , edit_session(session, [this] { return talk.is_accepting_input(); })
    , replace_window(&window, 0, session.book(), edit_session)
    , book_editor(&window, 0, session.book(), edit_session, menu_pictures)
    , drops(*this)
{
    talk.add_busy_window(busy_replacing_);
    talk.add_busy_window(busy_editing_);
}

bool MainParts::create()
{
    return desk.create() && controls.create() && file_view.create();
}

void MainParts::lay_out()
{
    const SIZE client = window.client_size();
    layout = main_layout({ client.cx, client.cy });
    desk.place(layout.boxes);
    controls.place(layout);
    file_view.place(layout);
    desk.show();
}

void MainParts::serve(View view)
{
    const auto row = std::ranges::find(view_rows, view, &ViewRow::view);
    if (row != view_rows.end())
        row->show(*this);
}

RECT MainParts::on_screen(const Rect& place) const
{
    POINT corner{ place.left, place.top };
    ClientToScreen(window.hwnd(), &corner);
    return { corner.x, corner.y, corner.x + place.width(), corner.y + place.height() };
}

void MainParts::focus_place_of(const book::SearchHit& hit)
{
    SetForegroundWindow(window.hwnd());
    const std::uint64_t box = hit.place - book::box_place;
    if (box < book::box_count)
        desk.boxes()[box]->set_focus();
    else
        controls.file_combo().set_focus();
}

bool MainParts::run(const std::function<bool()>& action)
{
    bool is_done = false;
    session.run([&] { is_done = action(); });
    return is_done;
}

WindowState MainParts::window_state() const
{
    return { talk.is_accepting_input(), talk.is_busy() };
}

} // namespace app
