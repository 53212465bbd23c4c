// The system's edit control. Positions count UTF-16 units from 0.
#pragma once
#include "ovlib/gui/syscontrol.hpp"

namespace ovlib {

class EditBox : public SysControl {
public:
    EditBox(Wnd* parent, int control_id);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    virtual bool can_undo() const;
    virtual bool can_paste() const;
    virtual void paste();
    virtual void copy();
    virtual void cut();
    virtual void undo();
    virtual void set_read_only(bool read_only);
    virtual bool is_read_only() const;
    virtual void clear_undo();
    virtual void clear_selection();
    virtual void set_tab_stops(int units);
    // 0 means the maximum that the control can hold.
    virtual void set_limit(int limit);
    virtual int limit() const;
    // In the units of scroll_v_pos and scroll_h_pos: lines, and for the system's control, pixels.
    virtual void scroll_v_to(int pos);
    virtual void scroll_h_to(int pos);
    virtual int scroll_v_pos() const;
    virtual int scroll_h_pos() const;
    virtual void line_scroll(int columns, int lines);
    virtual void set_modified(bool modified);
    virtual bool is_modified() const;
    virtual void scroll_caret();
    // A position beyond the text means its end.
    virtual void set_caret(int pos);
    virtual int caret() const;
    // True if the selection is not empty; sets both ends in any case.
    virtual bool selection(int& start, int& end) const;
    virtual void select_all();
    virtual void set_selection(int start, int end);
    virtual bool has_selection() const;
    virtual std::wstring selected_text() const;
    virtual void select_at(int pos);
    virtual void replace_range(const std::wstring& text, int start, int end);
    virtual void replace_selection(const std::wstring& text);
    virtual void erase_range(int start, int end);
    virtual void erase_selection();
    virtual void append(const std::wstring& text);
    virtual int line_from_char(int pos) const;
    // Raw UTF-16LE; a byte order mark is not interpreted. False, with the text unchanged, for a file that is
    // empty, has an odd length or is longer than 0xFFFFFFFF bytes.
    virtual bool load_file(const std::wstring& path);
    // Raw UTF-16LE, without byte order mark and terminator.
    virtual bool save_file(const std::wstring& path);

    // Like set_text. A multi-line control takes over the memory of the text, so it computes its lines and
    // draws its scroll bars once; set_text makes it do that up to four times.
    void renew_text(const std::wstring& text);

private:
    bool hand_over(const std::wstring& text);
};

} // namespace ovlib
