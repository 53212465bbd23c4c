// The system's status bar.
#pragma once
#include "ovlib/gui/syscontrol.hpp"
#include <vector>

namespace ovlib {

class StatusBar : public SysControl {
public:
    struct Borders {
        int horizontal = 0; // width of the borders at the sides
        int vertical = 0;
        int between = 0; // between two parts
    };

    StatusBar(Wnd* parent, int control_id);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    virtual void borders(Borders& out) const;
    virtual int part_count() const;
    virtual RECT part_rect(int index) const;
    // The text that was set; empty if none was.
    virtual std::wstring part_text(int index) const;
    // With SBT_OWNERDRAW in `flags` the parent draws the part, by draw_part.
    virtual void set_part_text(int index, const std::wstring& text, int flags);
    // The right edges of the parts; -1 extends the last part to the end of the bar.
    virtual void set_parts(const std::vector<int>& right_edges);
    // For the parent's WM_DRAWITEM. Identify the bar by hwndItem, because CtlType is undefined for it.
    virtual void draw_part(int index, HDC dc, const RECT& rect);

private:
    std::vector<std::wstring> texts_;
};

} // namespace ovlib
