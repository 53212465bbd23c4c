#include "book/wnd/book_search_result_wnd.hpp"
#include "controls/window_place.hpp"
#include "core/command_ids.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/scoped_flag.hpp"
#include <algorithm>
#include <utility>

namespace book {

namespace {

constexpr int list_id = 1; // controls below 1000 get double clicks
constexpr UINT refill_later = WM_APP + 1; // wparam: the cause
constexpr look::ToolFrame frame{ results_client_size,
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW };

} // namespace

BookSearchResultWnd::BookSearchResultWnd(ovlib::Wnd* parent, int control_id, Program program)
    : ToolWindow(parent, control_id, frame)
    , program_(std::move(program))
    , list_(this, list_id, LVS_SINGLESEL | LVS_SHOWSELALWAYS)
{
}

std::wstring BookSearchResultWnd::class_info(WNDCLASSEXW& info)
{
    ToolWindow::class_info(info);
    return ovlib::window_class_name(L"book_search_result_wnd", 35);
}

bool BookSearchResultWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_NOTIFY:
        on_notify(*reinterpret_cast<const NMHDR*>(message.lparam));
        return ToolWindow::on_message(message);
    case refill_later:
        program_.run([&] { refill(static_cast<RefillCause>(message.wparam)); });
        return true;
    default:
        return ToolWindow::on_message(message);
    }
}

bool BookSearchResultWnd::make_controls()
{
    const platform::Rect all{ 0, 0, results_client_size.width, results_client_size.height };
    if (!add_controls({ { &list_, L"", all } }))
        return false;
    for (const ResultColumn& column : result_columns)
        list_.add_column(column.title, column.width);
    list_.set_source({
        .text = [this](int row, int column) { return rows_.cell(row, column); },
        .selected =
            [this](const ovlib::SelectionChange& change) {
                if (change.is_selected)
                    choose(change.first);
            },
    });
    return true;
}

void BookSearchResultWnd::lay_out(platform::Size client)
{
    list_.set_rect({ 0, 0, client.width, client.height }, true);
    int others = 0;
    for (int column = 0; column < range_cell; ++column)
        others += list_.column_width(column);
    const int room = client.width - GetSystemMetrics(SM_CXVSCROLL);
    list_.set_column_width(range_cell, last_result_width(room, others));
}

void BookSearchResultWnd::on_opening()
{
    if (!std::exchange(has_place_, true)) {
        const platform::Rect ground = ovlib::from_rect(program_.first_ground());
        const platform::Rect place = ovlib::centered(ovlib::to_size(size()), ground);
        move(place.left, place.top, false);
    }
    fill(RefillCause::window_opened);
}

void BookSearchResultWnd::refill(RefillCause cause)
{
    // The list is still in its own notification then.
    if (is_choosing_)
        post(refill_later, static_cast<std::uint64_t>(cause), 0);
    else if (is_open())
        fill(cause);
    else
        choose_unseen(cause);
}

// The rows are made before the list changes, because making them may throw.
void BookSearchResultWnd::fill(RefillCause cause)
{
    const RefillPlan plan = next_plan(rows_.hits(), cause);
    ResultRows rows{ program_.book.hits, program_.lines };
    list_.set_redraw(false);
    rows_ = std::move(rows);
    if (!plan.keeps_view)
        list_.select(-1);
    list_.set_count(static_cast<int>(rows_.count()));
    if (!plan.keeps_view)
        list_.ensure_visible(0);
    if (plan.clears_boxes)
        send_chosen(nullptr);
    else if (plan.row >= 0)
        list_.select(plan.row);
    list_.set_redraw(true);
    InvalidateRect(list_.hwnd(), nullptr, TRUE);
    UpdateWindow(list_.hwnd());
    set_text(results_title(program_.book.header.position, rows_.count()));
}

RefillPlan BookSearchResultWnd::next_plan(const std::vector<SearchHit>& old_hits, RefillCause cause)
{
    const std::vector<SearchHit>& hits = program_.book.hits;
    return refill_plan(old_hits, hits, cause, std::exchange(had_hits_, !hits.empty()));
}

void BookSearchResultWnd::choose_unseen(RefillCause cause)
{
    const std::vector<SearchHit>& hits = program_.book.hits;
    const RefillPlan plan = next_plan({}, cause);
    if (plan.clears_boxes) {
        send_chosen(nullptr);
    } else if (plan.row >= 0) {
        chosen_ = chosen_hit(hits[static_cast<std::size_t>(plan.row)]);
        send_chosen(&chosen_);
    }
}

bool BookSearchResultWnd::parse_row(int row, SearchHit& hit) const
{
    const std::optional<SearchHit> read = rows_.parse_row(row);
    hit = read.value_or(SearchHit{});
    return read.has_value();
}

void BookSearchResultWnd::choose(int row)
{
    if (parse_row(row, chosen_))
        send_chosen(&chosen_);
}

void BookSearchResultWnd::send_chosen(const SearchHit* hit)
{
    const platform::ScopedFlag choosing{ is_choosing_ };
    parent()->send_command(
        core::command::choose_result, 0, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(hit)));
}

// A click on the selected row changes no selection.
void BookSearchResultWnd::on_notify(const NMHDR& notice)
{
    if (notice.hwndFrom != list_.hwnd())
        return;
    if (notice.code == NM_CLICK)
        choose(reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem);
    else if (notice.code == NM_DBLCLK)
        go_to(reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem);
}

bool BookSearchResultWnd::on_enter()
{
    go_to(list_.selected());
    return true;
}

void BookSearchResultWnd::go_to(int row)
{
    SearchHit read;
    if (!parse_row(row, read))
        return;
    choose(row);
    program_.go_to(chosen_);
}

} // namespace book
