// The hits of the page on the screen, one per row. Choosing a row selects its place in the main window.
#pragma once
#include "book/book.hpp"
#include "book/result_rows.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/tool_window.hpp"
#include <functional>

namespace book {

// The rows are a copy of the Book's hits from the last refill. Choosing one sends the parent command 1058
// with the address of `chosen`; a refill without hits sends it with null. While the window is closed a refill
// shows nothing, but still chooses the first hit.
class BookSearchResultWnd : public look::ToolWindow {
public:
    // What it needs of the program. All must outlive the window.
    struct Program {
        const Book& book;
        const BoxLines& lines;
        // The rectangle on the screen over which the window opens first.
        std::function<RECT()> first_ground;
        // Gives the focus to the place of a hit.
        std::function<void(const SearchHit&)> go_to;
        // Runs an action as an operation of the program, which reports what it throws.
        std::function<void(const std::function<void()>&)> run = [](const auto& action) { action(); };
    };

    BookSearchResultWnd(ovlib::Wnd* parent, int control_id, Program program);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;

    // Shows the hits that the Book has now. If a row is being chosen, it does so afterwards.
    void refill(RefillCause cause);
    // Reads a row back from its cells; false for a row that does not exist.
    bool parse_row(int row, SearchHit& hit) const;
    // The hit that was chosen last.
    const SearchHit& chosen() const { return chosen_; }

    const look::MyVirtualList& list() const { return list_; }

protected:
    bool make_controls() override;
    void lay_out(platform::Size client) override;
    void on_opening() override;
    bool on_enter() override;

private:
    void on_notify(const NMHDR& notice);
    RefillPlan next_plan(const std::vector<SearchHit>& old_hits, RefillCause cause);
    void fill(RefillCause cause);
    void choose_unseen(RefillCause cause);
    void choose(int row);
    void go_to(int row);
    void send_chosen(const SearchHit* hit);

    Program program_;
    look::MyVirtualList list_;
    ResultRows rows_;
    SearchHit chosen_;
    bool has_place_ = false; // it was opened before and stays where the user left it
    bool had_hits_ = false; // at the last refill, also an unseen one
    bool is_choosing_ = false; // command 1058 is running
};

} // namespace book
