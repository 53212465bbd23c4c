// The system's list view. Rows and columns count from 0.
#pragma once
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/syscontrol.hpp"
#include "platform/geometry.hpp"
#include <windows.h>
#include <climits>
#include <commctrl.h>
#include <cstdint>
#include <vector>

namespace ovlib {

class ListView : public SysControl {
public:
    class Header;

    static constexpr int at_end = INT_MAX;

    // `style` contains the LVS_ bits.
    ListView(Wnd* parent, int control_id, DWORD style);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    // Inserts a row at `index`, by default at the end, and returns its index; -1 on failure. `image` is an
    // index in the image list.
    virtual int add_row(const std::wstring& text, int image = I_IMAGENONE, int index = at_end);
    virtual void set_cell(int row, int column, const std::wstring& text);
    // Truncated to 1023 units; empty if there is no such cell.
    virtual std::wstring cell_text(int row, int column) const;
    virtual int count() const;
    virtual void clear();
    // Selects only this row and scrolls to it; -1 selects none.
    virtual void select(int row);
    // The first selected row; -1 if none is selected.
    virtual int selected() const;
    // Replaces all LVS_EX_ bits.
    virtual void set_extended_style(DWORD style);
    // For pictures of 16 x 16 pixels. The list must not own them: see LVS_SHAREIMAGELISTS.
    virtual void set_images(HIMAGELIST images);
    virtual void set_colors(Color back, Color text);

private:
    DWORD style_;
};

// A list of columns with titles; whole rows are selected.
class ReportListView : public ListView {
public:
    ReportListView(Wnd* parent, int control_id, DWORD style = 0);

    bool create(const std::wstring& title) override;

    // Adds a column on the right and returns its index; -1 on failure.
    virtual int add_column(const std::wstring& title, int width);
    virtual int column_count() const;
    virtual int column_width(int column) const;
    virtual void set_column_width(int column, int width);
};

// The header of a list with columns, drawn by a class of the program. The list creates the window; create()
// of this object takes it over.
class ListView::Header : public SysControl {
public:
    explicit Header(ListView* list);

    bool create(const std::wstring& title) override;
    HWND create_window(const std::wstring& title, CREATESTRUCTW& params) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    bool on_message(WndMessage& message) override;

protected:
    // Draws the whole header into a buffer of its size, which is then copied to the screen.
    virtual void draw(BackBuffer& buffer) = 0;

    std::vector<platform::Rect> cells() const;
    std::wstring title_of(int cell) const;

private:
    bool paint();

    BackBuffer buffer_;
};

} // namespace ovlib
