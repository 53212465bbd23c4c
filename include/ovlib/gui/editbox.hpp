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
    // 0 means as much as the control can hold.
    virtual void set_limit(int limit);
    virtual int limit() const;
    // In the units of scroll_v_pos and scroll_h_pos: lines and, on the system's own control, pixels.
    virtual void scroll_v_to(int pos);
    virtual void scroll_h_to(int pos);
    virtual int scroll_v_pos() const;
    virtual int scroll_h_pos() const;
    virtual void line_scroll(int columns, int lines);
    virtual void set_modified(bool modified);
    virtual bool is_modified() const;
    virtual void scroll_caret();
    // Beyond the text: to its end.
    virtual void set_caret(int pos);
    virtual int caret() const;
    // True when the selection is not empty; fills both in any case.
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
    // Raw UTF-16LE without regard to a byte order mark. An empty file, one of odd length and one beyond
    // 0xFFFFFFFF bytes are failures, which leave the text as it was.
    virtual bool load_file(const std::wstring& path);
    // Raw UTF-16LE, no byte order mark, no terminator.
    virtual bool save_file(const std::wstring& path);

    // As set_text. A control of many lines takes the memory of the text over and lays it out and draws its
    // scroll bars once, which set_text has it do up to four times.
    void renew_text(const std::wstring& text);

private:
    bool hand_over(const std::wstring& text);
};

} // namespace ovlib
