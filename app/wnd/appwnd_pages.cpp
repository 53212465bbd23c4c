// The current page in the boxes, and the way of edits back.
#include "app/page_actions.hpp"
#include "app/wnd/appwnd.hpp"
#include "book/page_text.hpp"
#include "core/command_ids.hpp"
#include "core/titles.hpp"
#include "look/wnd/fonts.hpp"
#include "platform/process_log.hpp"

namespace app {

namespace command = core::command;
namespace refresh = core::refresh;

namespace {

constexpr int tab_stop = 4; // dialog units

// Scrolling draws the bars anew even when nothing moves, and most pages stand at their first line.
void scroll_to(look::MyBox& box, int line)
{
    if (box.send(EM_GETFIRSTVISIBLELINE, 0, 0) != line)
        box.scroll_v_to(line);
}

void renew_text(look::MyBox& box, const std::wstring& text, bool keeps_selection)
{
    int start = 0;
    int end = 0;
    if (keeps_selection)
        box.selection(start, end);
    box.renew_text(text);
    if (keeps_selection)
        box.set_selection(start, end);
}

} // namespace

void AppWnd::apply_book_settings()
{
    book_.header.theme = apply_theme(book_.header.theme);
    book_.rebuild_order();
    if (book_.header.divider == 0)
        book_.header.divider = first_divider(layout_.boxes);
    book_.header.divider = set_divider(book_.header.divider);
    set_box_fonts();
    step_page(0);
    send_command(command::request_refresh, 0, refresh::full);
    update_title();
}

void AppWnd::set_box_fonts()
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        HFONT const font = look::make_box_font(book_.header.fonts[box]);
        boxes()[box]->take_font(font);
        if (!font)
            ovlib::WinApp::process_log()
                << L"ログフォントの設定に失敗: Box" << std::to_wstring(box) << L"\r\n";
    }
}

void AppWnd::refresh_views(core::RefreshMask& pending)
{
    path_answers_.forget();
    book_.refresh_counts();
    // A new order may have put another page to the position.
    pending |= core::overdue_views(shown_index_, current_index(book_));
    core::serve_refresh(pending, [this](core::View view) { serve_view(view); });
}

void AppWnd::serve_view(core::View view)
{
    switch (view) {
    case core::View::page:
        return show_page(book_.current_page());
    case core::View::box_state:
        return refresh_box_state();
    case core::View::history_enabled:
        return enable_history();
    default:
        return refresh_controls(view);
    }
}

void AppWnd::refresh_box_state()
{
    // Without a page nothing may be typed: no page could take it.
    const bool read_only = is_busy() || !book_.current_page();
    if (read_only != q_box_.is_read_only()) {
        for (look::MyBox* box : boxes())
            box->set_read_only(read_only);
    }
    const bool wrap = book_.header.wrap_text != 0;
    bring_lost_boxes_back(wrap);
    if (wrap == q_box_.is_wrapped())
        return;
    q_box_.set_wrap(wrap);
    d_box_.set_wrap(wrap);
    // The new controls stand at their first line, and the next save would store that.
    if (const book::Page* page = shown_page())
        restore_scroll(*page);
    step_page(0);
}

// A box that could not be made anew when the wrapping changed. What it held is taken from the page, and while
// it was away the boundary may have moved and another font been chosen.
void AppWnd::bring_lost_boxes_back(bool wrap)
{
    for (std::size_t i = 0; i < book::box_count; ++i) {
        look::MyBox& box = *boxes()[i];
        if (!box.is_lost() || !box.set_wrap(wrap))
            continue;
        place_boxes();
        box.set_read_only(is_busy() || !book_.current_page());
        if (const book::Page* page = shown_page())
            box.renew_text(page->text[i]);
        box.set_modified(false);
    }
}

void AppWnd::show_page(const book::Page* page)
{
    if (!page || has_edits())
        return;
    const auto index = static_cast<std::size_t>(page - book_.pages.data());
    // A page that is shown again stays where the user has it.
    const bool is_shown_already = index == shown_index_;
    if (is_shown_already)
        store_scroll();
    shown_index_ = index;
    // Scrolling moves what is on the screen, which is still the text of the old page. The frame and its bars
    // cost more than the text: they draw themselves when they change, unless drawing is off.
    const bool scrolls = page->scroll_first != 0 || page->scroll_third != 0;
    for (look::MyBox* box : boxes()) {
        if (scrolls)
            box->set_redraw(false);
    }
    q_box_.set_tab_stops(tab_stop);
    d_box_.set_tab_stops(tab_stop);
    for (std::size_t box = 0; box < book::box_count; ++box)
        renew_text(*boxes()[box], page->text[box], is_shown_already);
    restore_scroll(*page);
    for (look::MyBox* box : boxes()) {
        if (scrolls)
            box->set_redraw(true);
        const UINT frame = scrolls ? RDW_FRAME : 0;
        RedrawWindow(box->hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | frame);
    }
    mark_clean();
}

void AppWnd::restore_scroll(const book::Page& page)
{
    scroll_to(q_box_, page.scroll_first);
    scroll_to(d_box_, page.scroll_third);
}

void AppWnd::store_scroll()
{
    book::Page* page = shown_page();
    if (page && !q_box_.is_lost())
        page->scroll_first = q_box_.scroll_v_pos();
    if (page && !d_box_.is_lost())
        page->scroll_third = d_box_.scroll_v_pos();
}

void AppWnd::mark_clean()
{
    for (look::MyBox* box : boxes())
        box->set_modified(false);
    edited_mark_ = false;
    update_title();
}

void AppWnd::update_title(const std::wstring& extra)
{
    const bool edited = has_edits();
    controls_.show_edited(edited);
    // The frame is drawn anew with each text, also by those who draw it for the system.
    const std::wstring title = core::title_text(book_.path, { edited, book_.needs_update }, extra);
    if (text() != title)
        set_text(title);
}

book::Page* AppWnd::step_page(int direction)
{
    return book_.find(direction, search_query());
}

book::SearchQuery AppWnd::search_query() const
{
    book::SearchQuery query = controls_.query();
    query.track_marks = book_.header.track_marks != 0;
    query.track_tabs = book_.header.track_tabs != 0;
    return query;
}

bool AppWnd::has_edits() const
{
    for (const look::MyBox* box : boxes()) {
        if (box->is_modified())
            return true;
    }
    return false;
}

void AppWnd::take_edits_back()
{
    book::Page* page = shown_page();
    if (!page)
        return;
    BoxEdits edits;
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (boxes()[box]->is_modified())
            edits[box] = boxes()[box]->text();
    }
    take_back(std::move(edits), *page);
    renew_stamp(page->stamp, book::current_time_text());
}

// Has the page taken back before something else is shown. False when the action is to be given up.
bool AppWnd::leave_page()
{
    const bool had_edits = has_edits();
    save_book(SaveCode::ask);
    if (is_gone())
        return false;
    const Leave decision = leave_decision(had_edits && has_edits(), book_.current_page() != nullptr);
    if (decision == Leave::stay)
        return false;
    if (decision == Leave::drop_edits_and_go_on)
        mark_clean();
    // Edits that were given up still stand in the boxes.
    if (had_edits)
        commands_.merge(refresh::full);
    return true;
}

book::Page* AppWnd::shown_page()
{
    return shown_index_ < book_.pages.size() ? &book_.pages[shown_index_] : nullptr;
}

void AppWnd::forget_shown_page()
{
    shown_index_ = book::npos;
    mark_clean();
}

} // namespace app
