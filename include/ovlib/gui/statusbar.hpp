// The system's status bar.
#pragma once
#include <vector>

#include "ovlib/gui/syscontrol.hpp"

namespace ovlib {

class StatusBar : public SysControl {
public:
    struct Borders {
        int horizontal = 0; // width of the borders at the sides
        int vertical = 0;
        int between = 0; // of two parts
    };

    StatusBar(Wnd* parent, int control_id);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    virtual void borders(Borders& out) const;
    virtual int part_count() const;
    virtual RECT part_rect(int index) const;
    // As it was set; empty for a part that never had one.
    virtual std::wstring part_text(int index) const;
    // SBT_OWNERDRAW in `flags` makes the parent draw the part, by draw_part.
    virtual void set_part_text(int index, const std::wstring& text, int flags);
    // The right edges; -1 for the last part makes it end with the bar.
    virtual void set_parts(const std::vector<int>& right_edges);
    // For the parent's WM_DRAWITEM. Tell the bar by hwndItem: CtlType has no meaning for it.
    virtual void draw_part(int index, HDC dc, const RECT& rect);

private:
    std::vector<std::wstring> texts_;
};

} // namespace ovlib
