// A list in columns that stores no rows: it queries the rows that it shows.
#pragma once
#include "ovlib/gui/listview.hpp"
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ovlib {

// Rows `first` to `last`, both included, were selected or deselected.
struct SelectionChange {
    int first = 0;
    int last = 0;
    bool is_selected = false;

    friend bool operator==(const SelectionChange&, const SelectionChange&) = default;
};

// The rows of a virtual list, and the receiver of its notifications. Each function may be empty. Only rows
// below the count are queried.
struct ListSource {
    // The list copies the result at once.
    std::function<std::wstring(int row, int column)> text;
    // An index in the image list, or I_IMAGENONE.
    std::function<int(int row)> image = {};
    // Called for each range, which may contain rows that did not change. `selection` returns the current
    // selection.
    std::function<void(const SelectionChange& change)> selected = {};
};

// The system sends the list's queries to its parent, which passes WM_NOTIFY to route_list_notice. Only
// visible rows are queried, so the cost does not depend on their number. Typing selects the next row whose
// first column starts with the typed text.
class VirtualList : public ReportListView {
public:
    // `style` contains further LVS_ bits.
    VirtualList(Wnd* parent, int control_id, DWORD style = 0);

    // Replaces the source. Whatever its functions refer to must exist until the list's window is destroyed or
    // the next source is set.
    void set_source(ListSource source);

    // Sets the number of rows and redraws the visible ones, without scrolling. Rows beyond the number lose
    // their selection without a notification.
    void set_count(int count);

    void select(int row) override;
    // Row indices in ascending order.
    std::vector<int> selection() const;
    int selected_count() const;
    // Selects only these rows; non-existing ones are ignored. Does not scroll. A single-selection list keeps
    // the last of them.
    void select_rows(std::span<const int> rows);

    void ensure_visible(int row);
    // Redraws the visible rows among `first` to `last`, both included.
    void redraw_rows(int first, int last);

private:
    friend bool route_list_notice(WndMessage& message);

    // Hidden, because the owner stores the rows.
    using ReportListView::add_row;
    using ReportListView::clear;
    using ReportListView::set_cell;

    bool has_row(int row) const;
    void set_selected(int row, bool selected);
    bool on_notice(WndMessage& message);
    void fill(LVITEMW& item) const;
    std::wstring text_of(int row, int column) const;
    int find(const NMLVFINDITEMW& request) const;
    void report(SelectionChange change) const;

    ListSource source_;
};

// For the WM_NOTIFY handler of a parent: lets a VirtualList handle its own notifications. False for all
// others, such as a click, and for those of other controls.
bool route_list_notice(WndMessage& message);

} // namespace ovlib
