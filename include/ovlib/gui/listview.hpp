// The system's list view. Rows and columns count from 0.
#pragma once
#include <climits>
#include <cstdint>
#include <vector>
#include <windows.h>

#include <commctrl.h>

#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/syscontrol.hpp"
#include "platform/geometry.hpp"

namespace ovlib {

class ListView : public SysControl {
public:
    class Header;

    static constexpr int at_end = INT_MAX;

    // `style` holds the LVS_ bits.
    ListView(Wnd* parent, int control_id, DWORD style);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    // Adds a row, at the end unless `index` says where, and returns its index; -1 on failure. `image` counts
    // in the image list.
    virtual int add_row(const std::wstring& text, int image = I_IMAGENONE, int index = at_end);
    virtual void set_cell(int row, int column, const std::wstring& text);
    // At most 1023 units of it; empty when there is no such cell.
    virtual std::wstring cell_text(int row, int column) const;
    virtual int count() const;
    virtual void clear();
    // Selects this row alone and scrolls to it; -1 for none.
    virtual void select(int row);
    // The first selected row; -1 for none.
    virtual int selected() const;
    // LVS_EX_ bits, in place of all there were.
    virtual void set_extended_style(DWORD style);
    // Of 16 x 16 pictures. The list must not own it: see LVS_SHAREIMAGELISTS.
    virtual void set_images(HIMAGELIST images);
    virtual void set_colors(Color back, Color text);

private:
    DWORD style_;
};

// In columns with titles; a row is selected as a whole.
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

// The header of a list with columns, drawn by a class of the program. The list makes the window; creating
// this object takes it over.
class ListView::Header : public SysControl {
public:
    explicit Header(ListView* list);

    bool create(const std::wstring& title) override;
    HWND create_window(const std::wstring& title, CREATESTRUCTW& params) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    bool on_message(WndMessage& message) override;

protected:
    // All of the header, into a buffer of its size, which then goes to the screen in one copy.
    virtual void draw(BackBuffer& buffer) = 0;

    std::vector<platform::Rect> cells() const;
    std::wstring title_of(int cell) const;

private:
    bool paint();

    BackBuffer buffer_;
};

} // namespace ovlib
