// A list in columns that holds no rows: it asks for those it shows.
#pragma once
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "ovlib/gui/listview.hpp"

namespace ovlib {

// Rows `first` to `last`, both included, became selected or ceased to be.
struct SelectionChange {
    int first = 0;
    int last = 0;
    bool is_selected = false;

    friend bool operator==(const SelectionChange&, const SelectionChange&) = default;
};

// The rows of a virtual list, and whom it reports to. Each function may be empty. Only rows below the count
// are asked for.
struct ListSource {
    // The result is copied at once; the list keeps no pointer to it.
    std::function<std::wstring(int row, int column)> text;
    // An index in the image list, or I_IMAGENONE.
    std::function<int(int row)> image = {};
    // Called for each range. It may hold rows that did not change: `selection` tells what is selected now.
    std::function<void(const SelectionChange& change)> selected = {};
};

// The system sends the list's requests to its parent, which hands WM_NOTIFY to route_list_notice. Only rows
// in view are asked for, so any number of rows costs the same. Typing selects the next row that begins so in
// the first column.
class VirtualList : public ReportListView {
public:
    // `style` holds further LVS_ bits.
    VirtualList(Wnd* parent, int control_id, DWORD style = 0);

    // Replaces the source. What its functions refer to must outlive the list's window or last until the next
    // source is set.
    void set_source(ListSource source);

    // Sets the number of rows and redraws those in view, without scrolling. Rows beyond it lose their
    // selection without a report.
    void set_count(int count);

    void select(int row) override;
    // Rows in ascending order.
    std::vector<int> selection() const;
    int selected_count() const;
    // Selects these rows alone; those that do not exist are left out. Does not scroll. A list of single
    // selection keeps the last of them.
    void select_rows(std::span<const int> rows);

    void ensure_visible(int row);
    // Redraws rows `first` to `last`, both included, that are in view.
    void redraw_rows(int first, int last);

private:
    friend bool route_list_notice(WndMessage& message);

    // Rows are the owner's.
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

// For the WM_NOTIFY handler of a parent: lets a VirtualList answer its own notices. False for every other
// notice, such as a click, and for the notices of other controls.
bool route_list_notice(WndMessage& message);

} // namespace ovlib
