#include "app/wnd/page_desk.hpp"
#include "core/command_ids.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/process_log.hpp"
#include <algorithm>
#include <utility>

namespace app {

namespace command = core::command;

namespace {

using ovlib::to_rect;

constexpr int tab_stop = 4; // dialog units
constexpr UINT redraw_now = RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW;

// Scrolling repaints the scroll bars even if nothing moves, and most pages are shown from their first line.
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

BoxDesk::BoxDesk(ovlib::Wnd* parent, MainControls& controls, book::FileListEditor& file_list,
    std::function<bool()> searches_selection)
    : parent_(parent)
    , controls_(controls)
    , file_list_(file_list)
    , searches_selection_(std::move(searches_selection))
    , q_box_(parent, command::box_1)
    , a_box_(parent, command::box_2)
    , d_box_(parent, command::box_3)
{
}

bool BoxDesk::create()
{
    return std::ranges::all_of(boxes(), [](look::MyBox* box) { return box->create(L""); });
}

void BoxDesk::place(const PageBoxes& boxes)
{
    layout_ = boxes;
    place_boxes();
}

void BoxDesk::show()
{
    for (look::MyBox* box : boxes())
        box->show(true);
}

void BoxDesk::place_boxes()
{
    q_box_.set_rect(to_rect(layout_.first), false);
    a_box_.set_rect(to_rect(layout_.second), false);
    d_box_.set_rect(to_rect(layout_.third), false);
}

int BoxDesk::set_divider(int y)
{
    layout_ = with_divider(layout_, y);
    place_boxes();
    repaint();
    for (const BoxGap gap : { BoxGap::upper, BoxGap::lower }) {
        const RECT rect = to_rect(gap_rect(layout_, gap));
        InvalidateRect(parent_->hwnd(), &rect, FALSE);
    }
    return layout_.first.bottom;
}

void BoxDesk::select_hit(const book::SearchHit* hit)
{
    for (look::MyBox* box : boxes()) {
        if (box->has_selection())
            box->set_caret(box->caret());
    }
    const std::uint64_t box = hit ? hit->place - book::box_place : book::box_count;
    if (box >= book::box_count)
        return;
    boxes()[box]->set_selection(static_cast<int>(hit->start), static_cast<int>(hit->end));
    boxes()[box]->scroll_caret();
}

std::wstring BoxDesk::focused_selection() const
{
    for (const look::MyBox* box : boxes())
        if (box->hwnd() && box->hwnd() == GetFocus() && box->has_selection())
            return box->selected_text();
    return {};
}

std::size_t BoxDesk::line_of(std::size_t box, std::uint64_t position) const
{
    return static_cast<std::size_t>(boxes()[box]->line_from_char(static_cast<int>(position)));
}

std::size_t BoxDesk::line_count(std::size_t box) const
{
    return static_cast<std::size_t>(SendMessageW(boxes()[box]->hwnd(), EM_GETLINECOUNT, 0, 0));
}

std::uint64_t BoxDesk::line_start(std::size_t box, std::size_t line) const
{
    return static_cast<std::uint64_t>(SendMessageW(boxes()[box]->hwnd(), EM_LINEINDEX, line, 0));
}

std::optional<std::wstring> BoxDesk::unwrapped_text(std::size_t box) const
{
    const look::MyBox& asked = *boxes()[box];
    return asked.is_wrapped() ? std::nullopt : std::optional{ asked.text() };
}

void BoxDesk::repaint()
{
    for (const look::MyBox* box : boxes())
        if (box->hwnd()) // for null the system repaints all windows
            RedrawWindow(box->hwnd(), nullptr, nullptr, redraw_now | RDW_FRAME);
}

bool BoxDesk::set_state(bool read_only, bool wrap, const book::Page* page)
{
    if (read_only != q_box_.is_read_only()) {
        for (look::MyBox* box : boxes())
            box->set_read_only(read_only);
    }
    bring_lost_boxes_back(read_only, wrap, page);
    if (wrap == q_box_.is_wrapped())
        return false;
    q_box_.set_wrap(wrap);
    d_box_.set_wrap(wrap);
    // The new controls are scrolled to their first line, which the next save would store.
    if (page)
        restore_scroll(*page);
    return true;
}

// A box is lost if its control could not be created again for another wrapping. Its text comes from the page.
// The divider may have moved since, so the boxes are placed again. set_wrap uses the font that was chosen
// last.
void BoxDesk::bring_lost_boxes_back(bool read_only, bool wrap, const book::Page* page)
{
    for (std::size_t i = 0; i < book::box_count; ++i) {
        look::MyBox& box = *boxes()[i];
        if (!box.is_lost() || !box.set_wrap(wrap))
            continue;
        place_boxes();
        box.set_read_only(read_only);
        if (page)
            box.renew_text(page->text[i]);
        box.set_modified(false);
    }
}

bool BoxDesk::on_color(ovlib::WndMessage& message, const book::Page* page, look::BoxUse use)
{
    const std::optional<std::size_t> box = box_of(message);
    return box && page && answer_colors(message, look::box_colors(*page, *box, use), brushes_[*box]);
}

std::optional<std::size_t> BoxDesk::box_of(const ovlib::WndMessage& message) const
{
    HWND const control = reinterpret_cast<HWND>(static_cast<std::intptr_t>(message.lparam));
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (boxes()[box]->hwnd() == control)
            return box;
    }
    return std::nullopt;
}

bool BoxDesk::has_edits() const
{
    return file_list_.is_modified()
        || std::ranges::any_of(boxes(), [](const look::MyBox* box) { return box->is_modified(); });
}

std::optional<std::wstring> BoxDesk::file_list_edit() const
{
    return file_list_.is_modified() ? std::optional{ file_list_.typed_text() } : std::nullopt;
}

BoxEdits BoxDesk::edits() const
{
    BoxEdits edits;
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (boxes()[box]->is_modified())
            edits[box] = boxes()[box]->text();
    }
    return edits;
}

// Scrolling repaints what is on the screen, which is still the text of the old page. So redrawing is off
// while a page with a scroll position is filled in. For other pages it stays on: the frame and its scroll
// bars cost more than the text, and with redrawing on they repaint only if they change.
void BoxDesk::show(const book::Page& page, bool is_shown_already)
{
    const bool scrolls = page.scroll_first != 0 || page.scroll_third != 0;
    for (look::MyBox* box : boxes()) {
        if (scrolls)
            box->set_redraw(false);
    }
    q_box_.set_tab_stops(tab_stop);
    d_box_.set_tab_stops(tab_stop);
    for (std::size_t box = 0; box < book::box_count; ++box)
        renew_text(*boxes()[box], page.text[box], is_shown_already);
    restore_scroll(page);
    for (look::MyBox* box : boxes()) {
        if (scrolls)
            box->set_redraw(true);
        RedrawWindow(box->hwnd(), nullptr, nullptr, redraw_now | (scrolls ? RDW_FRAME : 0));
    }
}

void BoxDesk::restore_scroll(const book::Page& page)
{
    scroll_to(q_box_, page.scroll_first);
    scroll_to(d_box_, page.scroll_third);
}

void BoxDesk::store_scroll(book::Page& page) const
{
    if (!q_box_.is_lost())
        page.scroll_first = q_box_.scroll_v_pos();
    if (!d_box_.is_lost())
        page.scroll_third = d_box_.scroll_v_pos();
}

void BoxDesk::mark_clean()
{
    for (look::MyBox* box : boxes())
        box->set_modified(false);
    file_list_.clear_modified();
}

// Each new title repaints the frame, also under programs that draw the frame instead of the system. So an
// equal title is not set again.
void BoxDesk::show_title(const std::wstring& title, bool is_edited)
{
    controls_.show_edited(is_edited);
    if (parent_->text() != title)
        parent_->set_text(title);
}

void BoxDesk::apply_theme(book::BookHeader& header)
{
    header.theme = look::load_theme(header.theme);
    look::apply_theme_to_windows();
}

void BoxDesk::apply_divider_and_fonts(book::BookHeader& header)
{
    if (header.divider == 0)
        header.divider = first_divider(layout_);
    header.divider = set_divider(header.divider);
    for (std::size_t box = 0; box < book::box_count; ++box)
        set_font(box, header.fonts[box]);
}

void BoxDesk::set_font(std::size_t box, const book::LogFont& record)
{
    HFONT const font = look::make_box_font(record);
    boxes()[box]->take_font(font);
    if (!font)
        ovlib::WinApp::process_log() << L"ログフォントの設定に失敗: Box" << std::to_wstring(box) << L"\r\n";
}

book::SearchQuery BoxDesk::query() const
{
    book::SearchQuery query = controls_.query();
    query.selected_only = searches_selection_();
    return query;
}

bool answer_colors(ovlib::WndMessage& message, look::BoxColors colors, ovlib::GDI::Brush& brush)
{
    HDC const dc = reinterpret_cast<HDC>(static_cast<std::uintptr_t>(message.wparam));
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, colors.back.value);
    SetTextColor(dc, colors.text.value);
    brush.renew(ovlib::GDI::solid_brush(colors.back));
    message.result = reinterpret_cast<std::intptr_t>(brush.handle());
    return true;
}

} // namespace app
